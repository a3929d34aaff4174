// Rules, meters, actions and counters, and the policy control lists.
#include "quillon/devrm.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows rules{
    {.function = "DEVRM_PMGR_FieldInit",
     .call = [](Arguments &) { DEVRM_PMGR_FieldInit(); },
     .code = 18, .msg_size = 8, .reply_size = 8, .result = Result::nothing},

    {.function = "DEVRM_PMGR_AllocateRule",
     .call = [](Arguments &) {
         return DEVRM_PMGR_AllocateRule(0x14131211, 0x24232221, 0x34333231, 0x44434241, 0x54535251);
     },
     .code = 5, .msg_size = 28,
     .request = "+24 11121314 +28 21222324 +32 31323334 +36 41424344 +40 51525354", .reply_size = 8},

    {.function = "DEVRM_PMGR_SetRule",
     .call = [](Arguments &arg) {
         return DEVRM_PMGR_SetRule(0x14131211, 0x24232221, 0x34333231, arg.in("40..FF"), arg.in("02..FF 02..53"));
     },
     .code = 6, .msg_size = 548,
     .request = "+24 11121314 +28 21222324 +32 31323334 +36 40..FF +228 02..FF 02..53", .reply_size = 8},

    {.function = "DEVRM_PMGR_SetRule", .branch = "null_pattern",
     .call = [](Arguments &arg) {
         return DEVRM_PMGR_SetRule(0x14131211, 0x24232221, 0x34333231, nullptr, arg.in("02..FF 02..53"));
     },
     .code = 6, .msg_size = 548,
     .request = "+24 11121314 +28 21222324 +32 31323334 +36 00*192 +228 02..FF 02..53", .reply_size = 8},

    {.function = "DEVRM_PMGR_DestroyRule",
     .call = [](Arguments &) { return DEVRM_PMGR_DestroyRule(0x14131211, 0x24232221, 0x34333231); },
     .code = 8, .msg_size = 24,
     .request = "+24 11121314 +28 00*4 +32 31323334 +36 21222324 +40 00*4", .reply_size = 8},

    {.function = "DEVRM_PMGR_UpdateMeter",
     .call = [](Arguments &arg) {
         return DEVRM_PMGR_UpdateMeter(0x14131211, 0x24232221, 0x34333231, arg.in("C1..D8"));
     },
     .code = 10, .msg_size = 48,
     .request = "+24 11121314 +28 21222324 +32 31323334 +36 00*4 +40 C1..D8 +64 00*4", .reply_size = 8},

    {.function = "DEVRM_PMGR_ShareMeter",
     .call = [](Arguments &) { return DEVRM_PMGR_ShareMeter(0x14131211, 0x24232221, 0x34333231); },
     .code = 11, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 8},

    {.function = "DEVRM_PMGR_DestroyAction",
     .call = [](Arguments &) { return DEVRM_PMGR_DestroyAction(0x14131211, 0x24232221, 0x34333231); },
     .code = 14, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 8},

    {.function = "DEVRM_PMGR_GetNumberOfChips",
     .call = [](Arguments &) { return DEVRM_PMGR_GetNumberOfChips(); },
     .code = 15, .msg_size = 8, .reply_size = 8, .result = Result::word},

    {.function = "DEVRM_PMGR_GetDeviceInfo",
     .call = [](Arguments &arg) { return DEVRM_PMGR_GetDeviceInfo(arg.out_u32(0x64636261)); },
     .code = 16, .msg_size = 8, .reply_size = 12, .reply = "+24 61626364 +28 71727374"},

    {.function = "DEVRM_PMGR_GetDeviceInfo", .branch = "other_result",
     .call = [](Arguments &arg) { return DEVRM_PMGR_GetDeviceInfo(arg.out_u32(0x64636261)); },
     .code = 16, .msg_size = 8, .reply_size = 12, .reply_type = 0x5A4B3C80, .reply = "+24 61626364 +28 71727374"},

    {.function = "DEVRM_PMGR_GetDeviceInfo", .branch = "refused",
     .call = [](Arguments &arg) { return DEVRM_PMGR_GetDeviceInfo(arg.kept(4)); },
     .code = 16, .msg_size = 8, .reply_size = 12, .reply_type = refused, .reply = "+24 61626364 +28 71727374"},

    {.function = "DEVRM_PMGR_CheckSoc",
     .call = [](Arguments &) { return DEVRM_PMGR_CheckSoc(0x14131211); },
     .code = 17, .msg_size = 12, .request = "+24 11121314", .reply_size = 8},

    {.function = "DEVRM_PMGR_CreatePcl",
     .call = [](Arguments &) { return DEVRM_PMGR_CreatePcl(0x14131211, 0x24232221, 0x91, 0x44434241, 0x54535251); },
     .code = 19, .msg_size = 28,
     .request = "+24 41424344 +28 11121314 +32 21222324 +36 51525354 +40 91", .reply_size = 8},

    {.function = "DEVRM_PMGR_BindPclToPort",
     .call = [](Arguments &) { return DEVRM_PMGR_BindPclToPort(0x14131211, 0x24232221, 0x34333231); },
     .code = 20, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 8},

    {.function = "DEVRM_PMGR_UnbindPclToPort",
     .call = [](Arguments &) { return DEVRM_PMGR_UnbindPclToPort(0x14131211, 0x24232221, 0x34333231); },
     .code = 21, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 8},

    {.function = "DEVRM_PMGR_BindPclToTrunkPort",
     .call = [](Arguments &) { return DEVRM_PMGR_BindPclToTrunkPort(0x14131211, 0x24232221, 0x34333231); },
     .code = 22, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 8},

    {.function = "DEVRM_PMGR_UnbindPclToTrunkPort",
     .call = [](Arguments &) { return DEVRM_PMGR_UnbindPclToTrunkPort(0x14131211, 0x24232221, 0x34333231); },
     .code = 23, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 8},

    {.function = "DEVRM_PMGR_GetCounter",
     .call = [](Arguments &arg) {
         return DEVRM_PMGR_GetCounter(0x14131211, 0x24232221, 0x34333231, arg.out_u32(0x64636261),
                                      arg.out_u32(0x74737271), arg.out_u32(0x84838281));
     },
     .code = 24, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 31323334",
     .reply_size = 20, .reply = "+24 61626364 +28 71727374 +32 81828384 +36 91929394"},

    {.function = "DEVRM_PMGR_GetCounter", .branch = "other_result",
     .call = [](Arguments &arg) {
         return DEVRM_PMGR_GetCounter(0x14131211, 0x24232221, 0x34333231, arg.out_u32(0x64636261),
                                      arg.out_u32(0x74737271), arg.out_u32(0x84838281));
     },
     .code = 24, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 31323334",
     .reply_size = 20, .reply_type = 0x5A4B3C80, .reply = "+24 61626364 +28 71727374 +32 81828384 +36 91929394"},

    {.function = "DEVRM_PMGR_GetCounter", .branch = "refused",
     .call = [](Arguments &arg) {
         return DEVRM_PMGR_GetCounter(0x14131211, 0x24232221, 0x34333231, arg.kept(4), arg.kept(4), arg.kept(4));
     },
     .code = 24, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 31323334",
     .reply_size = 20, .reply_type = refused, .reply = "+24 61626364 +28 71727374 +32 81828384 +36 91929394"},

    {.function = "DEVRM_PMGR_ClearCounter",
     .call = [](Arguments &) { return DEVRM_PMGR_ClearCounter(0x14131211, 0x24232221, 0x34333231); },
     .code = 25, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 8},

    {.function = "DEVRM_PMGR_GetNumberOfEXCLUDEVLAN",
     .call = [](Arguments &) { return DEVRM_PMGR_GetNumberOfEXCLUDEVLAN(); },
     .code = 26, .msg_size = 8, .reply_size = 8, .result = Result::word},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
