#include <gtest/gtest.h>
#include <stdint.h>
#include <string.h>

#include <array>
#include <string>
#include <vector>

#include "driver/swdrvl3_client.h"
#include "support/route_entries.h"

namespace quillon::test {
namespace {

struct Swdrvl3RoutesTest : Swdrvl3ClientTest {
    // The number of a new neighbour, by which routes lead to it.
    static uint32_t new_neighbour(const std::string &address, uint32_t interface)
    {
        HostRouteEntry entry = host_entry(address, interface);
        EXPECT_EQ(DEV_SWDRVL3_PMGR_SetInetHostRoute(&entry), done);
        return HostInformation(entry).number;
    }

    driver::NextHop next_hop_of(const std::string &destination)
    {
        NetRouteEntry entry{};
        put_address(entry, destination);
        driver::IpAddress address{
            .version = destination.find(':') == std::string::npos ? driver::IpVersion::v4 : driver::IpVersion::v6,
            .bytes = {}};
        memcpy(address.bytes.data(), reinterpret_cast<const char *>(&entry) + 8, 16);
        const auto match = model.lock()->chips.routes.route(address);
        return match ? match->next_hop : UINT32_MAX;
    }

    const uint32_t interface = new_interface(1);
};

TEST_F(Swdrvl3RoutesTest, FillInWhatTheHardwareHasOfAHost)
{
    HostRouteEntry entry = host_entry("2001:db8::1", interface, 2, 7, {2, 3, 4, 5, 6, 7});
    put(entry, 48, 0x64636261U);
    HostRouteEntry expected = entry;
    put(expected, 40, 1U);
    put(expected, 44, 1U);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_SetInetHostRoute(&entry), done);
    EXPECT_EQ(memcmp(&entry, &expected, sizeof entry), 0);
    EXPECT_EQ(*model.lock()->chips.routes.neighbour(1),
              (driver::Neighbour{.interface = interface, .mac = {2, 3, 4, 5, 6, 7}, .port = {2, 7}}));

    HostRouteEntry refused = host_entry("2001:db8::1", interface, 3, 7);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_SetInetHostRoute(&refused), unresolved);
    EXPECT_EQ(HostInformation(refused).number, 1U) << "also of a change that is refused";

    EXPECT_EQ(DEV_SWDRVL3_PMGR_ClearHostRouteHWInfo(&entry), 1);
    put(expected, 40, uint64_t{0});
    EXPECT_EQ(memcmp(&entry, &expected, sizeof entry), 0);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteInetHostRoute(&refused), 1);
    EXPECT_EQ(HostInformation(refused).installed, 0U);
    EXPECT_EQ(HostInformation(refused).number, 0U);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteInetHostRoute(&refused), 0);
}

TEST_F(Swdrvl3RoutesTest, FillInWhatTheHardwareHasOfANetwork)
{
    const uint64_t next_hop = new_neighbour("10.0.0.1", interface);
    NetRouteEntry entry = net_entry("10.1.0.0", 16);
    put(entry, 44, 0x64636261U);
    NetRouteEntry expected = entry;
    put(expected, 32, std::array{1U, 1U, 1U});
    EXPECT_EQ(DEV_SWDRVL3_PMGR_AddInetNetRoute(&entry, next_hop), done);
    EXPECT_EQ(memcmp(&entry, &expected, sizeof entry), 0);
    EXPECT_EQ(next_hop_of("10.1.255.255"), next_hop);

    NetRouteEntry again = net_entry("10.1.0.0", 16);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_AddInetNetRoute(&again, 0), exists);
    EXPECT_EQ(NetInformation(again).number, 1U);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_ClearNetRouteHWInfo(&entry), 1);
    put(expected, 32, std::array{0U, 0U, 0U});
    EXPECT_EQ(memcmp(&entry, &expected, sizeof entry), 0);

    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteInetNetRoute(&again, 0), 0) << "another next hop";
    EXPECT_EQ(NetInformation(again).installed, 1U);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteInetNetRoute(&again, next_hop), 1);
    EXPECT_EQ(NetInformation(again).installed, 0U);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteInetNetRoute(&again, next_hop), 0);
}

