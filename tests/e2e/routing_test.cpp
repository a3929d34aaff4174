// Routes that application processes add and remove, and packets that follow them.
#include <gtest/gtest.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "e2e/support/child.h"
#include "e2e/support/control.h"
#include "e2e/support/driver_process.h"
#include "e2e/support/observe.h"
#include "quillon/swdrvl3.h"
#include "support/route_entries.h"

namespace quillon::test {
namespace {

constexpr uint32_t done = 0;
constexpr uint32_t full = 3;

// This process is a client as well. A client looks its run-time folder up once.
const std::string &folder()
{
    static const TestFolder for_this_process;
    static const int set = setenv("QUILLON_RUNTIME_DIR", for_this_process.path().c_str(), 1);
    EXPECT_EQ(set, 0);
    return for_this_process.path();
}

std::string network_of(unsigned number)
{
    return "10." + std::to_string(number / 256) + "." + std::to_string(number % 256) + ".0";
}

struct RoutingTest : testing::Test {
    RoutingTest() { DEV_SWDRVL3_PMGR_InitiateProcessResource(); }

    // What quillon-ctl prints.
    static std::string told(const std::vector<std::string> &words)
    {
        const Ended ended = control(folder(), words);
        EXPECT_EQ(ended.status, 0) << ended.err;
        return ended.out;
    }

    // The next hops that packets to these addresses take, and how many take each; 0 stands for none.
    static std::map<unsigned, unsigned> next_hops_of(const std::vector<std::string> &addresses)
    {
        constexpr size_t most_at_once = 250;
        std::map<unsigned, unsigned> packets;
        for (size_t first = 0; first < addresses.size(); first += most_at_once) {
            std::vector<std::string> words = {"forward", "1"};
            for (size_t i = first; i < addresses.size() && i < first + most_at_once; ++i) {
                words.push_back(addresses[i]);
            }
            const auto lines = lines_of(told(words));
            EXPECT_EQ(lines.size(), words.size() - 2);
            for (const std::string &line : lines) {
                const size_t at = line.find(" next hop ");
                ++packets[at == std::string::npos ? 0 : static_cast<unsigned>(atoi(line.c_str() + at + 10))];
            }
        }
        return packets;
    }

    static uint32_t new_interface()
    {
        const uint8_t mac[6] = {2, 0, 0, 0, 0, 9};
        uint32_t interface = 0;
        EXPECT_EQ(DEV_SWDRVL3_PMGR_CreateL3Interface(1, 0, mac, &interface), done);
        return interface;
    }

    static uint64_t new_neighbour(const std::string &address, uint32_t interface)
    {
        HostRouteEntry entry = host_entry(address, interface, 1, 5);
        EXPECT_EQ(DEV_SWDRVL3_PMGR_SetInetHostRoute(&entry), done);
        return HostInformation(entry).number;
    }

    DriverProcess driver{folder(), {"--log-level=warning"}};
};

// An application process that adds and removes routes through a next hop of its own.
class RouteSetup : public Child {
  public:
    struct Outcome {
        unsigned done;
        unsigned in_the_way;
        unsigned other;
    };

    RouteSetup(unsigned number, unsigned count)
        : Child({QUILLON_ROUTE_SETUP, std::to_string(number), std::to_string(count)},
                {{"QUILLON_RUNTIME_DIR", folder()}}),
          next_hop_(static_cast<unsigned>(atoi(out().line().c_str())))
    {
    }

    unsigned next_hop() const { return next_hop_; }
    Outcome outcome()
    {
        const std::string line = out().line();
        Outcome read{};
        EXPECT_EQ(sscanf(line.c_str(), "%u %u %u", &read.done, &read.in_the_way, &read.other), 3) << line;
        return read;
    }

