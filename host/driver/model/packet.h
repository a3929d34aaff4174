// A packet between the switch and its CPU.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <vector>

#include "host/driver/model/stack.h"

namespace quillon::driver {

// From the destination address on, without a check sequence.
using PacketBytes = std::vector<std::byte>;

// Two addresses and a type; the same, two tags and the largest MTU.
inline constexpr size_t shortest_packet = 14;
inline constexpr size_t longest_packet = 14 + 2 * 4 + 9216;

constexpr bool is_packet_length(uint64_t length)
{
    return length >= shortest_packet && length <= longest_packet;
}

// Cookies from 0 on say from which pool a received packet's buffer is drawn, the last one stands for no pool.
inline constexpr uint32_t cookies = 11;

inline constexpr uint32_t most_class_of_service = 7;

// With a VLAN tag (IEEE 802.1Q) behind its addresses.
PacketBytes tagged(const PacketBytes &bytes, uint32_t vlan, uint32_t class_of_service);

struct SentPacket {
    static constexpr uint32_t cpu_port = 0;  // of any unit

    LogicalPort port;
    uint32_t class_of_service = 0;
    PacketBytes bytes;
};

struct ReceivedPacket {
    LogicalPort port;
    uint32_t cookie = 0;
    uint32_t cpu_code = 0;  // why it came to the CPU
    PacketBytes bytes;
};

}  // namespace quillon::driver
