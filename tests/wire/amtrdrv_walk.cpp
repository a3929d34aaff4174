// Walking the MAC address table, one entry or one batch at a time.
#include "quillon/amtrdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows walk{
    {.function = "DEV_AMTRDRV_PMGR_ResetToFirstAddrTblEntry",
     .call = [](Arguments &) { return DEV_AMTRDRV_PMGR_ResetToFirstAddrTblEntry(0x14131211); },
     .code = 1, .msg_size = 8, .request = "+20 11121314", .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_GetNextAddrTblEntry",
     .call = [](Arguments &arg) { return DEV_AMTRDRV_PMGR_GetNextAddrTblEntry(arg.in_out("11..20", "51..60")); },
     .code = 2, .msg_size = 20, .request = "+20 11..20",
     .reply_size = 20, .reply = "+20 51..60", .result = Result::word},

    {.function = "DEV_AMTRDRV_PMGR_GetNextAddrTblEntry", .branch = "refused",
     .call = [](Arguments &arg) { return DEV_AMTRDRV_PMGR_GetNextAddrTblEntry(arg.in_out("11..20", "51..60")); },
     .code = 2, .msg_size = 20, .request = "+20 11..20",
     .reply_size = 20, .reply_type = 0, .reply = "+20 51..60", .result = Result::word},

    // What comes back is taken from where the entry was sent.
    {.function = "DEV_AMTRDRV_PMGR_GetNextAddrTblEntry", .branch = "short_reply",
     .call = [](Arguments &arg) { return DEV_AMTRDRV_PMGR_GetNextAddrTblEntry(arg.in_out("11..20", "11..20")); },
     .code = 2, .msg_size = 20, .request = "+20 11..20",
     .reply_size = 20, .reply_type = 0, .short_reply = true, .result = Result::word},

    {.function = "DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry",
     .call = [](Arguments &arg) {
         return DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry(arg.out("51..60 61..70 --*2368"), 0x24232221, arg.out_u32(2));
     },
     .code = 3, .msg_size = 8, .request = "+20 21222324",
     .reply_size = 2408, .reply = "+20 51..60 61..70 +2420 02000000", .result = Result::word},

    {.function = "DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry", .branch = "no_entry",
     .call = [](Arguments &arg) {
         return DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry(arg.kept(2400), 0x24232221, arg.out_u32(0));
     },
     .code = 3, .msg_size = 8, .request = "+20 21222324",
     .reply_size = 2408, .reply_type = 0x5A4B3C00, .reply = "+2420 00000000", .result = Result::word},

    {.function = "DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry", .branch = "one_entry",
     .call = [](Arguments &arg) {
         return DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry(arg.out("51..60 --*2384"), 150, arg.out_u32(1));
     },
     .code = 3, .msg_size = 8, .request = "+20 96000000",
     .reply_size = 2408, .reply = "+20 51..60 61..70 +2420 01000000", .result = Result::word},

    {.function = "DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry", .branch = "full_batch",
     .call = [](Arguments &arg) {
         return DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry(arg.out(distinct_bytes(2400)), 150, arg.out_u32(150));
     },
     .code = 3, .msg_size = 8, .request = "+20 96000000",
     .reply_size = 2408, .reply = "+20 " + distinct_bytes(2400) + " +2420 96000000", .result = Result::word},

    // The whole envelope was zeroed: a reply without a batch has none.
    {.function = "DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry", .branch = "short_reply",
     .call = [](Arguments &arg) {
         return DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry(arg.kept(2400), 0x24232221, arg.out_u32(0));
     },
     .code = 3, .msg_size = 8, .request = "+20 21222324",
     .reply_size = 2408, .short_reply = true, .result = Result::word},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
