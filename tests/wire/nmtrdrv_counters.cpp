// Clearing counters, and what a port can count.
#include "quillon/nmtrdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows counters{
    {.function = "DEV_NMTRDRV_PMGR_ClearPortCounter",
     .call = [](Arguments &) { return DEV_NMTRDRV_PMGR_ClearPortCounter(0x14131211, 0x24232221); },
     .code = 0, .msg_size = 16, .request = "+24 11121314 +28 21222324", .reply_size = 8},

    // Four bytes are counted although nothing is passed.
    {.function = "DEV_NMTRDRV_PMGR_ClearAllCounters",
     .call = [](Arguments &) { return DEV_NMTRDRV_PMGR_ClearAllCounters(); },
     .code = 2, .msg_size = 8, .reply_size = 8},

    // A u64 and a u16 without a gap: 10 bytes of the caller's memory are written, and no more.
    {.function = "DEV_NMTRDRV_PMGR_GetStatsAbility",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetStatsAbility(0x14131211, 0x24232221, arg.out("51..58 6162"));
     },
     .code = 8, .msg_size = 16, .request = "+24 11121314 +28 21222324",
     .reply_size = 18, .reply = "+24 51..58 +32 6162"},

    {.function = "DEV_NMTRDRV_PMGR_GetStatsAbility", .branch = "refused",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetStatsAbility(0x14131211, 0x24232221, arg.out("51..58 6162"));
     },
     .code = 8, .msg_size = 16, .request = "+24 11121314 +28 21222324",
     .reply_size = 18, .reply_type = refused, .reply = "+24 51..58 +32 6162"},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
