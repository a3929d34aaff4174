// OAM, trunk hashing, and the events that a task binds itself to and waits for.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows oam{
    {.function = "DEV_SWDRV_PMGR_Receive_All",
     .call = [](Arguments &) { DEV_SWDRV_PMGR_Receive_All(0x14131211); },
     .code = 165, .msg_size = 8, .request = "+24 11121314", .reply_size = 4, .result = Result::nothing},

    {.function = "DEV_SWDRV_PMGR_SetOamPduToCpu",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetOamPduToCpu(0x14131211, 0x24232221, 0x91); },
     .code = 220, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetOamLoopback",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetOamLoopback(0x14131211, 0x24232221, 0x91); },
     .code = 221, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetOamEnable",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetOamEnable(0x91, 0x92); },
     .code = 224, .msg_size = 12, .request = "+24 91 +25 92 +26 00*6", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetOamEntry",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_SetOamEntry(0x91, 0x14131211, 0x24232221, 0x34333231, arg.in("A1..DC"));
     },
     .code = 225, .msg_size = 80, .request = "+24 91 +28 11121314 +32 21222324 +36 31323334 +40 A1..DC",
     .reply_size = 4},

    {.function = "DEV_SWDRV_PMGRSetOamOpcodeProfilePktCmdEntry",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGRSetOamOpcodeProfilePktCmdEntry(0x91, 0x14131211, 0x24232221, 0x34333231, 0x44434241);
     },
     .code = 226, .msg_size = 24, .request = "+24 91 +28 11121314 +32 21222324 +36 31323334 +40 41424344",
     .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetOamAgingDaemonEnable",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetOamAgingDaemonEnable(0x91, 0x92); },
     .code = 227, .msg_size = 12, .request = "+24 91 +25 92 +26 00*6", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetOamAgingPeriodEntry",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetOamAgingPeriodEntry(0x91, 0x14131211, 0x24232221, 0x34333231);
     },
     .code = 228, .msg_size = 20, .request = "+24 91 +28 11121314 +32 21222324 +36 31323334", .reply_size = 4},

    // The third argument stands before the second.
    {.function = "DEV_SWDRV_PMGR_SetOamKeepaliveForPacketCommandEnable",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetOamKeepaliveForPacketCommandEnable(0x91, 0x14131211, 0x92);
     },
     .code = 229, .msg_size = 12, .request = "+24 91 +25 92 +26 0000 +28 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetOamExceptionConfig",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetOamExceptionConfig(0x91, 0x14131211, 0x24232221, 0x92); },
     .code = 230, .msg_size = 20, .request = "+24 91 +28 11121314 +32 21222324 +36 92", .reply_size = 4},

    // Four bytes are sent that no argument fills.
    {.function = "DEV_SWDRV_PMGR_SetOamExceptionRecoveryConfig",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetOamExceptionRecoveryConfig(0x91, 0x14131211, 0x24232221); },
     .code = 231, .msg_size = 20, .request = "+24 91 +28 11121314 +32 21222324 +36 00*4", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_GetOamExceptionGroupStatus",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetOamExceptionGroupStatus(0x14131211, 0x91, 0x24232221,
                                                          arg.out_u64(0xE8E7E6E5E4E3E2E1));
     },
     .code = 232, .msg_size = 16, .request = "+24 11121314 +28 91 +32 21222324",
     .reply_size = 12, .reply = "+24 E1E2E3E4E5E6E7E8"},

    {.function = "DEV_SWDRV_PMGR_GetOamExceptionStatus",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetOamExceptionStatus(0x14131211, 0x91, 0x24232221, 0x34333231,
                                                     arg.out_u32(0xE4E3E2E1));
     },
     .code = 233, .msg_size = 20, .request = "+24 11121314 +28 91 +32 21222324 +36 31323334",
     .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_SetTrunkHashGlobalMode",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetTrunkHashGlobalMode(0x14131211); },
     .code = 234, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetTrunkHashCrcEntry",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_SetTrunkHashCrcEntry(0x14131211, 0x24232221, arg.in("A1..D4"));
     },
     .code = 235, .msg_size = 64, .request = "+24 11121314 +28 21222324 +32 A1..D4", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_EventBindUnbindOam", .branch = "bind",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_EventBindUnbindOam(1, 0x14131211, 0x24232221, arg.out_u64(0xE8E7E6E5E4E3E2E1));
     },
     .code = 236, .msg_size = 16, .request = "+24 01 +28 11121314 +32 21222324",
     .reply_size = 12, .reply = "+24 E1E2E3E4E5E6E7E8"},

    {.function = "DEV_SWDRV_PMGR_EventBindUnbindOam", .branch = "bind_refused",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_EventBindUnbindOam(1, 0x14131211, 0x24232221, arg.out_u64(0xE8E7E6E5E4E3E2E1));
     },
     .code = 236, .msg_size = 16, .request = "+24 01 +28 11121314 +32 21222324",
     .reply_size = 12, .reply_type = refused, .reply = "+24 E1E2E3E4E5E6E7E8"},

    {.function = "DEV_SWDRV_PMGR_EventBindUnbindOam", .branch = "bind_without_handle",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EventBindUnbindOam(1, 0x14131211, 0x24232221, nullptr); },
     .code = 236, .msg_size = 16, .request = "+24 01 +28 11121314 +32 21222324",
     .reply_size = 12, .reply = "+24 E1E2E3E4E5E6E7E8"},

    {.function = "DEV_SWDRV_PMGR_EventBindUnbindOam", .branch = "unbind",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_EventBindUnbindOam(0, 0x14131211, 0x24232221, arg.kept(8));
     },
     .code = 236, .msg_size = 16, .request = "+24 00 +28 11121314 +32 21222324",
     .reply_size = 12, .reply = "+24 E1E2E3E4E5E6E7E8"},

    // The sign does not spread over the bytes behind.
    {.function = "DEV_SWDRV_PMGR_EventBindUnbindOam", .branch = "negative_operation",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_EventBindUnbindOam(-1, 0x14131211, 0x24232221, arg.kept(8));
     },
     .code = 236, .msg_size = 16, .request = "+24 FF000000 +28 11121314 +32 21222324",
     .reply_size = 12, .reply = "+24 E1E2E3E4E5E6E7E8"},

    {.function = "DEV_SWDRV_PMGR_WaitAndReceiveOam", .branch = "bounded",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_WaitAndReceiveOam(0x14131211, 0xA8A7A6A5A4A3A2A1, arg.in("21222324"));
     },
     .code = 237, .msg_size = 28, .request = "+24 11121314 +32 A1..A8 +40 00 +44 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_WaitAndReceiveOam", .branch = "for_ever",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_WaitAndReceiveOam(0x14131211, 0xA8A7A6A5A4A3A2A1, nullptr); },
     .code = 237, .msg_size = 28, .request = "+24 11121314 +32 A1..A8 +40 01 +44 00*4", .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
