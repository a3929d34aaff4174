// Frame sizes of the system and of ports.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows frame_size{
    {.function = "DEV_SWDRV_PMGR_SetSystemMTU",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetSystemMTU(0x14131211, 0x24232221); },
     .code = 51, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortMTU",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortMTU(0x14131211, 0x24232221, 0x34333231); },
     .code = 52, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_GetPortMaxFrameSize",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortMaxFrameSize(0x14131211, 0x24232221, arg.out_u32(0x54535251),
                                                   arg.out_u32(0x64636261));
     },
     .code = 53, .msg_size = 12, .request = "+24 11121314 +28 21222324",
     .reply_size = 12, .reply = "+24 51525354 +28 61626364"},

    {.function = "DEV_SWDRV_PMGR_GetPortMaxFrameSize", .branch = "refused",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortMaxFrameSize(0x14131211, 0x24232221, arg.kept(4), arg.kept(4));
     },
     .code = 53, .msg_size = 12, .request = "+24 11121314 +28 21222324",
     .reply_size = 12, .reply_type = refused, .reply = "+24 51525354 +28 61626364"},

    {.function = "DEV_SWDRV_PMGR_EnableJumboFrame",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnableJumboFrame(); },
     .code = 106, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisableJumboFrame",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisableJumboFrame(); },
     .code = 107, .msg_size = 4, .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
