// sFlow sampling and the DoS protection filters, which print that they were refused.
#include "quillon/swdrvl4.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows sflow_and_dos{
    {.function = "DEV_SWDRVL4_PMGR_EnablePortSflow",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_EnablePortSflow(0x14131211, 0x24232221, 0x91); },
     .code = 41, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 91", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_EnablePortSflow", .branch = "refused",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_EnablePortSflow(0x14131211, 0x24232221, 0x91); },
     .code = 41, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 91", .reply_size = 4,
     .reply_type = refused, .printed = "DEV_SWDRVL4_PMGR_EnablePortSflow: return_value=0\n"},

    // Only 0 is a refusal.
    {.function = "DEV_SWDRVL4_PMGR_EnablePortSflow", .branch = "other_result",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_EnablePortSflow(0x14131211, 0x24232221, 0x91); },
     .code = 41, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 91", .reply_size = 4,
     .reply_type = 0x5A4B3CFE},

    {.function = "DEV_SWDRVL4_PMGR_SetPortSflowRate",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_SetPortSflowRate(0x14131211, 0x24232221, 0x34333231); },
     .code = 42, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 31323334", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetPortSflowRate", .branch = "refused",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_SetPortSflowRate(0x14131211, 0x24232221, 0x34333231); },
     .code = 42, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 31323334", .reply_size = 4,
     .reply_type = refused, .printed = "DEV_SWDRVL4_PMGR_SetPortSflowRate: return_value=0\n"},

    {.function = "DEV_SWDRVL4_PMGR_GetSflowSampleCount",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_GetSflowSampleCount(); },
     .returned = 1},

    {.function = "DEV_SWDRVL4_PMGR_SetDosProtectionFilter",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_SetDosProtectionFilter(0x14131211, 0x91); },
     .code = 43, .msg_size = 16, .request = "+20 11121314 +24 91", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetDosProtectionFilter", .branch = "refused",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_SetDosProtectionFilter(0x14131211, 0x91); },
     .code = 43, .msg_size = 16, .request = "+20 11121314 +24 91", .reply_size = 4,
     .reply_type = refused, .printed = "DEV_SWDRVL4_PMGR_SetDosProtectionFilter: return_value=0\n"},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
