#include <gtest/gtest.h>
#include <stdint.h>

#include <initializer_list>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::ChipState;
using driver::LogicalPort;
using driver::PortTunnel;
using driver::ReplaceMode;
using driver::ServiceTags;
using driver::TunnelMode;

constexpr LogicalPort port{2, 3};

struct SwdrvDot1qTunnelTest : SwdrvClientTest {};

TEST_F(SwdrvDot1qTunnelTest, ChangesTunnels)
{
    static const auto tunnel = [](const ChipState &chips) -> const PortTunnel & { return *chips.tunnels.find(port); };
    model.lock()->chips.vlans.create(100);
    expect_changes({
        {"mode", [] { return DEV_SWDRV_PMGR_SetPortDot1qTunnelMode(2, 3, 2); },
         [](const ChipState &chips) { return tunnel(chips).mode == TunnelMode::provider_side; }},
        {"TPID", [] { return DEV_SWDRV_PMGR_SetPortDot1qTunnelTPID(2, 3, 0x88A8); },
         [](const ChipState &chips) { return tunnel(chips).tpid == 0x88A8; }},
        {"replace mode", [] { return DEV_SWDRV_PMGR_SetPortDot1qTunnelModeForReplaceVlan(2, 3, 2); },
         [](const ChipState &chips) {
             return tunnel(chips).replace_mode == ReplaceMode{false, true};
         }},
        {"double tag", [] { return DEV_SWDRV_PMGR_SetPortDot1qTunnelVlanDoubleTag(2, 3, 7, 1, 100, 5); },
         [](const ChipState &chips) {
             return tunnel(chips).double_tags == ServiceTags{{7, {100, 5}}};
         }},
        {"replacement", [] { return DEV_SWDRV_PMGR_SetPortDot1qTunnelReplaceVlan(2, 3, 8, 100, 6, 1); },
         [](const ChipState &chips) {
             return tunnel(chips).replacements == ServiceTags{{8, {100, 6}}};
         }},
        {"no double tag", [] { return DEV_SWDRV_PMGR_SetPortDot1qTunnelVlanDoubleTag(2, 3, 7, 0, 0, 0); },
         [](const ChipState &chips) { return tunnel(chips).double_tags.empty(); }},
        {"no replacement", [] { return DEV_SWDRV_PMGR_SetPortDot1qTunnelReplaceVlan(2, 3, 8, 0, 0, 0); },
         [](const ChipState &chips) { return tunnel(chips).replacements.empty(); }},
    });
    expect_refused({
        {"mode 3", [] { return DEV_SWDRV_PMGR_SetPortDot1qTunnelMode(2, 3, 3); }},
        {"replace mode 4", [] { return DEV_SWDRV_PMGR_SetPortDot1qTunnelModeForReplaceVlan(2, 3, 4); }},
        {"flag 2", [] { return DEV_SWDRV_PMGR_SetPortDot1qTunnelVlanDoubleTag(2, 3, 7, 2, 100, 5); }},
        {"flag 2 to replace", [] { return DEV_SWDRV_PMGR_SetPortDot1qTunnelReplaceVlan(2, 3, 8, 100, 6, 2); }},
        {"TPID 5", [] { return DEV_SWDRV_PMGR_SetPortDot1qTunnelTPID(2, 3, 5); }},
    });

    // Ports of the local unit alone can be read.
    uint8_t mode = 0xEE;
    uint32_t tpid = 0xEEEE'EEEE;
    for (const uint8_t taken : std::initializer_list<uint8_t>{1, 2, 0}) {
        EXPECT_EQ(DEV_SWDRV_PMGR_SetPortDot1qTunnelMode(1, 3, taken), 1);
        EXPECT_EQ(DEV_SWDRV_PMGR_GetPortDot1qTunnelModeofLocalPort(1, 3, &mode), 1);
        EXPECT_EQ(mode, taken);
    }
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortDot1qTunnelTPID(1, 3, 0x9100), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_GetPortDot1qTunnelTPIDofLocalPort(1, 3, &tpid), 1);
    EXPECT_EQ(tpid, 0x9100U);
    EXPECT_EQ(DEV_SWDRV_PMGR_GetPortDot1qTunnelModeofLocalPort(2, 3, &mode), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_GetPortDot1qTunnelTPIDofLocalPort(2, 3, &tpid), 0);
}

}  // namespace
}  // namespace quillon::test