  private:
    unsigned next_hop_;
};

TEST_F(RoutingTest, IsSharedByTwoProcessesThatWantTheSameThousandRoutes)
{
    constexpr unsigned count = 1000;
    RouteSetup first(1, count);
    RouteSetup second(2, count);
    const auto at_once = [&](const std::string &action) {
        first.write_line(action);
        second.write_line(action);
        return std::pair(first.outcome(), second.outcome());
    };

    const auto [first_added, second_added] = at_once("add");
    EXPECT_EQ(first_added.done + second_added.done, count);
    EXPECT_EQ(first_added.in_the_way, second_added.done);
    EXPECT_EQ(second_added.in_the_way, first_added.done);
    EXPECT_EQ(first_added.other + second_added.other, 0U);
    EXPECT_EQ(told({"routes"}), "hosts 2\nnetworks 1000\n");

    EXPECT_EQ(DEV_SWDRVL3_PMGR_EnableRouting(1, 0), 1);
    std::vector<std::string> addresses;
    for (unsigned network = 0; network < count; ++network) {
        addresses.push_back(network_of(network));
    }
    std::map<unsigned, unsigned> packets = next_hops_of(addresses);
    EXPECT_EQ(packets[first.next_hop()], first_added.done);
    EXPECT_EQ(packets[second.next_hop()], second_added.done);
    EXPECT_EQ(next_hops_of({network_of(count)}), (std::map<unsigned, unsigned>{{0, 1}}));

    const auto [first_removed, second_removed] = at_once("remove");
    EXPECT_EQ(first_removed.done, first_added.done);
    EXPECT_EQ(second_removed.done, second_added.done);
    EXPECT_EQ(first_removed.other + second_removed.other, 0U);
    EXPECT_EQ(told({"routes"}), "hosts 2\nnetworks 0\n");
    EXPECT_EQ(next_hops_of({addresses[0], addresses[count - 1]}), (std::map<unsigned, unsigned>{{0, 2}}));

    for (Child *const process : {static_cast<Child *>(&first), static_cast<Child *>(&second)}) {
        process->close_input();
        EXPECT_EQ(process->out().rest(), "");
        EXPECT_EQ(process->wait(), 0);
    }
    driver.signal(SIGTERM);
    EXPECT_EQ(driver.err().rest(), "") << "nothing was refused as malformed";
}

TEST_F(RoutingTest, RefusesTheRouteThatDoesNotFitIntoTheTable)
{
    constexpr unsigned room = 4096;
    for (unsigned network = 0; network < room; ++network) {
        NetRouteEntry entry = net_entry(network_of(network), 24);
        ASSERT_EQ(DEV_SWDRVL3_PMGR_AddInetNetRoute(&entry, 0), done);
        ASSERT_EQ(NetInformation(entry).number, network + 1);
    }
    NetRouteEntry one_more = net_entry("11.0.0.0", 8);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_AddInetNetRoute(&one_more, 0), full);
    EXPECT_EQ(NetInformation(one_more).installed, 0U);
    EXPECT_EQ(told({"routes"}), "hosts 0\nnetworks 4096\n");

    NetRouteEntry removed = net_entry(network_of(77), 24);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteInetNetRoute(&removed, 0), 1);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_AddInetNetRoute(&one_more, 0), done);
    EXPECT_EQ(NetInformation(one_more).number, 78U);
}

TEST_F(RoutingTest, SpreadsPacketsOverPathsThatComeAndGo)
{
    const uint32_t interface = new_interface();
    std::vector<uint64_t> next_hops;
    std::vector<std::string> flows;
    for (int number = 1; number <= 8; ++number) {
        next_hops.push_back(new_neighbour("192.168.0." + std::to_string(number), interface));
        flows.push_back("2001:db8::" + std::to_string(number));
    }
    EXPECT_EQ(DEV_SWDRVL3_PMGR_EnableIPv6Routing(0, 0), 1);
    NetRouteEntry entry = net_entry("2001:db8::", 32);
    const auto expect_paths = [&](size_t first, size_t end) {
        std::set<uint64_t> expected(next_hops.begin() + static_cast<ptrdiff_t>(first),
                                    next_hops.begin() + static_cast<ptrdiff_t>(end));
        if (expected.empty()) {
            expected = {0};
        }
        std::set<uint64_t> taken;
        for (const auto &[next_hop, packets] : next_hops_of(flows)) {
            taken.insert(next_hop);
        }
        EXPECT_EQ(taken, expected) << first << " to " << end;
    };

    expect_paths(0, 0);
    for (size_t i = 0; i < next_hops.size(); ++i) {
        EXPECT_EQ(DEV_SWDRVL3_PMGR_AddInetECMPRouteOnePath(&entry, next_hops[i], i == 0), done);
        EXPECT_EQ(NetInformation(entry).path_count, i + 1);
        expect_paths(0, i + 1);
    }
    for (size_t i = 0; i < next_hops.size(); ++i) {
        EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteInetECMPRouteOnePath(&entry, next_hops[i], i + 1 == next_hops.size()), 1);
        expect_paths(i + 1, next_hops.size());
    }
    EXPECT_EQ(told({"routes"}), "hosts 8\nnetworks 0\n");
}

