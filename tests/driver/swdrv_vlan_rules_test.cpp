#include <gtest/gtest.h>
#include <stdint.h>

#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::ChipState;
using driver::VlanAssignment;

constexpr uint32_t vlan = 7;
constexpr uint32_t port = 2 << 16 | 3;

struct SwdrvVlanRulesTest : SwdrvClientTest {
    SwdrvVlanRulesTest() { EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(vlan), 1); }
};

using Mac = std::array<uint8_t, 6>;

TEST_F(SwdrvVlanRulesTest, PutsAddressesInVlans)
{
    static constexpr Mac mac = {2, 0, 0, 0, 0, 1};
    static constexpr Mac multicast = {1, 0, 0, 0, 0, 1};
    static constexpr Mac none = {};
    static constexpr uint32_t net = 0xC0A80100;
    static constexpr uint32_t mask = 0xFFFFFF00;
    const auto assignment = [](const VlanAssignment *found) { return found ? std::optional(*found) : std::nullopt; };
    const auto of_mac = [&] { return assignment(model.lock()->chips.vlan_rules.macs.find(mac)); };
    const auto of_net = [&] { return assignment(model.lock()->chips.vlan_rules.subnets.find({net, mask})); };
    expect_checked(DEV_SWDRV_PMGR_SetMacVlanEntry, {mac.data(), vlan, 3}, {multicast.data(), 8, 8});
    EXPECT_EQ(of_mac(), (VlanAssignment{vlan, 3}));
    expect_checked(DEV_SWDRV_PMGR_SetMacVlanEntry, {mac.data(), 1, 7}, {none.data(), 8, 8});
    EXPECT_EQ(of_mac(), (VlanAssignment{1, 7}));
    EXPECT_EQ(DEV_SWDRV_PMGR_DeleteMacVlanEntry(mac.data()), 1);
    EXPECT_EQ(of_mac(), std::nullopt);
    EXPECT_EQ(DEV_SWDRV_PMGR_DeleteMacVlanEntry(mac.data()), 0);

    expect_checked(DEV_SWDRV_PMGR_SetIpSubnetVlanEntry, {net, mask, vlan, 0}, {net + 1, 0xFF00FF00, 8, 8});
    EXPECT_EQ(of_net(), (VlanAssignment{vlan, 0}));
    EXPECT_EQ(DEV_SWDRV_PMGR_DeleteIpSubnetVlanEntry(net, mask), 1);
    EXPECT_EQ(of_net(), std::nullopt);
    EXPECT_EQ(DEV_SWDRV_PMGR_DeleteIpSubnetVlanEntry(net, mask), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetIpSubnetVlanEntry(0x0A000001, UINT32_MAX, vlan, 0), 1) << "one host";
    EXPECT_EQ(DEV_SWDRV_PMGR_SetIpSubnetVlanEntry(0, 0, vlan, 0), 0) << "everything";
}

TEST_F(SwdrvVlanRulesTest, HaveRoomForSoMany)
{
    uint16_t macs = 0;
    for (; macs < 2000; ++macs) {
        const Mac mac = {2, 0, 0, 0, static_cast<uint8_t>(macs >> 8), static_cast<uint8_t>(macs)};
        if (DEV_SWDRV_PMGR_SetMacVlanEntry(mac.data(), vlan, 0) != 1) {
            break;
        }
    }
    EXPECT_EQ(macs, 1024);
    uint32_t subnets = 0;
    while (subnets < 2000 && DEV_SWDRV_PMGR_SetIpSubnetVlanEntry(subnets << 8, 0xFFFFFF00, vlan, 0) == 1) {
        ++subnets;
    }
    EXPECT_EQ(subnets, 256U);
    // What is there can be changed nevertheless.
    EXPECT_EQ(DEV_SWDRV_PMGR_SetIpSubnetVlanEntry(0, 0xFFFFFF00, 1, 0), 1);
}

TEST_F(SwdrvVlanRulesTest, PutsProtocolsInVlans)
{
    // IPv4 and ARP in Ethernet frames, NetBIOS behind LLC.
    static constexpr uint8_t protocols[] = {1, 0x08, 0x00, 0, 0, 1, 0x08, 0x06, 0, 0, 5, 0xF0, 0xF0, 0, 0};
    static constexpr uint8_t unknown_type[15] = {4};
    static constexpr ProtocolGroupKey key = {{1, 2, 3}};
    static constexpr ProtocolGroupKey other_key = {{1, 2, 4}};
    const auto remove = [&](uint32_t group, uint32_t count, const ProtocolGroupKey &named) {
        return DEV_SWDRV_PMGR_DelDot1vProtocolPortEntry(2, 3, group, vlan, count, &named, protocols);
    };
    expect_checked(DEV_SWDRV_PMGR_AddDot1vProtocolPortEntry, {2, 3, 128, vlan, 3, &key, 5, protocols},
                   {3, 29, 129, 8, 0, &key, 8, unknown_type});
    EXPECT_EQ(DEV_SWDRV_PMGR_AddDot1vProtocolPortEntry(2, 3, 0, vlan, 3, &key, 5, protocols), 0) << "no group";
    {
        const auto access = model.lock();
        const auto *const entry = access->chips.vlan_rules.protocols.find({{2, 3}, 128});
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(entry->vlan, vlan);
        EXPECT_EQ(entry->priority, 5U);
        ASSERT_EQ(entry->protocols.size(), 3U);
        EXPECT_EQ(entry->protocols[2], (driver::ProtocolVlan::Protocol{5, 0xF0, 0xF0, 0, 0}));
    }
    EXPECT_EQ(remove(127, 3, key), 0);
    EXPECT_EQ(remove(128, 2, key), 0);
    EXPECT_EQ(remove(128, 3, other_key), 0);
    EXPECT_EQ(remove(128, 3, key), 1);
    EXPECT_EQ(remove(128, 3, key), 0);

    const ProtocolTemplate arp = {{1, 0x08, 0x06, 0, 0}};
    const ProtocolTemplate nothing = {};
    expect_kept(DEV_SWDRV_PMGR_SetDot1vProtocolGroupEntry, {255, &arp, 128}, {256, &nothing, 129},
                driver::Setting::protocol_group_entry, {255}, {128, 1, 8, 6});
    expect_kept(DEV_SWDRV_PMGR_SetDot1vProtocolGroupEntry, {255, &nothing, 0}, {256, &nothing, 1},
                driver::Setting::protocol_group_entry, {255}, {0, 0, 0, 0});
}

