#include "host/driver/model/storm_control.h"

#include <gtest/gtest.h>
#include <stdint.h>

#include <optional>

namespace quillon::driver {
namespace {

using enum StormKind;
using enum StormUnit;

constexpr LogicalPort gigabit{1, 1};
constexpr LogicalPort ten_gigabit{1, 28};
constexpr LogicalPort no_port{1, 29};

TEST(StormControl, LimitsThresholdsToWhatAPortCarries)
{
    const struct {
        LogicalPort port;
        StormUnit unit;
        uint32_t granularity, most;
    } rows[] = {
        {gigabit, packets_per_second, 1, 1'488'095},
        {ten_gigabit, packets_per_second, 1, 14'880'952},
        {gigabit, kilobits_per_second, 64, 1'000'000},
        {ten_gigabit, kilobits_per_second, 640, 10'000'000},
        {gigabit, percent, 1, 100},
        {ten_gigabit, percent, 1, 100},
    };
    for (const auto &row : rows) {
        StormControl control(Stack(StackShape{}));
        EXPECT_EQ(control.granularity(row.port, row.unit), row.granularity);
        EXPECT_TRUE(control.set_threshold(multicast, row.port, row.unit, row.granularity));
        EXPECT_TRUE(control.set_threshold(multicast, row.port, row.unit, 0));
        EXPECT_TRUE(control.set_threshold(multicast, row.port, row.unit, row.most));
        EXPECT_FALSE(control.set_threshold(multicast, row.port, row.unit, row.most + row.granularity));
        if (row.granularity > 1) {
            EXPECT_FALSE(control.set_threshold(multicast, row.port, row.unit, row.granularity + 1));
        }
        EXPECT_EQ(control.limit(multicast, row.port),
                  (StormLimit{.enabled = false, .unit = row.unit, .threshold = row.most}));
        EXPECT_EQ(control.limit(broadcast, row.port), StormLimit{});
    }
}

TEST(StormControl, IsSetForEachPortAndKind)
{
    StormControl control(Stack(StackShape{}));
    EXPECT_TRUE(control.enable(unknown_unicast, gigabit, true));
    EXPECT_TRUE(control.limit(unknown_unicast, gigabit).enabled);
    EXPECT_FALSE(control.limit(broadcast, gigabit).enabled);
    EXPECT_FALSE(control.limit(unknown_unicast, ten_gigabit).enabled);
    EXPECT_TRUE(control.enable(unknown_unicast, gigabit, false));
    EXPECT_FALSE(control.limit(unknown_unicast, gigabit).enabled);

    EXPECT_FALSE(control.enable(broadcast, no_port, true));
    EXPECT_FALSE(control.set_threshold(broadcast, no_port, percent, 1));
    EXPECT_EQ(control.granularity(no_port, percent), std::nullopt);
}

}  // namespace
}  // namespace quillon::driver
