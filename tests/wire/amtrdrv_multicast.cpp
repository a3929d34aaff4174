// Multicast entries of the MAC address table and their ports.
#include "quillon/amtrdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows multicast{
    {.function = "DEV_AMTRDRV_PMGR_CreateMulticastAddrTblEntry",
     .call = [](Arguments &arg) {
         return DEV_AMTRDRV_PMGR_CreateMulticastAddrTblEntry(0x14131211, arg.in("C1..C6"));
     },
     .code = 14, .msg_size = 16, .request = "+20 11121314 +24 C1..C6", .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_DestroyMulticastAddrTblEntry",
     .call = [](Arguments &arg) {
         return DEV_AMTRDRV_PMGR_DestroyMulticastAddrTblEntry(0x14131211, arg.in("C1..C6"));
     },
     .code = 15, .msg_size = 16, .request = "+20 11121314 +24 C1..C6", .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_AddMulticastPortMember",
     .call = [](Arguments &arg) {
         return DEV_AMTRDRV_PMGR_AddMulticastPortMember(0x14131211, arg.in("C1..C6"), 0x34333231, 0x44434241, 0x91);
     },
     .code = 16, .msg_size = 28, .request = "+20 11121314 +24 C1..C6 +32 31323334 +36 41424344 +40 91",
     .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_DeleteMulticastPortMember",
     .call = [](Arguments &arg) {
         return DEV_AMTRDRV_PMGR_DeleteMulticastPortMember(0x14131211, 0x24232221, 0x34333231, arg.in("C1..C6"));
     },
     .code = 17, .msg_size = 24, .request = "+20 11121314 +24 21222324 +28 31323334 +32 C1..C6", .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_SetMulticastPortList",
     .call = [](Arguments &arg) {
         return DEV_AMTRDRV_PMGR_SetMulticastPortList(0x14131211, arg.in("C1..C6"), arg.in("51..58"),
                                                      arg.in("61..68"));
     },
     .code = 18, .msg_size = 32, .request = "+20 11121314 +24 C1..C6 +30 51..58 +38 61..68", .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_SetMCastEntryForInternalPacket",
     .call = [](Arguments &) { DEV_AMTRDRV_PMGR_SetMCastEntryForInternalPacket(); },
     .code = 33, .msg_size = 4, .reply_size = 4, .result = Result::nothing},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
