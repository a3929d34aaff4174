#include "host/driver/model/ip_multicast.h"

#include <gtest/gtest.h>
#include <stdint.h>

#include <vector>

namespace quillon::driver {
namespace {

using enum TableStatus;

constexpr IpAddress group{.version = IpVersion::v4, .bytes = {239, 1, 1, 1}};
constexpr IpAddress group6{.version = IpVersion::v6, .bytes = {0xFF, 0x0E, 1}};
constexpr IpAddress source{.version = IpVersion::v4, .bytes = {10, 0, 0, 1}};
constexpr IpAddress other_source{.version = IpVersion::v4, .bytes = {10, 0, 0, 2}};
constexpr IpAddress any{.version = IpVersion::v4, .bytes = {}};
constexpr IpAddress any6{.version = IpVersion::v6, .bytes = {}};

constexpr McastFlow from_source{.vlan = 1, .group = group, .source = source};
constexpr McastFlow from_other{.vlan = 1, .group = group, .source = other_source};
constexpr McastFlow from_any{.vlan = 1, .group = group, .source = any};

struct IpMulticastTest : testing::Test {
    IpMulticastTest()
    {
        for (const uint8_t number : {uint8_t{1}, uint8_t{2}}) {
            EXPECT_EQ(interfaces.create(vlans, {.vlan = 1, .mac = {2, 0, 0, 0, 0, number}}).status, done);
        }
        multicast.routes_ipv4 = true;
    }

    TableStatus add(const McastFlow &flow, const std::optional<LogicalPort> &upstream = {},
                    const std::vector<McastCopy> &copies = {})
    {
        return multicast.add(vlans, interfaces, flow, upstream, copies);
    }

