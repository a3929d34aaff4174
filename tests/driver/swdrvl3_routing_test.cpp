#include <gtest/gtest.h>
#include <stdint.h>

#include "driver/swdrvl3_client.h"

namespace quillon::test {
namespace {

using driver::UnitRouting;

struct Swdrvl3RoutingTest : Swdrvl3ClientTest {
    UnitRouting of_unit(uint32_t unit) { return model.lock()->chips.routing.of_unit(unit); }
};

TEST_F(Swdrvl3RoutingTest, IsSwitchedByUnit)
{
    const struct {
        uint8_t (*enable)(uint32_t, uint32_t);
        uint8_t (*disable)(uint32_t, uint32_t);
        UnitRouting enabled;
    } rows[] = {
        {DEV_SWDRVL3_PMGR_EnableRouting, DEV_SWDRVL3_PMGR_DisableRouting, {true, true, false}},
        {DEV_SWDRVL3_PMGR_EnableIPv4Routing, DEV_SWDRVL3_PMGR_DisableIPv4Routing, {true, false, false}},
        {DEV_SWDRVL3_PMGR_EnableIPv6Routing, DEV_SWDRVL3_PMGR_DisableIPv6Routing, {false, true, false}},
        {DEV_SWDRVL3_PMGR_EnableUnicastStormProtect, DEV_SWDRVL3_PMGR_DisableUnicastStormProtect, {false, false, true}},
    };
    const UnitRouting off;
    for (const auto &row : rows) {
        EXPECT_EQ(row.enable(3, 0), 0);
        EXPECT_EQ(row.enable(1, 1), 0);
        EXPECT_EQ(of_unit(1), off);
        EXPECT_EQ(row.enable(1, 0), 1);
        EXPECT_EQ(of_unit(1), row.enabled);
        EXPECT_EQ(of_unit(2), off);
        EXPECT_EQ(row.enable(0, 0), 1);
        EXPECT_EQ(of_unit(2), row.enabled);
        EXPECT_EQ(row.disable(1, 0), 1);
        EXPECT_EQ(of_unit(1), off);
        EXPECT_EQ(of_unit(2), row.enabled);
        EXPECT_EQ(row.disable(0, 0), 1);
        EXPECT_EQ(of_unit(2), off);
    }
}

}  // namespace
}  // namespace quillon::test
