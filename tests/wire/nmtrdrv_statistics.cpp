// Statistics of a range of ports.
#include "quillon/nmtrdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows statistics{
    {.function = "DEV_NMTRDRV_PMGR_GetIfTableStats",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetIfTableStats(0x14131211, 0x24232221, 0x2423223E, arg.out(distinct_bytes(2880)));
     },
     .code = 3, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 3E222324",
     .reply_size = 2888, .reply = "+24 " + distinct_bytes(2880)},

    {.function = "DEV_NMTRDRV_PMGR_GetIfTableStats", .branch = "one_port",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetIfTableStats(0x14131211, 0x24232221, 0x24232221, arg.out(distinct_bytes(96)));
     },
     .code = 3, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 21222324",
     .reply_size = 2888, .reply = "+24 " + distinct_bytes(2880)},

    {.function = "DEV_NMTRDRV_PMGR_GetIfTableStats", .branch = "no_port",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetIfTableStats(0x14131211, 0x24232221, 0x24232220, arg.kept(96));
     },
     .code = 3, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 20222324",
     .reply_size = 2888, .reply = "+24 " + distinct_bytes(2880)},

    {.function = "DEV_NMTRDRV_PMGR_GetIfTableStats", .branch = "no_port_in_front_of_the_first",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetIfTableStats(0x14131211, 0, 0xFFFFFFFF, arg.kept(96));
     },
     .code = 3, .msg_size = 20, .request = "+24 11121314 +28 00000000 +32 FFFFFFFF",
     .reply_size = 2888, .reply = "+24 " + distinct_bytes(2880)},

    {.function = "DEV_NMTRDRV_PMGR_GetIfTableStats", .branch = "up_to_the_last_port",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetIfTableStats(0x14131211, 0xFFFFFFE2, 0xFFFFFFFF, arg.out(distinct_bytes(2880)));
     },
     .code = 3, .msg_size = 20, .request = "+24 11121314 +28 E2FFFFFF +32 FFFFFFFF",
     .reply_size = 2888, .reply = "+24 " + distinct_bytes(2880)},

    {.function = "DEV_NMTRDRV_PMGR_GetIfTableStats", .branch = "refused",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetIfTableStats(0x14131211, 0x24232221, 0x2423223E, arg.out(distinct_bytes(2880)));
     },
     .code = 3, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 3E222324",
     .reply_size = 2888, .reply_type = refused, .reply = "+24 " + distinct_bytes(2880)},

    {.function = "DEV_NMTRDRV_PMGR_GetIfXTableStats",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetIfXTableStats(0x14131211, 0x24232221, 0x2423223E, arg.out(distinct_bytes(3120)));
     },
     .code = 4, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 3E222324",
     .reply_size = 3128, .reply = "+24 " + distinct_bytes(3120)},

    {.function = "DEV_NMTRDRV_PMGR_GetIfXTableStats", .branch = "two_ports",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetIfXTableStats(0x14131211, 0x24232221, 0x24232222, arg.out(distinct_bytes(208)));
     },
     .code = 4, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 22222324",
     .reply_size = 3128, .reply = "+24 " + distinct_bytes(3120)},

    {.function = "DEV_NMTRDRV_PMGR_GetRmonStats",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetRmonStats(0x14131211, 0x24232221, 0x2423223E, arg.out(distinct_bytes(4080)));
     },
     .code = 5, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 3E222324",
     .reply_size = 4088, .reply = "+24 " + distinct_bytes(4080)},

    {.function = "DEV_NMTRDRV_PMGR_GetRmonStats", .branch = "one_port",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetRmonStats(0x14131211, 0x24232221, 0x24232221, arg.out(distinct_bytes(136)));
     },
     .code = 5, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 21222324",
     .reply_size = 4088, .reply = "+24 " + distinct_bytes(4080)},

    {.function = "DEV_NMTRDRV_PMGR_GetRmonStats", .branch = "no_port",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetRmonStats(0x14131211, 0x24232221, 0x24232220, arg.kept(136));
     },
     .code = 5, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 20222324",
     .reply_size = 4088, .reply = "+24 " + distinct_bytes(4080)},

    {.function = "DEV_NMTRDRV_PMGR_GetRmonStats", .branch = "up_to_the_last_port",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetRmonStats(0x14131211, 0xFFFFFFE2, 0xFFFFFFFF, arg.out(distinct_bytes(4080)));
     },
     .code = 5, .msg_size = 20, .request = "+24 11121314 +28 E2FFFFFF +32 FFFFFFFF",
     .reply_size = 4088, .reply = "+24 " + distinct_bytes(4080)},

    {.function = "DEV_NMTRDRV_PMGR_GetRmonStats", .branch = "refused",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetRmonStats(0x14131211, 0x24232221, 0x2423223E, arg.out(distinct_bytes(4080)));
     },
     .code = 5, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 3E222324",
     .reply_size = 4088, .reply_type = refused, .reply = "+24 " + distinct_bytes(4080)},

    {.function = "DEV_NMTRDRV_PMGR_GetEtherLikeStats",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetEtherLikeStats(0x14131211, 0x24232221, 0x2423223E, arg.out(distinct_bytes(3600)));
     },
     .code = 6, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 3E222324",
     .reply_size = 3608, .reply = "+24 " + distinct_bytes(3600)},

    {.function = "DEV_NMTRDRV_PMGR_GetEtherLikeStats", .branch = "two_ports",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetEtherLikeStats(0x14131211, 0x24232221, 0x24232222, arg.out(distinct_bytes(240)));
     },
     .code = 6, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 22222324",
     .reply_size = 3608, .reply = "+24 " + distinct_bytes(3600)},

    {.function = "DEV_NMTRDRV_PMGR_GetEtherLikePause",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetEtherLikePause(0x14131211, 0x24232221, 0x2423223E, arg.out(distinct_bytes(720)));
     },
     .code = 7, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 3E222324",
     .reply_size = 728, .reply = "+24 " + distinct_bytes(720)},

    {.function = "DEV_NMTRDRV_PMGR_GetEtherLikePause", .branch = "two_ports",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetEtherLikePause(0x14131211, 0x24232221, 0x24232222, arg.out(distinct_bytes(48)));
     },
     .code = 7, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 22222324",
     .reply_size = 728, .reply = "+24 " + distinct_bytes(720)},

    {.function = "DEV_NMTRDRV_PMGR_GetAutoTrafficControlIfXTableStats",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetAutoTrafficControlIfXTableStats(0x14131211, 0x24232221, 0x2423223E,
                                                                    arg.out(distinct_bytes(3120)));
     },
     .code = 13, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 3E222324",
     .reply_size = 3128, .reply = "+24 " + distinct_bytes(3120)},

    {.function = "DEV_NMTRDRV_PMGR_GetAutoTrafficControlIfXTableStats", .branch = "two_ports",
     .call = [](Arguments &arg) {
         return DEV_NMTRDRV_PMGR_GetAutoTrafficControlIfXTableStats(0x14131211, 0x24232221, 0x24232222,
                                                                    arg.out(distinct_bytes(208)));
     },
     .code = 13, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 22222324",
     .reply_size = 3128, .reply = "+24 " + distinct_bytes(3120)},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
