#include <gtest/gtest.h>
#include <stdint.h>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::LogicalPort;
using driver::StormKind;
using driver::StormLimit;
using driver::StormUnit;

constexpr LogicalPort port{2, 3};

struct SwdrvStormControlTest : SwdrvClientTest {};

TEST_F(SwdrvStormControlTest, ChangesStormControl)
{
    const struct {
        StormKind kind;
        uint8_t (*set_threshold)(uint32_t, uint32_t, uint32_t, uint32_t);
        uint8_t (*enable)(uint32_t, uint32_t);
        uint8_t (*disable)(uint32_t, uint32_t);
        uint32_t threshold;
    } rows[] = {
        {StormKind::broadcast, DEV_SWDRV_PMGR_SetBroadcastStormControlThreshold,
         DEV_SWDRV_PMGR_EnableBroadcastStormControl, DEV_SWDRV_PMGR_DisableBroadcastStormControl, 640},
        {StormKind::multicast, DEV_SWDRV_PMGR_SetMulticastStormControlThreshold,
         DEV_SWDRV_PMGR_EnableMulticastStormControl, DEV_SWDRV_PMGR_DisableMulticastStormControl, 1280},
        {StormKind::unknown_unicast, DEV_SWDRV_PMGR_SetUnknownUnicastStormControlThreshold,
         DEV_SWDRV_PMGR_EnableUnknownUnicastStormControl, DEV_SWDRV_PMGR_DisableUnknownUnicastStormControl, 1920},
    };
    const auto limit = [this](StormKind kind) { return model.lock()->chips.storm_control.limit(kind, port); };
    for (const auto &row : rows) {
        EXPECT_EQ(limit(row.kind), StormLimit{});
        EXPECT_EQ(row.set_threshold(2, 3, row.threshold, 2), 1);
        EXPECT_EQ(row.enable(2, 3), 1);
        EXPECT_EQ(limit(row.kind), (StormLimit{true, StormUnit::kilobits_per_second, row.threshold}));
        EXPECT_EQ(row.set_threshold(2, 3, 65, 2), 0);
        EXPECT_EQ(row.set_threshold(2, 3, 1, 0), 0);
        EXPECT_EQ(row.set_threshold(2, 3, 1, 4), 0);
        EXPECT_EQ(row.set_threshold(2, 29, 64, 2), 0);
        EXPECT_EQ(row.enable(2, 29), 0);
        EXPECT_EQ(row.disable(2, 29), 0);
        EXPECT_EQ(row.disable(2, 3), 1);
        EXPECT_EQ(limit(row.kind), (StormLimit{false, StormUnit::kilobits_per_second, row.threshold}));
    }

    uint32_t granularity = 0;
    EXPECT_EQ(DEV_SWDRV_PMGR_GetPortStormGranularity(2, 28, 2, &granularity), 1);
    EXPECT_EQ(granularity, 640U);
    EXPECT_EQ(DEV_SWDRV_PMGR_GetPortStormGranularity(2, 28, 4, &granularity), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_GetPortStormGranularity(2, 29, 2, &granularity), 0);
}

}  // namespace
}  // namespace quillon::test
