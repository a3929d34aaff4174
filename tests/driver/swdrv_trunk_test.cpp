#include <gtest/gtest.h>
#include <stdint.h>

#include <array>
#include <optional>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::PortSet;
using driver::Trunk;
using driver::TrunkBalance;
using driver::Trunks;

constexpr uint8_t group[6] = {0x01, 0x00, 0x5E, 0x01, 0x02, 0x03};

// Of ports 1 to 64.
uint8_t set_members(uint32_t unit, uint32_t id, uint64_t ports)
{
    std::array<uint8_t, 32> bitmap{};
    for (size_t i = 0; i < 8; ++i) {
        bitmap[i] = static_cast<uint8_t>(ports >> 8 * i);
    }
    return DEV_SWDRV_PMGR_SetTrunkPortMembers(unit, id, bitmap.data());
}

uint8_t add(uint32_t vlan, uint32_t unit, uint32_t port)
{
    return DEV_SWDRV_PMGR_AddMulticastAddrToTrunkMember(group, vlan, unit, port);
}

uint8_t remove(uint32_t vlan, uint32_t unit, uint32_t port)
{
    return DEV_SWDRV_PMGR_DeleteMulticastAddrToTrunkMember(group, vlan, unit, port);
}

struct SwdrvTrunkTest : SwdrvClientTest {
    std::optional<Trunk> trunk(uint32_t id)
    {
        const auto access = model.lock();
        const Trunk *const found = access->chips.trunks.find(id);
        return found == nullptr ? std::nullopt : std::optional(*found);
    }
};

TEST_F(SwdrvTrunkTest, AreCreatedAndDestroyedOnce)
{
    for (const uint32_t id : {1U, 128U}) {
        EXPECT_EQ(DEV_SWDRV_PMGR_CreateTrunk(id), 1);
        EXPECT_EQ(trunk(id), (Trunk{.balance = TrunkBalance::both_macs, .members = {}}));
        EXPECT_EQ(DEV_SWDRV_PMGR_CreateTrunk(id), 0);
        EXPECT_EQ(DEV_SWDRV_PMGR_CreateTrunkwithMode(id, 4), 0);
        EXPECT_EQ(DEV_SWDRV_PMGR_DestroyTrunk(id), 1);
        EXPECT_EQ(trunk(id), std::nullopt);
        EXPECT_EQ(DEV_SWDRV_PMGR_DestroyTrunk(id), 0);
    }
    for (const uint32_t id : {0U, 129U, UINT32_MAX}) {
        EXPECT_EQ(DEV_SWDRV_PMGR_CreateTrunk(id), 0) << id;
    }
}

TEST_F(SwdrvTrunkTest, BalanceEachOrAll)
{
    const auto mode = [](uint32_t id) {
        uint8_t value = 0;
        EXPECT_EQ(DEV_SWDRV_PMGR_GetTrunkBalanceModeofLocalUnit(id, &value), 1) << id;
        return value;
    };
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateTrunk(5), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateTrunkwithMode(6, 4), 1);
    EXPECT_EQ(trunk(6)->balance, TrunkBalance::source_ip);
    for (uint8_t taken = 1; taken <= 6; ++taken) {
        EXPECT_EQ(DEV_SWDRV_PMGR_SetTrunkBalanceMode(5, taken), 1);
        EXPECT_EQ(mode(5), taken);
        EXPECT_EQ(mode(6), 4);
    }
    EXPECT_EQ(DEV_SWDRV_PMGR_SetTrunkLoadBalanceMode(2), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateTrunk(7), 1);
    for (const uint32_t id : {5U, 6U, 7U}) {
        EXPECT_EQ(mode(id), 2) << id;
    }
    uint8_t value = 0;
    expect_refused({
        {"mode 0", [] { return DEV_SWDRV_PMGR_CreateTrunkwithMode(8, 0); }},
        {"mode 7", [] { return DEV_SWDRV_PMGR_SetTrunkBalanceMode(5, 7); }},
        {"mode 7 of all", [] { return DEV_SWDRV_PMGR_SetTrunkLoadBalanceMode(7); }},
        {"no trunk", [] { return DEV_SWDRV_PMGR_SetTrunkBalanceMode(8, 1); }},
        {"mode of no trunk", [&] { return DEV_SWDRV_PMGR_GetTrunkBalanceModeofLocalUnit(8, &value); }},
    });
}

