#include "host/driver/model/packet_generators.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

namespace quillon::driver {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr Time begin{std::chrono::hours(1)};

struct PacketGeneratorsTest : testing::Test {
    std::vector<PacketGenerators::Packet> due(Time now)
    {
        std::vector<PacketGenerators::Packet> packets;
        while (const auto packet = generators.take_due(now)) {
            packets.push_back(packet);
        }
        return packets;
    }

    PacketGenerators generators;
    PacketGenerators::Packet first = std::make_shared<const SentPacket>();
    PacketGenerators::Packet second = std::make_shared<const SentPacket>();
};

TEST_F(PacketGeneratorsTest, SendTheirPacketsInTurnAtTheirRate)
{
    EXPECT_EQ(generators.add(1, first), 1U);
    EXPECT_EQ(generators.add(1, second), 2U);
    EXPECT_EQ(generators.set_rate(1, 1000, begin), 1000U);
    EXPECT_EQ(generators.next_due(), std::nullopt);
    EXPECT_TRUE(generators.start(1, std::nullopt, begin));
    EXPECT_EQ(generators.next_due(), begin);

    EXPECT_THAT(due(begin + milliseconds(2)), ElementsAre(first, second, first));
    EXPECT_THAT(due(begin + milliseconds(2)), IsEmpty());
    EXPECT_EQ(generators.next_due(), begin + milliseconds(3));
    EXPECT_THAT(due(begin + milliseconds(4)), ElementsAre(second, first));
    EXPECT_EQ(generators.set_rate(1, 500, begin + milliseconds(4)), 500U);
    EXPECT_THAT(due(begin + milliseconds(24)), SizeIs(10));
    EXPECT_EQ(generators.generator(1).sent, 15U);

    EXPECT_TRUE(generators.update(1, 1, second));
    EXPECT_TRUE(generators.remove(1, 2));
    EXPECT_THAT(due(begin + milliseconds(28)), ElementsAre(second, second));
    EXPECT_EQ(generators.add(1, first), 2U);
    EXPECT_EQ(generators.take_due(begin + milliseconds(50)), first);
    EXPECT_TRUE(generators.stop(1));
    EXPECT_EQ(generators.take_due(begin + milliseconds(50)), nullptr) << "though more was due";
}

TEST_F(PacketGeneratorsTest, StopAfterTheirNumberAndWithTheirLastEntry)
{
    generators.add(0, first);
    generators.set_rate(0, 100, begin);
    EXPECT_TRUE(generators.start(0, 3, begin));
    EXPECT_THAT(due(begin + milliseconds(90)), SizeIs(3));
    EXPECT_EQ(generators.next_due(), std::nullopt);

    EXPECT_TRUE(generators.start(0, std::nullopt, begin));
    EXPECT_TRUE(generators.remove(0, 1));
    EXPECT_EQ(generators.next_due(), std::nullopt);
    EXPECT_FALSE(generators.start(0, std::nullopt, begin));
}

TEST_F(PacketGeneratorsTest, DoNotMakeUpForALongBreak)
{
    generators.add(0, first);
    generators.set_rate(0, 1000, begin);
    generators.start(0, std::nullopt, begin);
    EXPECT_THAT(due(begin + std::chrono::hours(1)), SizeIs(101));
}

// One that was slow does not stay so until its next packet.
TEST_F(PacketGeneratorsTest, TakeANewRateAtOnce)
{
    generators.add(0, first);
    generators.start(0, std::nullopt, begin);
    due(begin);
    EXPECT_EQ(generators.next_due(), begin + milliseconds(1000));
    EXPECT_EQ(generators.set_rate(0, 200'000, begin), PacketGenerators::most_rate);
    EXPECT_EQ(generators.next_due(), begin + std::chrono::microseconds(10));
}

TEST_F(PacketGeneratorsTest, RefuseWhatIsNotThere)
{
    EXPECT_EQ(generators.add(PacketGenerators::count, first), std::nullopt);
    EXPECT_FALSE(generators.start(0, std::nullopt, begin)) << "without entries";
    EXPECT_EQ(generators.add(0, first), 1U);
    EXPECT_FALSE(generators.start(0, 0, begin)) << "for no packets";
    EXPECT_FALSE(generators.start(PacketGenerators::count, 1, begin));
    EXPECT_FALSE(generators.stop(PacketGenerators::count));
    EXPECT_EQ(generators.set_rate(0, 0, begin), std::nullopt);
    EXPECT_EQ(generators.set_rate(PacketGenerators::count, 1, begin), std::nullopt);
    EXPECT_FALSE(generators.update(0, 2, first));
    EXPECT_FALSE(generators.update(1, 1, first));
    EXPECT_FALSE(generators.remove(0, 2));
    for (uint32_t entry = 2; entry <= PacketGenerators::most_entries; ++entry) {
        EXPECT_EQ(generators.add(0, first), entry);
    }
    EXPECT_EQ(generators.add(0, first), std::nullopt);
}

}  // namespace
}  // namespace quillon::driver
