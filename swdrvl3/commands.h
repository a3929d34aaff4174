// The routing service's requests: code, what each carries, what comes back.
//
// Fields whose meaning is the driver process's alone are named after the argument that fills them.
#pragma once

#include <stdint.h>

#include <array>
#include <cstddef>

#include "ipc/envelope.h"
#include "quillon/swdrvl3.h"
#include "swdrvl3/family.h"

namespace quillon::swdrvl3 {

using ipc::Padded;
using ipc::Unused;

using Mac = std::array<uint8_t, 6>;

struct Word {
    uint32_t value;
};

struct RoutingSwitch {
    uint32_t arg1;
    uint32_t arg2;
};

// The identifier of the new interface comes back in the place of the leading bytes that nobody fills.
struct NewL3Interface {
    Unused<4> interface_id;
    uint32_t arg1;
    uint32_t arg2;
    Mac mac;
    Unused<2> padding;
};
static_assert(offsetof(NewL3Interface, mac) == 12 && sizeof(NewL3Interface) == 20);

// Begins where the identifier stands in `NewL3Interface`: the two do not line up.
struct L3Interface {
    uint32_t arg1;
    uint32_t arg2;
    uint32_t arg4;
    Mac mac;
    Unused<2> padding;
};
static_assert(offsetof(L3Interface, mac) == 12 && sizeof(L3Interface) == 20);

struct RouterMac {
    Unused<4> interface_id;
    uint32_t arg1;
    Unused<4> unused;
    Mac mac;
    Unused<2> padding;
};
static_assert(offsetof(RouterMac, arg1) == 4 && offsetof(RouterMac, mac) == 12 && sizeof(RouterMac) == 20);

struct NetRoute {
    NetRouteEntry entry;
    uint64_t arg2;
};
static_assert(offsetof(NetRoute, arg2) == 80);

struct MultiPathRoute {
    static constexpr uint32_t max_next_hops = 8;

