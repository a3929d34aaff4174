// Whether a packet is one of those that a rule's pattern describes.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "host/driver/model/parsed_packet.h"
#include "quillon/devrm.h"

namespace quillon::driver {

// Where the user-defined bytes of a pattern stand in a packet.
struct UserBytesPlace {
    enum class Start : uint8_t { packet_start, network_header, transport_header };

    Start start = Start::packet_start;
    size_t offset = 0;
};

// Only fields that there are take part.
bool is_valid(const RulePattern &pattern);

// Every bit that is compared must be there and equal. A field of which no bit is compared excludes no packet.
bool matches(const RulePattern &pattern, const UserBytesPlace &user_bytes, const ParsedPacket &packet);

}  // namespace quillon::driver
