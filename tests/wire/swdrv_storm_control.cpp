// Storm control of ports.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows storm_control{
    {.function = "DEV_SWDRV_PMGR_SetBroadcastStormControlThreshold",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetBroadcastStormControlThreshold(0x14131211, 0x24232221, 0x34333231, 0x44434241);
     },
     .code = 90, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 31323334 +36 41424344", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetMulticastStormControlThreshold",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetMulticastStormControlThreshold(0x14131211, 0x24232221, 0x34333231, 0x44434241);
     },
     .code = 91, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 31323334 +36 41424344", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetUnknownUnicastStormControlThreshold",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetUnknownUnicastStormControlThreshold(0x14131211, 0x24232221, 0x34333231, 0x44434241);
     },
     .code = 92, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 31323334 +36 41424344", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_EnableBroadcastStormControl",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnableBroadcastStormControl(0x14131211, 0x24232221); },
     .code = 93, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisableBroadcastStormControl",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisableBroadcastStormControl(0x14131211, 0x24232221); },
     .code = 94, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_EnableMulticastStormControl",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnableMulticastStormControl(0x14131211, 0x24232221); },
     .code = 95, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisableMulticastStormControl",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisableMulticastStormControl(0x14131211, 0x24232221); },
     .code = 96, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_EnableUnknownUnicastStormControl",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnableUnknownUnicastStormControl(0x14131211, 0x24232221); },
     .code = 97, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisableUnknownUnicastStormControl",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisableUnknownUnicastStormControl(0x14131211, 0x24232221); },
     .code = 98, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_GetPortStormGranularity",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortStormGranularity(0x14131211, 0x24232221, 0x34333231, arg.out_u32(0x54535251));
     },
     .code = 99, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334",
     .reply_size = 8, .reply = "+24 51525354"},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
