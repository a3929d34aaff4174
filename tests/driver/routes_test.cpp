#include "host/driver/model/routes.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <stdint.h>

#include <string>
#include <vector>

namespace quillon::driver {
namespace {

using enum TableStatus;

IpAddress ip(const std::string &text)
{
    const bool is_v6 = text.find(':') != std::string::npos;
    IpAddress address{.version = is_v6 ? IpVersion::v6 : IpVersion::v4, .bytes = {}};
    EXPECT_EQ(inet_pton(is_v6 ? AF_INET6 : AF_INET, text.c_str(), address.bytes.data()), 1) << text;
    return address;
}

IpPrefix prefix(const std::string &network, uint32_t length)
{
    return {.network = ip(network), .length = length};
}

IpAddress numbered(uint32_t number)
{
    const auto byte = [number](int shift) { return static_cast<uint8_t>(number >> shift); };
    return {.version = IpVersion::v4, .bytes = {10, byte(16), byte(8), byte(0)}};
}

struct RoutesTest : testing::Test {
    RoutesTest()
    {
        for (const uint8_t number : {uint8_t{1}, uint8_t{2}}) {
            EXPECT_EQ(interfaces.create(vlans, {.vlan = 1, .mac = {2, 0, 0, 0, 0, number}}).status, done);
        }
    }

    TableStatus set(const IpAddress &address, uint32_t interface = 1)
    {
        return routes.set_neighbour(interfaces, address, {.interface = interface, .mac = {2}, .port = {1, 5}});
    }
    // Neighbours 10.0.0.1 and so on, which have the numbers from 1.
    void set_neighbours(uint32_t count)
    {
        for (uint32_t number = 1; number <= count; ++number) {
            EXPECT_EQ(set(numbered(number)), done);
        }
    }
    TableStatus add(const IpPrefix &network, const std::vector<uint64_t> &next_hops)
    {
        return routes.add_network(network, next_hops);
    }
    size_t paths_of(const IpPrefix &network) const
    {
        const Routes::Networks::Entry *const found = routes.networks().find(network);
        return found == nullptr ? 0 : found->value.paths.size();
    }

