// Received packets given back, and statistics.
#include "quillon/nicdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows statistics{
    {.function = "DEV_NICDRV_PMGR_FreeRxPacket",
     .call = [](Arguments &) { return DEV_NICDRV_PMGR_FreeRxPacket(reinterpret_cast<void *>(0x9897969594939291)); },
     .code = 13, .msg_size = 12, .request = "+24 9192939495969798", .reply_size = 4},

    {.function = "DEV_NICDRV_PMGR_FreeRxPacket", .branch = "null",
     .call = [](Arguments &) { return DEV_NICDRV_PMGR_FreeRxPacket(nullptr); },
     .code = 13, .msg_size = 12, .request = "+24 00*8", .reply_size = 4, .reply_type = refused},

    // The records behind these come whole, whatever the result, and the requests are as long as they are.
    {.function = "DEV_NICDRV_PMGR_RxSummary",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_RxSummary(arg.out("11..18 21..28 31..38 41..48 51..54"));
     },
     .code = 14, .msg_size = 40,
     .reply_size = 40, .reply = "+24 11..18 +32 21..28 +40 31..38 +48 41..48 +56 51..54"},

    {.function = "DEV_NICDRV_PMGR_RxSummary", .branch = "refused",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_RxSummary(arg.out("11..18 21..28 31..38 41..48 51..54"));
     },
     .code = 14, .msg_size = 40,
     .reply_size = 40, .reply_type = refused, .reply = "+24 11..18 +32 21..28 +40 31..38 +48 41..48 +56 51..54"},

    {.function = "DEV_NICDRV_PMGR_MemStatus",
     .call = [](Arguments &arg) { return DEV_NICDRV_PMGR_MemStatus(arg.out("11..18 21..28 31..38 41..44")); },
     .code = 15, .msg_size = 32, .reply_size = 32, .reply = "+24 11..18 +32 21..28 +40 31..38 +48 41..44"},

    {.function = "DEV_NICDRV_PMGR_MemStatus", .branch = "refused",
     .call = [](Arguments &arg) { return DEV_NICDRV_PMGR_MemStatus(arg.out("11..18 21..28 31..38 41..44")); },
     .code = 15, .msg_size = 32,
     .reply_size = 32, .reply_type = refused, .reply = "+24 11..18 +32 21..28 +40 31..38 +48 41..44"},

    {.function = "DEV_NICDRV_PMGR_PriInfo",
     .call = [](Arguments &arg) { return DEV_NICDRV_PMGR_PriInfo(arg.out(distinct_bytes(1488))); },
     .code = 16, .msg_size = 1492, .reply_size = 1492, .reply = "+24 " + distinct_bytes(1488)},

    {.function = "DEV_NICDRV_PMGR_PriInfo", .branch = "refused",
     .call = [](Arguments &arg) { return DEV_NICDRV_PMGR_PriInfo(arg.out(distinct_bytes(1488))); },
     .code = 16, .msg_size = 1492, .reply_size = 1492, .reply_type = refused, .reply = "+24 " + distinct_bytes(1488)},

    {.function = "DEV_NICDRV_PMGR_Clear",
     .call = [](Arguments &) { return DEV_NICDRV_PMGR_Clear(); },
     .code = 17, .msg_size = 4, .reply_size = 4},
};

}  // namespace
}  // namespace quillon::test
