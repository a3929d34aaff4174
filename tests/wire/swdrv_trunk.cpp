// Trunks: member ports, load balancing, multicast addresses on members.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows trunk{
    {.function = "DEV_SWDRV_PMGR_CreateTrunk",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_CreateTrunk(0x14131211); },
     .code = 78, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_CreateTrunkwithMode",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_CreateTrunkwithMode(0x14131211, 0x91); },
     .code = 79, .msg_size = 12, .request = "+24 11121314 +28 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetTrunkLoadBalanceMode",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetTrunkLoadBalanceMode(0x14131211); },
     .code = 80, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DestroyTrunk",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DestroyTrunk(0x14131211); },
     .code = 81, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetTrunkPortMembers",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_SetTrunkPortMembers(0x14131211, 0x24232221, arg.in("A1..C0"));
     },
     .code = 82, .msg_size = 44, .request = "+24 11121314 +28 21222324 +32 A1..C0", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetTrunkBalanceMode",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetTrunkBalanceMode(0x14131211, 0x91); },
     .code = 83, .msg_size = 12, .request = "+24 11121314 +28 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_GetTrunkBalanceModeofLocalUnit",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_GetTrunkBalanceModeofLocalUnit(0x14131211, arg.out_u8(0x51)); },
     .code = 84, .msg_size = 8, .request = "+24 11121314", .reply_size = 5, .reply = "+24 51"},

    {.function = "DEV_SWDRV_PMGR_AddMulticastAddrToTrunkMember",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_AddMulticastAddrToTrunkMember(arg.in("C1..C6"), 0x34333231, 0x44434241, 0x64636261);
     },
     .code = 85, .msg_size = 24, .request = "+24 C1..C6 +30 0000 +32 31323334 +36 41424344 +40 61626364",
     .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DeleteMulticastAddrToTrunkMember",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_DeleteMulticastAddrToTrunkMember(arg.in("C1..C6"), 0x34333231, 0x44434241, 0x64636261);
     },
     .code = 86, .msg_size = 24, .request = "+24 C1..C6 +30 0000 +32 31323334 +36 41424344 +40 61626364",
     .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
