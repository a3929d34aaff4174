// Class-of-service mapping, and the mapping tables of CoS, precedence and DSCP.
#include "quillon/swdrvl4.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows cos_mapping{
    {.function = "DEV_SWDRVL4_PMGR_EnableCosMapping",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_EnableCosMapping(0x14131211); },
     .code = 1, .msg_size = 8, .request = "+20 11121314", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_EnablePortCosMapping",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_EnablePortCosMapping(0x14131211, 0x24232221, 0x34333231); },
     .code = 2, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 31323334", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_DisableCosMapping",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_DisableCosMapping(0x14131211); },
     .code = 3, .msg_size = 8, .request = "+20 11121314", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_DisablePortCosMapping",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_DisablePortCosMapping(0x14131211, 0x24232221, 0x34333231); },
     .code = 4, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 31323334", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetCosMapping",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_SetCosMapping(0x14131211, 0x24232221, 0x34333231); },
     .code = 5, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 31323334", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetPortCosMapping",
     .call = [](Arguments &) {
         return DEV_SWDRVL4_PMGR_SetPortCosMapping(0x14131211, 0x24232221, 0x34333231, 0x44434241, 0x54535251);
     },
     .code = 6, .msg_size = 24, .request = "+20 11121314 +24 21222324 +28 31323334 +32 41424344 +36 51525354",
     .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_DeleteCosMapping",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_DeleteCosMapping(0x14131211, 0x24232221, 0x34333231); },
     .code = 7, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 31323334", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_DeletePortCosMapping",
     .call = [](Arguments &) {
         return DEV_SWDRVL4_PMGR_DeletePortCosMapping(0x14131211, 0x24232221, 0x34333231, 0x44434241, 0x54535251);
     },
     .code = 8, .msg_size = 24, .request = "+20 11121314 +24 21222324 +28 31323334 +32 41424344 +36 51525354",
     .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetCosTrustMode",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_SetCosTrustMode(0x14131211, 0x24232221, 0x34333231); },
     .code = 34, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 31323334", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetQosIngCos2Dscp",
     .call = [](Arguments &) {
         return DEV_SWDRVL4_PMGR_SetQosIngCos2Dscp(0x14131211, 0x24232221, 0x34333231, 0x44434241, 0x54535251,
                                                   0x64636261);
     },
     .code = 35, .msg_size = 28,
     .request = "+20 11121314 +24 21222324 +28 31323334 +32 41424344 +36 51525354 +40 61626364", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetQosIngPre2Dscp",
     .call = [](Arguments &) {
         return DEV_SWDRVL4_PMGR_SetQosIngPre2Dscp(0x14131211, 0x24232221, 0x34333231, 0x44434241, 0x54535251);
     },
     .code = 36, .msg_size = 24, .request = "+20 11121314 +24 21222324 +28 31323334 +32 41424344 +36 51525354",
     .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetQosIngDscp2Dscp",
     .call = [](Arguments &) {
         return DEV_SWDRVL4_PMGR_SetQosIngDscp2Dscp(0x14131211, 0x24232221, 0x34333231, 0x44434241, 0x54535251);
     },
     .code = 37, .msg_size = 24, .request = "+20 11121314 +24 21222324 +28 31323334 +32 41424344 +36 51525354",
     .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetQosIngDscp2Queue",
     .call = [](Arguments &) {
         return DEV_SWDRVL4_PMGR_SetQosIngDscp2Queue(0x14131211, 0x24232221, 0x34333231, 0x44434241);
     },
     .code = 38, .msg_size = 20, .request = "+20 11121314 +24 21222324 +28 31323334 +32 41424344", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetQosIngDscp2Color",
     .call = [](Arguments &) {
         return DEV_SWDRVL4_PMGR_SetQosIngDscp2Color(0x14131211, 0x24232221, 0x34333231, 0x44434241);
     },
     .code = 39, .msg_size = 20, .request = "+20 11121314 +24 21222324 +28 31323334 +32 41424344", .reply_size = 4},

    // The last two arguments are sent in front of the third and fourth.
    {.function = "DEV_SWDRVL4_PMGR_SetQosIngDscp2Cos",
     .call = [](Arguments &) {
         return DEV_SWDRVL4_PMGR_SetQosIngDscp2Cos(0x14131211, 0x24232221, 0x34333231, 0x44434241, 0x54535251,
                                                   0x64636261);
     },
     .code = 40, .msg_size = 28,
     .request = "+20 11121314 +24 21222324 +28 51525354 +32 61626364 +36 31323334 +40 41424344", .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
