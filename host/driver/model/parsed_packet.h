// What the headers of a packet say.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <array>
#include <optional>
#include <span>

#include "host/driver/model/mac_address.h"

namespace quillon::driver {

using Ipv6Address = std::array<uint8_t, 16>;

struct VlanTag {
    uint16_t vid;
    uint8_t priority;
};

enum class Encapsulation : uint8_t {
    ethernet,  // the type field is an EtherType
    snap,      // it is a length, and the EtherType stands in an RFC 1042 header
    llc,       // it is a length, and no such header follows
};

struct Ipv4Addresses {
    uint32_t source;
    uint32_t destination;
};

struct Ipv6Addresses {
    Ipv6Address source;
    Ipv6Address destination;
};

struct Fragment {
    bool is_fragment;
    bool is_first;  // also of a packet that is whole
};

// A field that the packet does not have, or that lies behind its end, is not there.
struct ParsedPacket {
    std::span<const std::byte> bytes;  // not owned

    std::optional<MacAddress> destination;
    std::optional<MacAddress> source;
    std::optional<bool> tagged;
    std::optional<VlanTag> tag;  // the outer one of two
    std::optional<Encapsulation> encapsulation;
    std::optional<uint16_t> ether_type;

    // IP of either version. The protocol of IPv6 is the first header that is no extension header.
    std::optional<uint8_t> traffic_class;
    std::optional<uint8_t> protocol;
    std::optional<Fragment> fragment;
    std::optional<Ipv4Addresses> ipv4;
    std::optional<Ipv6Addresses> ipv6;
    bool hop_by_hop = false;

    std::optional<uint16_t> source_port;  // of ICMPv6 its type and code, which stand in the same place
    std::optional<uint16_t> destination_port;
    std::optional<uint8_t> tcp_control;
    std::optional<uint8_t> icmp_type;  // of ICMP for IPv4

    // Where the headers begin: behind the EtherType, and behind the IP headers.
    std::optional<size_t> network_header;
    std::optional<size_t> transport_header;
};

// Takes any bytes, also none: what is cut short or contradicts itself is parsed as far as it goes. The packet keeps
// pointing to `bytes`.
ParsedPacket parse_packet(std::span<const std::byte> bytes);

}  // namespace quillon::driver
