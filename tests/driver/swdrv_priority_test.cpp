#include <gtest/gtest.h>
#include <stdint.h>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::ChipState;
using driver::LogicalPort;
using driver::PortPriorities;
using driver::PriorityMapping;

constexpr LogicalPort port{2, 3};

struct SwdrvPriorityTest : SwdrvClientTest {};

TEST_F(SwdrvPriorityTest, ChangesPriorities)
{
    static constexpr PriorityMapping of_port = {1, 2, 3, 0, 1, 2, 3, 0};
    static constexpr PriorityMapping of_system = {3, 2, 1, 0, 3, 2, 1, 0};
    static constexpr PriorityMapping of_stacking = {7, 6, 5, 4, 3, 2, 1, 0};
    static constexpr PriorityMapping no_class = {0, 0, 0, 0, 0, 0, 0, 8};
    static const auto at = [](const ChipState &chips) -> const PortPriorities & {
        return *chips.priorities.find(port);
    };
    expect_changes({
        {"default priority", [] { return DEV_SWDRV_PMGR_SetPortUserDefaultPriority(2, 3, 6); },
         [](const ChipState &chips) { return at(chips).default_priority == 6; }},
        {"classes of the system", [] { return DEV_SWDRV_PMGR_SetNumberOfTrafficClass(5); },
         [](const ChipState &chips) { return at(chips).classes == 5; }},
        {"classes", [] { return DEV_SWDRV_PMGR_SetNumberOfTrafficClassByPort(2, 3, 4); },
         [](const ChipState &chips) { return at(chips).classes == 4; }},
        {"mapping", [] { return DEV_SWDRV_PMGR_SetPriorityMapping(2, 3, of_port.data()); },
         [](const ChipState &chips) { return at(chips).mapping == of_port; }},
        {"mapping of the system", [] { return DEV_SWDRV_PMGR_SetPriorityMappingPerSystem(of_system.data()); },
         [](const ChipState &chips) {
             return at(chips).mapping == of_system && chips.priorities.find({1, 1})->mapping == of_system;
         }},
        {"stacking", [] { return DEV_SWDRV_PMGR_SetStackingPortPriorityMapping(2, 3, of_stacking.data()); },
         [](const ChipState &chips) { return at(chips).stacking_mapping == of_stacking; }},
    });
    expect_refused({
        {"priority 8", [] { return DEV_SWDRV_PMGR_SetPortUserDefaultPriority(2, 3, 8); }},
        {"9 classes", [] { return DEV_SWDRV_PMGR_SetNumberOfTrafficClass(9); }},
        {"no classes", [] { return DEV_SWDRV_PMGR_SetNumberOfTrafficClassByPort(2, 3, 0); }},
        {"class 4 of 4", [] { return DEV_SWDRV_PMGR_SetPriorityMapping(2, 3, of_stacking.data()); }},
        {"class 4 of 4 in the system", [] { return DEV_SWDRV_PMGR_SetPriorityMappingPerSystem(of_stacking.data()); }},
        {"class 8", [] { return DEV_SWDRV_PMGR_SetStackingPortPriorityMapping(2, 3, no_class.data()); }},
    });
}

}  // namespace
}  // namespace quillon::test