TEST_F(SwdrvTrunkTest, HaveMembersInSeveralUnits)
{
    static constexpr uint8_t beyond_port_64[32] = {0x04, 0, 0, 0, 0, 0, 0, 0, 0x01};
    static const PortSet eight = {{1, 1}, {1, 28}, {2, 1}, {2, 2}, {2, 3}, {2, 4}, {2, 5}, {2, 6}};
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateTrunk(1), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateTrunk(2), 1);
    EXPECT_EQ(set_members(1, 1, 0x800'0001), 1);
    EXPECT_EQ(set_members(2, 1, 0x3F), 1);
    expect_refused({
        {"nine members", [] { return set_members(2, 1, 0x7F); }},
        {"port 6 is in the other trunk", [] { return set_members(2, 2, 0x60); }},
        {"port 29", [] { return set_members(1, 2, 0x1000'0000); }},
        {"port 33", [] { return set_members(1, 2, 0x1'0000'0000); }},
        {"port 65", [] { return DEV_SWDRV_PMGR_SetTrunkPortMembers(2, 1, beyond_port_64); }},
        {"unit 3", [] { return set_members(3, 2, 1); }},
        {"unit 0", [] { return set_members(0, 2, 1); }},
        {"no trunk", [] { return set_members(1, 3, 1); }},
    });
    EXPECT_EQ(trunk(1)->members, eight);
    EXPECT_EQ(trunk(2)->members, PortSet{});

    EXPECT_EQ(set_members(2, 1, 0x1F), 1);
    EXPECT_EQ(set_members(2, 2, 0x20), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_DestroyTrunk(2), 1);
    EXPECT_EQ(set_members(2, 1, 0x3F), 1);
}

TEST_F(SwdrvTrunkTest, KeepMulticastsOfTheirMembers)
{
    static constexpr uint8_t station[6] = {0x02, 0x00, 0x5E, 0x01, 0x02, 0x03};
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(7), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateTrunk(1), 1);
    EXPECT_EQ(set_members(2, 1, 0x6), 1);
    expect_checked(DEV_SWDRV_PMGR_AddMulticastAddrToTrunkMember, {group, 7, 2, 3}, {station, 8, UINT32_MAX, 4});
    EXPECT_TRUE(model.lock()->chips.trunks.has({.mac = std::to_array(group), .vlan = 7, .port = {2, 3}}));
    EXPECT_EQ(add(7, 2, 3), 0) << "it is there";
    EXPECT_EQ(add(7, 2, 29), 0) << "no port";
    EXPECT_EQ(remove(1, 2, 3), 0);
    EXPECT_EQ(remove(7, 2, 3), 1);

    // What it needs goes: the membership, the VLAN, the trunk.
    for (const auto &[vlan, port] : {std::pair(7U, 2U), {7, 3}, {1, 3}}) {
        EXPECT_EQ(add(vlan, 2, port), 1);
    }
    EXPECT_EQ(set_members(2, 1, 0x4), 1);
    EXPECT_EQ(remove(7, 2, 2), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_DestroyVlan(7), 1);
    EXPECT_EQ(remove(7, 2, 3), 0);
    EXPECT_EQ(remove(1, 2, 3), 1);
    EXPECT_EQ(add(1, 2, 3), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_DestroyTrunk(1), 1);
    EXPECT_EQ(remove(1, 2, 3), 0);
}

TEST_F(SwdrvTrunkTest, RefuseMoreMulticastsThanThereIsRoomFor)
{
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateTrunk(1), 1);
    EXPECT_EQ(set_members(1, 1, 0x1), 1);
    const auto access = model.lock();
    Trunks &trunks = access->chips.trunks;
    driver::TrunkMulticast multicast{.mac = std::to_array(group), .vlan = 1, .port = {1, 1}};
    for (size_t i = 0; i < Trunks::most_multicasts; ++i) {
        multicast.mac[4] = static_cast<uint8_t>(i >> 8);
        multicast.mac[5] = static_cast<uint8_t>(i);
        EXPECT_TRUE(trunks.add(access->chips.vlans, multicast));
    }
    const driver::TrunkMulticast one_more{.mac = {0x33, 0x33}, .vlan = 1, .port = {1, 1}};
    EXPECT_FALSE(trunks.add(access->chips.vlans, one_more));
    EXPECT_TRUE(trunks.remove(multicast));
    EXPECT_TRUE(trunks.add(access->chips.vlans, one_more));
}

}  // namespace
}  // namespace quillon::test
