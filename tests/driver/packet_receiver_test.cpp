#include "host/driver/model/packet_receiver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdint.h>

#include <initializer_list>
#include <set>
#include <vector>

namespace quillon::driver {
namespace {

using nicdrv::NicShMem;
using testing::ElementsAre;

// Four buffers for each cookie: a pool stops at 3 and goes on below 2.
struct PacketReceiverTest : testing::Test {
    PacketReceiverTest() { loans.set_up(4711, receiver.levels()); }

    static ReceivedPacket packet(uint32_t cookie, uint8_t content = 0x11)
    {
        return {.port = {2, 3}, .cookie = cookie, .cpu_code = 37, .bytes = PacketBytes(60, std::byte{content})};
    }

    // What DEV_NICDRV_MREF_MemFree does. True when it sends an event.
    bool give_back(const OfferedPacket &offered)
    {
        EXPECT_TRUE(receiver.give_back(offered.buffer));
        if (offered.cookie == nicdrv::cookie_without_pool) {
            --record.cookie10_held;
            return false;
        }
        --record.cookie_usage.at(offered.cookie).held;
        --record.pool_held.at(offered.cookie);
        --record.total_held;
        return --record.pool_flow_held.at(offered.cookie) < record.pool_resume_level.at(offered.cookie) &&
               record.pool_stopped.at(offered.cookie) != 0;
    }

