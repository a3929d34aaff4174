#include "host/driver/model/switch.h"

#include <gtest/gtest.h>

namespace quillon::driver {
namespace {

constexpr LogicalPort port{2, 3};
constexpr TrunkMulticast multicast = {.mac = {0x01}, .vlan = 7, .port = port};

struct SwitchTest : testing::Test {
    ChipState &chips() { return model.chips; }

    Switch model{StackShape{}};
};

TEST_F(SwitchTest, DestroysWhatLeadsToAVlan)
{
    EXPECT_TRUE(chips().vlans.create(7));
    EXPECT_TRUE(chips().vlans.set_pvid(port, 7));
    EXPECT_TRUE(chips().spanning_tree.add_vlan(chips().vlans, 5, 7));
    EXPECT_TRUE(chips().tunnels.map(&PortTunnel::double_tags, chips().vlans, port, 9, {.vlan = 7, .priority = 0}));
    EXPECT_TRUE(chips().mirrors.add_vlan_mirror(chips().vlans, 7, port));
    EXPECT_TRUE(chips().trunks.create(1));
    EXPECT_TRUE(chips().trunks.set_members(1, port.unit, port_bit(port.port)));
    EXPECT_TRUE(chips().trunks.add(chips().vlans, multicast));

    EXPECT_FALSE(chips().destroy_vlan(1));
    EXPECT_TRUE(chips().destroy_vlan(7));
    EXPECT_FALSE(chips().destroy_vlan(7));
    EXPECT_EQ(chips().vlans.rules(port)->pvid, 1U);
    EXPECT_EQ(chips().spanning_tree.instance_of(7), 0U);
    EXPECT_EQ(*chips().tunnels.find(port), PortTunnel{});
    EXPECT_FALSE(chips().mirrors.has_vlan_mirror(7, port));
    EXPECT_FALSE(chips().trunks.has(multicast));
}

TEST_F(SwitchTest, PutsThePartsOfAPortTogether)
{
    EXPECT_EQ(model.running_port(port)->status().speed_duplex, SpeedDuplex::gigabit_full);
    chips().overrides.find(port)->link_down = true;
    EXPECT_FALSE(model.running_port(port)->status().link_up());
    chips().overrides.find(port)->link_down = false;
    model.lines.find(port)->plugged = false;
    EXPECT_FALSE(model.running_port(port)->status().link_up());
    EXPECT_TRUE(model.running_port({1, 3})->status().link_up());
    EXPECT_EQ(model.running_port({1, 28})->status().speed_duplex, SpeedDuplex::ten_gigabit_full);
    EXPECT_FALSE(model.running_port({1, 29}));

    EXPECT_EQ(model.largest_frame(port), (FrameSize{1518, 1522}));
    EXPECT_TRUE(chips().tunnels.set_mode(port, TunnelMode::customer_side));
    EXPECT_EQ(model.largest_frame(port), (FrameSize{1522, 1530}));
    EXPECT_FALSE(model.largest_frame({1, 29}));
}

// What is outside the chips stays as it is.
TEST_F(SwitchTest, ResetsTheChips)
{
    chips().ports.find(port)->set_admin_up(false);
    chips().overrides.find(port)->link_down = true;
    EXPECT_TRUE(chips().vlans.create(7));
    EXPECT_TRUE(chips().spanning_tree.set_state(3, port, SpanningTreeState::blocking));
    chips().frame_sizes.set_jumbo_frames(true);
    EXPECT_TRUE(chips().tunnels.set_tpid(port, 0x88A8));
    EXPECT_TRUE(chips().mirrors.set_mac_destination(port));
    EXPECT_TRUE(chips().trunks.create(1));
    chips().igmp_trap.enabled = true;
    EXPECT_TRUE(chips().storm_control.enable(StormKind::broadcast, port, true));
    EXPECT_TRUE(chips().priorities.set_classes(port, 2));
    EXPECT_TRUE(chips().macs.set({.vlan = 1}, {.destination = port}, chips().vlans, chips().trunks));
    chips().hg_ports_admin_up = true;
    chips().link_scan.registered = true;
    model.lines.find(port)->plugged = false;

    model.reset_chips();

    EXPECT_TRUE(chips().ports.find(port)->admin_up());
    EXPECT_EQ(*chips().overrides.find(port), PortOverrides{});
    EXPECT_FALSE(chips().vlans.has(7));
    EXPECT_EQ(chips().spanning_tree.state(3, port), SpanningTreeState::forwarding);
    EXPECT_EQ(model.largest_frame({1, 3}), (FrameSize{1518, 1522}));
    EXPECT_EQ(*chips().tunnels.find(port), PortTunnel{});
    EXPECT_FALSE(chips().mirrors.mac_destination());
    EXPECT_EQ(chips().trunks.find(1), nullptr);
    EXPECT_EQ(chips().igmp_trap, IgmpTrap{});
    EXPECT_EQ(chips().storm_control.limit(StormKind::broadcast, port), StormLimit{});
    EXPECT_EQ(*chips().priorities.find(port), PortPriorities{});
    EXPECT_EQ(chips().macs.size(), 0U);
    EXPECT_FALSE(chips().hg_ports_admin_up);
    EXPECT_FALSE(chips().link_scan.registered);
    EXPECT_FALSE(model.lines.find(port)->plugged);
}

}  // namespace
}  // namespace quillon::driver
