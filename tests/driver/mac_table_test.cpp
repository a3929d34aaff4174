#include "host/driver/model/mac_table.h"

#include <gtest/gtest.h>
#include <stdint.h>

#include <chrono>
#include <vector>

#include "host/driver/model/mac_walks.h"
#include "host/driver/model/switch.h"

namespace quillon::driver {
namespace {

using namespace std::chrono_literals;

constexpr MacDestination port{LogicalPort{2, 3}};
constexpr MacDestination other_port{LogicalPort{1, 28}};
constexpr MacKey group = {1, {0x01, 0x00, 0x5E, 1, 2, 3}};

MacKey station(uint32_t vlan, uint32_t number)
{
    return {vlan, {0x02, 0, 0, 0, static_cast<uint8_t>(number >> 8), static_cast<uint8_t>(number)}};
}

struct MacTableTest : testing::Test {
    MacTableTest()
    {
        EXPECT_TRUE(model.chips.vlans.create(2));
        EXPECT_TRUE(model.chips.trunks.create(5));
        EXPECT_TRUE(model.chips.trunks.set_members(5, 1, port_bit(7)));
    }

    MacTable &macs() { return model.macs(); }
    bool put(const MacKey &key, const MacDestination &destination = port, MacKind kind = MacKind::set)
    {
        const MacEntry entry{.kind = kind, .destination = destination, .last_seen = now};
        return macs().set(key, entry, model.chips.vlans, model.chips.trunks);
    }
    bool see(const MacKey &key, const LogicalPort &at) { return model.learn(key, at); }
    std::vector<MacKey> keys()
    {
        std::vector<MacKey> all;
        for (const auto &[key, entry] : macs()) {
            all.push_back(key);
        }
        return all;
    }

