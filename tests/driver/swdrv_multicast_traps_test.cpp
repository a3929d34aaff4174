#include <gtest/gtest.h>
#include <stdint.h>

#include <array>
#include <functional>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::ChipState;
using driver::PortLearning;
using driver::Setting;
using Words = driver::KeptSettings::Words;
using Holds = std::function<bool(const ChipState &)>;

struct SwdrvMulticastTrapsTest : SwdrvClientTest {};

TEST_F(SwdrvMulticastTrapsTest, SwitchesOnAndOff)
{
    const struct {
        Setting setting;
        Words key;
        std::function<uint8_t()> on;
        std::function<uint8_t()> off;
    } rows[] = {
        {Setting::ip_multicast,
         {2},
         [] { return DEV_SWDRV_PMGR_EnableIPMC(2); },
         [] { return DEV_SWDRV_PMGR_DisableIPMC(2); }},
        {Setting::ip_multicast_port_check,
         {2},
         [] { return DEV_SWDRV_PMGR_IPMC_EnableSourcePortCheck(2); },
         [] { return DEV_SWDRV_PMGR_IPMC_DisableSourcePortCheck(2); }},
        {Setting::ip_multicast_source_search,
         {2},
         [] { return DEV_SWDRV_PMGR_IPMC_EnableSourceIPSearch(2); },
         [] { return DEV_SWDRV_PMGR_IPMC_DisableSourceIPSearch(2); }},
        {Setting::trap_unknown_multicast_ip, {}, DEV_SWDRV_PMGR_EnableUMCASTIpTrap, DEV_SWDRV_PMGR_DisableUMCASTIpTrap},
        {Setting::trap_unknown_multicast_mac,
         {},
         DEV_SWDRV_PMGR_EnableUMCASTMacTrap,
         DEV_SWDRV_PMGR_DisableUMCASTMacTrap},
        {Setting::trap_mld, {}, DEV_SWDRV_PMGR_EnableMLDTrap2CPU, DEV_SWDRV_PMGR_DisableMLDTrap2CPU},
        {Setting::trap_neighbour_discovery,
         {2},
         [] { return DEV_SWDRV_PMGR_EnableNDTrap2CPU(2); },
         [] { return DEV_SWDRV_PMGR_DisableNDTrap2CPU(2); }},
        {Setting::trap_router_advertisements,
         {},
         [] { return DEV_SWDRV_PMGR_SetRaAndRrTrap2CPU(1); },
         [] { return DEV_SWDRV_PMGR_SetRaAndRrTrap2CPU(0); }},
        {Setting::eapol_pass_through,
         {},
         [] { return DEV_SWDRV_PMGR_SetEapolFramePassThrough(1); },
         [] { return DEV_SWDRV_PMGR_SetEapolFramePassThrough(0); }},
    };
    for (const auto &row : rows) {
        expect_changes(
            {{"on", row.on, kept(row.setting, row.key, {1})}, {"off", row.off, kept(row.setting, row.key, {0})}});
    }
    expect_changes({
        {"MLD", [] { return DEV_SWDRV_PMGR_TrapMLDToCPU(1, 0); }, kept(Setting::trap_mld_kinds, {}, {1, 0})},
        {"IPv4", [] { return DEV_SWDRV_PMGR_TrapUnknownIpMcastToCPU(1, 0, 2); },
         kept(Setting::trap_unknown_ipv4_multicast, {2}, {1, 0})},
        {"IPv6", [] { return DEV_SWDRV_PMGR_TrapUnknownIpv6McastToCPU(0, 1); },
         kept(Setting::trap_unknown_ipv6_multicast, {}, {0, 1})},
    });
}

TEST_F(SwdrvMulticastTrapsTest, SetsWhatPortsLearn)
{
    const auto learning = [](const PortLearning &expected) -> Holds {
        return [=](const ChipState &chips) { return *chips.learning.find({2, 3}) == expected; };
    };
    expect_changes({
        {"off", [] { return DEV_SWDRV_PMGR_DisablePortLearning(2, 3); }, learning({.learns = false})},
        {"told", [] { return DEV_SWDRV_PMGR_SetPortLearningStatus(2, 3, 0, 1, 0); },
         learning({.learns = false, .tells_cpu = true})},
        {"dropped", [] { return DEV_SWDRV_PMGR_SetPortLearningStatus(2, 3, 0, 0, 1); },
         learning({.learns = false, .drops_unknown = true})},
        {"on", [] { return DEV_SWDRV_PMGR_EnablePortLearning(2, 3); }, learning({.drops_unknown = true})},
        {"mirrored", [] { return DEV_SWDRV_PMGR_DisableRspanPortLearning(2, 3); },
         learning({.drops_unknown = true, .learns_from_mirrored = false})},
        {"mirrored again", [] { return DEV_SWDRV_PMGR_EnableRspanPortLearning(2, 3); },
         learning({.drops_unknown = true})},
    });
}

