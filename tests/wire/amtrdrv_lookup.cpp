// Looking MAC addresses up in the chips.
#include "quillon/amtrdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows lookup{
    {.function = "DEV_AMTRDRV_PMGR_ARLLookUp",
     .call = [](Arguments &arg) {
         return DEV_AMTRDRV_PMGR_ARLLookUp(0x14131211, arg.in("C1..C6"), arg.out_u32(0x54535251),
                                           arg.out_u32(0x64636261), arg.out_u8(0x71));
     },
     .code = 19, .msg_size = 16, .request = "+20 11121314 +24 C1..C6",
     .reply_size = 16, .reply = "+20 51525354 +24 61626364 +28 71727374"},

    {.function = "DEV_AMTRDRV_PMGR_ARLLookUp", .branch = "refused",
     .call = [](Arguments &arg) {
         return DEV_AMTRDRV_PMGR_ARLLookUp(0x14131211, arg.in("C1..C6"), arg.out_u32(0x54535251),
                                           arg.out_u32(0x64636261), arg.out_u8(0x71));
     },
     .code = 19, .msg_size = 16, .request = "+20 11121314 +24 C1..C6",
     .reply_size = 16, .reply_type = refused, .reply = "+20 51525354 +24 61626364 +28 71727374"},

    {.function = "DEV_AMTRDRV_PMGR_ShowValidNullMac",
     .call = [](Arguments &) { DEV_AMTRDRV_PMGR_ShowValidNullMac(); },
     .code = 20, .msg_size = 4, .reply_size = 4, .result = Result::nothing},

    {.function = "DEV_AMTRDRV_PMGR_ARLFirstChipLookUp",
     .call = [](Arguments &arg) {
         return DEV_AMTRDRV_PMGR_ARLFirstChipLookUp(0x14131211, arg.in("C1..C6"), arg.out_u32(0x54535251),
                                                    arg.out_u32(0x64636261), arg.out_u32(0x74737271),
                                                    arg.out_u8(0x81));
     },
     .code = 26, .msg_size = 16, .request = "+20 11121314 +24 C1..C6",
     .reply_size = 20, .reply = "+20 51525354 +24 61626364 +28 71727374 +32 81828384"},

    // The address comes first, unlike in all other requests.
    {.function = "DEV_AMTRDRV_PMGR_ReadAndClearLocalHitBit",
     .call = [](Arguments &arg) {
         return DEV_AMTRDRV_PMGR_ReadAndClearLocalHitBit(arg.out_u8(0xE1), arg.in("C1..C6"), 0x34333231, 0x44434241,
                                                         arg.in("91..B0"), 0x64636261);
     },
     .code = 27, .msg_size = 56, .request = "+20 C1..C6 +28 31323334 +32 41424344 +36 91..B0 +68 61626364",
     .reply_size = 5, .reply = "+20 E1"},

    {.function = "DEV_AMTRDRV_PMGR_GetHashLookupDepth",
     .call = [](Arguments &arg) { return DEV_AMTRDRV_PMGR_GetHashLookupDepth(arg.out_u32(0x54535251)); },
     .code = 35, .msg_size = 4, .reply_size = 8, .reply = "+20 51525354"},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
