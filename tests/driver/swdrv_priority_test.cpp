#include <gtest/gtest.h>
#include <stdint.h>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::PortPriorities;
using driver::PriorityMapping;
using driver::recommended_mapping;

constexpr PriorityMapping two_classes = {1, 1, 0, 0, 1, 1, 0, 0};
constexpr PriorityMapping eight_classes = {7, 6, 5, 4, 3, 2, 1, 0};

struct SwdrvPriorityTest : SwdrvClientTest {
    PortPriorities of_unit(uint32_t unit) { return *model.lock()->chips.priorities.find({unit, 3}); }
};

// Background traffic, priority 1, ranks below best effort, priority 0; every class is made use of.
TEST(RecommendedMapping, RisesFromTheLowestClassToTheHighest)
{
    for (uint32_t classes = 1; classes <= driver::priority_count; ++classes) {
        const PriorityMapping &mapping = recommended_mapping(classes);
        uint32_t highest = 0;
        for (const size_t priority : {1U, 0U, 2U, 3U, 4U, 5U, 6U, 7U}) {
            const uint32_t traffic_class = mapping[priority];
            EXPECT_TRUE(traffic_class == highest || traffic_class == highest + 1)
                << classes << " classes, priority " << priority;
            highest = traffic_class;
        }
        EXPECT_EQ(highest, classes - 1);
    }
}

TEST_F(SwdrvPriorityTest, IsSetForAPort)
{
    constexpr PriorityMapping class_2_first = {2};
    constexpr PriorityMapping class_2_last = {0, 0, 0, 0, 0, 0, 0, 2};
    constexpr PriorityMapping class_8 = {8};
    expect_checked(DEV_SWDRV_PMGR_SetPortUserDefaultPriority, {2, 3, 7}, {3, 29, 8});
    expect_checked(DEV_SWDRV_PMGR_SetNumberOfTrafficClassByPort, {2, 3, 8}, {3, 29, 9});
    expect_checked(DEV_SWDRV_PMGR_SetNumberOfTrafficClassByPort, {2, 3, 2}, {3, 29, 0});
    EXPECT_EQ(of_unit(2).mapping, recommended_mapping(2));
    expect_checked(DEV_SWDRV_PMGR_SetPriorityMapping, {2, 3, two_classes.data()}, {3, 29, class_2_first.data()});
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPriorityMapping(2, 3, class_2_last.data()), 0);
    expect_checked(DEV_SWDRV_PMGR_SetStackingPortPriorityMapping, {2, 3, eight_classes.data()},
                   {3, 29, class_8.data()});
    EXPECT_EQ(of_unit(2),
              (PortPriorities{
                  .default_priority = 7, .classes = 2, .mapping = two_classes, .stacking_mapping = eight_classes}));
    EXPECT_EQ(of_unit(1), PortPriorities{});
}

TEST_F(SwdrvPriorityTest, IsSetForTheSystem)
{
    EXPECT_EQ(DEV_SWDRV_PMGR_SetNumberOfTrafficClassByPort(2, 3, 2), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPriorityMappingPerSystem(eight_classes.data()), 0) << "one port has two classes";
    EXPECT_EQ(of_unit(1).mapping, recommended_mapping(8));
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPriorityMappingPerSystem(two_classes.data()), 1);
    EXPECT_EQ(of_unit(1).mapping, two_classes);
    EXPECT_EQ(of_unit(2).mapping, two_classes);

    EXPECT_EQ(DEV_SWDRV_PMGR_SetNumberOfTrafficClass(0), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetNumberOfTrafficClass(9), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetNumberOfTrafficClass(8), 1);
    EXPECT_EQ(of_unit(2), PortPriorities{});
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPriorityMappingPerSystem(eight_classes.data()), 1);
    EXPECT_EQ(of_unit(2).mapping, eight_classes);
}

}  // namespace
}  // namespace quillon::test
