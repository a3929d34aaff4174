#include <gtest/gtest.h>
#include <stdint.h>

#include <functional>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::AdmittedFrames;
using driver::ChipState;
using driver::LogicalPort;
using driver::PortSet;
using driver::PortVlanRules;
using driver::Vlan;

constexpr LogicalPort port{2, 3};

struct SwdrvVlanTest : SwdrvClientTest {
    Vlan vlan(uint32_t id = 100) { return *model.lock()->chips.vlans.find(id); }
    PortVlanRules rules(const LogicalPort &of = port) { return *model.lock()->chips.vlans.rules(of); }
};

TEST_F(SwdrvVlanTest, AreCreatedAndDestroyedOnce)
{
    EXPECT_EQ(vlan(1).members.size(), 56U);
    EXPECT_EQ(vlan(1).untagged, vlan(1).members);
    EXPECT_EQ(vlan(1).double_tagged, PortSet{});
    EXPECT_TRUE(vlan(1).cpu_is_member);
    for (const uint32_t id : {2U, 4094U}) {
        EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(id), 1);
        EXPECT_EQ(vlan(id), Vlan{});
        EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(id), 0);
        EXPECT_EQ(DEV_SWDRV_PMGR_DestroyVlan(id), 1);
        EXPECT_EQ(DEV_SWDRV_PMGR_DestroyVlan(id), 0);
    }
    for (const uint32_t id : {0U, 1U, 4095U, 4096U, UINT32_MAX}) {
        EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(id), 0) << id;
    }
}

TEST_F(SwdrvVlanTest, KeepTheDefaultVlan)
{
    EXPECT_EQ(DEV_SWDRV_PMGR_SetGlobalDefaultVlan(7), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(7), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(8), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortPVID(2, 3, 8), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_DestroyVlan(1), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetGlobalDefaultVlan(7), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_DestroyVlan(7), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_DestroyVlan(1), 1);
    EXPECT_EQ(rules().pvid, 8U);
    EXPECT_EQ(rules({1, 1}).pvid, 7U);
    EXPECT_EQ(DEV_SWDRV_PMGR_DestroyVlan(8), 1);
    EXPECT_EQ(rules().pvid, 7U);
}

TEST_F(SwdrvVlanTest, AddAndRemovePorts)
{
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(100), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_AddPortUntaggedVlanSet(2, 3, 100), 0) << "no member yet";
    EXPECT_EQ(DEV_SWDRV_PMGR_AddPortVlanSet(2, 3, 100), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_AddPortVlanSet(1, 1, 100), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_AddPortVlanSet(1, 1, 100), 1) << "again";
    EXPECT_EQ(DEV_SWDRV_PMGR_AddPortUntaggedVlanSet(2, 3, 100), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_AddPortDoubleVlanMemberSet(1, 28, 100), 1);
    EXPECT_EQ(vlan(), (Vlan{.members = {{1, 1}, port}, .untagged = {port}, .double_tagged = {{1, 28}}}));
    EXPECT_EQ(DEV_SWDRV_PMGR_DeletePortUntaggedVlanSet(2, 3, 100), 1);
    EXPECT_EQ(vlan().untagged, PortSet{});
    EXPECT_EQ(DEV_SWDRV_PMGR_AddPortUntaggedVlanSet(2, 3, 100), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_DeletePortDoubleVlanMemberSet(1, 28, 100), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_DeletePortVlanSet(2, 3, 100), 1);
    EXPECT_EQ(vlan(), (Vlan{.members = {{1, 1}}, .untagged = {}, .double_tagged = {}}));
    EXPECT_EQ(DEV_SWDRV_PMGR_AddCpuToVlan(100), 1);
    EXPECT_TRUE(vlan().cpu_is_member);
    EXPECT_EQ(DEV_SWDRV_PMGR_DeleteCpuFromVlan(100), 1);
    EXPECT_FALSE(vlan().cpu_is_member);
    EXPECT_EQ(DEV_SWDRV_PMGR_AddCpuToVlan(101), 0);

    for (const auto change :
         {DEV_SWDRV_PMGR_AddPortVlanSet, DEV_SWDRV_PMGR_DeletePortVlanSet, DEV_SWDRV_PMGR_AddPortUntaggedVlanSet,
          DEV_SWDRV_PMGR_DeletePortUntaggedVlanSet, DEV_SWDRV_PMGR_AddPortDoubleVlanMemberSet,
          DEV_SWDRV_PMGR_DeletePortDoubleVlanMemberSet, DEV_SWDRV_PMGR_SetPortPVID}) {
        for (const LogicalPort &no_port : {LogicalPort{0, 1}, {3, 1}, {1, 0}, {1, 29}, {1, UINT32_MAX}}) {
            EXPECT_EQ(change(no_port.unit, no_port.port, 1), 0) << no_port.unit << '/' << no_port.port;
        }
        EXPECT_EQ(change(2, 3, 101), 0) << "no VLAN";
    }
}

