// What the tests over all rows share: the bytes that a row stands for.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "support/byte_text.h"
#include "support/request_facts.h"
#include "support/wire_row.h"

namespace quillon::test {

// Everything that the row's request sends: 20 + msg_size bytes.
std::vector<TextByte> sent_envelope(const WireRow &row, const RequestFacts &facts);

// The reply's bytes from `type` on.
std::vector<TextByte> reply_from_type(const WireRow &row, const RequestFacts &facts);

// Runs the start-up of the family of `function` and of no other. Returns the handle that it got for `queue_key`.
void *start_family_of(std::string_view function, uint32_t queue_key);

}  // namespace quillon::test
