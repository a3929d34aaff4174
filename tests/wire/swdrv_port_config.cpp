// Port configuration and auto-negotiation.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows port_config{
    {.function = "DEV_SWDRV_PMGR_EnablePortAdmin",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnablePortAdmin(0x14131211, 0x24232221); },
     .code = 12, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisablePortAdmin",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisablePortAdmin(0x14131211, 0x24232221); },
     .code = 13, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisableAllPortAdmin",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisableAllPortAdmin(); },
     .code = 14, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortCfgSpeedDuplex",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortCfgSpeedDuplex(0x14131211, 0x24232221, 0x34333231); },
     .code = 15, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_EnablePortAutoNeg",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnablePortAutoNeg(0x14131211, 0x24232221); },
     .code = 16, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisablePortAutoNeg",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisablePortAutoNeg(0x14131211, 0x24232221); },
     .code = 17, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_EnablePortCfgFlowCtrl",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnablePortCfgFlowCtrl(0x14131211, 0x24232221); },
     .code = 18, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisablePortCfgFlowCtrl",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisablePortCfgFlowCtrl(0x14131211, 0x24232221); },
     .code = 19, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortCfgFlowCtrl",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortCfgFlowCtrl(0x14131211, 0x24232221, 0x34333231); },
     .code = 20, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortAutoNegCapability",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortAutoNegCapability(0x14131211, 0x24232221, 0x34333231); },
     .code = 21, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetMiniGbicPortLEDStatus",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetMiniGbicPortLEDStatus(0x14131211, 0x24232221, 0x91); },
     .code = 22, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_GetPortType",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_GetPortType(0x14131211, 0x24232221, arg.out_u32(0x54535251)); },
     .code = 23, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 51525354"},

    {.function = "DEV_SWDRV_PMGR_SetPortRestartAutoNego",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortRestartAutoNego(0x14131211, 0x24232221); },
     .code = 24, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortAutoNegoRemoteFaultAdvertisement",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetPortAutoNegoRemoteFaultAdvertisement(0x14131211, 0x24232221, 0x34333231);
     },
     .code = 25, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_GetPortAutoNegoRemoteFaultAdvertisement",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortAutoNegoRemoteFaultAdvertisement(0x14131211, 0x24232221, arg.out_u32(0x54535251));
     },
     .code = 26, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 51525354"},

    {.function = "DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoSignalingState",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoSignalingState(0x14131211, 0x24232221,
                                                                        arg.out_u32(0x54535251));
     },
     .code = 27, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 51525354"},

    {.function = "DEV_SWDRV_PMGR_GetPortAutoNegoProcessState",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortAutoNegoProcessState(0x14131211, 0x24232221, arg.out_u32(0x54535251));
     },
     .code = 28, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 51525354"},

    {.function = "DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoCapa",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoCapa(0x14131211, 0x24232221, arg.out_u32(0x54535251));
     },
     .code = 29, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 51525354"},

    {.function = "DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoRemoteFault",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoRemoteFault(0x14131211, 0x24232221, arg.out_u32(0x54535251));
     },
     .code = 30, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 51525354"},

    {.function = "DEV_SWDRV_PMGR_GetPortJabberState",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortJabberState(0x14131211, 0x24232221, arg.out_u32(0x54535251));
     },
     .code = 31, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 51525354"},

    {.function = "DEV_SWDRV_PMGR_GetPortFalseCarrierSenseCounter",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortFalseCarrierSenseCounter(0x14131211, 0x24232221, arg.out_u32(0x54535251));
     },
     .code = 32, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 51525354"},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
