// State of ports, one by one or in blocks, and link scan.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows port_status{
    {.function = "DEV_SWDRV_PMGR_GetPortOperSpeedDuplex",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortOperSpeedDuplex(0x14131211, 0x24232221, arg.out_u32(0x54535251));
     },
     .code = 108, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 51525354"},

    // The 360 bytes of a block.
    {.function = "DEV_SWDRV_PMGR_GetAllPortOperSpeedDuplex",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetAllPortOperSpeedDuplex(0x14131211, 0x24232221, 0x34333231, arg.out("10..FF 20..97"));
     },
     .code = 109, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334",
     .reply_size = 364, .reply = "+24 10..FF 20..97"},

    {.function = "DEV_SWDRV_PMGR_GetAllPortOperSpeedDuplex", .branch = "refused",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetAllPortOperSpeedDuplex(0x14131211, 0x24232221, 0x34333231, arg.out("10..FF 20..97"));
     },
     .code = 109, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334",
     .reply_size = 364, .reply_type = refused, .reply = "+24 10..FF 20..97"},

    // What a short reply leaves out is what was sent, and zero behind it.
    {.function = "DEV_SWDRV_PMGR_GetAllPortOperSpeedDuplex", .branch = "short_reply",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetAllPortOperSpeedDuplex(0x14131211, 0x24232221, 0x34333231,
                                                         arg.out("71727374 21222324 31323334 00*348"));
     },
     .code = 109, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334",
     .reply_size = 364, .reply = "+24 71727374", .short_reply = true},

    {.function = "DEV_SWDRV_PMGR_GetAllPortLinkStatus",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetAllPortLinkStatus(0x14131211, 0x24232221, 0x34333231, arg.out("10..FF 20..97"));
     },
     .code = 110, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334",
     .reply_size = 364, .reply = "+24 10..FF 20..97"},

    {.function = "DEV_SWDRV_PMGR_GetPortLinkStatus",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortLinkStatus(0x14131211, 0x24232221, arg.out_u32(0x54535251));
     },
     .code = 111, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 51525354"},

    {.function = "DEV_SWDRV_PMGR_GetPortLinkStatus", .branch = "refused",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortLinkStatus(0x14131211, 0x24232221, arg.out_u32(0x54535251));
     },
     .code = 111, .msg_size = 12, .request = "+24 11121314 +28 21222324",
     .reply_size = 8, .reply_type = refused, .reply = "+24 51525354"},

    {.function = "DEV_SWDRV_PMGR_GetAllPortStatus",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetAllPortStatus(0x14131211, 0x24232221, 0x34333231, arg.out("10..FF 20..97"));
     },
     .code = 112, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334",
     .reply_size = 364, .reply = "+24 10..FF 20..97"},

    {.function = "DEV_SWDRV_PMGR_GetPortLinkStatusByDeviceId",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortLinkStatusByDeviceId(0x14131211, 0x24232221, arg.out_u32(0x54535251));
     },
     .code = 113, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 51525354"},

    {.function = "DEV_SWDRV_PMGR_GetPortFlowCtrl",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortFlowCtrl(0x14131211, 0x24232221, arg.out_u32(0x54535251));
     },
     .code = 114, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 51525354"},

    {.function = "DEV_SWDRV_PMGR_GetAllPortFlowCtrl",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetAllPortFlowCtrl(0x14131211, 0x24232221, 0x34333231, arg.out("10..FF 20..97"));
     },
     .code = 115, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334",
     .reply_size = 364, .reply = "+24 10..FF 20..97"},

    {.function = "DEV_SWDRV_PMGR_LinkScan_Update",
     .call = [](Arguments &) { DEV_SWDRV_PMGR_LinkScan_Update(); },
     .code = 116, .msg_size = 4, .reply_size = 4, .result = Result::nothing},

    // It counts eight bytes that carry nothing.
    {.function = "DEV_SWDRV_PMGR_EnableHgPortAdmin",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnableHgPortAdmin(); },
     .code = 10, .msg_size = 12, .request = "+24 0000000000000000", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_LINKSCAN_Register",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_LINKSCAN_Register(); },
     .code = 11, .msg_size = 4, .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
