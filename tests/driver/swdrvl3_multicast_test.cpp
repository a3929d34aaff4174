#include <gtest/gtest.h>
#include <stdint.h>
#include <string.h>

#include <array>

#include "driver/swdrvl3_client.h"

namespace quillon::test {
namespace {

constexpr uint8_t group[16] = {239, 1, 1, 1};
constexpr uint8_t source[16] = {10, 0, 0, 1};
constexpr uint8_t group6[16] = {0xFF, 0x0E, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};
constexpr uint8_t source6[16] = {0x20, 1, 0x0D, 0xB8};

const driver::McastFlow flow{
    .vlan = 1, .group = {driver::IpVersion::v4, {239, 1, 1, 1}}, .source = {driver::IpVersion::v4, {10, 0, 0, 1}}};
const driver::McastFlow flow6{.vlan = 1,
                              .group = {driver::IpVersion::v6, {0xFF, 0x0E, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}},
                              .source = {driver::IpVersion::v6, {0x20, 1, 0x0D, 0xB8}}};

std::array<uint8_t, 8> port_bytes(uint32_t unit, uint32_t port)
{
    std::array<uint8_t, 8> bytes;
    memcpy(bytes.data(), &unit, 4);
    memcpy(bytes.data() + 4, &port, 4);
    return bytes;
}

McastInterface copy_record(uint32_t unit, uint32_t port, uint32_t interface)
{
    McastInterface record;
    memcpy(record.bytes, port_bytes(unit, port).data(), 8);
    record.word = interface;
    return record;
}

struct Swdrvl3MulticastTest : Swdrvl3ClientTest {
    driver::L3McastEntry entry(const driver::McastFlow &of)
    {
        const auto access = model.lock();
        const driver::L3McastEntry *const found = access->chips.ip_multicast.l3_entry(of);
        EXPECT_NE(found, nullptr);
        return found == nullptr ? driver::L3McastEntry{} : *found;
    }

    static uint32_t status(uint32_t clear_hit = 0)
    {
        uint32_t word = clear_hit;
        EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_entry_stat(1, 0, group, source, &word), 0U);
        return word;
    }

    const uint32_t interface = new_interface(1);
    const uint32_t other_interface = new_interface(2);
};

TEST_F(Swdrvl3MulticastTest, IsSwitchedOnAndOff)
{
    const auto state = [this] {
        const auto access = model.lock();
        const driver::IpMulticast &multicast = access->chips.ip_multicast;
        return std::array{multicast.routes_ipv4, multicast.routes_ipv6, multicast.debugged};
    };
    EXPECT_EQ(state(), (std::array{false, false, false}));
    EXPECT_EQ(DEV_SWDRVL3_PMGR_ipmc_enable(0, 1, 0), done);
    EXPECT_EQ(state(), (std::array{false, true, false}));
    EXPECT_EQ(DEV_SWDRVL3_PMGR_ipmc_enable(1, 0, 0), done);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_ipmc_debug_enable(), done);
    for (const auto &[ipv4, ipv6, virtual_router, code] :
         {std::array{0U, 0U, 0U, invalid}, {2, 0, 0, invalid}, {1, 2, 0, invalid}, {1, 1, 1, unresolved}}) {
        EXPECT_EQ(DEV_SWDRVL3_PMGR_ipmc_enable(ipv4, ipv6, virtual_router), code);
    }
    EXPECT_EQ(state(), (std::array{true, false, true}));
    EXPECT_EQ(DEV_SWDRVL3_PMGR_ipmc_disable(), done);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_ipmc_debug_disable(), done);
    EXPECT_EQ(state(), (std::array{false, false, false}));
}

TEST_F(Swdrvl3MulticastTest, HasLayer2Entries)
{
    const auto ports = [this] {
        const auto access = model.lock();
        const driver::PortSet *const found = access->chips.ip_multicast.l2_entry(flow6);
        return found == nullptr ? driver::PortSet{} : *found;
    };
    const auto change = [](auto function, uint32_t unit, uint32_t port) {
        return function(1, 0, group6, source6, port_bytes(unit, port).data());
    };
    EXPECT_EQ(change(DEV_SWDRVL3_PMGR_l2mc_entry_add, 2, 3), done);
    EXPECT_EQ(change(DEV_SWDRVL3_PMGR_l2mc_entry_add, 1, 4), done);
    EXPECT_EQ(change(DEV_SWDRVL3_PMGR_l2mc_entry_add, 1, 4), exists);
    EXPECT_EQ(ports(), (driver::PortSet{{2, 3}, {1, 4}}));
    EXPECT_EQ(change(DEV_SWDRVL3_PMGR_l2mc_entry_del, 2, 3), done);
    EXPECT_EQ(change(DEV_SWDRVL3_PMGR_l2mc_entry_del, 2, 3), absent);
    EXPECT_EQ(change(DEV_SWDRVL3_PMGR_l2mc_entry_del, 1, 4), done);
    EXPECT_EQ(change(DEV_SWDRVL3_PMGR_l2mc_entry_del, 1, 4), absent);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l2mc_entry_add(1, 1, group6, source6, port_bytes(1, 1).data()), unresolved);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l2mc_entry_add(1, 0, group6, source, port_bytes(1, 1).data()), done)
        << "0a00:1:: is a source as well";
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l2mc_entry_add(1, 0, group, source6, port_bytes(1, 1).data()), done)
        << "and 32.1.13.184";
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l2mc_entry_add(1, 0, source, source, port_bytes(1, 1).data()), invalid);
}

