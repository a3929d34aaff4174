// Routing on and off, L3 interfaces and router MAC addresses, tunnels.
#include "quillon/swdrvl3.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows switches{
    {.function = "DEV_SWDRVL3_PMGR_EnableUnicastStormProtect",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_EnableUnicastStormProtect(0x14131211, 0x24232221); },
     .code = 0, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRVL3_PMGR_DisableUnicastStormProtect",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_DisableUnicastStormProtect(0x14131211, 0x24232221); },
     .code = 1, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRVL3_PMGR_EnableRouting",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_EnableRouting(0x14131211, 0x24232221); },
     .code = 2, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRVL3_PMGR_EnableRouting", .branch = "refused",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_EnableRouting(0x14131211, 0x24232221); },
     .code = 2, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4, .reply_type = refused},

    {.function = "DEV_SWDRVL3_PMGR_EnableIPv4Routing",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_EnableIPv4Routing(0x14131211, 0x24232221); },
     .code = 3, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRVL3_PMGR_EnableIPv6Routing",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_EnableIPv6Routing(0x14131211, 0x24232221); },
     .code = 4, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRVL3_PMGR_DisableRouting",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_DisableRouting(0x14131211, 0x24232221); },
     .code = 5, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRVL3_PMGR_DisableIPv4Routing",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_DisableIPv4Routing(0x14131211, 0x24232221); },
     .code = 6, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRVL3_PMGR_DisableIPv6Routing",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_DisableIPv6Routing(0x14131211, 0x24232221); },
     .code = 7, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},
};

const WireRows interfaces{
    // The identifier comes back where four zero bytes were sent.
    {.function = "DEV_SWDRVL3_PMGR_CreateL3Interface",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_CreateL3Interface(0x14131211, 0x24232221, arg.in("313233343536"),
                                                   arg.out_u32(0x54535251));
     },
     .code = 8, .msg_size = 24, .request = "+24 00000000 +28 11121314 +32 21222324 +36 313233343536",
     .reply_size = 8, .reply = "+24 51525354", .result = Result::word},

    // Four bytes further to the front than in the creation, with the last argument before the MAC address.
    {.function = "DEV_SWDRVL3_PMGR_DeleteL3Interface",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_DeleteL3Interface(0x14131211, 0x24232221, arg.in("313233343536"), 0x44434241);
     },
     .code = 9, .msg_size = 24, .request = "+24 11121314 +28 21222324 +32 41424344 +36 313233343536",
     .reply_size = 4},

    {.function = "DEV_SWDRVL3_PMGR_AddL3Mac",
     .call = [](Arguments &arg) { return DEV_SWDRVL3_PMGR_AddL3Mac(0x14131211, arg.in("313233343536")); },
     .code = 10, .msg_size = 24, .request = "+28 11121314 +32 00000000 +36 313233343536",
     .reply_size = 4, .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_DeleteL3Mac",
     .call = [](Arguments &arg) { return DEV_SWDRVL3_PMGR_DeleteL3Mac(0x14131211, arg.in("313233343536")); },
     .code = 11, .msg_size = 24, .request = "+28 11121314 +32 00000000 +36 313233343536", .reply_size = 4},

    {.function = "DEV_SWDRVL3_PMGR_SetL3Bit",
     .call = [](Arguments &arg) { return DEV_SWDRVL3_PMGR_SetL3Bit(0x14131211, arg.in("313233343536")); },
     .code = 12, .msg_size = 24, .request = "+28 11121314 +32 00000000 +36 313233343536", .reply_size = 4},

    {.function = "DEV_SWDRVL3_PMGR_UnSetL3Bit",
     .call = [](Arguments &arg) { return DEV_SWDRVL3_PMGR_UnSetL3Bit(0x14131211, arg.in("313233343536")); },
     .code = 13, .msg_size = 24, .request = "+28 11121314 +32 00000000 +36 313233343536", .reply_size = 4},

    {.function = "DEV_SWDRVL3_PMGR_SetL3InterfaceMtu",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_SetL3InterfaceMtu(); }, .returned = 1},
};

const WireRows tunnels{
    {.function = "DEV_SWDRVL3_PMGR_AddTunnelInitiator",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_AddTunnelInitiator(); }, .returned = 0},

    {.function = "DEV_SWDRVL3_PMGR_UpdateTunnelTtl",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_UpdateTunnelTtl(); }, .returned = 0},

    {.function = "DEV_SWDRVL3_PMGR_AddTunnelTerminator",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_AddTunnelTerminator(); }, .returned = 0},

    {.function = "DEV_SWDRVL3_PMGR_AddInetHostTunnelRoute",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_AddInetHostTunnelRoute(); }, .returned = 0},

    {.function = "DEV_SWDRVL3_PMGR_DeleteTunnelTerminator",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_DeleteTunnelTerminator(); }, .returned = 1},

    {.function = "DEV_SWDRVL3_PMGR_DeleteTunnelInitiator",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_DeleteTunnelInitiator(); }, .returned = 1},

    {.function = "DEV_SWDRVL3_PMGR_DeleteInetHostTunnelRoute",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_DeleteInetHostTunnelRoute(); }, .returned = 0},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
