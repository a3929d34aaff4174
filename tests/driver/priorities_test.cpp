#include "host/driver/model/priorities.h"

#include <gtest/gtest.h>
#include <stdint.h>

namespace quillon::driver {
namespace {

constexpr LogicalPort port{2, 3};
constexpr LogicalPort other{1, 3};
constexpr LogicalPort no_port{2, 29};
constexpr PriorityMapping two_classes = {1, 1, 0, 0, 1, 1, 0, 0};
constexpr PriorityMapping eight_classes = {7, 6, 5, 4, 3, 2, 1, 0};

struct PrioritiesTest : testing::Test {
    Priorities priorities{Stack(StackShape{})};
};

// Background traffic, priority 1, ranks below best effort, priority 0; every class is made use of.
TEST(RecommendedMapping, RisesFromTheLowestClassToTheHighest)
{
    for (uint32_t classes = 1; classes <= priority_count; ++classes) {
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

TEST_F(PrioritiesTest, AreSetForAPort)
{
    EXPECT_EQ(*priorities.find(port), PortPriorities{});
    EXPECT_TRUE(priorities.set_default_priority(port, 7));
    EXPECT_TRUE(priorities.set_classes(port, 2));
    EXPECT_EQ(priorities.find(port)->mapping, recommended_mapping(2));
    EXPECT_TRUE(priorities.set_mapping(port, two_classes));
    EXPECT_FALSE(priorities.set_mapping(port, {2, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_FALSE(priorities.set_mapping(port, {0, 0, 0, 0, 0, 0, 0, 2}));
    EXPECT_TRUE(priorities.set_stacking_mapping(port, eight_classes));
    EXPECT_FALSE(priorities.set_stacking_mapping(port, {8, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_FALSE(priorities.set_default_priority(port, 8));
    EXPECT_FALSE(priorities.set_classes(port, 0));
    EXPECT_FALSE(priorities.set_classes(port, 9));
    EXPECT_EQ(*priorities.find(port),
              (PortPriorities{
                  .default_priority = 7, .classes = 2, .mapping = two_classes, .stacking_mapping = eight_classes}));
    EXPECT_EQ(*priorities.find(other), PortPriorities{});

    EXPECT_FALSE(priorities.set_default_priority(no_port, 0));
    EXPECT_FALSE(priorities.set_classes(no_port, 8));
    EXPECT_FALSE(priorities.set_mapping(no_port, two_classes));
    EXPECT_FALSE(priorities.set_stacking_mapping(no_port, two_classes));
}

TEST_F(PrioritiesTest, AreSetForTheSystem)
{
    EXPECT_TRUE(priorities.set_classes(port, 2));
    EXPECT_FALSE(priorities.set_system_mapping(eight_classes)) << "one port has two classes";
    EXPECT_EQ(priorities.find(other)->mapping, recommended_mapping(8));
    EXPECT_TRUE(priorities.set_system_mapping(two_classes));
    EXPECT_EQ(priorities.find(other)->mapping, two_classes);
    EXPECT_EQ(priorities.find(port)->mapping, two_classes);

    EXPECT_FALSE(priorities.set_system_classes(0));
    EXPECT_FALSE(priorities.set_system_classes(9));
    EXPECT_TRUE(priorities.set_system_classes(8));
    EXPECT_EQ(*priorities.find(port), PortPriorities{});
    EXPECT_TRUE(priorities.set_system_mapping(eight_classes));
    EXPECT_EQ(priorities.find(port)->mapping, eight_classes);
}

}  // namespace
}  // namespace quillon::driver