TEST_F(RoutingTest, MarksWhatPacketsHit)
{
    HostRouteEntry host = host_entry("10.0.0.1", new_interface(), 2, 7, {2, 0xAB, 0, 0, 0, 1});
    EXPECT_EQ(DEV_SWDRVL3_PMGR_SetInetHostRoute(&host), done);
    EXPECT_EQ(told({"forward", "1", "10.0.0.1"}), "10.0.0.1: not routed\n");
    EXPECT_EQ(DEV_SWDRVL3_PMGR_EnableIPv4Routing(1, 0), 1);
    uint32_t hit = 99;
    EXPECT_EQ(DEV_SWDRVL3_PMGR_ReadAndClearHostRouteEntryHitBit(&host, &hit), 1);
    EXPECT_EQ(hit, 0U);
    EXPECT_EQ(told({"forward", "1", "10.0.0.1", "10.0.0.2", "::1"}),
              "10.0.0.1: 10.0.0.1/32 next hop 1: 02:ab:00:00:00:01 interface 1 unit 2 port 7\n"
              "10.0.0.2: no route\n"
              "::1: not routed\n");
    EXPECT_EQ(DEV_SWDRVL3_PMGR_ReadAndClearHostRouteEntryHitBit(&host, &hit), 1);
    EXPECT_EQ(hit, 1U);

    constexpr uint8_t group[16] = {239, 0, 0, 1};
    constexpr uint8_t source[16] = {10, 0, 0, 9};
    constexpr uint8_t from_anywhere[8] = {};
    McastEntryBlock block{};
    const uint32_t downstream[3] = {1, 3, 1};
    memcpy(block.bytes, downstream, sizeof downstream);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_entry_add(1, 0, group, source, from_anywhere, 1, &block), done);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_port_add(1, 0, group, source, 2, 28), done);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_cpu_port_add(1, 0, group, source), done);
    const std::vector<std::string> packet = {"forward-multicast", "1", "1", "1", "10.0.0.9", "239.0.0.1"};
    EXPECT_EQ(told(packet), "flooded\n");
    EXPECT_EQ(DEV_SWDRVL3_PMGR_ipmc_enable(1, 0, 0), done);
    uint32_t status = 0;
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_entry_stat(1, 0, group, source, &status), 0U);
    EXPECT_EQ(status, 0x00'01'001'5U);
    EXPECT_EQ(told(packet), "bridged unit 2 port 28\nrouted unit 1 port 3 interface 1\ncpu\n");
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_entry_stat(1, 0, group, source, &status), 0U);
    EXPECT_EQ(status, 0x00'01'001'7U);
}

TEST_F(RoutingTest, SaysWhatIsWrongWithAPacket)
{
    const struct {
        std::vector<std::string> words;
        std::string err;
    } rows[] = {
        {{"forward", "3", "10.0.0.1"}, "quillon-ctl: forward: UNIT is a number from 1 to 2, not '3'\n"},
        {{"forward", "1", "10.0.0"}, "quillon-ctl: forward: '10.0.0' is no IP address\n"},
        {{"forward-multicast", "1", "1", "1", "10.0.0.9", "10.0.0.1"},
         "quillon-ctl: forward-multicast: SOURCE is a host and GROUP a multicast group of the same IP version\n"},
        {{"forward-multicast", "1", "1", "1", "::1", "239.0.0.1"},
         "quillon-ctl: forward-multicast: SOURCE is a host and GROUP a multicast group of the same IP version\n"},
        {{"forward-multicast", "1", "1", "4095", "10.0.0.9", "239.0.0.1"},
         "quillon-ctl: forward-multicast: VLAN is a number from 1 to 4094, not '4095'\n"},
    };
    for (const auto &row : rows) {
        const Ended ended = control(folder(), row.words);
        EXPECT_EQ(ended.status, 1);
        EXPECT_EQ(ended.err, row.err);
    }
}

}  // namespace
}  // namespace quillon::test
