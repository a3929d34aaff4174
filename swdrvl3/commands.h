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

}  // namespace quillon::swdrvl3