// The second word of a bitmap is not looked at.
TEST_F(SwdrvVlanTest, AssignPortsByBitmap)
{
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(100), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_AddPortVlanSet(1, 1, 100), 1);
    const auto with = [](auto assign, uint32_t ports, uint32_t unit = 2, uint32_t id = 100) {
        const uint32_t bitmap[] = {ports, 0xFFFF'FFFF};
        return assign(unit, id, bitmap);
    };
    EXPECT_EQ(with(DEV_SWDRV_PMGR_SetPortToVlanMemberSet, 0x0800'0005), 1);
    EXPECT_EQ(vlan().members, (PortSet{{1, 1}, {2, 1}, {2, 3}, {2, 28}}));
    EXPECT_EQ(with(DEV_SWDRV_PMGR_SetPortToVlanUntaggedSet, 0x0800'0000), 1);
    EXPECT_EQ(with(DEV_SWDRV_PMGR_SetPortToDoubleVlanSet, 0x0000'0002), 1);
    expect_refused({
        {"no member", [&] { return with(DEV_SWDRV_PMGR_SetPortToVlanUntaggedSet, 2); }},
        {"no port", [&] { return with(DEV_SWDRV_PMGR_SetPortToVlanMemberSet, 0x8000'0005); }},
        {"no unit", [&] { return with(DEV_SWDRV_PMGR_SetPortToVlanMemberSet, 1, 3); }},
        {"unit 0", [&] { return with(DEV_SWDRV_PMGR_SetPortToDoubleVlanSet, 1, 0); }},
        {"no VLAN", [&] { return with(DEV_SWDRV_PMGR_SetPortToVlanMemberSet, 1, 2, 101); }},
    });
    EXPECT_EQ(vlan(),
              (Vlan{.members = {{1, 1}, {2, 1}, {2, 3}, {2, 28}}, .untagged = {{2, 28}}, .double_tagged = {{2, 2}}}));
    EXPECT_EQ(with(DEV_SWDRV_PMGR_SetPortToVlanMemberSet, 0x0000'0003), 1);
    EXPECT_EQ(vlan().members, (PortSet{{1, 1}, {2, 1}, {2, 2}}));
    EXPECT_EQ(vlan().untagged, PortSet{}) << "goes with the membership";
}

// In units of more ports than a bitmap covers.
TEST(Vlans, KeepThePortsThatAreNotCovered)
{
    using enum driver::VlanPorts;
    driver::Vlans vlans{driver::Stack({.units = 1, .ports = 40, .chips = 2})};
    EXPECT_TRUE(vlans.create(7));
    EXPECT_TRUE(vlans.add(members, 7, {1, 33}));
    EXPECT_TRUE(vlans.assign(members, 7, 1, 0x8000'0001, UINT32_MAX));
    EXPECT_FALSE(vlans.assign(members, 7, 1, driver::port_bit(33), UINT32_MAX));
    EXPECT_FALSE(vlans.assign(members, 7, 1, driver::port_bit(41), ~driver::PortMask{0}));
    EXPECT_EQ(vlans.find(7)->members, (PortSet{{1, 1}, {1, 32}, {1, 33}}));
}

TEST_F(SwdrvVlanTest, KeepWhatPortsAdmit)
{
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(100), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortPVID(2, 3, 100), 1);
    const auto rules_are = [](bool filter, AdmittedFrames admitted) {
        return [=](const ChipState &chips) {
            return *chips.vlans.rules(port) ==
                   PortVlanRules{.pvid = 100, .ingress_filter = filter, .admitted = admitted};
        };
    };
    expect_changes({
        {"tagged", [] { return DEV_SWDRV_PMGR_AdmitOnlyVlanTaggedFrames(2, 3); },
         rules_are(false, AdmittedFrames::tagged)},
        {"filter", [] { return DEV_SWDRV_PMGR_EnableIngressFilter(2, 3); }, rules_are(true, AdmittedFrames::tagged)},
        {"untagged", [] { return DEV_SWDRV_PMGR_AdmitOnlyVlanUntaggedFrames(2, 3); },
         rules_are(true, AdmittedFrames::untagged)},
        {"all", [] { return DEV_SWDRV_PMGR_AdmitAllFrames(2, 3); }, rules_are(true, AdmittedFrames::all)},
        {"no filter", [] { return DEV_SWDRV_PMGR_DisableIngressFilter(2, 3); }, rules_are(false, AdmittedFrames::all)},
        {"trap", [] { return DEV_SWDRV_PMGR_EnableTrapUnspecifiedTagFrame(); },
         [](const ChipState &chips) { return chips.vlans.traps_unspecified_tags(); }},
        {"no trap", [] { return DEV_SWDRV_PMGR_DisableTrapUnspecifiedTagFrame(); },
         [](const ChipState &chips) { return !chips.vlans.traps_unspecified_tags(); }},
    });
    EXPECT_EQ(rules({1, 3}), PortVlanRules{});
    EXPECT_EQ(DEV_SWDRV_PMGR_EnableIngressFilter(2, 29), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_AdmitAllFrames(2, 29), 0);
}

}  // namespace
}  // namespace quillon::test