TEST_F(SwdrvVlanRulesTest, TrunksVlans)
{
    std::array<uint8_t, 512> list = {};
    list[vlan / 8] |= 1 << vlan % 8;
    list[0] |= 1 << 1;
    const auto trunks = [](uint32_t id) {
        return [id](const ChipState &chips) {
            const auto found = chips.vlan_rules.trunked.find(id);
            return found != chips.vlan_rules.trunked.end() && found->second.contains({2, 3});
        };
    };
    expect_changes({
        {"by VLAN", [] { return DEV_SWDRV_PMGR_SetPortVlanTunkingByVLAN(port, 1, vlan); }, trunks(vlan)},
        {"by VLAN, ended", [] { return DEV_SWDRV_PMGR_SetPortVlanTunkingByVLAN(port, 0, vlan); },
         std::not_fn(trunks(vlan))},
        {"by list", [&] { return DEV_SWDRV_PMGR_SetPortVlanTunkingByVlanList(&port, 1, list.data()); },
         [=](const ChipState &chips) { return trunks(vlan)(chips) && trunks(1)(chips); }},
        {"created", [] { return DEV_SWDRV_PMGR_CreateVlanForVlanTrunking(4094, &port); }, trunks(4094)},
        {"destroyed", [] { return DEV_SWDRV_PMGR_DestroyVlan(4094); }, std::not_fn(trunks(4094))},
        {"none", DEV_SWDRV_PMGR_SetDefaultVlanTrunking, std::not_fn(trunks(vlan))},
    });
    static constexpr uint32_t no_port = 2 << 16 | 29;
    std::array<uint8_t, 512> too_many = list;
    too_many[511] = 0x80;
    expect_refused({
        {"a VLAN of the list", [&] { return DEV_SWDRV_PMGR_SetPortVlanTunkingByVlanList(&port, 1, too_many.data()); }},
        {"VLAN that is there", [] { return DEV_SWDRV_PMGR_CreateVlanForVlanTrunking(vlan, &port); }},
        {"VLAN id", [] { return DEV_SWDRV_PMGR_CreateVlanForVlanTrunking(4095, &port); }},
        {"port of a VLAN", [] { return DEV_SWDRV_PMGR_CreateVlanForVlanTrunking(9, &no_port); }},
    });
    EXPECT_FALSE(trunks(vlan)(model.lock()->chips)) << "a list is taken whole or not at all";
    expect_checked(DEV_SWDRV_PMGR_SetPortVlanTunkingByVLAN, {port, 1, vlan}, {no_port, 2, 8});
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(9), 1) << "what was refused created nothing";
}

TEST_F(SwdrvVlanRulesTest, SetsTags)
{
    expect_kept(DEV_SWDRV_PMGR_SetCopyInnerPri2OuterPri, {2, 3, 1}, {3, 29, 2}, driver::Setting::copy_inner_priority,
                {2, 3}, {1});
    expect_checked(DEV_SWDRV_PMGR_SetRspanVlanTag, {6, vlan, 0x88A8}, {8, 8, 0x5FF});
    EXPECT_EQ(model.lock()->chips.vlan_rules.rspan_tag, (driver::RspanTag{{vlan, 6}, 0x88A8}));
}

TEST_F(SwdrvVlanRulesTest, GoWithTheirVlan)
{
    static constexpr Mac mac = {2, 0, 0, 0, 0, 1};
    static constexpr uint8_t protocol[] = {1, 0x08, 0x00, 0, 0};
    static constexpr ProtocolGroupKey key = {};
    EXPECT_EQ(DEV_SWDRV_PMGR_SetMacVlanEntry(mac.data(), vlan, 0), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetIpSubnetVlanEntry(0x0A000000, 0xFF000000, vlan, 0), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_AddDot1vProtocolPortEntry(2, 3, 1, vlan, 1, &key, 0, protocol), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetRspanVlanTag(0, vlan, 0x8100), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_DestroyVlan(vlan), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(vlan), 1);
    EXPECT_EQ(model.lock()->chips.vlan_rules.rspan_tag, std::nullopt);
    expect_refused({
        {"MAC", [] { return DEV_SWDRV_PMGR_DeleteMacVlanEntry(mac.data()); }},
        {"subnet", [] { return DEV_SWDRV_PMGR_DeleteIpSubnetVlanEntry(0x0A000000, 0xFF000000); }},
        {"protocol", [] { return DEV_SWDRV_PMGR_DelDot1vProtocolPortEntry(2, 3, 1, vlan, 1, &key, protocol); }},
    });
}

}  // namespace
}  // namespace quillon::test
