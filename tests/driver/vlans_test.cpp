#include "host/driver/model/vlans.h"

#include <gtest/gtest.h>
#include <stdint.h>

namespace quillon::driver {
namespace {

using enum VlanPorts;

constexpr LogicalPort first{1, 1};
constexpr LogicalPort last{2, 40};
constexpr LogicalPort no_ports[] = {{0, 1}, {3, 1}, {1, 0}, {1, 41}, {1, UINT32_MAX}, {UINT32_MAX, 1}};

struct VlansTest : testing::Test {
    Stack stack{StackShape{.units = 2, .ports = 40, .chips = 2}};
    Vlans vlans{stack};
};

TEST_F(VlansTest, BeginWithTheDefaultVlanOfAllPorts)
{
    const Vlan *const vlan = vlans.find(1);
    ASSERT_NE(vlan, nullptr);
    EXPECT_EQ(vlan->members.size(), 80U);
    EXPECT_TRUE(vlan->members.contains(first));
    EXPECT_TRUE(vlan->members.contains(last));
    EXPECT_EQ(vlan->untagged, vlan->members);
    EXPECT_EQ(vlan->double_tagged, PortSet{});
    EXPECT_TRUE(vlan->cpu_is_member);
    EXPECT_EQ(*vlans.rules(last), PortVlanRules{});
}

TEST_F(VlansTest, AreCreatedAndDestroyedOnce)
{
    for (const uint32_t id : {2U, 4094U}) {
        EXPECT_TRUE(vlans.create(id));
        EXPECT_EQ(*vlans.find(id), Vlan{});
        EXPECT_FALSE(vlans.create(id));
        EXPECT_TRUE(vlans.destroy(id));
        EXPECT_FALSE(vlans.has(id));
        EXPECT_FALSE(vlans.destroy(id));
    }
    for (const uint32_t id : {0U, 1U, 4095U, 4096U, UINT32_MAX}) {
        EXPECT_FALSE(vlans.create(id)) << id;
    }
}

TEST_F(VlansTest, KeepTheDefaultVlan)
{
    EXPECT_FALSE(vlans.set_default(7));
    EXPECT_TRUE(vlans.create(7));
    EXPECT_TRUE(vlans.create(8));
    EXPECT_TRUE(vlans.set_pvid(first, 8));
    EXPECT_FALSE(vlans.destroy(1));
    EXPECT_TRUE(vlans.set_default(7));
    EXPECT_FALSE(vlans.destroy(7));
    EXPECT_TRUE(vlans.destroy(1));
    EXPECT_EQ(vlans.rules(first)->pvid, 8U);
    EXPECT_EQ(vlans.rules(last)->pvid, 7U);
    EXPECT_TRUE(vlans.destroy(8));
    EXPECT_EQ(vlans.rules(first)->pvid, 7U);
}

TEST_F(VlansTest, AddAndRemovePorts)
{
    EXPECT_TRUE(vlans.create(7));
    const Vlan &vlan = *vlans.find(7);

    EXPECT_FALSE(vlans.add(untagged, 7, first)) << "no member yet";
    EXPECT_TRUE(vlans.add(members, 7, first));
    EXPECT_TRUE(vlans.add(members, 7, last));
    EXPECT_TRUE(vlans.add(members, 7, last));
    EXPECT_TRUE(vlans.add(untagged, 7, last));
    EXPECT_TRUE(vlans.add(double_tagged, 7, {1, 33}));
    EXPECT_EQ(vlan, (Vlan{.members = {first, last}, .untagged = {last}, .double_tagged = {{1, 33}}}));

    EXPECT_TRUE(vlans.remove(untagged, 7, first));
    EXPECT_TRUE(vlans.remove(double_tagged, 7, {1, 33}));
    EXPECT_EQ(vlan, (Vlan{.members = {first, last}, .untagged = {last}, .double_tagged = {}}));
    EXPECT_TRUE(vlans.remove(members, 7, last));
    EXPECT_EQ(vlan, (Vlan{.members = {first}, .untagged = {}, .double_tagged = {}}));

    for (const LogicalPort &port : no_ports) {
        for (const VlanPorts which : {members, untagged, double_tagged}) {
            EXPECT_FALSE(vlans.add(which, 1, port));
            EXPECT_FALSE(vlans.remove(which, 1, port));
        }
    }
    EXPECT_FALSE(vlans.add(members, 8, first));
    EXPECT_FALSE(vlans.remove(members, 8, first));
}

TEST_F(VlansTest, AssignTheCoveredPortsAlone)
{
    constexpr PortMask covered = UINT32_MAX;
    EXPECT_TRUE(vlans.create(7));
    const Vlan &vlan = *vlans.find(7);
    EXPECT_TRUE(vlans.add(members, 7, {1, 33}));
    EXPECT_TRUE(vlans.add(members, 7, {2, 1}));

    EXPECT_TRUE(vlans.assign(members, 7, 1, 0x8000'0001, covered));
    EXPECT_EQ(vlan.members, (PortSet{{1, 1}, {1, 32}, {1, 33}, {2, 1}}));
    EXPECT_TRUE(vlans.assign(untagged, 7, 1, 0x8000'0000, covered));
    EXPECT_FALSE(vlans.assign(untagged, 7, 1, 0x8000'0002, covered)) << "port 2 is no member";
    EXPECT_EQ(vlan.untagged, (PortSet{{1, 32}}));
    EXPECT_TRUE(vlans.assign(members, 7, 1, 0x0000'0003, covered));
    EXPECT_EQ(vlan.members, (PortSet{{1, 1}, {1, 2}, {1, 33}, {2, 1}}));
    EXPECT_EQ(vlan.untagged, PortSet{});
    EXPECT_TRUE(vlans.assign(double_tagged, 7, 2, 0x0000'0004, covered));
    EXPECT_EQ(vlan.double_tagged, (PortSet{{2, 3}}));

    EXPECT_FALSE(vlans.assign(members, 7, 1, port_bit(33), covered)) << "not covered";
    EXPECT_FALSE(vlans.assign(members, 7, 1, port_bit(41), ~PortMask{0})) << "no such port";
    EXPECT_FALSE(vlans.assign(members, 7, 3, 1, covered));
    EXPECT_FALSE(vlans.assign(members, 7, 0, 1, covered));
    EXPECT_FALSE(vlans.assign(members, 8, 1, 1, covered));
    EXPECT_EQ(vlan.members, (PortSet{{1, 1}, {1, 2}, {1, 33}, {2, 1}}));
}

TEST_F(VlansTest, KeepWhatPortsAdmit)
{
    EXPECT_TRUE(vlans.create(7));
    EXPECT_TRUE(vlans.set_pvid(last, 7));
    EXPECT_TRUE(vlans.set_ingress_filter(last, true));
    EXPECT_TRUE(vlans.set_admitted(last, AdmittedFrames::tagged));
    EXPECT_FALSE(vlans.set_pvid(last, 8));
    EXPECT_EQ(*vlans.rules(last),
              (PortVlanRules{.pvid = 7, .ingress_filter = true, .admitted = AdmittedFrames::tagged}));
    EXPECT_EQ(*vlans.rules(first), PortVlanRules{});

    for (const LogicalPort &port : no_ports) {
        EXPECT_FALSE(vlans.set_pvid(port, 1));
        EXPECT_FALSE(vlans.set_ingress_filter(port, true));
        EXPECT_FALSE(vlans.set_admitted(port, AdmittedFrames::all));
    }

    EXPECT_TRUE(vlans.set_cpu_is_member(7, true));
    EXPECT_TRUE(vlans.find(7)->cpu_is_member);
    EXPECT_TRUE(vlans.set_cpu_is_member(1, false));
    EXPECT_FALSE(vlans.find(1)->cpu_is_member);
    EXPECT_FALSE(vlans.set_cpu_is_member(8, true));
}

}  // namespace
}  // namespace quillon::driver
