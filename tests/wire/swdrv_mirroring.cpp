// Mirroring of ports, VLANs, MAC addresses and access-control lists.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows mirroring{
    {.function = "DEV_SWDRV_PMGR_SetPortMirroring",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortMirroring(0x14131211, 0x24232221, 0x34333231); },
     .code = 70, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DeletePortMirroring",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DeletePortMirroring(0x14131211, 0x24232221); },
     .code = 71, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_EnablePortMirroring",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnablePortMirroring(0x14131211); },
     .code = 72, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisablePortMirroring",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisablePortMirroring(0x14131211); },
     .code = 73, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_AddVlanMirror",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_AddVlanMirror(0x14131211, 0x24232221, 0x34333231); },
     .code = 74, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DeleteVlanMirror",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DeleteVlanMirror(0x14131211, 0x24232221, 0x34333231); },
     .code = 75, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetDestPortForMacMirror",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetDestPortForMacMirror(0x14131211, 0x24232221, 0x91); },
     .code = 76, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetDestPortForAclMirror",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetDestPortForAclMirror(0x14131211, 0x24232221, 0x91); },
     .code = 77, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 91", .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
