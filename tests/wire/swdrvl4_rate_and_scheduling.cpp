// Rate limits, egress scheduling and queue weights.
#include "quillon/swdrvl4.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows rate_and_scheduling{
    {.function = "DEV_SWDRVL4_PMGR_EnablePortIngressRateLimit",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_EnablePortIngressRateLimit(0x14131211, 0x24232221); },
     .code = 9, .msg_size = 12, .request = "+20 11121314 +24 21222324", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_DisablePortIngressRateLimit",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_DisablePortIngressRateLimit(0x14131211, 0x24232221); },
     .code = 10, .msg_size = 12, .request = "+20 11121314 +24 21222324", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetPortIngressRateLimit",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_SetPortIngressRateLimit(0x14131211, 0x24232221, 0x34333231); },
     .code = 11, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 31323334", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_EnablePortEgressRateLimit",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_EnablePortEgressRateLimit(0x14131211, 0x24232221); },
     .code = 12, .msg_size = 12, .request = "+20 11121314 +24 21222324", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_DisablePortEgressRateLimit",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_DisablePortEgressRateLimit(0x14131211, 0x24232221); },
     .code = 13, .msg_size = 12, .request = "+20 11121314 +24 21222324", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetPortEgressRateLimit",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_SetPortEgressRateLimit(0x14131211, 0x24232221, 0x34333231); },
     .code = 14, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 31323334", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetEgressSchedulingMethod",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_SetEgressSchedulingMethod(0x14131211); },
     .code = 15, .msg_size = 16, .request = "+20 11121314 +24 00000000 +28 00000000", .reply_size = 4},

    // The last argument is sent first.
    {.function = "DEV_SWDRVL4_PMGR_SetPortEgressSchedulingMethod",
     .call = [](Arguments &) {
         return DEV_SWDRVL4_PMGR_SetPortEgressSchedulingMethod(0x14131211, 0x24232221, 0x34333231);
     },
     .code = 33, .msg_size = 16, .request = "+20 31323334 +24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetEgressSpSchedulingQueues",
     .call = [](Arguments &) {
         return DEV_SWDRVL4_PMGR_SetEgressSpSchedulingQueues(0x14131211, 0x24232221, 0x34333231, 0x44434241);
     },
     .code = 16, .msg_size = 20, .request = "+20 11121314 +24 21222324 +28 31323334 +32 41424344", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetWrrQueueWeight",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_SetWrrQueueWeight(0x14131211, 0x24232221); },
     .code = 18, .msg_size = 12, .request = "+20 11121314 +24 21222324", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetStrictPriorityQueue",
     .call = [](Arguments &) { return DEV_SWDRVL4_PMGR_SetStrictPriorityQueue(0x14131211); },
     .code = 17, .msg_size = 8, .request = "+20 11121314", .reply_size = 4},

    {.function = "DEV_SWDRVL4_PMGR_SetPortWrrQueueWeight",
     .call = [](Arguments &) {
         return DEV_SWDRVL4_PMGR_SetPortWrrQueueWeight(0x14131211, 0x24232221, 0x34333231, 0x44434241);
     },
     .code = 19, .msg_size = 20, .request = "+20 11121314 +24 21222324 +28 31323334 +32 41424344", .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
