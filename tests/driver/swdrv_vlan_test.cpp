#include <gtest/gtest.h>
#include <stdint.h>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::AdmittedFrames;
using driver::ChipState;
using driver::LogicalPort;
using driver::PortSet;
using driver::Vlan;

constexpr LogicalPort port{2, 3};

struct SwdrvVlanTest : SwdrvClientTest {};

bool is_in(const PortSet Vlan::*set, uint32_t vlan, const ChipState &chips)
{
    return (chips.vlans.find(vlan)->*set).contains(port);
}

TEST_F(SwdrvVlanTest, ChangesVlansAndTheirPorts)
{
    // The second word of a bitmap is not looked at.
    static constexpr uint32_t bitmap[] = {0x8000'0005, 0xFFFF'FFFF};
    static constexpr uint32_t existing[] = {0x0800'0005, 0xFFFF'FFFF};
    static const PortSet assigned = {{2, 1}, {2, 3}, {2, 28}};

    expect_changes({
        {"created", [] { return DEV_SWDRV_PMGR_CreateVlan(100); },
         [](const ChipState &chips) { return chips.vlans.has(100); }},
        {"member", [] { return DEV_SWDRV_PMGR_AddPortVlanSet(2, 3, 100); },
         [](const ChipState &chips) { return is_in(&Vlan::members, 100, chips); }},
        {"untagged", [] { return DEV_SWDRV_PMGR_AddPortUntaggedVlanSet(2, 3, 100); },
         [](const ChipState &chips) { return is_in(&Vlan::untagged, 100, chips); }},
        {"not untagged", [] { return DEV_SWDRV_PMGR_DeletePortUntaggedVlanSet(2, 3, 100); },
         [](const ChipState &chips) { return !is_in(&Vlan::untagged, 100, chips); }},
        {"no member", [] { return DEV_SWDRV_PMGR_DeletePortVlanSet(2, 3, 100); },
         [](const ChipState &chips) { return !is_in(&Vlan::members, 100, chips); }},
        {"double-tagged", [] { return DEV_SWDRV_PMGR_AddPortDoubleVlanMemberSet(2, 3, 100); },
         [](const ChipState &chips) { return is_in(&Vlan::double_tagged, 100, chips); }},
        {"not double-tagged", [] { return DEV_SWDRV_PMGR_DeletePortDoubleVlanMemberSet(2, 3, 100); },
         [](const ChipState &chips) { return !is_in(&Vlan::double_tagged, 100, chips); }},
        {"members", [] { return DEV_SWDRV_PMGR_SetPortToVlanMemberSet(2, 100, existing); },
         [](const ChipState &chips) { return chips.vlans.find(100)->members == assigned; }},
        {"untagged ports", [] { return DEV_SWDRV_PMGR_SetPortToVlanUntaggedSet(2, 100, existing); },
         [](const ChipState &chips) { return chips.vlans.find(100)->untagged == assigned; }},
        {"double-tagged ports", [] { return DEV_SWDRV_PMGR_SetPortToDoubleVlanSet(2, 100, existing); },
         [](const ChipState &chips) { return chips.vlans.find(100)->double_tagged == assigned; }},
        {"the CPU's", [] { return DEV_SWDRV_PMGR_AddCpuToVlan(100); },
         [](const ChipState &chips) { return chips.vlans.find(100)->cpu_is_member; }},
        {"not the CPU's", [] { return DEV_SWDRV_PMGR_DeleteCpuFromVlan(100); },
         [](const ChipState &chips) { return !chips.vlans.find(100)->cpu_is_member; }},
        {"PVID", [] { return DEV_SWDRV_PMGR_SetPortPVID(2, 3, 100); },
         [](const ChipState &chips) { return chips.vlans.rules(port)->pvid == 100; }},
        {"filter", [] { return DEV_SWDRV_PMGR_EnableIngressFilter(2, 3); },
         [](const ChipState &chips) { return chips.vlans.rules(port)->ingress_filter; }},
        {"no filter", [] { return DEV_SWDRV_PMGR_DisableIngressFilter(2, 3); },
         [](const ChipState &chips) { return !chips.vlans.rules(port)->ingress_filter; }},
        {"tagged frames", [] { return DEV_SWDRV_PMGR_AdmitOnlyVlanTaggedFrames(2, 3); },
         [](const ChipState &chips) { return chips.vlans.rules(port)->admitted == AdmittedFrames::tagged; }},
        {"untagged frames", [] { return DEV_SWDRV_PMGR_AdmitOnlyVlanUntaggedFrames(2, 3); },
         [](const ChipState &chips) { return chips.vlans.rules(port)->admitted == AdmittedFrames::untagged; }},
        {"all frames", [] { return DEV_SWDRV_PMGR_AdmitAllFrames(2, 3); },
         [](const ChipState &chips) { return chips.vlans.rules(port)->admitted == AdmittedFrames::all; }},
        {"trap", [] { return DEV_SWDRV_PMGR_EnableTrapUnspecifiedTagFrame(); },
         [](const ChipState &chips) { return chips.vlans.traps_unspecified_tags(); }},
        {"no trap", [] { return DEV_SWDRV_PMGR_DisableTrapUnspecifiedTagFrame(); },
         [](const ChipState &chips) { return !chips.vlans.traps_unspecified_tags(); }},
        {"default", [] { return DEV_SWDRV_PMGR_SetGlobalDefaultVlan(100); },
         [](const ChipState &chips) { return chips.vlans.default_vlan() == 100; }},
        {"destroyed", [] { return DEV_SWDRV_PMGR_DestroyVlan(1); },
         [](const ChipState &chips) { return !chips.vlans.has(1); }},
    });
    expect_refused({
        {"there", [] { return DEV_SWDRV_PMGR_CreateVlan(100); }},
        {"the default", [] { return DEV_SWDRV_PMGR_DestroyVlan(100); }},
        {"a port that does not exist", [] { return DEV_SWDRV_PMGR_SetPortToVlanMemberSet(2, 100, bitmap); }},
        {"a VLAN that does not exist", [] { return DEV_SWDRV_PMGR_SetPortPVID(2, 3, 1); }},
    });
}

}  // namespace
}  // namespace quillon::test
