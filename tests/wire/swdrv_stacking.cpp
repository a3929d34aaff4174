// The stack: identities of units and modules, fabric ports, topology, and the port hardware that stacking sets.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows stacking{
    {.function = "DEV_SWDRV_PMGR_SetPortComboForcedMode",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetPortComboForcedMode(0x14131211, 0x24232221, 0x34333231, 0x44434241);
     },
     .code = 131, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 31323334 +36 41424344", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortIfmode",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortIfmode(0x14131211, 0x24232221, 0x34333231); },
     .code = 300, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_ShutdownSwitch",
     .call = [](Arguments &) { DEV_SWDRV_PMGR_ShutdownSwitch(); },
     .code = 132, .msg_size = 4, .reply_size = 4, .result = Result::nothing},

    {.function = "DEV_SWDRV_PMGR_UpdateHerculesUCTable",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_UpdateHerculesUCTable(arg.in("C1..CD")); },
     .code = 133, .msg_size = 17, .request = "+24 C1..CD", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_ConfigTopologyInfo",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_ConfigTopologyInfo(arg.in("C1..CD")); },
     .code = 134, .msg_size = 17, .request = "+24 C1..CD", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_Physical2LogicalPortByUnitID_DeviceID",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_Physical2LogicalPortByUnitID_DeviceID(
             0x14131211, 0x24232221, 0x34333231, arg.out_u32(0xE4E3E2E1), arg.out_u32(0xF4F3F2F1));
     },
     .code = 135, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334",
     .reply_size = 12, .reply = "+24 E1E2E3E4 +28 F1F2F3F4"},

    // Twelve bytes are sent that no argument fills, and eight are asked for of which four are read.
    {.function = "DEV_SWDRV_PMGR_GetUnitId",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_GetUnitId(arg.out_u32(0xE4E3E2E1)); },
     .code = 136, .msg_size = 16, .request = "+24 00*12", .reply_size = 12, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_GetStackChipDeviceID",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_GetStackChipDeviceID(arg.out_u32(0xE4E3E2E1)); },
     .code = 137, .msg_size = 4, .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_GetDstUnitInfo",
     .call = [](Arguments &arg) {
         DEV_SWDRV_PMGR_GetDstUnitInfo(0x14131211, 0x24232221, arg.out_u32(0xE4E3E2E1), arg.out_u32(0xF4F3F2F1));
     },
     .code = 138, .msg_size = 12, .request = "+24 11121314 +28 21222324",
     .reply_size = 12, .reply = "+24 E1E2E3E4 +28 F1F2F3F4", .result = Result::nothing},

    {.function = "DEV_SWDRV_PMGR_GetDstUnitInfo", .branch = "refused",
     .call = [](Arguments &arg) {
         DEV_SWDRV_PMGR_GetDstUnitInfo(0x14131211, 0x24232221, arg.out_u32(0xE4E3E2E1), arg.out_u32(0xF4F3F2F1));
     },
     .code = 138, .msg_size = 12, .request = "+24 11121314 +28 21222324",
     .reply_size = 12, .reply_type = refused, .reply = "+24 E1E2E3E4 +28 F1F2F3F4", .result = Result::nothing},

    {.function = "DEV_SWDRV_PMGR_HiGigRemoteLoopbackSet",
     .call = [](Arguments &) { DEV_SWDRV_PMGR_HiGigRemoteLoopbackSet(0x14131211, 0x24232221, 0x34333231); },
     .code = 139, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4,
     .result = Result::nothing},

    {.function = "DEV_SWDRV_PMGR_Get5670linkport",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_Get5670linkport(0x14131211, arg.out_u32(0xE4E3E2E1)); },
     .code = 140, .msg_size = 8, .request = "+24 11121314", .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_GetCopperEnergyDetect",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetCopperEnergyDetect(0x14131211, 0x24232221, arg.out_u32(0xE4E3E2E1));
     },
     .code = 141, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_SetFiberPortAutoNeg",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetFiberPortAutoNeg(0x14131211, 0x24232221, 0x34333231); },
     .code = 146, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_GetFabricportByUnitPosition",
     .call = [](Arguments &arg) {
         DEV_SWDRV_PMGR_GetFabricportByUnitPosition(0x14131211, arg.out_u32(0xE4E3E2E1));
     },
     .code = 148, .msg_size = 8, .request = "+24 11121314", .reply_size = 8, .reply = "+24 E1E2E3E4",
     .result = Result::nothing},

    {.function = "DEV_SWDRV_PMGR_GetFabricPortToDstUnit",
     .call = [](Arguments &arg) { DEV_SWDRV_PMGR_GetFabricPortToDstUnit(0x14131211, arg.out_u32(0xE4E3E2E1)); },
     .code = 149, .msg_size = 8, .request = "+24 11121314", .reply_size = 8, .reply = "+24 E1E2E3E4",
     .result = Result::nothing},

    {.function = "DEV_SWDRV_PMGR_GetMasterModuleID",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_GetMasterModuleID(arg.out_u32(0xE4E3E2E1)); },
     .code = 150, .msg_size = 4, .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_GetModuleInfoByUnit",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetModuleInfoByUnit(0x14131211, 0x91, arg.out_u32(0xE4E3E2E1));
     },
     .code = 151, .msg_size = 12, .request = "+24 11121314 +28 91", .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_GetLocalCrossBarDeviceId",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_GetLocalCrossBarDeviceId(arg.out_u32(0xE4E3E2E1)); },
     .code = 152, .msg_size = 4, .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_VID_BREAK",
     .call = [](Arguments &) { DEV_SWDRV_PMGR_VID_BREAK(); },
     .code = 154, .msg_size = 4, .reply_size = 4, .result = Result::nothing},

    {.function = "DEV_SWDRV_PMGR_GetNextSwitchChipId",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetNextSwitchChipId(arg.in_out("11121314", "E1E2E3E4"));
     },
     .code = 155, .msg_size = 8, .request = "+24 11121314", .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_GetNextSwitchChipId", .branch = "end_of_the_walk",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetNextSwitchChipId(arg.in_out("11121314", "E1E2E3E4"));
     },
     .code = 155, .msg_size = 8, .request = "+24 11121314",
     .reply_size = 8, .reply_type = refused, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_GetForwardingStackingPortBitMap",
     .call = [](Arguments &arg) { DEV_SWDRV_PMGR_GetForwardingStackingPortBitMap(arg.out_u32(0xE4E3E2E1)); },
     .code = 164, .msg_size = 4, .reply_size = 8, .reply = "+24 E1E2E3E4", .result = Result::nothing},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
