#include "host/driver/model/rules.h"

#include <gtest/gtest.h>
#include <stdint.h>

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "host/driver/model/switch.h"
#include "quillon/devrm.h"

namespace quillon::driver {
namespace {

constexpr LogicalPort port{2, 3};
constexpr uint32_t list = 7;
constexpr PclName list_name{2, list};

constexpr RuleName rule(uint32_t number)
{
    return {.unit = 2, .pcl = list, .rule = number};
}

RulePattern ether_type(uint16_t type)
{
    RulePattern pattern{};
    pattern.qualifyFlags = RULE_QUALIFY_ETH_TYPE;
    pattern.ethType = type;
    pattern.ethType_mask = 0xFFFF;
    return pattern;
}

constexpr RulePattern every_packet{};
constexpr RuleAction drop{.treatment = {.drop = true}};
constexpr RuleAction permit{};

struct RulesTest : testing::Test {
    RulesTest()
    {
        EXPECT_TRUE(rules.create_pcl(list_name, {.deny = false, .priority = 10, .size = 100}));
        EXPECT_TRUE(rules.bind_port(list_name, port.port, true));
    }

    void add(const RuleName &name, uint32_t priority, const RulePattern &pattern, const RuleAction &action)
    {
        EXPECT_TRUE(rules.allocate(name, priority, {}));
        EXPECT_TRUE(rules.set(name, pattern, action));
    }

    Treatment receive(uint16_t type)
    {
        std::array<std::byte, 60> packet{};
        packet[12] = std::byte(type >> 8);
        packet[13] = std::byte(type & 0xFF);
        return rules.receive(chips.trunks, port, packet, {});
    }

    uint32_t count(const RuleName &name) { return rules.counter(name)->green; }