    Time now{1h};
    Switch model{StackShape{}, [this] { return now; }};
};

TEST_F(MacTableTest, RefusesMoreThanItHolds)
{
    for (uint32_t i = 0; i < MacTable::capacity; ++i) {
        ASSERT_TRUE(i % 2 == 0 ? put(station(1, i)) : see(station(1, i), {1, 1}));
    }
    EXPECT_FALSE(put(station(2, 0)));
    EXPECT_FALSE(see(station(2, 0), {1, 1}));
    EXPECT_FALSE(macs().create_multicast(group, model.chips.vlans));
    EXPECT_EQ(macs().size(), MacTable::capacity);

    EXPECT_TRUE(put(station(1, 0), other_port));
    EXPECT_TRUE(see(station(1, 1), {2, 2}));
    EXPECT_TRUE(macs().remove(station(1, 9)));
    EXPECT_TRUE(see(station(2, 0), {1, 1}));
}

TEST_F(MacTableTest, LetsAnEntryTakeThePlaceOfLearnedOnesAndOfItsOwnKind)
{
    using enum MacKind;
    const struct {
        MacKind there, set;
        bool done;
    } rows[] = {
        {learned, learned, true},       {learned, set, true},           {learned, of_vlan, true},
        {learned, intervention, true},  {set, learned, true},           {set, set, true},
        {set, of_vlan, false},          {of_vlan, learned, false},      {of_vlan, of_vlan, true},
        {of_vlan, intervention, false}, {intervention, of_vlan, false}, {intervention, set, false},
    };
    for (const auto &row : rows) {
        macs().remove_all({});
        ASSERT_TRUE(put(station(1, 1), port, row.there));
        EXPECT_EQ(put(station(1, 1), other_port, row.set), row.done);
        EXPECT_EQ(macs().find(station(1, 1))->kind, row.done ? row.set : row.there);
        EXPECT_EQ(macs().find(station(1, 1))->destination, row.done ? other_port : port);
    }
}

TEST_F(MacTableTest, Learns)
{
    EXPECT_TRUE(see(station(1, 1), {1, 1}));
    EXPECT_TRUE(see(station(2, 1), {1, 1}));
    EXPECT_TRUE(see(station(1, 1), {2, 3}));
    EXPECT_EQ(macs().find(station(1, 1))->destination, port);
    EXPECT_EQ(macs().find(station(2, 1))->destination, MacDestination(LogicalPort{1, 1}));
    EXPECT_TRUE(see(station(1, 2), {1, 7}));
    EXPECT_EQ(macs().find(station(1, 2))->destination, MacDestination(TrunkId{5}));

    EXPECT_TRUE(put(station(1, 3), other_port));
    EXPECT_FALSE(macs().find(station(1, 3))->hit);
    EXPECT_TRUE(see(station(1, 3), {1, 1}));
    EXPECT_EQ(macs().find(station(1, 3))->destination, other_port);
    EXPECT_TRUE(macs().find(station(1, 3))->hit);

    EXPECT_TRUE(put(station(1, 4), Cpu{}, MacKind::of_vlan));
    EXPECT_FALSE(see(station(1, 4), {1, 1}));
    EXPECT_FALSE(see(group, {1, 1}));
    EXPECT_FALSE(see(station(3, 1), {1, 1}));
    EXPECT_FALSE(see(station(1, 5), {1, 29}));
    EXPECT_TRUE(see(station(1, 6), {1, 1}));
    model.chips.learning.find({1, 1})->learns = false;
    EXPECT_FALSE(see(station(1, 5), {1, 1}));
    EXPECT_TRUE(see(station(1, 5), {2, 1}));
    EXPECT_FALSE(see(station(1, 5), {1, 1})) << "it does not move there";
    now += 200s;
    EXPECT_TRUE(see(station(1, 6), {1, 1})) << "it is known, and does not age";
    EXPECT_EQ(macs().find(station(1, 6))->last_seen, now);
}

TEST_F(MacTableTest, ForgetsWhatWasNotSeenForTheAgeingTime)
{
    EXPECT_EQ(macs().ageing_time(), 300s);
    EXPECT_TRUE(put(station(1, 1)));
    EXPECT_TRUE(put(station(1, 2), port, MacKind::learned));
    EXPECT_TRUE(see(station(1, 3), {1, 1}));
    now += 299s;
    EXPECT_TRUE(see(station(1, 3), {1, 1}));
    EXPECT_EQ(macs().size(), 3U);
    now += 1s;
    EXPECT_EQ(keys(), (std::vector{station(1, 1), station(1, 3)}));

    EXPECT_TRUE(macs().set_ageing_time(0s));
    now += 1'000'000s;
    EXPECT_EQ(macs().size(), 2U);
    EXPECT_TRUE(macs().set_ageing_time(1'000'000s));
    now += 1s;
    EXPECT_EQ(keys(), std::vector{station(1, 1)});
    EXPECT_FALSE(macs().set_ageing_time(1'000'001s));
    EXPECT_EQ(macs().ageing_time(), 1'000'000s);
}

TEST_F(MacTableTest, IsWalkedInOneOrderAlsoFromWhatIsGone)
{
    EXPECT_TRUE(put(station(2, 1)));
    EXPECT_TRUE(put(station(1, 0x200)));
    EXPECT_TRUE(put(station(1, 0x1FF)));
    EXPECT_TRUE(macs().create_multicast(group, model.chips.vlans));
    EXPECT_EQ(keys(), (std::vector{group, station(1, 0x1FF), station(1, 0x200), station(2, 1)}));

    EXPECT_EQ(macs().after({})->first, group);
    EXPECT_TRUE(macs().remove(station(1, 0x1FF)));
    EXPECT_EQ(macs().after(station(1, 0x1FF))->first, station(1, 0x200));
    EXPECT_EQ(macs().after(station(2, 1)), macs().end());
}

TEST_F(MacTableTest, GoesWithVlansAndTrunks)
{
    EXPECT_TRUE(put(station(1, 1), TrunkId{5}));
    EXPECT_TRUE(put(station(1, 2)));
    EXPECT_TRUE(put(station(2, 1)));
    EXPECT_FALSE(model.chips.destroy_trunk(6));
    EXPECT_TRUE(model.chips.destroy_trunk(5));
    EXPECT_TRUE(model.chips.destroy_vlan(2));
    EXPECT_EQ(keys(), std::vector{station(1, 2)});
}

TEST(MacWalks, KeepsThoseInUse)
{
    MacWalks walks;
    walks.position(1) = station(1, 1);
    walks.position(2) = station(1, 2);
    for (pid_t client = 3; client <= static_cast<pid_t>(MacWalks::most) + 1; ++client) {
        EXPECT_EQ(walks.position(client), MacKey{});
        EXPECT_EQ(walks.position(1), station(1, 1));
    }
    EXPECT_EQ(walks.position(2), MacKey{});
    walks.restart(1);
    EXPECT_EQ(walks.position(1), MacKey{});
}

}  // namespace
}  // namespace quillon::driver
