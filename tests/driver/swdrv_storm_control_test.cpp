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

struct SwdrvStormControlTest : SwdrvClientTest {
    StormLimit limit(StormKind kind, const LogicalPort &of = port)
    {
        return model.lock()->chips.storm_control.limit(kind, of);
    }
};

TEST_F(SwdrvStormControlTest, IsSetForEachPortAndKind)
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
    for (const auto &row : rows) {
        EXPECT_EQ(limit(row.kind), StormLimit{});
        expect_checked(row.set_threshold, {2, 3, row.threshold, 2}, {3, 29, 65, 0});
        EXPECT_EQ(row.set_threshold(2, 3, 1, 4), 0);
        expect_checked(row.enable, {2, 3}, {3, 29});
        EXPECT_EQ(limit(row.kind), (StormLimit{true, StormUnit::kilobits_per_second, row.threshold}));
        expect_checked(row.disable, {2, 3}, {3, 29});
        EXPECT_EQ(limit(row.kind), (StormLimit{false, StormUnit::kilobits_per_second, row.threshold}));
        EXPECT_EQ(limit(row.kind, {1, 3}), StormLimit{});
    }
}

TEST_F(SwdrvStormControlTest, LimitsThresholdsToWhatAPortCarries)
{
    const struct {
        uint32_t port;
        uint32_t unit, granularity, most;
    } rows[] = {
        {1, 1, 1, 1'488'095},     {28, 1, 1, 14'880'952}, {1, 2, 64, 1'000'000},
        {28, 2, 640, 10'000'000}, {1, 3, 1, 100},         {28, 3, 1, 100},
    };
    const auto set = DEV_SWDRV_PMGR_SetMulticastStormControlThreshold;
    uint32_t granularity = 0;
    for (const auto &row : rows) {
        EXPECT_EQ(DEV_SWDRV_PMGR_GetPortStormGranularity(2, row.port, row.unit, &granularity), 1);
        EXPECT_EQ(granularity, row.granularity);
        EXPECT_EQ(set(2, row.port, row.granularity, row.unit), 1);
        EXPECT_EQ(set(2, row.port, 0, row.unit), 1);
        EXPECT_EQ(set(2, row.port, row.most, row.unit), 1);
        EXPECT_EQ(set(2, row.port, row.most + row.granularity, row.unit), 0);
        if (row.granularity > 1) {
            EXPECT_EQ(set(2, row.port, row.granularity + 1, row.unit), 0);
        }
        EXPECT_EQ(limit(StormKind::multicast, {2, row.port}).threshold, row.most);
    }
    EXPECT_EQ(DEV_SWDRV_PMGR_GetPortStormGranularity(2, 28, 4, &granularity), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_GetPortStormGranularity(2, 29, 2, &granularity), 0);
}

}  // namespace
}  // namespace quillon::test
