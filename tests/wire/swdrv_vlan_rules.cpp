// VLANs by protocol, by MAC address and by IP subnet, VLAN trunking and RSPAN.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows vlan_rules{
    {.function = "DEV_SWDRV_PMGR_AddDot1vProtocolPortEntry",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_AddDot1vProtocolPortEntry(0x14131211, 0x24232221, 0x34333231, 0x44434241, 1,
                                                         arg.in("C1..CC"), 0x91, arg.in("D1..D5"));
     },
     .code = 128, .msg_size = 100,
     .request = "+24 11121314 +28 21222324 +32 31323334 +36 41424344 +40 01 +44 C1..C8 +52 C9CACBCC +56 D1..D5 +116 91",
     .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_AddDot1vProtocolPortEntry", .branch = "most_templates",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_AddDot1vProtocolPortEntry(0x14131211, 0x24232221, 0x34333231, 0x44434241, 11,
                                                         arg.in("C1..CC"), 0x91, arg.in("51..87"));
     },
     .code = 128, .msg_size = 100,
     .request = "+24 11121314 +28 21222324 +32 31323334 +36 41424344 +40 0B +44 C1..CC +56 51..87 +111 00 +116 91",
     .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_AddDot1vProtocolPortEntry", .branch = "no_template",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_AddDot1vProtocolPortEntry(0x14131211, 0x24232221, 0x34333231, 0x44434241, 0,
                                                         arg.in("C1..CC"), 0x91, nullptr);
     },
     .code = 128, .msg_size = 100,
     .request = "+24 11121314 +28 21222324 +32 31323334 +36 41424344 +44 C1..CC +116 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DelDot1vProtocolPortEntry",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_DelDot1vProtocolPortEntry(0x14131211, 0x24232221, 0x34333231, 0x44434241, 1,
                                                         arg.in("C1..CC"), arg.in("D1..D5"));
     },
     .code = 129, .msg_size = 96,
     .request = "+24 11121314 +28 21222324 +32 31323334 +36 41424344 +40 01 +44 C1..C8 +52 C9CACBCC +56 D1..D5",
     .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DelDot1vProtocolPortEntry", .branch = "most_templates",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_DelDot1vProtocolPortEntry(0x14131211, 0x24232221, 0x34333231, 0x44434241, 11,
                                                         arg.in("C1..CC"), arg.in("51..87"));
     },
     .code = 129, .msg_size = 96,
     .request = "+24 11121314 +28 21222324 +32 31323334 +36 41424344 +40 0B +44 C1..CC +56 51..87 +111 00",
     .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DelDot1vProtocolPortEntry", .branch = "no_template",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_DelDot1vProtocolPortEntry(0x14131211, 0x24232221, 0x34333231, 0x44434241, 0,
                                                         arg.in("C1..CC"), nullptr);
     },
     .code = 129, .msg_size = 96, .request = "+24 11121314 +28 21222324 +32 31323334 +36 41424344 +44 C1..CC",
     .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetDot1vProtocolGroupEntry",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_SetDot1vProtocolGroupEntry(0x14131211, arg.in("D1..D5"), 0x24232221);
     },
     .code = 130, .msg_size = 20, .request = "+24 11121314 +28 D1D2D3D4 +32 D5 +36 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetMacVlanEntry",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_SetMacVlanEntry(arg.in("C1..C6"), 0xA2A1, 0x91); },
     .code = 190, .msg_size = 14, .request = "+24 C1C2C3C4C5C6 +30 A1A2 +32 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DeleteMacVlanEntry",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_DeleteMacVlanEntry(arg.in("C1..C6")); },
     .code = 191, .msg_size = 10, .request = "+24 C1C2C3C4C5C6", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetIpSubnetVlanEntry",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetIpSubnetVlanEntry(0x14131211, 0x24232221, 0xA2A1, 0x91); },
     .code = 192, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 A1A2 +34 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DeleteIpSubnetVlanEntry",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DeleteIpSubnetVlanEntry(0x14131211, 0x24232221); },
     .code = 193, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetDefaultVlanTrunking",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetDefaultVlanTrunking(); },
     .code = 186, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_CreateVlanForVlanTrunking",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_CreateVlanForVlanTrunking(0x14131211, arg.in("21222324"));
     },
     .code = 187, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    // The third argument stands before the second.
    {.function = "DEV_SWDRV_PMGR_SetPortVlanTunkingByVLAN",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortVlanTunkingByVLAN(0x14131211, 0x91, 0x24232221); },
     .code = 188, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortVlanTunkingByVlanList",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_SetPortVlanTunkingByVlanList(arg.in("11121314"), 0x91, arg.in("00..FF 80..FF 00..7F"));
     },
     .code = 189, .msg_size = 524, .request = "+24 00..FF 80..FF 00..7F +536 11121314 +540 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetCopyInnerPri2OuterPri",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetCopyInnerPri2OuterPri(0x14131211, 0x24232221, 0x34333231);
     },
     .code = 194, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetRspanVlanTag",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetRspanVlanTag(0x14131211, 0xA2A1, 0xB2B1); },
     .code = 196, .msg_size = 12, .request = "+24 11121314 +28 A1A2 +30 B1B2", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisableRspanPortLearning",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisableRspanPortLearning(0x14131211, 0x24232221); },
     .code = 197, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_EnableRspanPortLearning",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnableRspanPortLearning(0x14131211, 0x24232221); },
     .code = 198, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
