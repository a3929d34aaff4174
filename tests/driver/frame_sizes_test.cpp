#include "host/driver/model/frame_sizes.h"

#include <gtest/gtest.h>
#include <stdint.h>

#include <optional>

namespace quillon::driver {
namespace {

constexpr LogicalPort port{1, 2};

TEST(FrameSizes, FollowFromTheSmallestMtu)
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
    for (const auto &row : rows) {
        FrameSizes sizes(Stack(StackShape{}));
        EXPECT_TRUE(sizes.set_system_mtu(row.standard, row.jumbo));
        EXPECT_TRUE(sizes.set_port_mtu(port, row.own));
        EXPECT_TRUE(sizes.set_tunnel_mtu(row.tunnel_mtu));
        sizes.set_jumbo_frames(row.jumbo_frames);
        EXPECT_EQ(sizes.largest(port, row.is_tunnel), row.largest) << row.what;
    }
}

TEST(FrameSizes, RefuseWhatIsNoMtuAndNoPort)
{
    FrameSizes sizes(Stack(StackShape{}));
    for (const uint32_t mtu : {0U, 67U, 9217U, UINT32_MAX}) {
        EXPECT_FALSE(sizes.set_system_mtu(mtu, 9000)) << mtu;
        EXPECT_FALSE(sizes.set_system_mtu(1500, mtu)) << mtu;
        EXPECT_FALSE(sizes.set_tunnel_mtu(mtu)) << mtu;
        EXPECT_FALSE(sizes.set_port_mtu(port, mtu)) << mtu;
    }
    EXPECT_FALSE(sizes.set_system_mtu(1500, 1499));
    EXPECT_FALSE(sizes.set_port_mtu({1, 29}, 1500));
    EXPECT_EQ(sizes.largest({3, 1}, false), std::nullopt);

    EXPECT_EQ(sizes.largest(port, false), (FrameSize{1518, 1522}));
    EXPECT_EQ(sizes.largest(port, true), (FrameSize{1522, 1530}));
    sizes.set_jumbo_frames(true);
    EXPECT_EQ(sizes.largest(port, false), (FrameSize{9234, 9238}));
}

}  // namespace
}  // namespace quillon::driver