    Stack stack{StackShape{.units = 2, .ports = 28, .chips = 2}};
    ChipState chips{stack};
    Rules &rules = chips.rules;
};

TEST_F(RulesTest, DecideInTheOrderOfTheirPriorities)
{
    add(rule(9), 1, every_packet, drop);
    add(rule(5), 3, ether_type(0x0800), {.treatment = {.copy_to_cpu = true, .priority = 6}});
    add(rule(6), 3, ether_type(0x0800), drop);
    EXPECT_EQ(receive(0x0800), (Treatment{.copy_to_cpu = true, .priority = 6}));
    EXPECT_EQ(receive(0x0806), (Treatment{.drop = true}));

    EXPECT_TRUE(rules.destroy_action(rule(5)));
    EXPECT_FALSE(rules.destroy_action(rule(5)));
    EXPECT_EQ(receive(0x0800), (Treatment{.drop = true})) << "the next one decides";
    EXPECT_EQ(count(rule(5)), 2U) << "and this one still counts";
    EXPECT_TRUE(rules.destroy(rule(6)));
    EXPECT_TRUE(rules.destroy(rule(9)));
    EXPECT_EQ(receive(0x0800), Treatment{});
}

TEST_F(RulesTest, OfSeveralListsAddUp)
{
    constexpr PclName first{2, 90};
    constexpr PclName denying{2, 91};
    EXPECT_TRUE(rules.create_pcl(first, {.deny = false, .priority = 11, .size = 1}));
    EXPECT_TRUE(rules.create_pcl(denying, {.deny = true, .priority = 0, .size = 1}));
    EXPECT_TRUE(rules.bind_port(first, port.port, true));
    add(rule(1), 0, every_packet, {.treatment = {.mirror = true, .priority = 1, .dscp = 10}});
    add({2, 90, 2}, 0, every_packet,
        {.treatment = {.copy_to_cpu = true, .priority = 7, .redirect = LogicalPort{1, 1}}});
    const Treatment together{
        .copy_to_cpu = true, .mirror = true, .priority = 7, .dscp = 10, .redirect = LogicalPort{1, 1}};
    EXPECT_EQ(receive(0x0800), together);

    EXPECT_TRUE(rules.bind_port(denying, port.port, true));
    Treatment denied = together;
    denied.drop = true;
    EXPECT_EQ(receive(0x0800), denied);
    add({2, 91, 3}, 0, ether_type(0x0800), permit);
    EXPECT_EQ(receive(0x0800), together);
    EXPECT_EQ(receive(0x0806), denied);
}

TEST_F(RulesTest, ShareMeters)
{
    constexpr MeterRate three_packets{.committed_rate = 0, .committed_burst = 120, .excess_burst = 60};
    add(rule(1), 0, ether_type(0x0800), {.treatment = {}, .drop_red = true});
    add(rule(2), 0, ether_type(0x0806), permit);
    EXPECT_FALSE(rules.share_meter(2, 2, 1)) << "there is none";
    EXPECT_FALSE(rules.update_meter(rule(1), {.committed_rate = 8, .committed_burst = 0, .excess_burst = 0}));
    EXPECT_TRUE(rules.update_meter(rule(1), three_packets));
    EXPECT_TRUE(rules.share_meter(2, 2, 1));
    EXPECT_FALSE(rules.share_meter(2, 3, 1));
    EXPECT_FALSE(rules.share_meter(2, 2, 3));
    EXPECT_FALSE(rules.share_meter(3, 2, 1));

    receive(0x0800);
    receive(0x0806);
    EXPECT_FALSE(receive(0x0800).drop);
    EXPECT_TRUE(receive(0x0800).drop);
    EXPECT_FALSE(receive(0x0806).drop) << "this one only counts them";
    EXPECT_EQ(*rules.counter(rule(1)), (RuleCounter{.green = 1, .yellow = 1, .red = 1}));
    EXPECT_EQ(*rules.counter(rule(2)), (RuleCounter{.green = 1, .yellow = 0, .red = 1}));

    EXPECT_TRUE(rules.update_meter(rule(2), three_packets));
    EXPECT_FALSE(receive(0x0800).drop) << "the shared meter is filled again";
    EXPECT_TRUE(rules.destroy(rule(2)));
    receive(0x0800);
    receive(0x0800);
    EXPECT_TRUE(receive(0x0800).drop);
}

TEST_F(RulesTest, AreAsManyAsTheTableHolds)
{
    EXPECT_TRUE(rules.create_pcl({2, 1}, {.deny = false, .priority = 0, .size = 900}));
    EXPECT_FALSE(rules.create_pcl({2, 2}, {.deny = false, .priority = 0, .size = 25})) << "24 are left";
    EXPECT_FALSE(rules.create_pcl({2, 2}, {.deny = false, .priority = 0, .size = UINT32_MAX}));
    EXPECT_FALSE(rules.create_pcl({2, 2}, {.deny = false, .priority = 0, .size = 0}));
    EXPECT_FALSE(rules.create_pcl({2, 1}, {.deny = false, .priority = 0, .size = 1})) << "it is there";
    EXPECT_TRUE(rules.create_pcl({2, 2}, {.deny = false, .priority = 0, .size = 24}));
    EXPECT_FALSE(rules.create_pcl({2, 3}, {.deny = false, .priority = 0, .size = 1}));
    EXPECT_TRUE(rules.create_pcl({1, 3}, {.deny = false, .priority = 0, .size = 1024})) << "a table of its own";

    for (uint32_t number = 0; number < 100; ++number) {
        EXPECT_TRUE(rules.allocate(rule(number), 0, {}));
    }
    EXPECT_FALSE(rules.allocate(rule(100), 0, {}));
    EXPECT_TRUE(rules.destroy(rule(50)));
    EXPECT_TRUE(rules.allocate(rule(100), 0, {}));
    EXPECT_FALSE(rules.allocate({2, 1, 100}, 0, {})) << "the number is taken, if in another list";
    EXPECT_TRUE(rules.allocate({2, 1, 50}, 0, {}));
    EXPECT_TRUE(rules.allocate({1, 3, 100}, 0, {}));
}

}  // namespace
}  // namespace quillon::driver