TEST_F(SwdrvMulticastTrapsTest, HoldsIpv6MulticastAddresses)
{
    std::array<uint8_t, 6> mac = {0x33, 0x33, 0, 0, 0, 0};
    const auto add = [&](uint32_t vlan) { return DEV_SWDRV_PMGR_AddIPv6MulticastAddress(mac.data(), vlan); };
    const auto remove = [&](uint32_t vlan) { return DEV_SWDRV_PMGR_DelIPv6MulticastAddress(mac.data(), vlan); };
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(7), 1);
    EXPECT_EQ(add(7), 1);
    EXPECT_EQ(add(7), 0) << "it is there";
    EXPECT_EQ(add(8), 0) << "no such VLAN";
    EXPECT_EQ(add(1), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_DestroyVlan(7), 1);
    EXPECT_EQ(remove(7), 0) << "gone with its VLAN";
    EXPECT_EQ(remove(1), 1);
    EXPECT_EQ(remove(1), 0);

    uint32_t added = 0;
    for (; added < 2000 && add(1) == 1; ++added) {
        mac[4] = static_cast<uint8_t>((added + 1) >> 8);
        mac[5] = static_cast<uint8_t>(added + 1);
    }
    EXPECT_EQ(added, 1024U);
    mac[0] = 1;
    EXPECT_EQ(remove(1), 0);
    EXPECT_EQ(add(1), 0);
}

TEST_F(SwdrvMulticastTrapsTest, ChangesTheFrameSize)
{
    uint32_t untagged = 0;
    uint32_t tagged = 0;
    const auto largest = [&](uint8_t high, uint8_t low) {
        EXPECT_EQ(DEV_SWDRV_PMGR_ModifyMaxFrameSize(high, low), 1);
        EXPECT_EQ(DEV_SWDRV_PMGR_GetPortMaxFrameSize(2, 3, &untagged, &tagged), 1);
        return untagged;
    };
    EXPECT_EQ(largest(0x08, 0x01), 0x801U);
    EXPECT_EQ(DEV_SWDRV_PMGR_EnableJumboFrame(), 1);
    EXPECT_EQ(largest(0x10, 0x00), 0x1000U);
    EXPECT_EQ(DEV_SWDRV_PMGR_DisableJumboFrame(), 1);
    EXPECT_EQ(largest(0x20, 0x00), 0x2000U);
    EXPECT_EQ(DEV_SWDRV_PMGR_EnableJumboFrame(), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_GetPortMaxFrameSize(2, 3, &untagged, &tagged), 1);
    EXPECT_EQ(untagged, 0x2000U) << "not smaller than without jumbo frames";
    expect_refused({
        {"smaller than without jumbo frames", [] { return DEV_SWDRV_PMGR_ModifyMaxFrameSize(0x1F, 0xFF); }},
        {"too small", [] { return DEV_SWDRV_PMGR_ModifyMaxFrameSize(0, 17); }},
        {"too large", [] { return DEV_SWDRV_PMGR_ModifyMaxFrameSize(0xFF, 0xFF); }},
    });
}

TEST_F(SwdrvMulticastTrapsTest, TellsTheActiveMedium)
{
    const auto medium = [](uint32_t port) {
        uint32_t active = 99;
        EXPECT_EQ(DEV_SWDRV_PMGR_GetPortMediaActive(2, port, &active), 1);
        return active;
    };
    EXPECT_EQ(medium(1), 1U);
    EXPECT_EQ(medium(21), 2U);
    EXPECT_EQ(medium(28), 2U);
    model.lock()->lines.find({2, 21})->plugged = false;
    EXPECT_EQ(medium(21), 0U);
}

TEST_F(SwdrvMulticastTrapsTest, RefusesWhatIsNotThere)
{
    uint32_t medium = 0;
    expect_refused({
        {"unit", [] { return DEV_SWDRV_PMGR_EnableIPMC(3); }},
        {"unit 0", [] { return DEV_SWDRV_PMGR_IPMC_DisableSourceIPSearch(0); }},
        {"port", [] { return DEV_SWDRV_PMGR_EnablePortLearning(2, 29); }},
        {"port of mirrored frames", [] { return DEV_SWDRV_PMGR_DisableRspanPortLearning(3, 1); }},
        {"first flag", [] { return DEV_SWDRV_PMGR_SetPortLearningStatus(2, 3, 2, 0, 0); }},
        {"last flag", [] { return DEV_SWDRV_PMGR_SetPortLearningStatus(2, 3, 0, 0, 2); }},
        {"MLD", [] { return DEV_SWDRV_PMGR_TrapMLDToCPU(0, 2); }},
        {"no neighbour discovery", [] { return DEV_SWDRV_PMGR_EnableNDTrap2CPU(0); }},
        {"neighbour discovery", [] { return DEV_SWDRV_PMGR_DisableNDTrap2CPU(3); }},
        {"router advertisements", [] { return DEV_SWDRV_PMGR_SetRaAndRrTrap2CPU(2); }},
        {"unit of IPv4", [] { return DEV_SWDRV_PMGR_TrapUnknownIpMcastToCPU(1, 1, 3); }},
        {"flag of IPv4", [] { return DEV_SWDRV_PMGR_TrapUnknownIpMcastToCPU(2, 1, 1); }},
        {"flag of IPv6", [] { return DEV_SWDRV_PMGR_TrapUnknownIpv6McastToCPU(2, 1); }},
        {"port's medium", [&] { return DEV_SWDRV_PMGR_GetPortMediaActive(2, 29, &medium); }},
    });
}

}  // namespace
}  // namespace quillon::test
