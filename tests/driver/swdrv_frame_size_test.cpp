#include <gtest/gtest.h>
#include <stdint.h>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::FrameSize;
using driver::LogicalPort;

constexpr LogicalPort port{2, 3};

FrameSize largest(const LogicalPort &of = port)
{
    uint32_t untagged = 0;
    uint32_t tagged = 0;
    EXPECT_EQ(DEV_SWDRV_PMGR_GetPortMaxFrameSize(of.unit, of.port, &untagged, &tagged), 1);
    return {untagged, tagged};
}

struct SwdrvFrameSizeTest : SwdrvClientTest {};

TEST_F(SwdrvFrameSizeTest, FollowsFromTheSmallestMtu)
{
    const struct {
        const char *what;
        uint32_t standard, jumbo, own, tunnel_mtu;
        bool jumbo_frames, is_tunnel;
        FrameSize largest;
    } rows[] = {
        {"standard", 1500, 9000, 9216, 1504, false, false, {1518, 1522}},
        {"jumbo", 1500, 9000, 9216, 1504, true, false, {9018, 9022}},
        {"smaller port", 1500, 9000, 1000, 1504, true, false, {1018, 1022}},
        {"larger port", 1500, 9000, 2000, 1504, false, false, {1518, 1522}},
        {"tunnel", 1500, 9000, 9216, 1504, false, true, {1522, 1530}},
        {"tunnel with jumbo frames", 1500, 9000, 9216, 1504, true, true, {1522, 1530}},
        {"smaller tunnel port", 1500, 9000, 68, 1504, false, true, {86, 94}},
    };
    EXPECT_EQ(largest(), (FrameSize{1518, 1522}));
    EXPECT_EQ(DEV_SWDRV_PMGR_EnableJumboFrame(), 1);
    EXPECT_EQ(largest(), (FrameSize{9234, 9238}));
    for (const auto &row : rows) {
        EXPECT_EQ(DEV_SWDRV_PMGR_SetSystemMTU(row.standard, row.jumbo), 1);
        EXPECT_EQ(DEV_SWDRV_PMGR_SetPortMTU(2, 3, row.own), 1);
        EXPECT_EQ(DEV_SWDRV_PMGR_SetPortDot1qTunnelMTU(row.tunnel_mtu), 1);
        EXPECT_EQ(DEV_SWDRV_PMGR_SetPortDot1qTunnelMode(2, 3, row.is_tunnel ? 1 : 0), 1);
        EXPECT_EQ(row.jumbo_frames ? DEV_SWDRV_PMGR_EnableJumboFrame() : DEV_SWDRV_PMGR_DisableJumboFrame(), 1);
        EXPECT_EQ(largest(), row.largest) << row.what;
    }
    EXPECT_EQ(largest({1, 3}), (FrameSize{1518, 1522})) << "another port";
}

TEST_F(SwdrvFrameSizeTest, RefusesWhatIsNoMtuAndNoPort)
{
    for (const uint32_t mtu : {0U, 67U, 9217U, UINT32_MAX}) {
        EXPECT_EQ(DEV_SWDRV_PMGR_SetSystemMTU(mtu, 9000), 0) << mtu;
        EXPECT_EQ(DEV_SWDRV_PMGR_SetSystemMTU(1500, mtu), 0) << mtu;
        EXPECT_EQ(DEV_SWDRV_PMGR_SetPortDot1qTunnelMTU(mtu), 0) << mtu;
        EXPECT_EQ(DEV_SWDRV_PMGR_SetPortMTU(2, 3, mtu), 0) << mtu;
    }
    EXPECT_EQ(DEV_SWDRV_PMGR_SetSystemMTU(1500, 1499), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortMTU(2, 29, 1500), 0);
    EXPECT_EQ(largest(), (FrameSize{1518, 1522}));

    uint32_t untouched[] = {0xABCD, 0xEF01};
    EXPECT_EQ(DEV_SWDRV_PMGR_GetPortMaxFrameSize(2, 29, &untouched[0], &untouched[1]), 0);
    EXPECT_EQ(untouched[0], 0xABCDU);
    EXPECT_EQ(untouched[1], 0xEF01U);
}

TEST_F(SwdrvFrameSizeTest, IsChangedAsAWhole)
{
    const auto change = [](uint8_t high, uint8_t low) {
        EXPECT_EQ(DEV_SWDRV_PMGR_ModifyMaxFrameSize(high, low), 1);
        return largest().untagged;
    };
    EXPECT_EQ(change(0x08, 0x01), 0x801U);
    EXPECT_EQ(DEV_SWDRV_PMGR_EnableJumboFrame(), 1);
    EXPECT_EQ(change(0x10, 0x00), 0x1000U);
    EXPECT_EQ(DEV_SWDRV_PMGR_DisableJumboFrame(), 1);
    EXPECT_EQ(change(0x20, 0x00), 0x2000U);
    EXPECT_EQ(DEV_SWDRV_PMGR_EnableJumboFrame(), 1);
    EXPECT_EQ(largest().untagged, 0x2000U) << "not smaller than without jumbo frames";
    expect_refused({
        {"smaller than without jumbo frames", [] { return DEV_SWDRV_PMGR_ModifyMaxFrameSize(0x1F, 0xFF); }},
        {"too small", [] { return DEV_SWDRV_PMGR_ModifyMaxFrameSize(0, 17); }},
        {"too large", [] { return DEV_SWDRV_PMGR_ModifyMaxFrameSize(0xFF, 0xFF); }},
    });
}

}  // namespace
}  // namespace quillon::test
