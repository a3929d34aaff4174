#include <gtest/gtest.h>
#include <stdint.h>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::ChipState;
using driver::LogicalPort;
using driver::PortSet;
using driver::TrunkBalance;

constexpr LogicalPort port{2, 3};

struct SwdrvTrunkTest : SwdrvClientTest {};

TEST_F(SwdrvTrunkTest, ChangesTrunks)
{
    static constexpr uint8_t bitmap[32] = {0x04, 0x00, 0x00, 0x08};
    static constexpr uint8_t beyond_port_64[32] = {0x04, 0, 0, 0, 0, 0, 0, 0, 0x01};
    static constexpr uint8_t group[6] = {0x01, 0x00, 0x5E, 0x01, 0x02, 0x03};
    static constexpr uint8_t station[6] = {0x02, 0x00, 0x5E, 0x01, 0x02, 0x03};
    static constexpr driver::TrunkMulticast multicast = {
        .mac = {0x01, 0x00, 0x5E, 0x01, 0x02, 0x03}, .vlan = 1, .port = port};
    expect_changes({
        {"created", [] { return DEV_SWDRV_PMGR_CreateTrunk(5); },
         [](const ChipState &chips) { return chips.trunks.find(5) != nullptr; }},
        {"created with a mode", [] { return DEV_SWDRV_PMGR_CreateTrunkwithMode(6, 4); },
         [](const ChipState &chips) {
             const driver::Trunk *const trunk = chips.trunks.find(6);
             return trunk != nullptr && trunk->balance == TrunkBalance::source_ip;
         }},
        {"members", [] { return DEV_SWDRV_PMGR_SetTrunkPortMembers(2, 5, bitmap); },
         [](const ChipState &chips) {
             return chips.trunks.find(5)->members == PortSet{{2, 3}, {2, 28}};
         }},
        {"mode", [] { return DEV_SWDRV_PMGR_SetTrunkBalanceMode(5, 1); },
         [](const ChipState &chips) { return chips.trunks.find(5)->balance == TrunkBalance::source_mac; }},
        {"multicast", [] { return DEV_SWDRV_PMGR_AddMulticastAddrToTrunkMember(group, 1, 2, 3); },
         [](const ChipState &chips) { return chips.trunks.has(multicast); }},
        {"no multicast", [] { return DEV_SWDRV_PMGR_DeleteMulticastAddrToTrunkMember(group, 1, 2, 3); },
         [](const ChipState &chips) { return !chips.trunks.has(multicast); }},
    });
    uint8_t mode = 0;
    for (uint8_t taken = 1; taken <= 6; ++taken) {
        EXPECT_EQ(DEV_SWDRV_PMGR_SetTrunkBalanceMode(5, taken), 1);
        EXPECT_EQ(DEV_SWDRV_PMGR_GetTrunkBalanceModeofLocalUnit(5, &mode), 1);
        EXPECT_EQ(mode, taken);
    }
    EXPECT_EQ(DEV_SWDRV_PMGR_SetTrunkBalanceMode(5, 1), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_GetTrunkBalanceModeofLocalUnit(6, &mode), 1);
    EXPECT_EQ(mode, 4);
    EXPECT_EQ(DEV_SWDRV_PMGR_GetTrunkBalanceModeofLocalUnit(7, &mode), 0);

    expect_changes({
        {"all modes", [] { return DEV_SWDRV_PMGR_SetTrunkLoadBalanceMode(6); },
         [](const ChipState &chips) {
             return chips.trunks.find(5)->balance == TrunkBalance::both_ips &&
                    chips.trunks.default_balance() == TrunkBalance::both_ips;
         }},
        {"destroyed", [] { return DEV_SWDRV_PMGR_DestroyTrunk(6); },
         [](const ChipState &chips) { return chips.trunks.find(6) == nullptr; }},
    });
    expect_refused({
        {"there", [] { return DEV_SWDRV_PMGR_CreateTrunk(5); }},
        {"trunk 0", [] { return DEV_SWDRV_PMGR_CreateTrunk(0); }},
        {"mode 0", [] { return DEV_SWDRV_PMGR_CreateTrunkwithMode(6, 0); }},
        {"mode 7", [] { return DEV_SWDRV_PMGR_SetTrunkBalanceMode(5, 7); }},
        {"mode 7 of all", [] { return DEV_SWDRV_PMGR_SetTrunkLoadBalanceMode(7); }},
        {"port 65", [] { return DEV_SWDRV_PMGR_SetTrunkPortMembers(2, 5, beyond_port_64); }},
        {"no unit", [] { return DEV_SWDRV_PMGR_SetTrunkPortMembers(3, 5, bitmap); }},
        {"a station", [] { return DEV_SWDRV_PMGR_AddMulticastAddrToTrunkMember(station, 1, 2, 3); }},
        {"no such entry", [] { return DEV_SWDRV_PMGR_DeleteMulticastAddrToTrunkMember(group, 1, 2, 3); }},
    });
}

}  // namespace
}  // namespace quillon::test
