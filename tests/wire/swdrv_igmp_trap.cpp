// The trap of IGMP packets to the CPU.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows igmp_trap{
    {.function = "DEV_SWDRV_PMGR_EnableIgmpTrap",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnableIgmpTrap(); },
     .code = 87, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisableIgmpTrap",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisableIgmpTrap(); },
     .code = 88, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_TrapIGMPToCPU",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_TrapIGMPToCPU(0x91, 0x92); },
     .code = 89, .msg_size = 6, .request = "+24 91 +25 92", .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
