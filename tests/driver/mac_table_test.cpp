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
        return put(key, {.kind = kind, .destination = destination, .last_seen = now});
    }
    bool put(const MacKey &key, const MacEntry &entry, std::optional<uint32_t> chip = {})
    {
        return macs().set(key, entry, model.chips.vlans, model.chips.trunks, chip);
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

TEST_F(MacTableTest, RefusesWhatDoesNotExist)
{
    const struct {
        const char *what;
        MacKey key;
        MacEntry entry;
        std::optional<uint32_t> chip;
    } rows[] = {
        {"no VLAN", station(3, 1), {.destination = port}, {}},
        {"a multicast address", group, {.destination = port}, {}},
        {"no unit", station(1, 1), {.destination = LogicalPort{3, 1}}, {}},
        {"no port", station(1, 1), {.destination = LogicalPort{1, 29}}, {}},
        {"no trunk", station(1, 1), {.destination = TrunkId{6}}, {}},
        {"members", station(1, 1), {.destination = MulticastMembers{}}, {}},
        {"no priority", station(1, 1), {.destination = port, .treatment = {.cpu_priority = 8}}, {}},
        {"no chip", station(1, 1), {.destination = port}, 2},
    };
    for (const auto &row : rows) {
        EXPECT_FALSE(put(row.key, row.entry, row.chip)) << row.what;
    }
    EXPECT_EQ(macs().size(), 0U);
}

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
    model.chips.learning.find({1, 1})->learns = false;
    EXPECT_FALSE(see(station(1, 5), {1, 1}));
    EXPECT_TRUE(see(station(1, 5), {2, 1}));
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
    EXPECT_FALSE(macs().set_ageing_time(9s));
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

TEST_F(MacTableTest, RemovesBySelection)
{
    const struct {
        const char *what;
        MacSelection selection;
        std::vector<MacKey> left;
    } rows[] = {
        {"all", {}, {}},
        {"learned", {.only_learned = true}, {group, station(1, 1), station(1, 4), station(2, 1)}},
        {"at a port", {.destination = port}, {group, station(1, 3), station(1, 4), station(2, 3)}},
        {"learned at a port",
         {.only_learned = true, .destination = port},
         {group, station(1, 1), station(1, 3), station(1, 4), station(2, 1), station(2, 3)}},
        {"learned in a VLAN",
         {.only_learned = true, .vlan = 2},
         {group, station(1, 1), station(1, 2), station(1, 3), station(1, 4), station(2, 1)}},
        {"at a trunk",
         {.destination = TrunkId{5}},
         {group, station(1, 1), station(1, 2), station(1, 4), station(2, 1), station(2, 2), station(2, 3)}},
        {"learned at a port in a VLAN",
         {.only_learned = true, .destination = port, .vlan = 2},
         {group, station(1, 1), station(1, 2), station(1, 3), station(1, 4), station(2, 1), station(2, 3)}},
    };
    for (const auto &row : rows) {
        EXPECT_TRUE(macs().find(group) != nullptr || macs().create_multicast(group, model.chips.vlans));
        EXPECT_TRUE(put(station(1, 1)));
        EXPECT_TRUE(put(station(1, 2), port, MacKind::learned));
        EXPECT_TRUE(put(station(1, 3), TrunkId{5}, MacKind::learned));
        EXPECT_TRUE(put(station(1, 4), Cpu{}, MacKind::of_vlan));
        EXPECT_TRUE(put(station(2, 1)));
        EXPECT_TRUE(put(station(2, 2), port, MacKind::learned));
        EXPECT_TRUE(put(station(2, 3), other_port, MacKind::learned));
        macs().remove_all(row.selection);
        EXPECT_EQ(keys(), row.left) << row.what;
    }
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

TEST_F(MacTableTest, HasMulticastAddressesWithMembers)
{
    const auto members = [this](const MacKey &key) {
        return std::get<MulticastMembers>(macs().find(key)->destination).tagged;
    };
    using Tagged = std::map<LogicalPort, bool>;
    EXPECT_FALSE(macs().add_member(group, {1, 1}, true));
    EXPECT_TRUE(macs().create_multicast(group, model.chips.vlans));
    EXPECT_FALSE(macs().create_multicast(group, model.chips.vlans));
    EXPECT_FALSE(macs().create_multicast(station(1, 1), model.chips.vlans));
    EXPECT_FALSE(macs().create_multicast({3, group.mac}, model.chips.vlans));
    EXPECT_TRUE(macs().add_member(group, {1, 1}, true));
    EXPECT_TRUE(macs().add_member(group, {2, 4}, true));
    EXPECT_FALSE(macs().add_member(group, {1, 29}, true));
    EXPECT_TRUE(macs().set_members(group, 1, 0b110, 0b100));
    EXPECT_FALSE(macs().set_members(group, 1, 0b110, 0b001));
    EXPECT_FALSE(macs().set_members(group, 1, PortMask{1} << 28, 0));
    EXPECT_FALSE(macs().set_members(group, 3, 0b1, 0));
    EXPECT_EQ(members(group), (Tagged{{{1, 2}, false}, {{1, 3}, true}, {{2, 4}, true}}));
    EXPECT_TRUE(macs().remove_member(group, {1, 3}));
    EXPECT_FALSE(macs().remove_member(group, {1, 3}));
    EXPECT_EQ(members(group), (Tagged{{{1, 2}, false}, {{2, 4}, true}}));
    EXPECT_FALSE(macs().remove(group));
    EXPECT_TRUE(macs().remove(group, MacKind::multicast));

    EXPECT_TRUE(macs().set_internal_multicast(model.chips.vlans));
    EXPECT_TRUE(macs().set_internal_multicast(model.chips.vlans));
    EXPECT_EQ(members({1, MacTable::internal_multicast}).size(), 56U);
}

TEST_F(MacTableTest, StandsInEachChip)
{
    const auto chips = [this] { return macs().find(station(1, 1))->chips.to_ulong(); };
    EXPECT_TRUE(put(station(1, 1), {.destination = port}, 1));
    EXPECT_EQ(chips(), 0b10U);
    EXPECT_TRUE(put(station(1, 1), {.destination = port}, 0));
    EXPECT_EQ(chips(), 0b11U);
    EXPECT_TRUE(macs().remove_from_chip(station(1, 1), 1));
    EXPECT_FALSE(macs().remove_from_chip(station(1, 1), 1));
    EXPECT_FALSE(macs().remove_from_chip(station(1, 1), 2));
    EXPECT_TRUE(see(station(1, 1), {1, 1}));
    EXPECT_EQ(chips(), 0b11U);
    EXPECT_TRUE(macs().remove_from_chip(station(1, 1), 0));
    EXPECT_TRUE(macs().remove_from_chip(station(1, 1), 1));
    EXPECT_EQ(macs().find(station(1, 1)), nullptr);
}

TEST_F(MacTableTest, TellsWhereAnAddressWasSeenOnce)
{
    const auto hit = [this](const MacKey &key, uint32_t unit, PortMask ports, bool clear) {
        return macs().hit(key, unit, ports, model.chips.trunks, clear);
    };
    EXPECT_TRUE(see(station(1, 1), {2, 3}));
    EXPECT_TRUE(see(station(1, 2), {1, 7}));
    EXPECT_TRUE(put(station(1, 3), port));
    EXPECT_EQ(hit(station(1, 1), 1, ~PortMask{0}, true), false);
    EXPECT_EQ(hit(station(1, 1), 2, ~port_bit(3), true), false);
    EXPECT_EQ(hit(station(1, 1), 2, port_bit(3), false), true);
    EXPECT_EQ(hit(station(1, 1), 2, port_bit(3), true), true);
    EXPECT_EQ(hit(station(1, 1), 2, port_bit(3), true), false);
    EXPECT_TRUE(see(station(1, 1), {2, 3}));
    EXPECT_EQ(hit(station(1, 1), 2, port_bit(3), true), true);
    EXPECT_EQ(hit(station(1, 2), 1, port_bit(7), false), true);
    EXPECT_EQ(hit(station(1, 2), 1, port_bit(8), false), false);
    EXPECT_EQ(hit(station(1, 3), 2, port_bit(3), false), false);
    EXPECT_EQ(hit(station(1, 4), 2, port_bit(3), false), std::nullopt);
    EXPECT_EQ(hit(station(1, 1), 3, port_bit(3), false), std::nullopt);
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
