#include "host/driver/model/trunks.h"

#include <gtest/gtest.h>
#include <stdint.h>

namespace quillon::driver {
namespace {

using enum TrunkBalance;

constexpr MacAddress group = {0x01, 0x00, 0x5E, 0x01, 0x02, 0x03};

struct TrunksTest : testing::Test {
    Stack stack{StackShape{.units = 2, .ports = 40, .chips = 2}};
    Vlans vlans{stack};
    Trunks trunks{stack};
};

TEST_F(TrunksTest, AreCreatedAndDestroyedOnce)
{
    for (const uint32_t id : {1U, 128U}) {
        EXPECT_TRUE(trunks.create(id));
        EXPECT_EQ(*trunks.find(id), (Trunk{.balance = both_macs, .members = {}}));
        EXPECT_FALSE(trunks.create(id));
        EXPECT_FALSE(trunks.create(id, source_ip));
        EXPECT_TRUE(trunks.destroy(id));
        EXPECT_EQ(trunks.find(id), nullptr);
        EXPECT_FALSE(trunks.destroy(id));
    }
    for (const uint32_t id : {0U, 129U, UINT32_MAX}) {
        EXPECT_FALSE(trunks.create(id)) << id;
    }
}

TEST_F(TrunksTest, BalanceEachOrAll)
{
    EXPECT_TRUE(trunks.create(1));
    EXPECT_TRUE(trunks.create(2, source_ip));
    EXPECT_EQ(trunks.find(2)->balance, source_ip);
    EXPECT_TRUE(trunks.set_balance(1, source_mac));
    EXPECT_FALSE(trunks.set_balance(3, source_mac));
    EXPECT_EQ(trunks.find(1)->balance, source_mac);
    EXPECT_EQ(trunks.find(2)->balance, source_ip);
    trunks.set_balance_of_all(both_ips);
    EXPECT_TRUE(trunks.create(3));
    for (const uint32_t id : {1U, 2U, 3U}) {
        EXPECT_EQ(trunks.find(id)->balance, both_ips) << id;
    }
}

TEST_F(TrunksTest, HaveMembersInSeveralUnits)
{
    EXPECT_TRUE(trunks.create(1));
    EXPECT_TRUE(trunks.create(2));
    EXPECT_TRUE(trunks.set_members(1, 1, 0x80'0000'0001));
    EXPECT_TRUE(trunks.set_members(1, 2, 0x3F));
    EXPECT_TRUE(trunks.find(1)->members.contains({1, 40}));
    EXPECT_EQ(trunks.find(1)->members.size(), 8U);
    EXPECT_EQ(trunks.trunk_of({2, 6}), trunks.find(1));
    EXPECT_EQ(trunks.trunk_of({2, 7}), nullptr);

    EXPECT_FALSE(trunks.set_members(1, 2, 0x7F)) << "nine members";
    EXPECT_FALSE(trunks.set_members(2, 2, 0x60)) << "port 6 is in the other trunk";
    EXPECT_FALSE(trunks.set_members(2, 1, 0x100'0000'0000)) << "there is no port 41";
    EXPECT_FALSE(trunks.set_members(2, 3, 1));
    EXPECT_FALSE(trunks.set_members(2, 0, 1));
    EXPECT_FALSE(trunks.set_members(3, 1, 1));
    EXPECT_EQ(trunks.find(2)->members, PortSet{});
    EXPECT_EQ(trunks.find(1)->members.size(), 8U);

    EXPECT_TRUE(trunks.set_members(1, 2, 0x1F));
    EXPECT_TRUE(trunks.set_members(2, 2, 0x20));
    EXPECT_TRUE(trunks.destroy(2));
    EXPECT_TRUE(trunks.set_members(1, 2, 0x3F));
}

TEST_F(TrunksTest, KeepMulticastsOfTheirMembers)
{
    EXPECT_TRUE(vlans.create(7));
    EXPECT_TRUE(trunks.create(1));
    EXPECT_TRUE(trunks.set_members(1, 1, 0x3));
    const TrunkMulticast multicast{.mac = group, .vlan = 7, .port = {1, 1}};

    EXPECT_TRUE(trunks.add(vlans, multicast));
    EXPECT_FALSE(trunks.add(vlans, multicast));
    EXPECT_TRUE(trunks.add(vlans, {.mac = group, .vlan = 7, .port = {1, 2}}));
    EXPECT_TRUE(trunks.add(vlans, {.mac = group, .vlan = 1, .port = {1, 1}}));
    EXPECT_FALSE(trunks.add(vlans, {.mac = {0x02}, .vlan = 7, .port = {1, 1}})) << "a unicast address";
    EXPECT_FALSE(trunks.add(vlans, {.mac = group, .vlan = 8, .port = {1, 1}}));
    EXPECT_FALSE(trunks.add(vlans, {.mac = group, .vlan = 7, .port = {1, 3}})) << "in no trunk";
    EXPECT_FALSE(trunks.add(vlans, {.mac = group, .vlan = 7, .port = {1, 41}}));
    EXPECT_FALSE(trunks.add(vlans, {.mac = group, .vlan = 7, .port = {UINT32_MAX, 1}}));
    EXPECT_TRUE(trunks.remove(multicast));
    EXPECT_FALSE(trunks.remove(multicast));

    // What it needs goes: the membership, the VLAN, the trunk.
    EXPECT_TRUE(trunks.set_members(1, 1, 0x1));
    EXPECT_FALSE(trunks.has({.mac = group, .vlan = 7, .port = {1, 2}}));
    EXPECT_TRUE(trunks.add(vlans, multicast));
    trunks.forget_vlan(7);
    EXPECT_FALSE(trunks.has(multicast));
    EXPECT_TRUE(trunks.has({.mac = group, .vlan = 1, .port = {1, 1}}));
    EXPECT_TRUE(trunks.destroy(1));
    EXPECT_FALSE(trunks.has({.mac = group, .vlan = 1, .port = {1, 1}}));
}

TEST_F(TrunksTest, RefuseMoreMulticastsThanThereIsRoomFor)
{
    EXPECT_TRUE(trunks.create(1));
    EXPECT_TRUE(trunks.set_members(1, 1, 0x1));
    TrunkMulticast multicast{.mac = group, .vlan = 1, .port = {1, 1}};
    for (size_t i = 0; i < Trunks::most_multicasts; ++i) {
        multicast.mac[4] = static_cast<uint8_t>(i >> 8);
        multicast.mac[5] = static_cast<uint8_t>(i);
        EXPECT_TRUE(trunks.add(vlans, multicast));
    }
    const TrunkMulticast one_more{.mac = {0x33, 0x33}, .vlan = 1, .port = {1, 1}};
    EXPECT_FALSE(trunks.add(vlans, one_more));
    EXPECT_TRUE(trunks.remove(multicast));
    EXPECT_TRUE(trunks.add(vlans, one_more));
}

}  // namespace
}  // namespace quillon::driver
