// 802.1Q tunnels of ports.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows dot1q_tunnel{
    {.function = "DEV_SWDRV_PMGR_SetPortDot1qTunnelMTU",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortDot1qTunnelMTU(0x14131211); },
     .code = 54, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortDot1qTunnelMode",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortDot1qTunnelMode(0x14131211, 0x24232221, 0x91); },
     .code = 56, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_GetPortDot1qTunnelModeofLocalPort",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortDot1qTunnelModeofLocalPort(0x14131211, 0x24232221, arg.out_u8(0x51));
     },
     .code = 57, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 5, .reply = "+24 51"},

    {.function = "DEV_SWDRV_PMGR_GetPortDot1qTunnelModeofLocalPort", .branch = "refused",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortDot1qTunnelModeofLocalPort(0x14131211, 0x24232221, arg.out_u8(0x51));
     },
     .code = 57, .msg_size = 12, .request = "+24 11121314 +28 21222324",
     .reply_size = 5, .reply_type = refused, .reply = "+24 51"},

    {.function = "DEV_SWDRV_PMGR_SetPortDot1qTunnelTPID",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortDot1qTunnelTPID(0x14131211, 0x24232221, 0x34333231); },
     .code = 58, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_GetPortDot1qTunnelTPIDofLocalPort",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortDot1qTunnelTPIDofLocalPort(0x14131211, 0x24232221, arg.out_u32(0x54535251));
     },
     .code = 59, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 51525354"},

    // The narrow argument has a whole word.
    {.function = "DEV_SWDRV_PMGR_SetPortDot1qTunnelVlanDoubleTag",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetPortDot1qTunnelVlanDoubleTag(0x14131211, 0x24232221, 0x34333231, 0x91, 0x44434241,
                                                               0x64636261);
     },
     .code = 60, .msg_size = 28,
     .request = "+24 11121314 +28 21222324 +32 31323334 +36 91000000 +40 41424344 +44 61626364", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortDot1qTunnelModeForReplaceVlan",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetPortDot1qTunnelModeForReplaceVlan(0x14131211, 0x24232221, 0x34333231);
     },
     .code = 222, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortDot1qTunnelReplaceVlan",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetPortDot1qTunnelReplaceVlan(0x14131211, 0x24232221, 0x34333231, 0x44434241,
                                                             0x64636261, 0x91);
     },
     .code = 223, .msg_size = 28, .request = "+24 11121314 +28 21222324 +32 31323334 +36 41424344 +40 61626364 +44 91",
     .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
