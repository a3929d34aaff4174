#include "host/driver/model/spanning_tree.h"

#include <gtest/gtest.h>
#include <stdint.h>

#include <numeric>
#include <vector>

namespace quillon::driver {
namespace {

using enum SpanningTreeState;

constexpr LogicalPort port{2, 3};

struct SpanningTreeTest : testing::Test {
    Stack stack{StackShape{.units = 2, .ports = 28, .chips = 2}};
    Vlans vlans{stack};
    SpanningTree tree{stack};
};

TEST_F(SpanningTreeTest, KeepsAStateForEachPortAndInstance)
{
    EXPECT_EQ(tree.state(0, port), forwarding);
    EXPECT_EQ(tree.state(64, port), forwarding);
    EXPECT_TRUE(tree.set_state(0, port, blocking));
    EXPECT_TRUE(tree.set_state(64, port, learning));
    EXPECT_TRUE(tree.set_state(64, {1, 3}, disabled));
    EXPECT_EQ(tree.state(0, port), blocking);
    EXPECT_EQ(tree.state(63, port), forwarding);
    EXPECT_EQ(tree.state(64, port), learning);
    EXPECT_EQ(tree.state(64, {1, 3}), disabled);

    EXPECT_FALSE(tree.set_state(65, port, blocking));
    EXPECT_FALSE(tree.set_state(UINT32_MAX, port, blocking));
    EXPECT_FALSE(tree.set_state(0, {2, 29}, blocking));
    EXPECT_FALSE(tree.set_state(0, {3, 1}, blocking));
}

TEST_F(SpanningTreeTest, HasEachVlanInOneInstance)
{
    EXPECT_TRUE(vlans.create(10));
    EXPECT_EQ(tree.instance_of(10), 0U);
    EXPECT_FALSE(tree.remove_vlan(0, 10));
    EXPECT_TRUE(tree.add_vlan(vlans, 1, 10));
    EXPECT_TRUE(tree.add_vlan(vlans, 64, 10));
    EXPECT_EQ(tree.instance_of(10), 64U);
    EXPECT_FALSE(tree.remove_vlan(1, 10));
    EXPECT_TRUE(tree.remove_vlan(64, 10));
    EXPECT_EQ(tree.instance_of(10), 0U);

    EXPECT_TRUE(tree.add_vlan(vlans, 1, 10));
    EXPECT_TRUE(tree.add_vlan(vlans, 0, 10));
    EXPECT_EQ(tree.instance_of(10), 0U);

    EXPECT_FALSE(tree.add_vlan(vlans, 1, 11));
    EXPECT_FALSE(tree.add_vlan(vlans, 65, 10));
    EXPECT_FALSE(tree.remove_vlan(65, 10));
}

TEST_F(SpanningTreeTest, RefusesACallerWithAnotherViewOfTheInstance)
{
    for (const uint32_t id : {10U, 20U, 30U}) {
        EXPECT_TRUE(vlans.create(id));
    }
    EXPECT_TRUE(tree.add_vlan(vlans, 1, 10));
    EXPECT_TRUE(tree.add_vlan(vlans, 1, 20));

    const struct {
        const char *what;
        uint32_t instance;
        std::vector<uint16_t> vlans;
        bool accepted;
    } rows[] = {
        {"all of them", 1, {10, 20}, true},
        {"one of them", 1, {20}, true},
        {"not told", 1, {}, true},
        {"one more", 1, {10, 30}, false},
        {"one that does not exist", 0, {40}, false},
        {"the common tree's", 0, {1, 30}, true},
        {"one that left the common tree", 0, {1, 20}, false},
        {"VLAN 0", 0, {0}, false},
        {"no such instance", 65, {}, false},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.what);
        SpanningTree changed = tree;
        EXPECT_EQ(changed.set_state(vlans, row.instance, row.vlans, port, listening), row.accepted);
        if (row.instance < SpanningTree::instances) {
            EXPECT_EQ(changed.state(row.instance, port), row.accepted ? listening : forwarding);
        }
    }

    // As many as there can be.
    for (uint32_t id = 1; id <= 4094; ++id) {
        vlans.create(id);
    }
    EXPECT_TRUE(tree.remove_vlan(1, 10));
    EXPECT_TRUE(tree.remove_vlan(1, 20));
    std::vector<uint16_t> all(4094);
    std::iota(all.begin(), all.end(), uint16_t{1});
    EXPECT_TRUE(tree.set_state(vlans, 0, all, port, disabled));
    EXPECT_TRUE(vlans.destroy(4094));
    EXPECT_FALSE(tree.set_state(vlans, 0, all, port, forwarding));
    EXPECT_EQ(tree.state(0, port), disabled);
}

}  // namespace
}  // namespace quillon::driver
