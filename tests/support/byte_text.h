// Bytes written as text, so that a test's expectations can be compared with a table of offsets by eye.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::test {

// A byte with a value, or one that the text leaves open.
using TextByte = std::optional<uint8_t>;

// The words of a text, separated by spaces:
//
//   04030201   bytes in the order in which they stand in memory
//   AB*16      the same byte sixteen times
//   10..2F     ascending bytes, both ends included
//   --         a byte that is left open; --*16 leaves sixteen open
//   +28        the next byte stands at offset 28; bytes passed over are `skipped`
//
// Offsets are counted from the start of the envelope or record; the text's first byte stands at `start`.
// Throws std::invalid_argument for a text that is none, also when an offset lies behind the bytes written so far.
std::vector<TextByte> bytes_of(std::string_view text, size_t start = 0, TextByte skipped = uint8_t{0});

// The same for a text without open bytes.
std::vector<uint8_t> closed_bytes_of(std::string_view text);

// The reverse, for texts composed by a loop.
std::string text_of(std::span<const uint8_t> bytes);

// As many bytes as a text, none like its neighbours: copied from a wrong place, they show it.
std::string distinct_bytes(size_t size);

// The differences as lines "+28: expected 11, found 12", or an empty string. A surplus or missing end is a difference.
std::string differences(std::span<const TextByte> expected, std::span<const uint8_t> found, size_t start = 0);

}  // namespace quillon::test