    Stack stack{StackShape{.units = 2, .ports = 28, .chips = 2}};
    Vlans vlans{stack};
    L3Interfaces interfaces;
    IpMulticast multicast{stack};
};

TEST_F(IpMulticastTest, PrefersEntriesOfTheSourceAndOfLayer3)
{
    constexpr LogicalPort in{1, 1};
    EXPECT_FALSE(multicast.forward(in, from_source));
    EXPECT_EQ(multicast.add_l2_port(vlans, from_any, {1, 2}), done);
    EXPECT_EQ(multicast.add_l2_port(vlans, from_any, in), done);
    EXPECT_EQ(multicast.forward(in, from_source)->bridged, (PortSet{{1, 2}})) << "not back to where it came from";
    EXPECT_EQ(multicast.add_l2_port(vlans, from_source, {1, 3}), done);
    EXPECT_EQ(multicast.forward(in, from_source)->bridged, (PortSet{{1, 3}}));
    EXPECT_EQ(multicast.forward(in, from_other)->bridged, (PortSet{{1, 2}}));

    EXPECT_EQ(add(from_source, in, {{{2, 1}, 1}}), done);
    EXPECT_EQ(multicast.add_port(from_source, {1, 4}), done);
    EXPECT_EQ(multicast.add_copy(interfaces, from_source, &L3McastEntry::replications, {{2, 1}, 2}), done);
    EXPECT_EQ(multicast.set_to_cpu(from_source, true), done);
    const auto routed = multicast.forward(in, from_source);
    EXPECT_EQ(routed->bridged, (PortSet{{1, 4}}));
    EXPECT_EQ(routed->routed, (std::set<McastCopy>{{{2, 1}, 1}, {{2, 1}, 2}}));
    EXPECT_TRUE(routed->to_cpu);
    EXPECT_TRUE(multicast.l3_entry(from_source)->hit);

    multicast.clear_hit(from_source);
    EXPECT_EQ(multicast.forward({1, 5}, from_source)->bridged, (PortSet{{1, 3}})) << "not from upstream";
    multicast.routes_ipv4 = false;
    EXPECT_EQ(multicast.forward(in, from_source)->bridged, (PortSet{{1, 3}})) << "not switched on";
    EXPECT_FALSE(multicast.l3_entry(from_source)->hit);

    EXPECT_EQ(add({.vlan = 1, .group = group6, .source = any6}), done);
    multicast.routes_ipv6 = true;
    EXPECT_EQ(multicast.forward(in, {.vlan = 1, .group = group6, .source = any6})->routed.size(), 0U);
}

TEST_F(IpMulticastTest, RefusesWhatIsNoEntry)
{
    const McastFlow in_no_vlan{.vlan = 2, .group = group, .source = any};
    EXPECT_EQ(add(from_any), done);
    const auto downstream = &L3McastEntry::downstream;
    EXPECT_EQ(multicast.add_copy(interfaces, from_any, downstream, {{1, 1}, 1}), done);
    const struct {
        const char *what;
        TableStatus status;
        TableStatus expected;
    } rows[] = {
        {"no group", add({.vlan = 1, .group = source, .source = any}), invalid},
        {"no source", add({.vlan = 1, .group = group, .source = group}), invalid},
        {"two versions", add({.vlan = 1, .group = group, .source = any6}), invalid},
        {"the same copy twice", add(from_source, {}, {{{1, 1}, 1}, {{1, 1}, 1}}), invalid},
        {"no VLAN", add(in_no_vlan), unresolved},
        {"no VLAN", multicast.add_l2_port(vlans, in_no_vlan, {1, 1}), unresolved},
        {"no upstream port", add(from_source, LogicalPort{1, 29}), unresolved},
        {"no port of a copy", add(from_source, {}, {{{1, 1}, 1}, {{3, 1}, 1}}), unresolved},
        {"no interface", add(from_source, {}, {{{1, 1}, 3}}), unresolved},
        {"no interface", multicast.add_copy(interfaces, from_any, downstream, {{1, 1}, 0}), unresolved},
        {"no port", multicast.add_port(from_any, {0, 0}), unresolved},
        {"no port", multicast.add_l2_port(vlans, from_any, {1, 29}), unresolved},
        {"there", multicast.add_copy(interfaces, from_any, downstream, {{1, 1}, 1}), exists},
        {"not there", multicast.add_port(from_source, {1, 1}), absent},
        {"not there", multicast.remove_port(from_any, {1, 1}), absent},
        {"not there", multicast.add_copy(interfaces, from_source, downstream, {{1, 1}, 1}), absent},
        {"not there", multicast.set_to_cpu(from_source, true), absent},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(row.status, row.expected) << row.what;
    }
}

TEST_F(IpMulticastTest, RefusesMoreThanThereIsRoomFor)
{
    McastFlow flow = from_any;
    for (uint32_t number = 0; number < IpMulticast::most_entries; ++number) {
        flow.group.bytes[2] = static_cast<uint8_t>(number >> 8);
        flow.group.bytes[3] = static_cast<uint8_t>(number);
        EXPECT_EQ(add(flow), done);
        EXPECT_EQ(multicast.add_l2_port(vlans, flow, {1, 1}), done);
    }
    EXPECT_EQ(add(from_source), full);
    EXPECT_EQ(multicast.add_l2_port(vlans, from_source, {1, 1}), full);
    EXPECT_EQ(multicast.add_l2_port(vlans, flow, {1, 2}), done) << "needs no room";
    EXPECT_EQ(multicast.remove(flow), done);
    EXPECT_EQ(add(from_source), done);

    for (uint32_t number = 0; number < IpMulticast::most_copies; ++number) {
        const McastCopy copy{{1 + number / 28, 1 + number % 28}, 1};
        EXPECT_EQ(multicast.add_copy(interfaces, from_source, &L3McastEntry::downstream, copy), done);
    }
    EXPECT_EQ(multicast.add_copy(interfaces, from_source, &L3McastEntry::downstream, {{1, 1}, 2}), full);
    EXPECT_EQ(multicast.add_copy(interfaces, from_source, &L3McastEntry::replications, {{1, 1}, 2}), done);
}

TEST_F(IpMulticastTest, LosesWhatLedToVlansAndInterfaces)
{
    EXPECT_TRUE(vlans.create(7));
    const McastFlow in_vlan_7{.vlan = 7, .group = group, .source = any};
    EXPECT_EQ(add(from_any, {}, {{{1, 1}, 1}, {{1, 1}, 2}}), done);
    EXPECT_EQ(add(in_vlan_7), done);
    EXPECT_EQ(multicast.add_l2_port(vlans, in_vlan_7, {1, 1}), done);
    multicast.forget_vlan(7);
    EXPECT_EQ(multicast.l3_entry(in_vlan_7), nullptr);
    EXPECT_EQ(multicast.l2_entry(in_vlan_7), nullptr);
    multicast.forget_interface(1);
    EXPECT_EQ(multicast.l3_entry(from_any)->downstream, (std::set<McastCopy>{{{1, 1}, 2}}));
    EXPECT_FALSE(multicast.uses_interface(1));
    EXPECT_TRUE(multicast.uses_interface(2));
}

}  // namespace
}  // namespace quillon::driver