TEST_F(Swdrvl3RoutesTest, HaveSeveralPaths)
{
    std::vector<uint64_t> next_hops;
    for (int host = 1; host <= 9; ++host) {
        next_hops.push_back(new_neighbour("10.0.0." + std::to_string(host), interface));
    }
    NetRouteEntry entry = net_entry("2001:db8::", 32);
    const auto add_all = [&](uint32_t count) {
        return DEV_SWDRVL3_PMGR_AddInetECMPRouteMultiPath(&entry, next_hops.data(), count);
    };
    const auto add = [&](uint64_t next_hop, uint8_t first = 0) {
        return DEV_SWDRVL3_PMGR_AddInetECMPRouteOnePath(&entry, next_hop, first);
    };
    const auto remove = [&](uint64_t next_hop, uint8_t last = 0) {
        return DEV_SWDRVL3_PMGR_DeleteInetECMPRouteOnePath(&entry, next_hop, last);
    };
    EXPECT_EQ(add_all(0), invalid);
    EXPECT_EQ(add_all(8), done);
    EXPECT_EQ(NetInformation(entry).path_count, 8U);
    EXPECT_EQ(add_all(3), exists);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteInetNetRoute(&entry, 1), 0) << "it has others";
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteInetECMPRoute(&entry), 1);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteInetECMPRoute(&entry), 0);

    EXPECT_EQ(add(1), absent);
    EXPECT_EQ(add(1, 1), done);
    EXPECT_EQ(add(1, 1), exists);
    for (uint64_t next_hop = 2; next_hop <= 8; ++next_hop) {
        EXPECT_EQ(add(next_hop), done);
        EXPECT_EQ(NetInformation(entry).path_count, next_hop);
    }
    EXPECT_EQ(add(9), full);
    EXPECT_EQ(add(8), exists);
    EXPECT_EQ(add(10), unresolved);
    EXPECT_EQ(add(0), invalid) << "the CPU only alone";
    EXPECT_EQ(add(9, 2), invalid) << "no flag";
    EXPECT_EQ(remove(9, 1), 0);
    EXPECT_EQ(remove(0x1'0000'0001, 1), 0);
    EXPECT_EQ(remove(8, 2), 0) << "no flag";
    for (uint64_t next_hop = 1; next_hop <= 7; ++next_hop) {
        EXPECT_EQ(remove(next_hop), 1);
        EXPECT_EQ(remove(next_hop), 0);
    }
    EXPECT_EQ(next_hop_of("2001:db8::1"), 8U);
    EXPECT_EQ(remove(8), 0) << "the last one";
    EXPECT_EQ(remove(8, 1), 1);
    EXPECT_EQ(next_hop_of("2001:db8::1"), UINT32_MAX);
    EXPECT_EQ(add(0, 1), done);
    EXPECT_EQ(add(1), invalid) << "the CPU only alone";
}

TEST_F(Swdrvl3RoutesTest, HaveADefaultBehindAllOthers)
{
    const uint64_t next_hop = new_neighbour("10.0.0.1", interface);
    NetRouteEntry entry = net_entry("0.0.0.0", 0);
    put(entry, 24, next_hop);
    put(entry, 0, 99U);  // does not travel
    EXPECT_EQ(DEV_SWDRVL3_PMGR_SetSpecialDefaultRoute(&entry, 2), 1);
    EXPECT_EQ(next_hop_of("2001:db8::"), next_hop);
    EXPECT_EQ(next_hop_of("11.0.0.1"), UINT32_MAX);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_SetSpecialDefaultRoute(&entry, 3), 0);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteSpecialDefaultRoute(&entry, 1), 0);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteSpecialDefaultRoute(&entry, 2), 1);
    put(entry, 4, 1U);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_SetSpecialDefaultRoute(&entry, 2), 0) << "a prefix";
}

TEST_F(Swdrvl3RoutesTest, HaveHitBits)
{
    HostRouteEntry entry = host_entry("10.0.0.1", interface);
    uint32_t hit = 99;
    EXPECT_EQ(DEV_SWDRVL3_PMGR_ReadAndClearHostRouteEntryHitBit(&entry, &hit), 0);
    EXPECT_EQ(hit, 0U);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_AddInetMyIpHostRoute(&entry), done);
    for (const uint32_t packets : {0U, 1U, 2U, 0U}) {
        for (uint32_t packet = 0; packet < packets; ++packet) {
            EXPECT_EQ(next_hop_of("10.0.0.1"), driver::cpu_next_hop);
        }
        EXPECT_EQ(DEV_SWDRVL3_PMGR_ReadAndClearHostRouteEntryHitBit(&entry, &hit), 1);
        EXPECT_EQ(hit, packets > 0 ? 1U : 0U);
    }
    EXPECT_EQ(DEV_SWDRVL3_PMGR_AddInetMyIpHostRoute(&entry), exists);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteInetMyIpHostRoute(&entry), done);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteInetMyIpHostRoute(&entry), absent);
}

// What cannot be an entry is refused, and comes back with nothing filled in.
TEST_F(Swdrvl3RoutesTest, RefuseEntriesThatMeanNothing)
{
    const auto with = [](auto entry, size_t offset, uint32_t word) {
        put(entry, offset, word);
        put(entry, 32, ~uint64_t{0});
        put(entry, 40, ~uint64_t{0});
        return entry;
    };
    for (const auto &[offset, word] : {std::pair<size_t, uint32_t>{0, 0}, {0, 3}, {12, 1}, {20, 0x80000000}}) {
        HostRouteEntry host = with(host_entry("10.0.0.1", interface), offset, word);
        EXPECT_EQ(DEV_SWDRVL3_PMGR_SetInetHostRoute(&host), invalid) << offset;
        EXPECT_EQ(HostInformation(host).installed, 0U);
        EXPECT_EQ(DEV_SWDRVL3_PMGR_AddInetMyIpHostRoute(&host), invalid) << offset;
        uint32_t hit = 99;
        EXPECT_EQ(DEV_SWDRVL3_PMGR_ReadAndClearHostRouteEntryHitBit(&host, &hit), 0);
        NetRouteEntry network = with(net_entry("10.0.0.0", 8), offset, word);
        EXPECT_EQ(DEV_SWDRVL3_PMGR_AddInetNetRoute(&network, 0), invalid) << offset;
        EXPECT_EQ(NetInformation(network).installed, 0U);
        EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteInetECMPRoute(&network), 0) << offset;
    }
}

}  // namespace
}  // namespace quillon::test