    NetRouteEntry entry;
    std::array<uint64_t, max_next_hops> next_hops;
    uint32_t next_hop_count;
    Unused<4> padding;
};
static_assert(offsetof(MultiPathRoute, next_hops) == 80 && offsetof(MultiPathRoute, next_hop_count) == 144);

struct OnePathRoute {
    NetRouteEntry entry;
    uint64_t next_hop;
    Padded<uint8_t> arg3;
    Unused<4> padding;
};
static_assert(offsetof(OnePathRoute, next_hop) == 80 && offsetof(OnePathRoute, arg3) == 88);

// The second argument takes the place of the entry's first word, which does not travel.
struct SpecialDefaultRoute {
    uint32_t arg2;
    std::array<uint8_t, sizeof(NetRouteEntry) - sizeof(uint32_t)> entry_tail;
};
static_assert(offsetof(SpecialDefaultRoute, entry_tail) == 4 && sizeof(SpecialDefaultRoute) == sizeof(NetRouteEntry));

struct HostRouteHit {
    HostRouteEntry entry;
    uint32_t hit;
    Unused<4> padding;
};
static_assert(offsetof(HostRouteHit, hit) == 72);

struct IpmcSwitch {
    uint32_t arg1;
    uint32_t arg2;
    uint32_t arg3;
};

// What every request on a multicast entry begins with.
struct McastEntryKey {
    uint32_t arg1;
    std::array<uint8_t, 16> group;
    std::array<uint8_t, 16> source;
    uint32_t arg2;
};
static_assert(offsetof(McastEntryKey, source) == 20 && offsetof(McastEntryKey, arg2) == 36);

struct L2mcEntry {
    McastEntryKey key;
    std::array<uint8_t, 8> arg5;
};
static_assert(offsetof(L2mcEntry, arg5) == 40);

struct L3mcEntry {
    McastEntryKey key;
    Unused<12> unused;
};

// The last two arguments change places.
struct L3mcPort {
    McastEntryKey key;
    uint32_t arg6;
    uint32_t arg5;
    Unused<4> unused;
};
static_assert(offsetof(L3mcPort, arg6) == 40 && offsetof(L3mcPort, arg5) == 44);

struct L3mcEntryStat {
    McastEntryKey key;
    Unused<8> unused;
    uint32_t value;
};
static_assert(offsetof(L3mcEntryStat, value) == 48);

struct L3mcNewEntry {
    McastEntryKey key;
    std::array<uint8_t, 8> arg5;
    Padded<uint8_t> arg6;
    McastEntryBlock block;
};
static_assert(offsetof(L3mcNewEntry, arg6) == 48 && offsetof(L3mcNewEntry, block) == 52);

// As large as a new entry, of whose block it has no more than the beginning.
struct L3mcInterface {
    McastEntryKey key;
    Unused<12> unused;
    McastInterface interface;
    Unused<sizeof(McastEntryBlock) - sizeof(McastInterface)> rest_of_block;
};
static_assert(offsetof(L3mcInterface, interface) == 52 && sizeof(L3mcInterface) == sizeof(L3mcNewEntry));

// Routing on and off.
using EnableUnicastStormProtect = Command<0, RoutingSwitch>;
using DisableUnicastStormProtect = Command<1, RoutingSwitch>;
using EnableRouting = Command<2, RoutingSwitch>;
using EnableIPv4Routing = Command<3, RoutingSwitch>;
using EnableIPv6Routing = Command<4, RoutingSwitch>;
using DisableRouting = Command<5, RoutingSwitch>;
using DisableIPv4Routing = Command<6, RoutingSwitch>;
using DisableIPv6Routing = Command<7, RoutingSwitch>;

// L3 interfaces and router MAC addresses.
using CreateL3Interface = StatusCommand<8, NewL3Interface, Word>;
using DeleteL3Interface = Command<9, L3Interface>;
using AddL3Mac = StatusCommand<10, RouterMac>;
using DeleteL3Mac = Command<11, RouterMac>;
using SetL3Bit = Command<12, RouterMac>;
using UnSetL3Bit = Command<13, RouterMac>;

// Routes.
using SetInetHostRoute = StatusCommand<16, HostRouteEntry, HostRouteEntry>;
using DeleteInetHostRoute = Command<17, HostRouteEntry, HostRouteEntry>;
using AddInetNetRoute = StatusCommand<18, NetRoute, NetRouteEntry>;
// Its failure value is a status code's, its result a byte; kept.
using DeleteInetNetRoute = StatusCommand<19, NetRoute, NetRouteEntry, uint8_t>;
using AddInetMyIpHostRoute = StatusCommand<27, HostRouteEntry>;
using DeleteInetMyIpHostRoute = StatusCommand<28, HostRouteEntry>;
using AddInetECMPRouteMultiPath = StatusCommand<29, MultiPathRoute, NetRouteEntry>;
using DeleteInetECMPRoute = Command<30, NetRouteEntry, NetRouteEntry>;
using AddInetECMPRouteOnePath = StatusCommand<31, OnePathRoute, NetRouteEntry>;
using DeleteInetECMPRouteOnePath = Command<32, OnePathRoute>;
using SetSpecialDefaultRoute = Command<33, SpecialDefaultRoute>;
using DeleteSpecialDefaultRoute = Command<34, SpecialDefaultRoute>;
using ReadAndClearHostRouteEntryHitBit = Command<35, HostRouteHit, HostRouteHit>;
using ClearHostRouteHWInfo = Command<37, HostRouteEntry, HostRouteEntry>;
using ClearNetRouteHWInfo = Command<38, NetRouteEntry, NetRouteEntry>;

// IP multicast.
using ipmc_enable = MulticastCommand<100, IpmcSwitch>;
using ipmc_disable = MulticastCommand<101, Unused<8>>;
using ipmc_debug_enable = MulticastCommand<102, Unused<8>>;
using ipmc_debug_disable = MulticastCommand<103, Unused<8>>;
using l2mc_entry_add = MulticastCommand<106, L2mcEntry>;
using l2mc_entry_del = MulticastCommand<107, L2mcEntry>;
using l3mc_port_add = MulticastCommand<108, L3mcPort>;
using l3mc_port_del = MulticastCommand<109, L3mcPort>;
using l3mc_dnintf_add = MulticastCommand<110, L3mcInterface>;
using l3mc_dnintf_del = MulticastCommand<111, L3mcInterface>;
using l3mc_entry_add = MulticastCommand<112, L3mcNewEntry>;
using l3mc_entry_del = MulticastCommand<113, L3mcEntry>;
using l3mc_entry_stat = MulticastCommand<114, L3mcEntryStat>;
using l3mc_cpu_port_add = MulticastCommand<115, L3mcEntry>;
using l3mc_cpu_port_del = MulticastCommand<116, L3mcEntry>;
using l3mc_repl_add = MulticastCommand<117, L3mcInterface>;
using l3mc_repl_del = MulticastCommand<118, L3mcInterface>;

}  // namespace quillon::swdrvl3
