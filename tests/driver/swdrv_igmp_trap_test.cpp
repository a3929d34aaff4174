#include <gtest/gtest.h>
#include <stdint.h>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::ChipState;
using driver::IgmpTrap;

struct SwdrvIgmpTrapTest : SwdrvClientTest {};

TEST_F(SwdrvIgmpTrapTest, ChangesTheIgmpTrap)
{
    expect_changes({
        {"enabled", [] { return DEV_SWDRV_PMGR_EnableIgmpTrap(); },
         [](const ChipState &chips) {
             return chips.igmp_trap == IgmpTrap{true, true, true};
         }},
        {"queries", [] { return DEV_SWDRV_PMGR_TrapIGMPToCPU(0, 1); },
         [](const ChipState &chips) {
             return chips.igmp_trap == IgmpTrap{true, false, true};
         }},
        {"reports", [] { return DEV_SWDRV_PMGR_TrapIGMPToCPU(1, 0); },
         [](const ChipState &chips) {
             return chips.igmp_trap == IgmpTrap{true, true, false};
         }},
        {"disabled", [] { return DEV_SWDRV_PMGR_DisableIgmpTrap(); },
         [](const ChipState &chips) {
             return chips.igmp_trap == IgmpTrap{false, true, false};
         }},
    });
    expect_refused({
        {"first flag", [] { return DEV_SWDRV_PMGR_TrapIGMPToCPU(2, 1); }},
        {"second flag", [] { return DEV_SWDRV_PMGR_TrapIGMPToCPU(1, 2); }},
    });
}

}  // namespace
}  // namespace quillon::test
