// Routes that application processes add and remove, and packets that follow them.
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <array>
#include <map>
#include <string>
#include <vector>

#include "e2e/support/client_test.h"
#include "support/route_entries.h"

namespace quillon::test {
namespace {

constexpr uint32_t ok = 0;
constexpr uint32_t exists = 1;
constexpr unsigned networks = 1000;

std::string network_of(unsigned number)
{
    return "10." + std::to_string(number / 256) + "." + std::to_string(number % 256) + ".0";
}

// Of a process that adds, or removes, all networks through a next hop of its own.
struct Outcome {
    unsigned done = 0;
    unsigned in_the_way = 0;  // of another process's, or not there
    unsigned other = 0;

    void add(uint64_t next_hop)
    {
        for (unsigned network = 0; network < networks; ++network) {
            NetRouteEntry entry = net_entry(network_of(network), 24);
            const uint32_t status = DEV_SWDRVL3_PMGR_AddInetNetRoute(&entry, next_hop);
            ++(status == ok ? done : status == exists ? in_the_way : other);
        }
    }

    void remove(uint64_t next_hop)
    {
        for (unsigned network = 0; network < networks; ++network) {
            NetRouteEntry entry = net_entry(network_of(network), 24);
            const uint8_t removed = DEV_SWDRVL3_PMGR_DeleteInetNetRoute(&entry, next_hop);
            ++(removed == 1 ? done : removed == 0 ? in_the_way : other);
        }
    }
};

struct RoutingTest : ClientTest {
    // The next hops that packets to these networks take, and how many take each; 0 stands for none.
    static std::map<uint64_t, unsigned> next_hops_of(unsigned first, unsigned end)
    {
        constexpr unsigned most_at_once = 250;
        std::map<uint64_t, unsigned> packets;
        while (first < end) {
            std::vector<std::string> words = {"forward", "1"};
            for (unsigned i = 0; i < most_at_once && first < end; ++i) {
                words.push_back(network_of(first++));
            }
            for (const std::string &line : lines_of(told(words))) {
                const size_t at = line.find(" next hop ");
                ++packets[at == std::string::npos ? 0 : static_cast<uint64_t>(atoi(line.c_str() + at + 10))];
            }
        }
        return packets;
    }

    static uint32_t new_interface(uint8_t number)
    {
        const uint8_t mac[6] = {2, 0, 0, 0, 0, number};
        uint32_t interface = 0;
        EXPECT_EQ(DEV_SWDRVL3_PMGR_CreateL3Interface(1, 0, mac, &interface), ok);
        return interface;
    }

    static uint64_t new_next_hop(uint8_t number)
    {
        HostRouteEntry entry = host_entry("192.168." + std::to_string(number) + ".1", new_interface(number));
        EXPECT_EQ(DEV_SWDRVL3_PMGR_SetInetHostRoute(&entry), ok);
        return HostInformation(entry).number;
    }
};

TEST_F(RoutingTest, IsSharedByTwoProcessesThatWantTheSameThousandRoutes)
{
    const uint64_t next_hops[] = {new_next_hop(1), new_next_hop(2)};
    const Shared<std::array<Outcome, 2>> outcomes;
    const auto at_once = [&](void (Outcome::*change)(uint64_t)) {
        *outcomes = {};
        Application first([&] { (outcomes->at(0).*change)(next_hops[0]); });
        Application second([&] { (outcomes->at(1).*change)(next_hops[1]); });
        first.expect_success();
        second.expect_success();
        return *outcomes;
    };

    const auto added = at_once(&Outcome::add);
    EXPECT_EQ(added[0].done + added[1].done, networks);
    EXPECT_EQ(added[0].in_the_way, added[1].done);
    EXPECT_EQ(added[1].in_the_way, added[0].done);
    EXPECT_EQ(added[0].other + added[1].other, 0U);
    EXPECT_EQ(told({"routes"}), "hosts 2\nnetworks 1000\n");

    EXPECT_EQ(DEV_SWDRVL3_PMGR_EnableRouting(1, 0), 1);
    auto packets = next_hops_of(0, networks);
    EXPECT_EQ(packets[next_hops[0]], added[0].done);
    EXPECT_EQ(packets[next_hops[1]], added[1].done);
    EXPECT_EQ(next_hops_of(networks, networks + 1), (std::map<uint64_t, unsigned>{{0, 1}}));

    const auto removed = at_once(&Outcome::remove);
    EXPECT_EQ(removed[0].done, added[0].done);
    EXPECT_EQ(removed[1].done, added[1].done);
    EXPECT_EQ(removed[0].other + removed[1].other, 0U);
    EXPECT_EQ(told({"routes"}), "hosts 2\nnetworks 0\n");
    EXPECT_EQ(next_hops_of(0, 2), (std::map<uint64_t, unsigned>{{0, 2}}));
    driver.expect_quiet_end();
}

TEST_F(RoutingTest, MarksWhatPacketsHit)
{
    HostRouteEntry host = host_entry("10.0.0.1", new_interface(9), 2, 7, {2, 0xAB, 0, 0, 0, 1});
    EXPECT_EQ(DEV_SWDRVL3_PMGR_SetInetHostRoute(&host), ok);
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
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_entry_add(1, 0, group, source, from_anywhere, 1, &block), ok);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_port_add(1, 0, group, source, 2, 28), ok);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_cpu_port_add(1, 0, group, source), ok);
    const std::vector<std::string> packet = {"forward-multicast", "1", "1", "1", "10.0.0.9", "239.0.0.1"};
    EXPECT_EQ(told(packet), "flooded\n");
    EXPECT_EQ(DEV_SWDRVL3_PMGR_ipmc_enable(1, 0, 0), ok);
    uint32_t status = 0;
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_entry_stat(1, 0, group, source, &status), 0U);
    EXPECT_EQ(status, 0x00'01'001'5U);
    EXPECT_EQ(told(packet), "bridged unit 2 port 28\nrouted unit 1 port 3 interface 1\ncpu\n");
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_entry_stat(1, 0, group, source, &status), 0U);
    EXPECT_EQ(status, 0x00'01'001'7U);
}

}  // namespace
}  // namespace quillon::test
