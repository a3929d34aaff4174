// Traffic segmentation, private VLANs and port security.
#include "quillon/swdrvl4.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows port_isolation{
    {.function = "DEV_SWDRVL4_PMGR_EnableTrafficSegmatation",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_EnableTrafficSegmatation(); },
     .code = 20, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_DisableTrafficSegmatation",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_DisableTrafficSegmatation(); },
     .code = 21, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_ResetTrafficSegmatation",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_ResetTrafficSegmatation(); },
     .code = 23, .msg_size = 4, .reply_size = 4},

    // The word in which private VLANs name their session is zero.
    {.function = "DEV_SWDRVL4_PMGR_SetTrafficSegmatationByPortlist",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL4_PMGR_SetTrafficSegmatationByPortlist(arg.in("51..58"), arg.in("61..68"));
     },
     .code = 24, .msg_size = 24, .request = "+20 00000000 +24 51..58 +32 61..68", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetPrivateVlanPortlistBySessionId",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL4_PMGR_SetPrivateVlanPortlistBySessionId(0x14131211, arg.in("51..58"), arg.in("61..68"));
     },
     .code = 25, .msg_size = 24, .request = "+20 11121314 +24 51..58 +32 61..68", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_DeletePrivateVlanPortlistBySessionId",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL4_PMGR_DeletePrivateVlanPortlistBySessionId(0x14131211, arg.in("51..58"), arg.in("61..68"));
     },
     .code = 26, .msg_size = 24, .request = "+20 11121314 +24 51..58 +32 61..68", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetPrivateVlanUplinkPortMode",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_SetPrivateVlanUplinkPortMode(0x91); },
     .code = 27, .msg_size = 5, .request = "+20 91", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetPrivateVlanTrunkMode",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_SetPrivateVlanTrunkMode(0x14131211, 0x24232221, 0x91); },
     .code = 28, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 91", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_EnablePortSecurity",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_EnablePortSecurity(0x14131211, 0x24232221); },
     .code = 29, .msg_size = 12, .request = "+20 11121314 +24 21222324", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_DisablePortSecurity",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_DisablePortSecurity(0x14131211, 0x24232221); },
     .code = 30, .msg_size = 12, .request = "+20 11121314 +24 21222324", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetPortSecurityMode",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_SetPortSecurityMode(0x14131211, 0x24232221, 0x34333231); },
     .code = 31, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 31323334", .reply_size = 4},

    // A refusal is not reported here, unlike by the sFlow and DoS requests.
    {.function = "DEV_SWDRVL4_PMGR_SetPortSecurityMode", .branch = "refused",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_SetPortSecurityMode(0x14131211, 0x24232221, 0x34333231); },
     .code = 31, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 31323334", .reply_size = 4,
     .reply_type = refused},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
