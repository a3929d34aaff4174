// IP multicast.
#include "quillon/swdrvl3.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows forwarding{
    {.function = "DEV_SWDRVL3_PMGR_ipmc_enable",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_ipmc_enable(0x14131211, 0x24232221, 0x34333231); },
     .code = 100, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334",
     .reply_size = 16, .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_ipmc_disable",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_ipmc_disable(); },
     .code = 101, .msg_size = 12, .request = "+24 00*8", .reply_size = 12, .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_ipmc_debug_enable",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_ipmc_debug_enable(); },
     .code = 102, .msg_size = 12, .request = "+24 00*8", .reply_size = 12, .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_ipmc_debug_disable",
     .call = [](Arguments &) { return DEV_SWDRVL3_PMGR_ipmc_debug_disable(); },
     .code = 103, .msg_size = 12, .request = "+24 00*8", .reply_size = 12, .result = Result::word},
};

const WireRows layer_2_entries{
    {.function = "DEV_SWDRVL3_PMGR_l2mc_entry_add",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_l2mc_entry_add(0x14131211, 0x24232221, arg.in("31..40"), arg.in("41..50"),
                                                arg.in("61..68"));
     },
     .code = 106, .msg_size = 52, .request = "+24 11121314 +28 31..40 +44 41..50 +60 21222324 +64 61..68",
     .reply_size = 52, .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_l2mc_entry_del",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_l2mc_entry_del(0x14131211, 0x24232221, arg.in("31..40"), arg.in("41..50"),
                                                arg.in("61..68"));
     },
     .code = 107, .msg_size = 52, .request = "+24 11121314 +28 31..40 +44 41..50 +60 21222324 +64 61..68",
     .reply_size = 52, .result = Result::word},
};

const WireRows layer_3_entries{
    // The sixth argument travels in front of the fifth.
    {.function = "DEV_SWDRVL3_PMGR_l3mc_port_add",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_l3mc_port_add(0x14131211, 0x24232221, arg.in("31..40"), arg.in("41..50"),
                                               0x64636261, 0x74737271);
     },
     .code = 108, .msg_size = 56,
     .request = "+24 11121314 +28 31..40 +44 41..50 +60 21222324 +64 71727374 +68 61626364 +72 00000000",
     .reply_size = 56, .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_l3mc_port_del",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_l3mc_port_del(0x14131211, 0x24232221, arg.in("31..40"), arg.in("41..50"),
                                               0x64636261, 0x74737271);
     },
     .code = 109, .msg_size = 56,
     .request = "+24 11121314 +28 31..40 +44 41..50 +60 21222324 +64 71727374 +68 61626364 +72 00000000",
     .reply_size = 56, .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_l3mc_dnintf_add",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_l3mc_dnintf_add(0x14131211, 0x24232221, arg.in("31..40"), arg.in("41..50"),
                                                 arg.in("61..68 71..74"));
     },
     .code = 110, .msg_size = 440,
     .request = "+24 11121314 +28 31..40 +44 41..50 +60 21222324 +76 61..68 +84 71..74 +88 00*372",
     .reply_size = 440, .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_l3mc_dnintf_del",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_l3mc_dnintf_del(0x14131211, 0x24232221, arg.in("31..40"), arg.in("41..50"),
                                                 arg.in("61..68 71..74"));
     },
     .code = 111, .msg_size = 440,
     .request = "+24 11121314 +28 31..40 +44 41..50 +60 21222324 +76 61..68 +84 71..74 +88 00*372",
     .reply_size = 440, .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_l3mc_entry_add",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_l3mc_entry_add(0x14131211, 0x24232221, arg.in("31..40"), arg.in("41..50"),
                                                arg.in("61..68"), 0x71, arg.in("01..FF 00 81..FF 80"));
     },
     .code = 112, .msg_size = 440,
     .request = "+24 11121314 +28 31..40 +44 41..50 +60 21222324 +64 61..68 +72 71 000000 +76 01..FF 00 81..FF 80",
     .reply_size = 440, .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_l3mc_entry_del",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_l3mc_entry_del(0x14131211, 0x24232221, arg.in("31..40"), arg.in("41..50"));
     },
     .code = 113, .msg_size = 56, .request = "+24 11121314 +28 31..40 +44 41..50 +60 21222324 +64 00*12",
     .reply_size = 56, .result = Result::word},

    // The answer goes to the caller's word; what is returned is the status of the exchange.
    {.function = "DEV_SWDRVL3_PMGR_l3mc_entry_stat",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_l3mc_entry_stat(0x14131211, 0x24232221, arg.in("31..40"), arg.in("41..50"),
                                                 arg.in_out("61626364", "013C4B5A"));
     },
     .code = 114, .msg_size = 56,
     .request = "+24 11121314 +28 31..40 +44 41..50 +60 21222324 +64 00*8 +72 61626364",
     .reply_size = 56, .result = Result::word, .returned = 0},

    {.function = "DEV_SWDRVL3_PMGR_l3mc_cpu_port_add",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_l3mc_cpu_port_add(0x14131211, 0x24232221, arg.in("31..40"), arg.in("41..50"));
     },
     .code = 115, .msg_size = 56, .request = "+24 11121314 +28 31..40 +44 41..50 +60 21222324 +64 00*12",
     .reply_size = 56, .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_l3mc_cpu_port_del",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_l3mc_cpu_port_del(0x14131211, 0x24232221, arg.in("31..40"), arg.in("41..50"));
     },
     .code = 116, .msg_size = 56, .request = "+24 11121314 +28 31..40 +44 41..50 +60 21222324 +64 00*12",
     .reply_size = 56, .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_l3mc_repl_add",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_l3mc_repl_add(0x14131211, 0x24232221, arg.in("31..40"), arg.in("41..50"),
                                               arg.in("61..68 71..74"));
     },
     .code = 117, .msg_size = 440,
     .request = "+24 11121314 +28 31..40 +44 41..50 +60 21222324 +76 61..68 +84 71..74 +88 00*372",
     .reply_size = 440, .result = Result::word},

    {.function = "DEV_SWDRVL3_PMGR_l3mc_repl_del",
     .call = [](Arguments &arg) {
         return DEV_SWDRVL3_PMGR_l3mc_repl_del(0x14131211, 0x24232221, arg.in("31..40"), arg.in("41..50"),
                                               arg.in("61..68 71..74"));
     },
     .code = 118, .msg_size = 440,
     .request = "+24 11121314 +28 31..40 +44 41..50 +60 21222324 +76 61..68 +84 71..74 +88 00*372",
     .reply_size = 440, .result = Result::word},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
