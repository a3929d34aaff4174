// Unit, device and port mapping, and what overrides a port's hardware.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows mapping{
    {.function = "DEV_SWDRV_PMGR_ResetOnDemand",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_ResetOnDemand(0x91); },
     .code = 2, .msg_size = 5, .request = "+24 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_GetLocalUnitChipsetNumber",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_GetLocalUnitChipsetNumber(); },
     .code = 4, .msg_size = 4, .reply_size = 4, .reply_type = 0x5A4B3CC8},

    {.function = "DEV_SWDRV_PMGR_Logical2PhyDevicePortID",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_Logical2PhyDevicePortID(0x14131211, 0x24232221, arg.out_u32(0x54535251),
                                                       arg.out_u32(0x64636261), arg.out_u32(0x74737271));
     },
     .code = 5, .msg_size = 12, .request = "+24 11121314 +28 21222324",
     .reply_size = 16, .reply = "+24 51525354 +28 61626364 +32 71727374"},

    {.function = "DEV_SWDRV_PMGR_Logical2PhyDeviceID",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_Logical2PhyDeviceID(0x14131211, 0x24232221, arg.out_u32(0x54535251),
                                                   arg.out_u32(0x64636261), arg.out_u32(0x74737271));
     },
     .code = 6, .msg_size = 12, .request = "+24 11121314 +28 21222324",
     .reply_size = 16, .reply = "+24 51525354 +28 61626364 +32 71727374"},

    {.function = "DEV_SWDRV_PMGR_Logical2PhyDeviceID", .branch = "refused",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_Logical2PhyDeviceID(0x14131211, 0x24232221, arg.out_u32(0x54535251),
                                                   arg.out_u32(0x64636261), arg.out_u32(0x74737271));
     },
     .code = 6, .msg_size = 12, .request = "+24 11121314 +28 21222324",
     .reply_size = 16, .reply_type = refused, .reply = "+24 51525354 +28 61626364 +32 71727374"},

    // Three words are sent and two come back.
    {.function = "DEV_SWDRV_PMGR_Physical2LogicalPort",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_Physical2LogicalPort(0x14131211, 0x24232221, 0x34333231, arg.out_u32(0x54535251),
                                                    arg.out_u32(0x64636261));
     },
     .code = 7, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334",
     .reply_size = 12, .reply = "+24 51525354 +28 61626364"},

    {.function = "DEV_SWDRV_PMGR_GetLocalDeviceIDFromModuleID",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetLocalDeviceIDFromModuleID(0x14131211, 0x24232221, arg.out_u32(0x54535251));
     },
     .code = 8, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 51525354"},

    {.function = "DEV_SWDRV_PMGR_GetModuleIdFromLocalDeviceId",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetModuleIdFromLocalDeviceId(0x14131211, 0x24232221, arg.out_u32(0x54535251));
     },
     .code = 9, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 51525354"},

    // The output stands where the unit was sent, and a reply without it leaves the unit there.
    {.function = "DEV_SWDRV_PMGR_GetModuleIdFromLocalDeviceId", .branch = "short_reply",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetModuleIdFromLocalDeviceId(0x14131211, 0x24232221, arg.out_u32(0x14131211));
     },
     .code = 9, .msg_size = 12, .request = "+24 11121314 +28 21222324",
     .reply_size = 8, .reply_type = refused, .short_reply = true},

    {.function = "DEV_SWDRV_PMGR_PortSerdesAutoTuneDfeClear",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_PortSerdesAutoTuneDfeClear(0x14131211, 0x24232221); },
     .code = 296, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortForceLinkDownStatus",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortForceLinkDownStatus(0x14131211, 0x24232221, 0x91); },
     .code = 295, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortForceLEDStatus",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_SetPortForceLEDStatus(0x14131211, 0x24232221, arg.in("C1..C5"), 5, 0x74737271);
     },
     .code = 297, .msg_size = 52, .request = "+24 11121314 +28 21222324 +32 C1..C5 +64 05 +68 71727374",
     .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortForceLEDStatus", .branch = "longest_pattern",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_SetPortForceLEDStatus(0x14131211, 0x24232221, arg.in("C1..DE"), 30, 0x74737271);
     },
     .code = 297, .msg_size = 52, .request = "+24 11121314 +28 21222324 +32 C1..DE +64 1E +68 71727374",
     .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortForceLEDStatus", .branch = "no_pattern",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetPortForceLEDStatus(0x14131211, 0x24232221, nullptr, 0, 0x74737271);
     },
     .code = 297, .msg_size = 52, .request = "+24 11121314 +28 21222324 +68 71727374", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortForceLEDStatus", .branch = "pattern_too_long",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_SetPortForceLEDStatus(0x14131211, 0x24232221, arg.in("C1..DF"), 31, 0x74737271);
     }},

    {.function = "DEV_SWDRV_PMGR_SetPortForceLEDStatus", .branch = "null_pattern",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetPortForceLEDStatus(0x14131211, 0x24232221, nullptr, 1, 0x74737271);
     }},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
