#include <gtest/gtest.h>
#include <stdint.h>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::FrameSize;
using driver::LogicalPort;

constexpr LogicalPort port{2, 3};

struct SwdrvFrameSizeTest : SwdrvClientTest {};

TEST_F(SwdrvFrameSizeTest, ChangesFrameSizes)
{
    const auto largest = [](const LogicalPort &of) {
        uint32_t untagged = 0;
        uint32_t tagged = 0;
        EXPECT_EQ(DEV_SWDRV_PMGR_GetPortMaxFrameSize(of.unit, of.port, &untagged, &tagged), 1);
        return FrameSize{untagged, tagged};
    };
    EXPECT_EQ(largest(port), (FrameSize{1518, 1522}));
    EXPECT_EQ(DEV_SWDRV_PMGR_SetSystemMTU(1600, 8000), 1);
    EXPECT_EQ(largest(port), (FrameSize{1618, 1622}));
    EXPECT_EQ(DEV_SWDRV_PMGR_EnableJumboFrame(), 1);
    EXPECT_EQ(largest(port), (FrameSize{8018, 8022}));
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortMTU(2, 3, 7000), 1);
    EXPECT_EQ(largest(port), (FrameSize{7018, 7022}));
    EXPECT_EQ(largest({1, 3}), (FrameSize{8018, 8022}));
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortDot1qTunnelMTU(1700), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortDot1qTunnelMode(2, 3, 1), 1);
    EXPECT_EQ(largest(port), (FrameSize{1718, 1726}));
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortDot1qTunnelMode(2, 3, 0), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_DisableJumboFrame(), 1);
    EXPECT_EQ(largest(port), (FrameSize{1618, 1622}));

    expect_refused({
        {"67 bytes", [] { return DEV_SWDRV_PMGR_SetPortMTU(2, 3, 67); }},
        {"no port", [] { return DEV_SWDRV_PMGR_SetPortMTU(2, 29, 1500); }},
        {"smaller jumbo frames", [] { return DEV_SWDRV_PMGR_SetSystemMTU(1500, 1400); }},
        {"10000 bytes", [] { return DEV_SWDRV_PMGR_SetPortDot1qTunnelMTU(10000); }},
    });
    uint32_t untouched[] = {0xABCD, 0xEF01};
    EXPECT_EQ(DEV_SWDRV_PMGR_GetPortMaxFrameSize(2, 29, &untouched[0], &untouched[1]), 0);
    EXPECT_EQ(untouched[0], 0xABCDU);
    EXPECT_EQ(untouched[1], 0xEF01U);
}

}  // namespace
}  // namespace quillon::test