TEST_F(Swdrvl3MulticastTest, HasLayer3EntriesWhoseStatusIsReadBack)
{
    McastEntryBlock block{};
    memset(block.bytes + 24, 0xFF, sizeof block.bytes - 24);
    const McastInterface first = copy_record(1, 2, interface);
    const McastInterface second = copy_record(2, 3, other_interface);
    memcpy(block.bytes, &first, sizeof first);
    memcpy(block.bytes + 12, &second, sizeof second);
    const auto add = [&](uint8_t count) {
        return DEV_SWDRVL3_PMGR_l3mc_entry_add(1, 0, group, source, port_bytes(2, 28).data(), count, &block);
    };
    EXPECT_EQ(status(), 0U);
    EXPECT_EQ(add(33), invalid);
    EXPECT_EQ(add(3), unresolved);
    EXPECT_EQ(add(2), done);
    EXPECT_EQ(add(0), exists);
    EXPECT_EQ(entry(flow).upstream, (driver::LogicalPort{2, 28}));
    EXPECT_EQ(entry(flow).downstream, (std::set<driver::McastCopy>{{{1, 2}, interface}, {{2, 3}, other_interface}}));
    EXPECT_EQ(status(), 0x00'02'000'1U);

    // The unit is the fifth argument, the port the sixth.
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_port_add(1, 0, group, source, 2, 17), done);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_port_add(1, 0, group, source, 17, 2), unresolved);
    EXPECT_EQ(entry(flow).ports, (driver::PortSet{{2, 17}}));
    const McastInterface replication = copy_record(1, 2, other_interface);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_repl_add(1, 0, group, source, &replication), done);
    EXPECT_EQ(entry(flow).replications, (std::set<driver::McastCopy>{{{1, 2}, other_interface}}));
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_dnintf_del(1, 0, group, source, &replication), absent);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_dnintf_add(1, 0, group, source, &replication), done);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_cpu_port_add(1, 0, group, source), done);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_cpu_port_add(1, 0, group, source), exists);
    EXPECT_EQ(status(), 0x01'03'001'5U);

    EXPECT_EQ(DEV_SWDRVL3_PMGR_ipmc_enable(1, 0, 0), done);
    EXPECT_TRUE(model.lock()->chips.ip_multicast.forward({2, 28}, flow));
    EXPECT_EQ(status(), 0x01'03'001'7U);
    EXPECT_EQ(status(1), 0x01'03'001'7U) << "cleared after reading";
    EXPECT_EQ(status(), 0x01'03'001'5U);

    const uint8_t interface_mac[6] = {2, 0, 0, 0, 0, 2};
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteL3Interface(other_interface, 1, interface_mac, 0), 0) << "a copy goes through it";
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_port_del(1, 0, group, source, 2, 17), done);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_repl_del(1, 0, group, source, &replication), done);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_dnintf_del(1, 0, group, source, &second), done);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_dnintf_del(1, 0, group, source, &replication), done);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_cpu_port_del(1, 0, group, source), done);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_cpu_port_del(1, 0, group, source), absent);
    EXPECT_EQ(status(), 0x00'01'000'1U);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteL3Interface(other_interface, 1, interface_mac, 0), 1);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_entry_del(1, 0, group, source), done);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_entry_del(1, 0, group, source), absent);
    EXPECT_EQ(status(), 0U);
}

TEST_F(Swdrvl3MulticastTest, TakesPacketsFromAnywhereWithoutAnUpstreamPort)
{
    const McastEntryBlock block{};
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_entry_add(1, 0, group6, source6, port_bytes(0, 0).data(), 0, &block), done);
    EXPECT_EQ(entry(flow6).upstream, std::nullopt);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_entry_add(1, 1, group, source, port_bytes(0, 0).data(), 0, &block), unresolved);
}

}  // namespace
}  // namespace quillon::test
