// How the routing requests encode what they change. docs/driver-encodings.md tells it to their callers.
#pragma once

#include <stdint.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <optional>

#include "host/driver/encoding.h"
#include "host/driver/model/ip_address.h"
#include "host/driver/model/ip_multicast.h"
#include "host/driver/model/routes.h"
#include "host/driver/model/table_status.h"
#include "quillon/swdrvl3.h"
#include "swdrvl3/commands.h"

namespace quillon::driver {

template <>
inline constexpr auto codes<TableStatus> = std::to_array<Code<TableStatus>>({
    {0, TableStatus::done},
    {1, TableStatus::exists},
    {2, TableStatus::absent},
    {3, TableStatus::full},
    {4, TableStatus::invalid},
    {5, TableStatus::unresolved},
    {6, TableStatus::in_use},
    // 7 is what callers get from a failed exchange.
});

// There is one.
inline constexpr uint32_t virtual_router = 0;

// ---- Addresses: the types of INET-ADDRESS-MIB (RFC 4001) ----

template <>
inline constexpr auto codes<IpVersion> = std::to_array<Code<IpVersion>>({
    {1, IpVersion::v4},
    {2, IpVersion::v6},
});

// Nothing when more than an IPv4 address stands where one is expected.
constexpr std::optional<IpAddress> decoded_address(IpVersion version, const std::array<uint8_t, 16> &bytes)
{
    const bool too_long =
        version == IpVersion::v4 && std::any_of(bytes.begin() + 4, bytes.end(), [](uint8_t byte) { return byte != 0; });
    return too_long ? std::nullopt : std::optional(IpAddress{.version = version, .bytes = bytes});
}

// ---- Route entries ----

// What the hardware has of a route: filled in, never read. All zero for a route that is not there.
struct HostHardware {
    uint32_t installed;
    uint32_t number;  // its place in the table
};

struct NetHardware {
    uint32_t installed;
    uint32_t number;
    uint32_t path_count;
};

struct HostRouteRecord {
    uint32_t address_type;
    uint32_t interface;
    std::array<uint8_t, 16> address;
    MacAddress mac;
    std::array<uint8_t, 2> reserved_beside_mac;
    uint32_t unit;
    uint32_t port;
    HostHardware hardware;
    std::array<uint8_t, 24> reserved;
};
static_assert(sizeof(HostRouteRecord) == sizeof(HostRouteEntry) && offsetof(HostRouteRecord, hardware) == 40);

struct NetRouteRecord {
    uint32_t address_type;
    uint32_t prefix_length;
    std::array<uint8_t, 16> network;
    uint64_t next_hop;  // of a special default route; those of other routes are arguments
    NetHardware hardware;
    std::array<uint8_t, 36> reserved;
};
static_assert(sizeof(NetRouteRecord) == sizeof(NetRouteEntry) && offsetof(NetRouteRecord, hardware) == 32);

inline HostHardware hardware_of(const Routes::Hosts::Entry *entry)
{
    return entry == nullptr ? HostHardware{} : HostHardware{.installed = 1, .number = entry->number};
}

inline NetHardware hardware_of(const Routes::Networks::Entry *entry)
{
    return entry == nullptr ? NetHardware{}
                            : NetHardware{.installed = 1,
                                          .number = entry->number,
                                          .path_count = static_cast<uint32_t>(entry->value.paths.size())};
}

inline std::optional<IpAddress> address_of(const HostRouteRecord &record)
{
    const auto version = decoded<IpVersion>(record.address_type);
    return version ? decoded_address(*version, record.address) : std::nullopt;
}

inline Neighbour neighbour_of(const HostRouteRecord &record)
{
    return {.interface = record.interface, .mac = record.mac, .port = {.unit = record.unit, .port = record.port}};
}

inline std::optional<IpPrefix> prefix_of(const NetRouteRecord &record)
{
    const auto version = decoded<IpVersion>(record.address_type);
    const auto network = version ? decoded_address(*version, record.network) : std::nullopt;
    return network ? std::optional(IpPrefix{.network = *network, .length = record.prefix_length}) : std::nullopt;
}

// ---- IP multicast ----

// IPv6 groups begin with a byte that no IPv4 group begins with.
inline std::optional<McastFlow> flow_of(const swdrvl3::McastEntryKey &key)
{
    const IpVersion version = key.group[0] == 0xFF ? IpVersion::v6 : IpVersion::v4;
    const auto group = decoded_address(version, key.group);
    const auto source = decoded_address(version, key.source);
    return group && source ? std::optional(McastFlow{.vlan = key.arg1, .group = *group, .source = *source})
                           : std::nullopt;
}

// In the place of a port that packets may come in at.
inline constexpr LogicalPort any_port{.unit = 0, .port = 0};

inline LogicalPort decoded_port(const std::array<uint8_t, 8> &bytes)
{
    const auto [unit, port] = std::bit_cast<std::array<uint32_t, 2>>(bytes);
    return {.unit = unit, .port = port};
}

inline McastCopy decoded_copy(const McastInterface &interface)
{
    const auto [unit, port, id] = std::bit_cast<std::array<uint32_t, 3>>(interface);
    return {.port = {.unit = unit, .port = port}, .interface = id};
}

inline auto decoded_copies(const McastEntryBlock &block)
{
    std::array<McastCopy, sizeof block / sizeof(McastInterface)> copies;
    std::ranges::transform(std::bit_cast<std::array<McastInterface, copies.size()>>(block), copies.begin(),
                           decoded_copy);
    return copies;
}

inline constexpr uint32_t no_entry_status = 0;
inline constexpr uint32_t clear_hit_after_reading = 1;

inline uint32_t entry_status(const L3McastEntry &entry)
{
    constexpr uint32_t is_there = 1;
    constexpr uint32_t hit = 2;
    constexpr uint32_t to_cpu = 4;
    const auto size = [](const auto &set) { return static_cast<uint32_t>(set.size()); };
    return is_there | (entry.hit ? hit : 0) | (entry.to_cpu ? to_cpu : 0) | size(entry.ports) << 4 |
           size(entry.downstream) << 16 | size(entry.replications) << 24;
}

}  // namespace quillon::driver
