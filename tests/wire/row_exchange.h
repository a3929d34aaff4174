// What the tests over all rows share: the bytes that a row stands for.
#pragma once

#include <cstdint>
#include <vector>

#include "support/byte_text.h"
#include "support/request_facts.h"
#include "support/wire_row.h"

namespace quillon::test {

// Everything that the row's request sends: 20 + msg_size bytes.
std::vector<TextByte> sent_envelope(const WireRow &row, const RequestFacts &facts);

// The reply's bytes from `type` on.
std::vector<TextByte> reply_from_type(const WireRow &row, const RequestFacts &facts);

// Attaches the process to the queues of all families.
void start_all_families();

}  // namespace quillon::test
