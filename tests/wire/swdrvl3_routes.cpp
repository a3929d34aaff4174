// Host, network and equal-cost multi-path routes.
#include "quillon/swdrvl3.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows host_and_network_routes{
    {.function = "DEV_SWDRVL3_PMGR_SetInetHostRoute",
     .call = [](Arguments &arg) { return DEV_SWDRVL3_PMGR_SetInetHostRoute(arg.in_out("10..57", "80..C7")); },
     .code = 16, .msg_size = 76, .request = "+24 10..57",
     .reply_size = 76, .reply = "+24 80..C7", .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_DeleteInetHostRoute",
     .call = [](Arguments &arg) { return DEV_SWDRVL3_PMGR_DeleteInetHostRoute(arg.in_out("10..57", "80..C7")); },
     .code = 17, .msg_size = 76, .request = "+24 10..57", .reply_size = 76, .reply = "+24 80..C7"},

    {.function = "DEV_SWDRVL3_PMGR_AddInetNetRoute",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_AddInetNetRoute(arg.in_out("10..5F", "80..CF"), 0x6867666564636261);
     },
     .code = 18, .msg_size = 92, .request = "+24 10..5F +104 6162636465666768",
     .reply_size = 84, .reply = "+24 80..CF", .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_DeleteInetNetRoute",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_DeleteInetNetRoute(arg.in_out("10..5F", "80..CF"), 0x6867666564636261);
     },
     .code = 19, .msg_size = 92, .request = "+24 10..5F +104 6162636465666768",
     .reply_size = 84, .reply = "+24 80..CF"},

    {.function = "DEV_SWDRVL3_PMGR_AddInetMyIpHostRoute",
     .call = [](Arguments &arg) { return DEV_SWDRVL3_PMGR_AddInetMyIpHostRoute(arg.in("10..57")); },
     .code = 27, .msg_size = 76, .request = "+24 10..57", .reply_size = 4, .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_DeleteInetMyIpHostRoute",
     .call = [](Arguments &arg) { return DEV_SWDRVL3_PMGR_DeleteInetMyIpHostRoute(arg.in("10..57")); },
     .code = 28, .msg_size = 76, .request = "+24 10..57", .reply_size = 4, .result = Result::word},
};

const WireRows multi_path_routes{
    {.function = "DEV_SWDRVL3_PMGR_AddInetECMPRouteMultiPath",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_AddInetECMPRouteMultiPath(arg.in_out("01..50", "B0..FF"), arg.in("60..9F"), 8);
     },
     .code = 29, .msg_size = 156, .request = "+24 01..50 +104 60..9F +168 08000000",
     .reply_size = 84, .reply = "+24 B0..FF", .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_AddInetECMPRouteMultiPath", .branch = "three_next_hops",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_AddInetECMPRouteMultiPath(arg.in_out("01..50", "B0..FF"), arg.in("60..77"), 3);
     },
     .code = 29, .msg_size = 156, .request = "+24 01..50 +104 60..77 +128 00*40 +168 03000000",
     .reply_size = 84, .reply = "+24 B0..FF", .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_AddInetECMPRouteMultiPath", .branch = "no_next_hop",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_AddInetECMPRouteMultiPath(arg.in_out("01..50", "B0..FF"), nullptr, 0);
     },
     .code = 29, .msg_size = 156, .request = "+24 01..50 +104 00*64 +168 00000000",
     .reply_size = 84, .reply = "+24 B0..FF", .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_DeleteInetECMPRoute",
     .call = [](Arguments &arg) { return DEV_SWDRVL3_PMGR_DeleteInetECMPRoute(arg.in_out("10..5F", "80..CF")); },
     .code = 30, .msg_size = 84, .request = "+24 10..5F", .reply_size = 84, .reply = "+24 80..CF"},

    {.function = "DEV_SWDRVL3_PMGR_AddInetECMPRouteOnePath",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_AddInetECMPRouteOnePath(arg.in_out("10..5F", "80..CF"), 0x6867666564636261, 0x71);
     },
     .code = 31, .msg_size = 100, .request = "+24 10..5F +104 6162636465666768 +112 71",
     .reply_size = 84, .reply = "+24 80..CF", .result = Result::word},

    // The entry stays as it is.
    {.function = "DEV_SWDRVL3_PMGR_DeleteInetECMPRouteOnePath",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_DeleteInetECMPRouteOnePath(arg.in("10..5F"), 0x6867666564636261, 0x71);
     },
     .code = 32, .msg_size = 100, .request = "+24 10..5F +104 6162636465666768 +112 71", .reply_size = 4},
};

const WireRows special_default_routes{
    // Of the entry, 14..5F travel behind the second argument.
    {.function = "DEV_SWDRVL3_PMGR_SetSpecialDefaultRoute",
     .call = [](Arguments &arg) { return DEV_SWDRVL3_PMGR_SetSpecialDefaultRoute(arg.in("10..5F"), 0x74737271); },
     .code = 33, .msg_size = 84, .request = "+24 71727374 +28 14..5F", .reply_size = 4},

    {.function = "DEV_SWDRVL3_PMGR_DeleteSpecialDefaultRoute",
     .call = [](Arguments &arg) { return DEV_SWDRVL3_PMGR_DeleteSpecialDefaultRoute(arg.in("10..5F"), 0x74737271); },
     .code = 34, .msg_size = 84, .request = "+24 71727374 +28 14..5F", .reply_size = 4},
};

const WireRows hit_bits_and_hardware_information{
    // The entry that comes back is not the caller's to see.
    {.function = "DEV_SWDRVL3_PMGR_ReadAndClearHostRouteEntryHitBit",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_ReadAndClearHostRouteEntryHitBit(arg.in("10..57"), arg.out_u32(0xE4E3E2E1));
     },
     .code = 35, .msg_size = 84, .request = "+24 10..57 +96 00000000",
     .reply_size = 84, .reply = "+24 80..C7 +96 E1E2E3E4"},

    {.function = "DEV_SWDRVL3_PMGR_ReadAndClearNetRouteEntryHitBit",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_ReadAndClearNetRouteEntryHitBit(); }, .returned = 1},

    {.function = "DEV_SWDRVL3_PMGR_ClearHostRouteHWInfo",
     .call = [](Arguments &arg) { return DEV_SWDRVL3_PMGR_ClearHostRouteHWInfo(arg.in_out("10..57", "80..C7")); },
     .code = 37, .msg_size = 76, .request = "+24 10..57", .reply_size = 76, .reply = "+24 80..C7"},

    {.function = "DEV_SWDRVL3_PMGR_ClearNetRouteHWInfo",
     .call = [](Arguments &arg) { return DEV_SWDRVL3_PMGR_ClearNetRouteHWInfo(arg.in_out("10..5F", "80..CF")); },
     .code = 38, .msg_size = 84, .request = "+24 10..5F", .reply_size = 84, .reply = "+24 80..CF"},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
