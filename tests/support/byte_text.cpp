#include "support/byte_text.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <stdexcept>

namespace quillon::test {
namespace {

[[noreturn]] void refuse(std::string_view word, const char *why)
{
    throw std::invalid_argument("\"" + std::string(word) + "\" in a byte text: " + why);
}

size_t number(std::string_view digits, int base, std::string_view word)
{
    size_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    if (error != std::errc() || end != digits.data() + digits.size()) {
        refuse(word, "not a number");
    }
    return value;
}

TextByte one_byte(std::string_view digits, std::string_view word)
{
    if (digits == "--") {
        return std::nullopt;
    }
    if (digits.size() != 2) {
        refuse(word, "a byte has two digits");
    }
    return static_cast<uint8_t>(number(digits, 16, word));
}

void append_word(std::string_view word, size_t start, TextByte skipped, std::vector<TextByte> &bytes)
{
    if (word.front() == '+') {
        const size_t offset = number(word.substr(1), 10, word);
        if (offset < start + bytes.size()) {
            refuse(word, "the text has passed this offset");
        }
        bytes.resize(offset - start, skipped);
    } else if (const size_t star = word.find('*'); star != std::string_view::npos) {
        const TextByte byte = one_byte(word.substr(0, star), word);
        bytes.resize(bytes.size() + number(word.substr(star + 1), 10, word), byte);
    } else if (const size_t dots = word.find(".."); dots != std::string_view::npos) {
        const size_t first = number(word.substr(0, dots), 16, word);
        const size_t last = number(word.substr(dots + 2), 16, word);
        if (dots != 2 || word.size() != 6 || first > last) {
            refuse(word, "a range has two bytes in ascending order");
        }
        for (size_t value = first; value <= last; ++value) {
            bytes.emplace_back(static_cast<uint8_t>(value));
        }
    } else {
        if (word.size() % 2 != 0) {
            refuse(word, "a byte has two digits");
        }
        for (size_t at = 0; at < word.size(); at += 2) {
            bytes.push_back(one_byte(word.substr(at, 2), word));
        }
    }
}

std::string hex(TextByte byte)
{
    if (!byte) {
        return "--";
    }
    char digits[3];
    std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(*byte));
    return digits;
}

}  // namespace

std::vector<TextByte> bytes_of(std::string_view text, size_t start, TextByte skipped)
{
    std::vector<TextByte> bytes;
    for (size_t at = 0; (at = text.find_first_not_of(' ', at)) != std::string_view::npos;) {
        const size_t end = std::min(text.find(' ', at), text.size());
        append_word(text.substr(at, end - at), start, skipped, bytes);
        at = end;
    }
    return bytes;
}

std::vector<uint8_t> closed_bytes_of(std::string_view text)
{
    std::vector<uint8_t> closed;
    for (const TextByte byte : bytes_of(text)) {
        if (!byte) {
            refuse(text, "every byte needs a value here");
        }
        closed.push_back(*byte);
    }
    return closed;
}

std::string text_of(std::span<const uint8_t> bytes)
{
    std::string text;
    for (const uint8_t byte : bytes) {
        text += hex(byte);
    }
    return text;
}

std::string distinct_bytes(size_t size)
{
    std::vector<uint8_t> bytes;
    for (size_t at = 0; at < size; ++at) {
        bytes.push_back(static_cast<uint8_t>(at * 7 + at / 256));
    }
    return text_of(bytes);
}

std::string differences(std::span<const TextByte> expected, std::span<const uint8_t> found, size_t start)
{
    constexpr int most = 16;
    int count = 0;
    std::string lines;
    for (size_t at = 0; at < std::min(expected.size(), found.size()); ++at) {
        if (expected[at] && *expected[at] != found[at] && ++count <= most) {
            lines += "+" + std::to_string(start + at) + ": expected " + hex(expected[at]) + ", found " +
                     hex(found[at]) + "\n";
        }
    }
    if (count > most) {
        lines += "and " + std::to_string(count - most) + " more\n";
    }
    if (expected.size() != found.size()) {
        lines += "expected an end at +" + std::to_string(start + expected.size()) + ", found it at +" +
                 std::to_string(start + found.size()) + "\n";
    }
    return lines;
}

}  // namespace quillon::test
