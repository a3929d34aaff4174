#include <gtest/gtest.h>
#include <stdint.h>

#include <array>
#include <functional>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::ChipState;
using driver::IgmpTrap;
using driver::PortLearning;
using driver::Setting;
using enum driver::Setting;
using Holds = std::function<bool(const ChipState &)>;

struct SwdrvMulticastTrapsTest : SwdrvClientTest {};

TEST_F(SwdrvMulticastTrapsTest, SwitchesOnAndOff)
{
    const struct {
        Setting setting;
        uint8_t (*on)();
        uint8_t (*off)();
    } of_switch[] = {
        {trap_unknown_multicast_ip, DEV_SWDRV_PMGR_EnableUMCASTIpTrap, DEV_SWDRV_PMGR_DisableUMCASTIpTrap},
        {trap_unknown_multicast_mac, DEV_SWDRV_PMGR_EnableUMCASTMacTrap, DEV_SWDRV_PMGR_DisableUMCASTMacTrap},
        {trap_mld, DEV_SWDRV_PMGR_EnableMLDTrap2CPU, DEV_SWDRV_PMGR_DisableMLDTrap2CPU},
    };
    for (const auto &row : of_switch) {
        expect_kept(row.on, {}, {}, row.setting, {}, {1});
        expect_kept(row.off, {}, {}, row.setting, {}, {0});
    }
    const struct {
        Setting setting;
        uint8_t (*on)(uint32_t);
        uint8_t (*off)(uint32_t);
    } of_units[] = {
        {ip_multicast, DEV_SWDRV_PMGR_EnableIPMC, DEV_SWDRV_PMGR_DisableIPMC},
        {ip_multicast_port_check, DEV_SWDRV_PMGR_IPMC_EnableSourcePortCheck,
         DEV_SWDRV_PMGR_IPMC_DisableSourcePortCheck},
        {ip_multicast_source_search, DEV_SWDRV_PMGR_IPMC_EnableSourceIPSearch,
         DEV_SWDRV_PMGR_IPMC_DisableSourceIPSearch},
    };
    for (const auto &row : of_units) {
        expect_kept(row.on, {2}, {3}, row.setting, {2}, {1});
        expect_kept(row.off, {2}, {0}, row.setting, {2}, {0});
    }
    expect_kept(DEV_SWDRV_PMGR_EnableNDTrap2CPU, {2}, {0}, trap_neighbour_discovery, {2}, {1});
    expect_kept(DEV_SWDRV_PMGR_DisableNDTrap2CPU, {2}, {3}, trap_neighbour_discovery, {2}, {0});
    expect_kept(DEV_SWDRV_PMGR_SetRaAndRrTrap2CPU, {1}, {2}, trap_router_advertisements, {}, {1});
    expect_kept(DEV_SWDRV_PMGR_SetEapolFramePassThrough, {1}, {2}, eapol_pass_through, {}, {1});
    expect_kept(DEV_SWDRV_PMGR_TrapMLDToCPU, {1, 0}, {2, 2}, trap_mld_kinds, {}, {1, 0});
    expect_kept(DEV_SWDRV_PMGR_TrapUnknownIpMcastToCPU, {1, 0, 2}, {2, 2, 3}, trap_unknown_ipv4_multicast, {2}, {1, 0});
    expect_kept(DEV_SWDRV_PMGR_TrapUnknownIpv6McastToCPU, {0, 1}, {2, 2}, trap_unknown_ipv6_multicast, {}, {0, 1});
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
    expect_checked(DEV_SWDRV_PMGR_EnablePortLearning, {2, 3}, {3, 29});
    expect_checked(DEV_SWDRV_PMGR_DisableRspanPortLearning, {2, 3}, {3, 29});
    expect_checked(DEV_SWDRV_PMGR_SetPortLearningStatus, {2, 3, 0, 1, 0}, {3, 29, 2, 2, 2});
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

TEST_F(SwdrvMulticastTrapsTest, TrapsIgmpByKind)
{
    const auto trap = [](const IgmpTrap &expected) -> Holds {
        return [=](const ChipState &chips) { return chips.igmp_trap == expected; };
    };
    expect_changes({
        {"enabled", [] { return DEV_SWDRV_PMGR_EnableIgmpTrap(); }, trap({true, true, true})},
        {"queries", [] { return DEV_SWDRV_PMGR_TrapIGMPToCPU(0, 1); }, trap({true, false, true})},
        {"reports", [] { return DEV_SWDRV_PMGR_TrapIGMPToCPU(1, 0); }, trap({true, true, false})},
        {"disabled", [] { return DEV_SWDRV_PMGR_DisableIgmpTrap(); }, trap({false, true, false})},
    });
    expect_checked(DEV_SWDRV_PMGR_TrapIGMPToCPU, {1, 1}, {2, 2});
}

TEST_F(SwdrvMulticastTrapsTest, TellsTheActiveMedium)
{
    const auto medium = [](uint32_t port) { return answer(DEV_SWDRV_PMGR_GetPortMediaActive, 2, port); };
    EXPECT_EQ(medium(1), 1U);
    EXPECT_EQ(medium(21), 2U);
    EXPECT_EQ(medium(28), 2U);
    model.lock()->lines.find({2, 21})->plugged = false;
    EXPECT_EQ(medium(21), 0U);
    uint32_t active = 0;
    EXPECT_EQ(DEV_SWDRV_PMGR_GetPortMediaActive(2, 29, &active), 0);
}

}  // namespace
}  // namespace quillon::test
