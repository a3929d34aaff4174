// VLANs, their member ports and the frames that ports admit.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows vlan{
    {.function = "DEV_SWDRV_PMGR_SetPortPVID",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortPVID(0x14131211, 0x24232221, 0x34333231); },
     .code = 38, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_CreateVlan",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_CreateVlan(0x14131211); },
     .code = 39, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DestroyVlan",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DestroyVlan(0x14131211); },
     .code = 40, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetGlobalDefaultVlan",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetGlobalDefaultVlan(0x14131211); },
     .code = 41, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DeletePortUntaggedVlanSet",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DeletePortUntaggedVlanSet(0x14131211, 0x24232221, 0x34333231); },
     .code = 42, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DeletePortDoubleVlanMemberSet",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_DeletePortDoubleVlanMemberSet(0x14131211, 0x24232221, 0x34333231);
     },
     .code = 43, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_AddPortUntaggedVlanSet",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_AddPortUntaggedVlanSet(0x14131211, 0x24232221, 0x34333231); },
     .code = 44, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_AddPortDoubleVlanMemberSet",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_AddPortDoubleVlanMemberSet(0x14131211, 0x24232221, 0x34333231); },
     .code = 45, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DeletePortVlanSet",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DeletePortVlanSet(0x14131211, 0x24232221, 0x34333231); },
     .code = 46, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_AddPortVlanSet",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_AddPortVlanSet(0x14131211, 0x24232221, 0x34333231); },
     .code = 47, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    // Of the bitmaps only the first word leaves the process.
    {.function = "DEV_SWDRV_PMGR_SetPortToVlanMemberSet",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_SetPortToVlanMemberSet(0x14131211, 0x24232221, arg.in("C1..C8"));
     },
     .code = 48, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 C1C2C3C4 +36 00000000", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortToVlanUntaggedSet",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_SetPortToVlanUntaggedSet(0x14131211, 0x24232221, arg.in("C1..C8"));
     },
     .code = 49, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 C1C2C3C4", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortToDoubleVlanSet",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_SetPortToDoubleVlanSet(0x14131211, 0x24232221, arg.in("C1..C8"));
     },
     .code = 50, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 C1C2C3C4 +36 00000000", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortToDoubleVlanSet", .branch = "one_word",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_SetPortToDoubleVlanSet(0x14131211, 0x24232221, arg.in("C1..C4"));
     },
     .code = 50, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 C1C2C3C4 +36 00000000", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_EnableIngressFilter",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnableIngressFilter(0x14131211, 0x24232221); },
     .code = 61, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisableIngressFilter",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisableIngressFilter(0x14131211, 0x24232221); },
     .code = 62, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_AdmitOnlyVlanTaggedFrames",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_AdmitOnlyVlanTaggedFrames(0x14131211, 0x24232221); },
     .code = 63, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_AdmitOnlyVlanUntaggedFrames",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_AdmitOnlyVlanUntaggedFrames(0x14131211, 0x24232221); },
     .code = 64, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_AdmitAllFrames",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_AdmitAllFrames(0x14131211, 0x24232221); },
     .code = 65, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_EnableTrapUnspecifiedTagFrame",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnableTrapUnspecifiedTagFrame(); },
     .code = 66, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisableTrapUnspecifiedTagFrame",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisableTrapUnspecifiedTagFrame(); },
     .code = 67, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_AddCpuToVlan",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_AddCpuToVlan(0x14131211); },
     .code = 68, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DeleteCpuFromVlan",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DeleteCpuFromVlan(0x14131211); },
     .code = 69, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