    Stack stack{StackShape{.units = 2, .ports = 28, .chips = 2}};
    Vlans vlans{stack};
    L3Interfaces interfaces;
    Routes routes{stack};
};

TEST_F(RoutesTest, FollowTheLongestPrefix)
{
    set_neighbours(6);
    const struct {
        IpPrefix network;
        NextHop next_hop;
    } networks[] = {
        {prefix("0.0.0.0", 0), 1},       {prefix("128.0.0.0", 1), 2},     {prefix("192.168.0.0", 16), 3},
        {prefix("192.168.1.0", 24), 4},  {prefix("192.168.1.6", 31), 5},  {prefix("2001:db8::", 32), 2},
        {prefix("2001:db8::a", 127), 3}, {prefix("2001:db8::b", 128), 4}, {prefix("192.168.1.9", 32), 0},
    };
    for (const auto &row : networks) {
        EXPECT_EQ(add(row.network, {row.next_hop}), done);
    }
    EXPECT_EQ(set(ip("192.168.1.7")), done);  // number 7
    EXPECT_EQ(routes.add_own(ip("192.168.1.1")), done);
    const struct {
        const char *destination;
        uint32_t prefix_length;
        NextHop next_hop;
    } rows[] = {
        {"127.255.255.255", 0, 1},  {"128.0.0.0", 1, 2},     {"192.167.255.255", 1, 2}, {"192.168.0.0", 16, 3},
        {"192.168.255.255", 16, 3}, {"192.168.1.0", 24, 4},  {"192.168.1.255", 24, 4},  {"192.168.1.6", 31, 5},
        {"192.168.1.7", 32, 7},     {"192.168.1.8", 24, 4},  {"192.168.1.9", 32, 0},    {"192.168.1.1", 32, 0},
        {"2001:db8:ffff::", 32, 2}, {"2001:db8::a", 127, 3}, {"2001:db8::b", 128, 4},
    };
    for (const auto &row : rows) {
        const auto match = routes.route(ip(row.destination));
        ASSERT_TRUE(match) << row.destination;
        EXPECT_EQ(match->prefix_length, row.prefix_length) << row.destination;
        EXPECT_EQ(match->next_hop, row.next_hop) << row.destination;
    }
    EXPECT_FALSE(routes.route(ip("2001:db9::"))) << "the default route of IPv4 is none of IPv6";
    EXPECT_EQ(routes.set_special_default(IpVersion::v6, 6), done);
    EXPECT_EQ(routes.route(ip("2001:db9::"))->next_hop, 6U);
    EXPECT_EQ(routes.route(ip("2001:db8::"))->next_hop, 2U);
    EXPECT_TRUE(routes.remove_special_default(IpVersion::v6));
    EXPECT_FALSE(routes.remove_special_default(IpVersion::v6));
    EXPECT_FALSE(routes.route(ip("2001:db9::")));
}

TEST_F(RoutesTest, SpreadFlowsOverAllPaths)
{
    set_neighbours(8);
    const IpPrefix network = prefix("172.16.0.0", 16);
    EXPECT_EQ(add(network, {1, 2, 3, 4, 5, 6, 7, 8}), done);
    std::vector<uint32_t> packets(9);
    for (uint8_t host = 0; host < 80; ++host) {
        IpAddress destination = network.network;
        destination.bytes[3] = host;
        const NextHop next_hop = routes.route(destination)->next_hop;
        EXPECT_EQ(routes.route(destination)->next_hop, next_hop) << "one flow, one path";
        ++packets.at(next_hop);
    }
    EXPECT_EQ(packets, (std::vector<uint32_t>{0, 10, 10, 10, 10, 10, 10, 10, 10}));
}

TEST_F(RoutesTest, RefuseWhatIsNoRoute)
{
    set_neighbours(2);
    EXPECT_EQ(routes.add_own(ip("192.168.1.1")), done);  // number 3
    const struct {
        const char *what;
        TableStatus status;
        TableStatus expected;
    } rows[] = {
        {"host bits", add(prefix("10.0.0.1", 31), {1}), invalid},
        {"more bits than there are", add(prefix("10.0.0.0", 33), {1}), invalid},
        {"more bits than there are", add(prefix("10.0.0.0", UINT32_MAX), {1}), invalid},
        {"more bits than there are", add(prefix("2001:db8::", 129), {1}), invalid},
        {"multicast", add(prefix("224.0.0.0", 4), {1}), invalid},
        {"no next hop", add(prefix("10.0.0.0", 8), {}), invalid},
        {"nine next hops", add(prefix("10.0.0.0", 8), {1, 2, 1, 2, 1, 2, 1, 2, 1}), invalid},
        {"the same twice", add(prefix("10.0.0.0", 8), {1, 2, 1}), invalid},
        {"the CPU among others", add(prefix("10.0.0.0", 8), {1, 0}), invalid},
        {"no such neighbour", add(prefix("10.0.0.0", 8), {1, 4}), unresolved},
        {"the switch itself", add(prefix("10.0.0.0", 8), {3}), unresolved},
        {"more than 32 bits", add(prefix("10.0.0.0", 8), {0x1'0000'0001}), unresolved},
        {"no such next hop", routes.set_special_default(IpVersion::v4, 4), unresolved},
        {"multicast host", set(ip("ff02::1")), invalid},
        {"broadcast host", set(ip("255.255.255.255")), invalid},
        {"no host", set(ip("0.0.0.0")), invalid},
        {"no interface", set(ip("10.1.1.1"), 3), unresolved},
        {"no interface", set(ip("10.1.1.1"), 0), unresolved},
        {"no MAC address", routes.set_neighbour(interfaces, ip("10.1.1.1"), {1, {}, {1, 1}}), invalid},
        {"no port", routes.set_neighbour(interfaces, ip("10.1.1.1"), {1, {2}, {1, 29}}), unresolved},
        {"the switch itself", set(ip("192.168.1.1")), exists},
        {"the switch itself", routes.remove_neighbour(ip("192.168.1.1")), absent},
        {"own, a neighbour's", routes.add_own(ip("10.0.0.1")), exists},
        {"own, a neighbour's", routes.remove_own(ip("10.0.0.1")), absent},
        {"own, twice", routes.add_own(ip("192.168.1.1")), exists},
        {"own, no host", routes.add_own(ip("224.0.0.1")), invalid},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(row.status, row.expected) << row.what;
    }
    EXPECT_EQ(routes.hosts().size(), 3U);
    EXPECT_EQ(routes.networks().size(), 0U);
}

TEST_F(RoutesTest, KeepNeighboursThatRoutesLeadTo)
{
    set_neighbours(2);
    EXPECT_EQ(add(prefix("10.0.0.0", 8), {1}), done);
    EXPECT_EQ(add(prefix("10.0.0.0", 8), {2}), exists);
    EXPECT_EQ(routes.set_special_default(IpVersion::v6, 2), done);
    EXPECT_EQ(routes.remove_neighbour(numbered(1)), in_use);
    EXPECT_EQ(routes.remove_neighbour(numbered(2)), in_use);
    EXPECT_EQ(set(numbered(1), 2), done) << "changed";
    EXPECT_EQ(routes.neighbour(1)->interface, 2U);

    EXPECT_EQ(routes.remove_network(prefix("10.0.0.0", 8), 2), absent) << "another next hop";
    EXPECT_EQ(routes.remove_network(prefix("10.0.0.0", 9), 1), absent);
    EXPECT_EQ(routes.remove_network(prefix("10.0.0.0", 8), 1), done);
    EXPECT_TRUE(routes.remove_special_default(IpVersion::v6));
    EXPECT_EQ(routes.remove_neighbour(numbered(1)), done);
    EXPECT_EQ(routes.remove_neighbour(numbered(1)), absent);
    EXPECT_EQ(routes.remove_neighbour(numbered(2)), done);
}

TEST_F(RoutesTest, LoseWhatLedThroughAnInterface)
{
    EXPECT_EQ(set(numbered(1), 1), done);
    EXPECT_EQ(set(numbered(2), 2), done);
    EXPECT_EQ(add(prefix("10.0.0.0", 8), {1, 2}), done);
    EXPECT_EQ(add(prefix("11.0.0.0", 8), {1}), done);
    EXPECT_EQ(add(prefix("12.0.0.0", 8), {0}), done);
    EXPECT_EQ(routes.set_special_default(IpVersion::v4, 1), done);
    EXPECT_TRUE(routes.uses_interface(1));
    routes.forget_interface(1);
    EXPECT_FALSE(routes.uses_interface(1));
    EXPECT_TRUE(routes.uses_interface(2));
    EXPECT_EQ(routes.route(ip("10.1.1.1"))->next_hop, 2U);
    EXPECT_FALSE(routes.route(ip("11.1.1.1")));
    EXPECT_EQ(paths_of(prefix("12.0.0.0", 8)), 1U);
    EXPECT_EQ(set(numbered(3)), done);
    EXPECT_EQ(routes.hosts().find(numbered(3))->number, 1U) << "the number is free again";
}

TEST_F(RoutesTest, RefuseMoreThanThereIsRoomFor)
{
    set_neighbours(Routes::most_hosts);
    EXPECT_EQ(set(ip("9.9.9.9")), full);
    EXPECT_EQ(routes.add_own(ip("9.9.9.9")), full);
    EXPECT_EQ(set(numbered(1), 2), done) << "a change needs no room";
    EXPECT_EQ(routes.remove_neighbour(numbered(77)), done);
    EXPECT_EQ(routes.add_own(ip("9.9.9.9")), done);
    EXPECT_EQ(routes.hosts().size(), Routes::most_hosts);

    for (uint32_t number = 1; number <= Routes::most_networks; ++number) {
        EXPECT_EQ(add({.network = numbered(number), .length = 32}, {number % 2 + 1}), done);
    }
    EXPECT_EQ(add(prefix("0.0.0.0", 0), {1}), full);
    EXPECT_EQ(routes.add_path(prefix("0.0.0.0", 0), 1, true), full);
    EXPECT_EQ(add({.network = numbered(5), .length = 32}, {1}), exists);
    EXPECT_EQ(routes.remove_network({.network = numbered(5), .length = 32}), done);
    EXPECT_EQ(add(prefix("0.0.0.0", 0), {1}), done);
}

}  // namespace
}  // namespace quillon::driver
