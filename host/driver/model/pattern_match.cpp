#include "host/driver/model/pattern_match.h"

#include <algorithm>
#include <array>
#include <concepts>
#include <optional>

namespace quillon::driver {
namespace {

template <std::unsigned_integral T, std::unsigned_integral U>
bool shows(const std::optional<T> &field, U value, U mask)
{
    return mask == 0 || (field && ((*field ^ value) & mask) == 0);
}

template <size_t Size>
bool shows(const std::optional<std::array<uint8_t, Size>> &field, const uint8_t *value, const uint8_t *mask)
{
    for (size_t i = 0; i < Size; ++i) {
        if (!shows(field ? std::optional((*field)[i]) : std::nullopt, value[i], mask[i])) {
            return false;
        }
    }
    return true;
}

// A part of a field that may not be there.
template <class Field, class Part>
auto part(const std::optional<Field> &field, Part part_of)
{
    return field ? std::optional(part_of(*field)) : std::nullopt;
}

std::optional<uint8_t> dscp(const ParsedPacket &packet)
{
    return part(packet.traffic_class, [](uint8_t byte) { return static_cast<uint8_t>(byte >> 2); });
}

std::optional<uint8_t> precedence(const ParsedPacket &packet)
{
    return part(packet.traffic_class, [](uint8_t byte) { return static_cast<uint8_t>(byte >> 5); });
}

std::optional<uint8_t> priority(const ParsedPacket &packet)
{
    return part(packet.tag, [](const VlanTag &tag) { return tag.priority; });
}

// Bit 0: it is a fragment; bit 1: and not the first one.
std::optional<uint8_t> fragment(const ParsedPacket &packet)
{
    return part(packet.fragment, [](const Fragment &field) {
        return static_cast<uint8_t>((field.is_fragment ? 1 : 0) | (field.is_first ? 0 : 2));
    });
}

struct Qualifier {
    uint32_t flag;
    bool (*shown)(const RulePattern &pattern, const ParsedPacket &packet);
};

// The field of an L4 port is wider than a port.
constexpr uint16_t low(uint32_t value)
{
    return static_cast<uint16_t>(value);
}

using P = const RulePattern &;
using K = const ParsedPacket &;

constexpr Qualifier qualifiers[] = {
    {RULE_QUALIFY_UDB0_5, [](P, K) { return true; }},  // the bytes take part by a flag of their own
    {RULE_QUALIFY_IS_TAGGED, [](P p, K k) { return k.tagged == (p.isTagged != 0); }},
    {RULE_QUALIFY_VID,
     [](P p, K k) { return shows(part(k.tag, [](const VlanTag &tag) { return tag.vid; }), p.vid, p.vid_mask); }},
    {RULE_QUALIFY_VTAGUP | RULE_QUALIFY_COS, [](P p, K k) { return shows(priority(k), p.vtagup, p.vtagup_mask); }},
    {RULE_QUALIFY_ETH_TYPE, [](P p, K k) { return shows(k.ether_type, p.ethType, p.ethType_mask); }},
    {RULE_QUALIFY_ENCAP,
     [](P p, K k) {
         return shows(part(k.encapsulation, [](Encapsulation kind) { return static_cast<uint32_t>(kind); }), p.encap,
                      p.encap_mask);
     }},
    {RULE_QUALIFY_DA, [](P p, K k) { return shows(k.destination, p.da, p.da_mask); }},
    {RULE_QUALIFY_SA, [](P p, K k) { return shows(k.source, p.sa, p.sa_mask); }},
    {RULE_QUALIFY_IP_PROTOCOL, [](P p, K k) { return shows(k.protocol, p.ipProtocol, p.ipProtocol_mask); }},
    {RULE_QUALIFY_DSCP, [](P p, K k) { return shows(dscp(k), p.dscp, p.dscp_mask); }},
    {RULE_QUALIFY_TCP_CONTROL, [](P p, K k) { return shows(k.tcp_control, p.tcp.control, p.tcp.control_mask); }},
    {RULE_QUALIFY_L4_SPORT, [](P p, K k) { return shows(k.source_port, low(p.l4.sport), low(p.l4.sport_mask)); }},
    {RULE_QUALIFY_L4_DPORT, [](P p, K k) { return shows(k.destination_port, low(p.l4.dport), low(p.l4.dport_mask)); }},
    {RULE_QUALIFY_IPV6_HDR_EXIST, [](P, K k) { return k.ipv6.has_value(); }},
    {RULE_QUALIFY_IPV6_HOP_BY_HOP, [](P, K k) { return k.hop_by_hop; }},
    {RULE_QUALIFY_IP_FRAGMENT, [](P p, K k) { return shows(fragment(k), p.ip_fragment, p.ip_fragment_mask); }},
    {RULE_QUALIFY_SIP,
     [](P p, K k) { return shows(part(k.ipv4, [](const auto &ip) { return ip.source; }), p.sip, p.sip_mask); }},
    {RULE_QUALIFY_DIP,
     [](P p, K k) { return shows(part(k.ipv4, [](const auto &ip) { return ip.destination; }), p.dip, p.dip_mask); }},
    {RULE_QUALIFY_IPV6_SIP,
     [](P p, K k) {
         return shows(part(k.ipv6, [](const auto &ip) { return ip.source; }), p.ipv6.sip, p.ipv6.sip_mask);
     }},
    {RULE_QUALIFY_IPV6_DIP,
     [](P p, K k) {
         return shows(part(k.ipv6, [](const auto &ip) { return ip.destination; }), p.ipv6.dip, p.ipv6.dip_mask);
     }},
    {RULE_QUALIFY_PRECEDENCE, [](P p, K k) { return shows(precedence(k), p.precedence, p.precedence_mask); }},
    {RULE_QUALIFY_ICMP_TYPE, [](P p, K k) { return shows(k.icmp_type, p.icmp.type, p.icmp.type_mask); }},
};

constexpr uint32_t all_flags = [] {
    uint32_t flags = 0;
    for (const Qualifier &qualifier : qualifiers) {
        flags |= qualifier.flag;
    }
    return flags;
}();

std::optional<size_t> start_of(const UserBytesPlace &place, const ParsedPacket &packet)
{
    using enum UserBytesPlace::Start;
    switch (place.start) {
        case packet_start:
            return 0;
        case network_header:
            return packet.network_header;
        case transport_header:
            return packet.transport_header;
    }
    return std::nullopt;
}

bool user_bytes_match(const RulePattern &pattern, const UserBytesPlace &place, const ParsedPacket &packet)
{
    const auto start = start_of(place, packet);
    for (size_t i = 0; i < sizeof pattern.udb0_5; ++i) {
        std::optional<uint8_t> byte;
        if (start && *start + place.offset + i < packet.bytes.size()) {
            byte = std::to_integer<uint8_t>(packet.bytes[*start + place.offset + i]);
        }
        if (!shows(byte, pattern.udb0_5[i], pattern.udb0_5_mask[i])) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool is_valid(const RulePattern &pattern)
{
    constexpr uint32_t user_flags = RULE_UDB_UDB0_5;
    return (pattern.qualifyFlags & ~all_flags) == 0 && (pattern.udbFlags & ~user_flags) == 0;
}

bool matches(const RulePattern &pattern, const UserBytesPlace &user_bytes, const ParsedPacket &packet)
{
    const auto holds = [&](const Qualifier &qualifier) {
        return (pattern.qualifyFlags & qualifier.flag) == 0 || qualifier.shown(pattern, packet);
    };
    return std::ranges::all_of(qualifiers, holds) &&
           ((pattern.udbFlags & RULE_UDB_UDB0_5) == 0 || user_bytes_match(pattern, user_bytes, packet));
}

}  // namespace quillon::driver