    std::vector<std::byte> area = std::vector<std::byte>(PacketReceiver::buffer_size * cookies * 4);
    PacketReceiver receiver{area};
    NicShMem record{};
    LoanCounts loans{record};
};

TEST_F(PacketReceiverTest, SetsTheRecordUp)
{
    EXPECT_EQ(record.rx_task_id, 4711U);
    EXPECT_THAT(record.cookie_pool, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9));
    EXPECT_THAT(record.pool_resume_level, testing::Each(2U));
    EXPECT_EQ(record.total_held, 0U);
}

TEST_F(PacketReceiverTest, OffersPacketsInBuffersOfTheirOwn)
{
    for (uint32_t cookie = 0; cookie < cookies; ++cookie) {
        EXPECT_TRUE(receiver.arrive(packet(cookie, static_cast<uint8_t>(cookie)), 2));
    }
    EXPECT_EQ(receiver.waiting(), 2 * cookies);
    EXPECT_TRUE(receiver.take(16).empty());
    receiver.fill(loans);

    EXPECT_EQ(record.total_held, 20U);
    EXPECT_EQ(record.cookie10_held, 2U);
    for (uint32_t pool = 0; pool < nicdrv::pools; ++pool) {
        EXPECT_EQ(record.cookie_usage.at(pool).held, 2U);
        EXPECT_EQ(record.pool_held.at(pool), 2U);
        EXPECT_EQ(record.pool_flow_held.at(pool), 2U);
    }

    std::set<uint32_t> offsets;
    std::vector<OfferedPacket> all = receiver.take(5);
    EXPECT_EQ(all.size(), 5U);
    EXPECT_EQ(receiver.taken(), 5U);
    receiver.offer_again(all);
    EXPECT_EQ(receiver.taken(), 0U);
    all = receiver.take(100);
    ASSERT_EQ(all.size(), 22U);
    EXPECT_EQ(receiver.taken(), 22U);
    for (const OfferedPacket &offered : all) {
        EXPECT_TRUE(offsets.insert(offered.offset).second);
        ASSERT_LE(offered.offset + PacketReceiver::buffer_size, area.size());
        EXPECT_EQ(offered.length, 60U);
        EXPECT_EQ(offered.cpu_code, 37U);
        EXPECT_EQ(offered.port, (LogicalPort{2, 3}));
        EXPECT_EQ(area[offered.offset], std::byte(offered.cookie));
        EXPECT_EQ(area[offered.offset + 59], std::byte(offered.cookie));
        EXPECT_FALSE(give_back(offered));
    }
    EXPECT_EQ(record.total_held, 0U);
    EXPECT_EQ(record.cookie10_held, 0U);
    EXPECT_EQ(receiver.filled_buffers(), 0U);
}

TEST_F(PacketReceiverTest, RefusesWhatIsNotOnLoan)
{
    receiver.arrive(packet(0), 1);
    receiver.fill(loans);
    const OfferedPacket first = receiver.take(1).at(0);
    for (const uint64_t foreign : std::initializer_list<uint64_t>{
             0, first.buffer + 1, first.buffer + PacketReceiver::buffer_size, first.buffer + (1ULL << 32),
             first.buffer - (1ULL << 32), (first.buffer & ~uint64_t{UINT32_MAX}) | area.size(), UINT64_MAX}) {
        EXPECT_FALSE(receiver.give_back(foreign)) << foreign;
    }
    EXPECT_TRUE(receiver.give_back(first.buffer));
    EXPECT_FALSE(receiver.give_back(first.buffer)) << "twice";

    // Also when the same buffer is on loan again.
    receiver.arrive(packet(0), 1);
    receiver.fill(loans);
    const OfferedPacket second = receiver.take(1).at(0);
    ASSERT_EQ(second.offset, first.offset);
    EXPECT_FALSE(receiver.give_back(first.buffer));
    EXPECT_TRUE(receiver.give_back(second.buffer));
    EXPECT_EQ(receiver.refused_frees(), 9U);
    receiver.clear_counts();
    EXPECT_EQ(receiver.refused_frees(), 0U);
}

TEST_F(PacketReceiverTest, StopsAPoolAndGoesOnBelowTheLevel)
{
    receiver.arrive(packet(4), 10);
    receiver.arrive(packet(5), 1);
    receiver.fill(loans);
    EXPECT_EQ(receiver.stopped_pools(), 1U << 4) << "the other pool runs";
    EXPECT_EQ(record.pool_stopped.at(4), 1);
    std::vector<OfferedPacket> held = receiver.take(16);
    ASSERT_EQ(held.size(), 4U);

    EXPECT_FALSE(give_back(held[0])) << "3 to 2";
    receiver.fill(loans);
    EXPECT_TRUE(receiver.take(16).empty());
    EXPECT_FALSE(receiver.starves());
    EXPECT_TRUE(give_back(held[1])) << "2 to 1";
    receiver.fill(loans);
    EXPECT_EQ(receiver.take(16).size(), 2U);
    EXPECT_EQ(receiver.stopped_pools(), 1U << 4);
    EXPECT_EQ(receiver.stops(), 2U);
}

// The count of the record falls, and the buffers are away all the same.
TEST_F(PacketReceiverTest, WaitsForBuffersThatAreHeldAsFragments)
{
    receiver.arrive(packet(0), 5);
    for (int i = 0; i < 4; ++i) {
        record.pool_flow_held.at(0) = 0;
        receiver.fill(loans);
    }
    const auto held = receiver.take(16);
    ASSERT_EQ(held.size(), 4U);
    record.pool_flow_held.at(0) = 0;
    receiver.fill(loans);
    EXPECT_TRUE(receiver.take(16).empty());
    EXPECT_FALSE(receiver.starves());
    EXPECT_TRUE(receiver.give_back(held[0].buffer));
    EXPECT_TRUE(receiver.starves()) << "no event will be sent for a pool that is not stopped";
    receiver.fill(loans);
    EXPECT_EQ(receiver.take(16).size(), 1U);
    EXPECT_FALSE(receiver.starves());
}

TEST_F(PacketReceiverTest, DropsWhatItsQueueHasNoRoomFor)
{
    for (size_t i = 0; i < PacketReceiver::longest_queue; ++i) {
        ASSERT_TRUE(receiver.arrive(packet(7), 1));
    }
    EXPECT_FALSE(receiver.arrive(packet(7), 3));
    EXPECT_TRUE(receiver.arrive(packet(8), 2));
    EXPECT_EQ(receiver.counts(7).packets, PacketReceiver::longest_queue);
    EXPECT_EQ(receiver.counts(7).dropped, 3U);
    EXPECT_EQ(receiver.counts(8).packets, 2U);
    EXPECT_EQ(receiver.counts(8).bytes, 120U);
}

// Whoever dies between two counts, counts in the record of another run or writes nonsense into it harms nothing but the
// counts.
TEST_F(PacketReceiverTest, DoesNotBelieveTheRecord)
{
    record.cookie_pool.fill(0xFFFF);
    for (const uint32_t wrong : {40U, UINT32_MAX - 1}) {
        record.pool_flow_held.at(9) = wrong;
        receiver.arrive(packet(9), 10);
        size_t received = 0;
        for (int turn = 0; turn < 10; ++turn) {
            receiver.fill(loans);
            for (const OfferedPacket &offered : receiver.take(16)) {
                give_back(offered);
                ++received;
            }
        }
        EXPECT_EQ(received, 10U) << wrong;
    }
}

TEST(PacketReceiver, HasNoBuffersWithoutMemory)
{
    PacketReceiver receiver({});
    NicShMem record{};
    LoanCounts loans(record);
    loans.set_up(1, receiver.levels());
    receiver.arrive({.port = {1, 1}, .bytes = PacketBytes(60)}, 1);
    receiver.fill(loans);
    EXPECT_EQ(receiver.waiting(), 1U);
    EXPECT_FALSE(receiver.give_back(0));
}

}  // namespace
}  // namespace quillon::driver
