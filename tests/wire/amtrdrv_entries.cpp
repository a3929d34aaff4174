// Setting and deleting entries of the MAC address table.
#include "quillon/amtrdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows entries{
    {.function = "DEV_AMTRDRV_PMGR_SetAddrTblEntry",
     .call = [](Arguments &arg) { return DEV_AMTRDRV_PMGR_SetAddrTblEntry(arg.in("11..20")); },
     .code = 6, .msg_size = 20, .request = "+20 11..20", .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_DeleteAddr",
     .call = [](Arguments &arg) { return DEV_AMTRDRV_PMGR_DeleteAddr(0x14131211, arg.in("C1..C6")); },
     .code = 7, .msg_size = 16, .request = "+20 11121314 +24 C1..C6", .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_DeleteAllDynamicAddr",
     .call = [](Arguments &) { return DEV_AMTRDRV_PMGR_DeleteAllDynamicAddr(); },
     .code = 8, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_DeleteAllAddr",
     .call = [](Arguments &) { return DEV_AMTRDRV_PMGR_DeleteAllAddr(); },
     .code = 9, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_SetInterventionEntry",
     .call = [](Arguments &arg) {
         return DEV_AMTRDRV_PMGR_SetInterventionEntry(0x14131211, arg.in("C1..C6"), 0x91, 0x44434241);
     },
     .code = 10, .msg_size = 20, .request = "+20 11121314 +24 C1..C6 +30 91 +32 41424344",
     .reply_size = 4, .result = Result::word},

    {.function = "DEV_AMTRDRV_PMGR_DeleteInterventionEntry",
     .call = [](Arguments &arg) { return DEV_AMTRDRV_PMGR_DeleteInterventionEntry(0x14131211, arg.in("C1..C6")); },
     .code = 11, .msg_size = 16, .request = "+20 11121314 +24 C1..C6", .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_AddVlanMac",
     .call = [](Arguments &arg) { return DEV_AMTRDRV_PMGR_AddVlanMac(0x14131211, arg.in("C1..C6")); },
     .code = 12, .msg_size = 16, .request = "+20 11121314 +24 C1..C6", .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_DeleteVlanMac",
     .call = [](Arguments &arg) { return DEV_AMTRDRV_PMGR_DeleteVlanMac(0x14131211, arg.in("C1..C6")); },
     .code = 13, .msg_size = 16, .request = "+20 11121314 +24 C1..C6", .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_SetMacEntryWithAttribute",
     .call = [](Arguments &arg) {
         return DEV_AMTRDRV_PMGR_SetMacEntryWithAttribute(arg.in("51..60"), 0x24232221, 0x91);
     },
     .code = 21, .msg_size = 28, .request = "+20 51..60 +36 21222324 +40 91", .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_DeleteAddrByPort",
     .call = [](Arguments &) { return DEV_AMTRDRV_PMGR_DeleteAddrByPort(0x14131211, 0x24232221, 0x34333231); },
     .code = 22, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 31323334", .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_DeleteDynamicAddrByPort",
     .call = [](Arguments &) { return DEV_AMTRDRV_PMGR_DeleteDynamicAddrByPort(0x14131211, 0x24232221, 0x34333231); },
     .code = 23, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 31323334", .reply_size = 4},

    // The first argument is not sent.
    {.function = "DEV_AMTRDRV_PMGR_DeleteDynamicAddrByVlan",
     .call = [](Arguments &) { return DEV_AMTRDRV_PMGR_DeleteDynamicAddrByVlan(0x14131211, 0x24232221); },
     .code = 24, .msg_size = 20, .request = "+20 00*12 +32 21222324", .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_DeleteDynamicAddrByPortAndVlan",
     .call = [](Arguments &) {
         return DEV_AMTRDRV_PMGR_DeleteDynamicAddrByPortAndVlan(0x14131211, 0x24232221, 0x34333231, 0x44434241);
     },
     .code = 25, .msg_size = 20, .request = "+20 11121314 +24 21222324 +28 31323334 +32 41424344", .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_SetAddrTblEntryByDevice",
     .call = [](Arguments &arg) { return DEV_AMTRDRV_PMGR_SetAddrTblEntryByDevice(0x91, arg.in("51..60")); },
     .code = 28, .msg_size = 22, .request = "+20 91 00 +22 51..60", .reply_size = 4, .result = Result::word},

    {.function = "DEV_AMTRDRV_PMGR_DeleteAddrByDevice",
     .call = [](Arguments &arg) { return DEV_AMTRDRV_PMGR_DeleteAddrByDevice(0x91, 0x24232221, arg.in("C1..C6")); },
     .code = 29, .msg_size = 20, .request = "+20 91 +24 21222324 +28 C1..C6", .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
