#include "host/driver/model/parsed_packet.h"

#include <algorithm>
#include <concepts>

namespace quillon::driver {
namespace {

// The number in network order, or the bytes, at a place that may lie behind the end.

template <std::unsigned_integral T>
std::optional<T> number_at(std::span<const std::byte> bytes, size_t at)
{
    if (at > bytes.size() || bytes.size() - at < sizeof(T)) {
        return std::nullopt;
    }
    T value = 0;
    for (const std::byte byte : bytes.subspan(at, sizeof(T))) {
        value = static_cast<T>(uint64_t{value} << 8 | std::to_integer<T>(byte));
    }
    return value;
}

template <class Array>
std::optional<Array> array_at(std::span<const std::byte> bytes, size_t at)
{
    Array array;
    if (at > bytes.size() || bytes.size() - at < array.size()) {
        return std::nullopt;
    }
    std::ranges::transform(bytes.subspan(at, array.size()), array.begin(), std::to_integer<uint8_t>);
    return array;
}

// What lies behind the end of an inner packet is padding.
std::span<const std::byte> cut_off(std::span<const std::byte> bytes, size_t end)
{
    return bytes.first(std::min(bytes.size(), end));
}

namespace protocols {
constexpr uint8_t hop_by_hop = 0;
constexpr uint8_t icmp = 1;
constexpr uint8_t tcp = 6;
constexpr uint8_t udp = 17;
constexpr uint8_t routing = 43;
constexpr uint8_t fragment = 44;
constexpr uint8_t authentication = 51;
constexpr uint8_t icmpv6 = 58;
constexpr uint8_t destination_options = 60;
}  // namespace protocols

void parse_transport(ParsedPacket &packet, std::span<const std::byte> bytes, size_t at)
{
    packet.transport_header = at;
    switch (*packet.protocol) {
        case protocols::tcp:
            packet.tcp_control = number_at<uint8_t>(bytes, at + 13);
            [[fallthrough]];
        case protocols::udp:
            packet.source_port = number_at<uint16_t>(bytes, at);
            packet.destination_port = number_at<uint16_t>(bytes, at + 2);
            break;
        case protocols::icmp:
            if (packet.ipv4) {
                packet.icmp_type = number_at<uint8_t>(bytes, at);
            }
            break;
        case protocols::icmpv6:
            if (packet.ipv6) {
                packet.source_port = number_at<uint16_t>(bytes, at);
            }
            break;
        default:
            break;
    }
}

void parse_ipv4(ParsedPacket &packet, std::span<const std::byte> bytes, size_t at)
{
    constexpr size_t least_header = 20;
    const uint8_t version_and_size = number_at<uint8_t>(bytes, at).value_or(0);
    const size_t header = (version_and_size & 0x0FU) * size_t{4};
    if (bytes.size() - at < least_header || version_and_size >> 4 != 4 || header < least_header) {
        return;
    }
    const uint16_t total = *number_at<uint16_t>(bytes, at + 2);
    const uint16_t fragment = *number_at<uint16_t>(bytes, at + 6);
    constexpr uint16_t more_fragments = 0x2000;
    constexpr uint16_t offset = 0x1FFF;
    packet.traffic_class = number_at<uint8_t>(bytes, at + 1);
    packet.protocol = number_at<uint8_t>(bytes, at + 9);
    packet.fragment = {.is_fragment = (fragment & (more_fragments | offset)) != 0,
                       .is_first = (fragment & offset) == 0};
    packet.ipv4 = {.source = *number_at<uint32_t>(bytes, at + 12), .destination = *number_at<uint32_t>(bytes, at + 16)};
    const std::span<const std::byte> datagram = cut_off(bytes, at + total);
    if (packet.fragment->is_first && at + header <= datagram.size()) {
        parse_transport(packet, datagram, at + header);
    }
}

// The size of an extension header. Nothing for a header of another kind.
std::optional<size_t> extension_size(uint8_t kind, uint8_t length)
{
    switch (kind) {
        case protocols::hop_by_hop:
        case protocols::routing:
        case protocols::destination_options:
            return (length + size_t{1}) * 8;
        case protocols::authentication:
            return (length + size_t{2}) * 4;
        case protocols::fragment:
            return 8;
        default:
            return std::nullopt;
    }
}

void parse_ipv6_payload(ParsedPacket &packet, std::span<const std::byte> bytes, size_t at, uint8_t kind)
{
    Fragment fragment{.is_fragment = false, .is_first = true};
    while (const auto size = extension_size(kind, number_at<uint8_t>(bytes, at + 1).value_or(0))) {
        if (bytes.size() - at < *size) {
            return;
        }
        if (kind == protocols::fragment) {
            const uint16_t offset_and_more = *number_at<uint16_t>(bytes, at + 2);
            fragment = {.is_fragment = (offset_and_more & 0xFFF9U) != 0, .is_first = (offset_and_more & 0xFFF8U) == 0};
            packet.fragment = fragment;
        }
        kind = *number_at<uint8_t>(bytes, at);
        at += *size;
        if (!fragment.is_first) {
            break;
        }
    }
    packet.fragment = fragment;
    if (!extension_size(kind, 0)) {
        packet.protocol = kind;
        if (fragment.is_first) {
            parse_transport(packet, bytes, at);
        }
    }
}

void parse_ipv6(ParsedPacket &packet, std::span<const std::byte> bytes, size_t at)
{
    constexpr size_t header = 40;
    const uint16_t version_and_class = number_at<uint16_t>(bytes, at).value_or(0);
    if (bytes.size() - at < header || version_and_class >> 12 != 6) {
        return;
    }
    packet.traffic_class = static_cast<uint8_t>(version_and_class >> 4);
    packet.ipv6 = {.source = *array_at<Ipv6Address>(bytes, at + 8),
                   .destination = *array_at<Ipv6Address>(bytes, at + 24)};
    const uint16_t payload = *number_at<uint16_t>(bytes, at + 4);
    const uint8_t next = *number_at<uint8_t>(bytes, at + 6);
    packet.hop_by_hop = next == protocols::hop_by_hop;
    parse_ipv6_payload(packet, cut_off(bytes, at + header + payload), at + header, next);
}

constexpr bool is_tpid(uint16_t type)
{
    return type == 0x8100 || type == 0x88A8 || type == 0x9100;
}

}  // namespace

ParsedPacket parse_packet(std::span<const std::byte> bytes)
{
    constexpr size_t type_at = 12;
    constexpr size_t tag_size = 4;
    constexpr int most_tags = 2;

    ParsedPacket packet;
    packet.bytes = bytes;
    packet.destination = array_at<MacAddress>(bytes, 0);
    packet.source = array_at<MacAddress>(bytes, sizeof(MacAddress));

    size_t at = type_at;
    auto type = number_at<uint16_t>(bytes, at);
    if (type) {
        packet.tagged = is_tpid(*type);
    }
    for (int tags = 0; type && is_tpid(*type) && tags < most_tags; ++tags) {
        const auto tag = number_at<uint16_t>(bytes, at + 2);
        if (tags == 0 && tag) {
            packet.tag = {.vid = static_cast<uint16_t>(*tag & 0x0FFFU), .priority = static_cast<uint8_t>(*tag >> 13)};
        }
        at += tag_size;
        type = number_at<uint16_t>(bytes, at);
    }
    if (!type) {
        return packet;
    }
    at += sizeof *type;

    constexpr uint16_t least_ether_type = 0x0600;
    if (*type >= least_ether_type) {
        packet.encapsulation = Encapsulation::ethernet;
    } else {
        constexpr std::array<uint8_t, 6> rfc1042 = {0xAA, 0xAA, 0x03, 0x00, 0x00, 0x00};
        bytes = cut_off(bytes, at + *type);
        const auto header = bytes.subspan(at, std::min(bytes.size() - at, rfc1042.size()));
        if (!std::ranges::equal(header, std::span(rfc1042).first(header.size()), {}, std::to_integer<uint8_t>)) {
            packet.encapsulation = Encapsulation::llc;
            return packet;
        }
        at += rfc1042.size();
        type = number_at<uint16_t>(bytes, at);
        if (!type) {
            return packet;
        }
        at += sizeof *type;
        packet.encapsulation = Encapsulation::snap;
    }

    packet.ether_type = type;
    packet.network_header = at;
    if (*type == 0x0800) {
        parse_ipv4(packet, bytes, at);
    } else if (*type == 0x86DD) {
        parse_ipv6(packet, bytes, at);
    }
    return packet;
}

}  // namespace quillon::driver
