#include "host/driver/model/stack.h"

#include <gtest/gtest.h>
#include <stdint.h>

#include <optional>
#include <ostream>
#include <set>
#include <tuple>

namespace quillon::driver {

void PrintTo(const ChipPort &port, std::ostream *out)
{
    *out << "module " << port.module_id << " device " << port.device_id << " port " << port.phy_port;
}

namespace {

constexpr uint32_t largest = UINT32_MAX;

// Where the runs of ports on the chips begin and end, also where they do not come out even or a chip has no port.
TEST(Stack, DealsOutThePortsInRuns)
{
    const struct {
        StackShape shape;
        LogicalPort logical;
        ChipPort chip;
    } rows[] = {
        {{.units = 2, .ports = 28, .chips = 2}, {1, 1}, {1, 0, 1}},
        {{.units = 2, .ports = 28, .chips = 2}, {1, 14}, {1, 0, 14}},
        {{.units = 2, .ports = 28, .chips = 2}, {1, 15}, {2, 1, 1}},
        {{.units = 2, .ports = 28, .chips = 2}, {2, 1}, {3, 0, 1}},
        {{.units = 2, .ports = 28, .chips = 2}, {2, 28}, {4, 1, 14}},
        {{.units = 1, .ports = 28, .chips = 3}, {1, 10}, {1, 0, 10}},
        {{.units = 1, .ports = 28, .chips = 3}, {1, 11}, {2, 1, 1}},
        {{.units = 1, .ports = 28, .chips = 3}, {1, 19}, {2, 1, 9}},
        {{.units = 1, .ports = 28, .chips = 3}, {1, 20}, {3, 2, 1}},
        {{.units = 1, .ports = 28, .chips = 3}, {1, 28}, {3, 2, 9}},
        {{.units = 3, .ports = 2, .chips = 4}, {3, 2}, {10, 1, 1}},
        {{.units = 32, .ports = 64, .chips = 255}, {32, 64}, {31 * 255 + 64, 63, 1}},
    };
    for (const auto &row : rows) {
        const Stack stack(row.shape);
        EXPECT_EQ(stack.to_chip(row.logical), row.chip);
        EXPECT_EQ(stack.to_logical(row.chip), row.logical);
    }
}

// Two ports in one place, or a way back to another port.
TEST(Stack, LeadsEveryPortThereAndBack)
{
    for (const StackShape &shape : {StackShape{}, StackShape{.units = 1, .ports = 1, .chips = 1},
                                    StackShape{.units = 3, .ports = 29, .chips = 4}, StackShape{.chips = 255}}) {
        const Stack stack(shape);
        std::set<std::tuple<uint32_t, uint32_t, uint32_t>> places;
        for (uint32_t unit = 1; unit <= shape.units; ++unit) {
            for (uint32_t port = 1; port <= shape.ports; ++port) {
                const LogicalPort logical{unit, port};
                const auto chip = stack.to_chip(logical);
                ASSERT_TRUE(chip);
                EXPECT_EQ(stack.to_logical(*chip), logical);
                EXPECT_EQ(stack.module_of(unit, chip->device_id), chip->module_id);
                EXPECT_EQ(stack.device_of(unit, chip->module_id), chip->device_id);
                places.emplace(chip->module_id, chip->device_id, chip->phy_port);
            }
        }
        EXPECT_EQ(places.size(), shape.units * shape.ports);
    }
}

TEST(Stack, HasNothingBesides)
{
    const Stack stack(StackShape{.units = 2, .ports = 28, .chips = 2});
    for (const LogicalPort &port : {LogicalPort{0, 1}, {3, 1}, {largest, 1}, {1, 0}, {1, 29}, {1, largest}}) {
        EXPECT_FALSE(stack.has(port));
        EXPECT_EQ(stack.to_chip(port), std::nullopt);
    }
    for (const ChipPort &port : {ChipPort{0, 0, 1},
                                 {5, 0, 1},
                                 {largest, 0, 1},
                                 {1, 1, 1},  // module 1 is device 0 of its unit
                                 {3, 1, 1},
                                 {1, 2, 1},
                                 {1, largest, 1},
                                 {1, 0, 0},
                                 {1, 0, 15},
                                 {1, 0, largest}}) {
        EXPECT_EQ(stack.to_logical(port), std::nullopt) << port.module_id << ' ' << port.device_id;
    }
    // A module of another unit is not on this one.
    EXPECT_EQ(stack.device_of(1, 3), std::nullopt);
    EXPECT_EQ(stack.device_of(2, 2), std::nullopt);
    EXPECT_EQ(stack.device_of(0, 1), std::nullopt);
    EXPECT_EQ(stack.device_of(3, 5), std::nullopt);
    EXPECT_EQ(stack.module_of(1, 2), std::nullopt);
    EXPECT_EQ(stack.module_of(3, 0), std::nullopt);
    EXPECT_EQ(stack.module_of(1, largest), std::nullopt);

    // A chip without ports.
    const Stack thin(StackShape{.units = 1, .ports = 2, .chips = 3});
    EXPECT_EQ(thin.module_of(1, 2), 3U);
    EXPECT_EQ(thin.to_logical({3, 2, 1}), std::nullopt);
}

}  // namespace
}  // namespace quillon::driver
