#include "host/driver/model/meter.h"

#include <gtest/gtest.h>
#include <stddef.h>

#include <chrono>
#include <cstdint>

namespace quillon::driver {
namespace {

using enum Colour;
using namespace std::chrono_literals;

// 8000 bits are 1000 bytes a second.
TEST(MeterTest, FillsTheCommittedBucketFirst)
{
    Meter meter({.committed_rate = 8000, .committed_burst = 500, .excess_burst = 300});
    const struct {
        std::chrono::milliseconds at;
        size_t bytes;
        Colour colour;
    } packets[] = {
        {0ms, 801, red},       // more than both, and takes nothing
        {0ms, 400, green},     //
        {0ms, 200, yellow},    // does not fit into the 100 that are left
        {0ms, 100, green},     //
        {0ms, 101, red},       //
        {0ms, 100, yellow},    //
        {0ms, 1, red},         //
        {250ms, 250, green},   // a quarter of a second's worth
        {250ms, 1, red},       //
        {850ms, 101, green},   // 600 bytes more: 500 here, 100 there
        {850ms, 400, red},     //
        {850ms, 399, green},   //
        {850ms, 101, red},     //
        {850ms, 100, yellow},  //
        {1h, 501, red},        // neither bucket is ever fuller than its burst
        {1h, 500, green},      //
        {1h, 300, yellow},     //
    };
    for (size_t i = 0; i < std::size(packets); ++i) {
        EXPECT_EQ(meter.colour(packets[i].bytes, Time(1000h + packets[i].at)), packets[i].colour) << i;
    }
}

TEST(MeterTest, NeverFillsWithoutARate)
{
    Meter meter({.committed_rate = 0, .committed_burst = 100, .excess_burst = 0});
    EXPECT_EQ(meter.colour(100, Time(1h)), green);
    EXPECT_EQ(meter.colour(1, Time(10000h)), red);
}

}  // namespace
}  // namespace quillon::driver
