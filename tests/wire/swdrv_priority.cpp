// User priorities and traffic classes.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows priority{
    {.function = "DEV_SWDRV_PMGR_SetPortUserDefaultPriority",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortUserDefaultPriority(0x14131211, 0x24232221, 0x34333231); },
     .code = 100, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPriorityMapping",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_SetPriorityMapping(0x14131211, 0x24232221, arg.in("C1..C8")); },
     .code = 101, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 C1..C8", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPriorityMappingPerSystem",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_SetPriorityMappingPerSystem(arg.in("C1..C8")); },
     .code = 102, .msg_size = 12, .request = "+24 C1..C8", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetNumberOfTrafficClassByPort",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetNumberOfTrafficClassByPort(0x14131211, 0x24232221, 0x34333231);
     },
     .code = 103, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetNumberOfTrafficClass",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetNumberOfTrafficClass(0x14131211); },
     .code = 104, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetStackingPortPriorityMapping",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_SetStackingPortPriorityMapping(0x14131211, 0x24232221, arg.in("C1..C8"));
     },
     .code = 105, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 C1..C8", .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
