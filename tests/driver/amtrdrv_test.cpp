// The MAC address table's requests through the client library.
#include "quillon/amtrdrv.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdint.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

#include "driver/swdrv_client.h"

static bool operator==(const AddrTblEntry &left, const AddrTblEntry &right)
{
    return std::ranges::equal(left.bytes, right.bytes);
}

namespace quillon::test {
namespace {

using driver::ChipState;
using driver::MacKey;
using driver::MacKind;

constexpr uint8_t mac[6] = {0x02, 0xA0, 0xB0, 0xC0, 0xD0, 0xE0};
constexpr uint8_t group[6] = {0x01, 0x00, 0x5E, 0x01, 0x02, 0x03};
constexpr MacKey key = {1, std::to_array(mac)};

enum : uint8_t { learned = 3, set_by_management = 5 };
enum : uint8_t { at_port = 1, at_trunk = 2, at_cpu = 3 };

AddrTblEntry entry(uint8_t last_byte, uint8_t status = set_by_management)
{
    return {{0x02, 0xA0, 0xB0, 0xC0, 0xD0, last_byte, 1, 0, 2, 0, 3, 0, status, at_port, 0, 0}};
}

struct AmtrdrvTest : SwdrvClientTest {
    AmtrdrvTest()
    {
        DEV_AMTRDRV_PMGR_InitiateProcessResource();
        EXPECT_EQ(DEV_AMTRDRV_PMGR_ResetToFirstAddrTblEntry(1), 1);
    }

    size_t size() { return model.lock()->macs().size(); }
};

TEST_F(AmtrdrvTest, LaysAnEntryOut)
{
    const AddrTblEntry rows[] = {
        {{0x02, 0xA0, 0xB0, 0xC0, 0xD0, 1, 1, 0, 2, 0, 28, 0, set_by_management, at_port, 0b0111, 7}},
        {{0x02, 0xA0, 0xB0, 0xC0, 0xD0, 2, 0xFE, 0x0F, 0, 0, 128, 0, learned, at_trunk, 0b1000, 0}},
        {{0x02, 0xA0, 0xB0, 0xC0, 0xD0, 3, 0xFE, 0x0F, 0, 0, 0, 0, set_by_management, at_cpu, 0, 1}},
    };
    EXPECT_TRUE(model.lock()->chips.vlans.create(4094));
    EXPECT_TRUE(model.lock()->chips.trunks.create(128));
    AddrTblEntry next{};
    for (const AddrTblEntry &row : rows) {
        EXPECT_EQ(DEV_AMTRDRV_PMGR_SetAddrTblEntry(&row), 1);
        EXPECT_EQ(DEV_AMTRDRV_PMGR_GetNextAddrTblEntry(&next), 1U);
        EXPECT_EQ(next, row);
    }
    EXPECT_EQ(DEV_AMTRDRV_PMGR_GetNextAddrTblEntry(&next), 0U);
    EXPECT_EQ(next, rows[2]);

    for (const auto &[at, value] : {std::pair<size_t, uint8_t>{6, 9},
                                    {8, 3},
                                    {10, 29},
                                    {11, 1},
                                    {12, 0},
                                    {12, 1},
                                    {12, 4},
                                    {13, 0},
                                    {13, 2},
                                    {13, 3},
                                    {13, 4},
                                    {14, 0x10},
                                    {15, 8},
                                    {0, 0x03}}) {
        AddrTblEntry wrong = rows[0];
        wrong.bytes[at] = value;
        EXPECT_EQ(DEV_AMTRDRV_PMGR_SetAddrTblEntry(&wrong), 0) << at;
    }
    AddrTblEntry trunk_of_a_unit = rows[1];
    trunk_of_a_unit.bytes[8] = 1;
    EXPECT_EQ(DEV_AMTRDRV_PMGR_SetAddrTblEntry(&trunk_of_a_unit), 0);
    EXPECT_EQ(size(), 3U);
}

TEST_F(AmtrdrvTest, WalksInBatchesOfEachClientsOwn)
{
    std::array<AddrTblEntry, 150> batch;
    uint32_t count = 9;
    EXPECT_EQ(DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry(batch.data(), 150, &count), 0U);
    EXPECT_EQ(count, 0U);
    for (uint32_t i = 0; i < 200; ++i) {
        const AddrTblEntry set = entry(static_cast<uint8_t>(i));
        EXPECT_EQ(DEV_AMTRDRV_PMGR_SetAddrTblEntry(&set), 1);
    }
    const struct {
        uint32_t wanted, result, count;
        uint8_t first;
    } rows[] = {{0, 0, 0, 0}, {1, 1, 1, 0}, {UINT32_MAX, 1, 150, 1}, {150, 1, 49, 151}, {150, 0, 0, 0}};
    for (const auto &row : rows) {
        EXPECT_EQ(DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry(batch.data(), row.wanted, &count), row.result);
        ASSERT_EQ(count, row.count);
        for (uint32_t i = 0; i < count; ++i) {
            EXPECT_EQ(batch.at(i), entry(static_cast<uint8_t>(row.first + i)));
        }
    }
    EXPECT_EQ(DEV_AMTRDRV_PMGR_ResetToFirstAddrTblEntry(3), 0);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry(batch.data(), 1, &count), 0U);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_ResetToFirstAddrTblEntry(2), 1);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry(batch.data(), 1, &count), 1U);
    EXPECT_EQ(batch[0], entry(0));

    const AddrTblEntry again = entry(0);
    EXPECT_EQ(DEV_SWDRV_PMGR_ResetOnDemand(1), 1);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_SetAddrTblEntry(&again), 1);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry(batch.data(), 1, &count), 1U)
        << "with the table the walk has begun anew";
}

TEST_F(AmtrdrvTest, ChangesTheTable)
{
    static const AddrTblEntry own = entry(0xE0);
    static const AddrTblEntry elsewhere = {
        {0x02, 0xA0, 0xB0, 0xC0, 0xD0, 0xE0, 1, 0, 3, 0, 3, 0, set_by_management, at_port, 0, 0}};
    const auto is = [](MacKind kind) {
        return [kind](const ChipState &chips) {
            const driver::MacEntry *const entry = chips.macs.find(key);
            return entry != nullptr && entry->kind == kind;
        };
    };
    const auto in_chips = [](unsigned long bits) {
        return [bits](const ChipState &chips) {
            const driver::MacEntry *const entry = chips.macs.find(key);
            return (entry == nullptr ? 0 : entry->chips.to_ulong()) == bits;
        };
    };
    const auto gone = [](const ChipState &chips) { return chips.macs.find(key) == nullptr; };

    expect_changes({
        {"of the VLAN", [] { return DEV_AMTRDRV_PMGR_AddVlanMac(1, mac); }, is(MacKind::of_vlan)},
        {"not of the VLAN", [] { return DEV_AMTRDRV_PMGR_DeleteVlanMac(1, mac); }, gone},
        {"intervention", [] { return static_cast<uint8_t>(DEV_AMTRDRV_PMGR_SetInterventionEntry(1, mac, 0, 7)); },
         is(MacKind::intervention)},
        {"trapped", [] { return static_cast<uint8_t>(DEV_AMTRDRV_PMGR_SetInterventionEntry(1, mac, 1, 7)); },
         [](const ChipState &chips) { return !chips.macs.find(key)->treatment.copies_to_cpu; }},
        {"no intervention", [] { return DEV_AMTRDRV_PMGR_DeleteInterventionEntry(1, mac); }, gone},
        {"in chip 1", [] { return static_cast<uint8_t>(DEV_AMTRDRV_PMGR_SetAddrTblEntryByDevice(1, &own)); },
         in_chips(0b10)},
        {"in all chips", [] { return DEV_AMTRDRV_PMGR_SetAddrTblEntry(&own); }, in_chips(0b11)},
        {"not in chip 0", [] { return DEV_AMTRDRV_PMGR_DeleteAddrByDevice(0, 1, mac); }, in_chips(0b10)},
        {"in chip 0", [] { return static_cast<uint8_t>(DEV_AMTRDRV_PMGR_SetAddrTblEntryByDevice(0, &own)); },
         in_chips(0b11)},
        {"not in chip 1", [] { return DEV_AMTRDRV_PMGR_DeleteAddrByDevice(1, 1, mac); }, in_chips(0b01)},
        {"nowhere", [] { return DEV_AMTRDRV_PMGR_DeleteAddrByDevice(0, 1, mac); }, gone},
        {"again", [] { return DEV_AMTRDRV_PMGR_SetAddrTblEntry(&own); }, in_chips(0b11)},
        {"deleted", [] { return DEV_AMTRDRV_PMGR_DeleteAddr(1, mac); }, gone},
        {"ageing", [] { return DEV_AMTRDRV_PMGR_SetAgeingTime(10); },
         [](const ChipState &chips) { return chips.macs.ageing_time() == std::chrono::seconds(10); }},
        {"no ageing", [] { return DEV_AMTRDRV_PMGR_Disable(2); },
         [](const ChipState &chips) { return chips.macs.ageing_time() == std::chrono::seconds(0); }},
        {"no learning at a port", [] { return DEV_AMTRDRV_PMGR_SetInterfaceConfig(2, 3, 0); },
         [](const ChipState &chips) {
             return !chips.learning.find({2, 3})->learns && chips.learning.find({2, 4})->learns;
         }},
        {"learning at a port", [] { return DEV_AMTRDRV_PMGR_SetInterfaceConfig(2, 3, 1); },
         [](const ChipState &chips) {
             return chips.learning.find({2, 3})->learns;
         }},
        {"no learning", [] { return DEV_AMTRDRV_PMGR_DisableHardwareLearning(); },
         [](const ChipState &chips) {
             return !chips.learning.find({2, 4})->learns;
         }},
    });
    EXPECT_EQ(DEV_AMTRDRV_PMGR_SetAddrTblEntry(&own), 1);
    expect_checked(DEV_AMTRDRV_PMGR_SetAddrTblEntryByDevice, {1, &own}, {2, &elsewhere});
    expect_checked(DEV_AMTRDRV_PMGR_SetInterfaceConfig, {2, 3, 1}, {3, 29, 2});
    expect_checked(DEV_AMTRDRV_PMGR_SetAgeingTime, {10}, {9});
    expect_checked(DEV_AMTRDRV_PMGR_Disable, {2}, {3});
    expect_refused({
        {"not of the VLAN", [] { return DEV_AMTRDRV_PMGR_DeleteVlanMac(1, mac); }},
        {"static", [] { return DEV_AMTRDRV_PMGR_AddVlanMac(1, mac); }},
        {"no intervention", [] { return DEV_AMTRDRV_PMGR_DeleteInterventionEntry(1, mac); }},
        {"no entry", [] { return DEV_AMTRDRV_PMGR_DeleteAddr(1, group); }},
        {"no entry in a chip", [] { return DEV_AMTRDRV_PMGR_DeleteAddrByDevice(0, 2, mac); }},
        {"no such chip", [] { return DEV_AMTRDRV_PMGR_DeleteAddrByDevice(2, 1, mac); }},
        {"no port", [] { return DEV_AMTRDRV_PMGR_DeleteAddrByPort(2, 29, 0); }},
        {"no trunk", [] { return DEV_AMTRDRV_PMGR_DeleteAddrByPort(0, 0, 1); }},
        {"no VLAN", [] { return DEV_AMTRDRV_PMGR_DeleteDynamicAddrByVlan(1, 2); }},
        {"no such VLAN", [] { return DEV_AMTRDRV_PMGR_DeleteDynamicAddrByPortAndVlan(2, 3, 0, 2); }},
    });
    EXPECT_EQ(size(), 1U);
}

TEST_F(AmtrdrvTest, SetsAttributes)
{
    const AddrTblEntry own = entry(0xE0);
    const auto treatment = [this] { return model.lock()->macs().find(key)->treatment; };
    EXPECT_EQ(DEV_AMTRDRV_PMGR_SetMacEntryWithAttribute(&own, 2, 0), 1);
    EXPECT_EQ(treatment(), driver::MacTreatment{.discards_to = true});
    EXPECT_EQ(DEV_AMTRDRV_PMGR_SetMacEntryWithAttribute(&own, 2, 0), 0) << "it is there";
    expect_checked(DEV_AMTRDRV_PMGR_SetMacEntryWithAttribute, {&own, 1, 1}, {&own, 8, 2});
    EXPECT_EQ(treatment(), driver::MacTreatment{.discards_from = true});
    EXPECT_EQ(DEV_AMTRDRV_PMGR_DeleteAllAddr(), 1);
    expect_checked(DEV_AMTRDRV_PMGR_SetInterventionEntry, {1, mac, 0, 7}, {2, group, 2, 8});
    EXPECT_EQ(treatment(), (driver::MacTreatment{.copies_to_cpu = true, .cpu_priority = 7}));
}

TEST_F(AmtrdrvTest, RemovesBySelection)
{
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(2), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateTrunk(5), 1);
    using namespace driver;
    const auto station = [](uint32_t vlan, uint8_t number) { return MacKey{vlan, {0x02, 0, 0, 0, 0, number}}; };
    const MacDestination port{LogicalPort{2, 3}};
    const struct {
        MacKey key;
        MacKind kind;
        MacDestination destination;
    } entries[] = {
        {station(1, 1), MacKind::set, port},
        {station(1, 2), MacKind::learned, port},
        {station(1, 3), MacKind::learned, TrunkId{5}},
        {station(1, 4), MacKind::of_vlan, Cpu{}},
        {station(2, 1), MacKind::set, port},
        {station(2, 2), MacKind::learned, port},
        {station(2, 3), MacKind::learned, LogicalPort{1, 28}},
    };
    const struct {
        const char *what;
        uint8_t (*call)();
        std::vector<MacKey> left;  // and the multicast address, unless there is nothing
    } rows[] = {
        {"all", DEV_AMTRDRV_PMGR_DeleteAllAddr, {}},
        {"learned", DEV_AMTRDRV_PMGR_DeleteAllDynamicAddr, {station(1, 1), station(1, 4), station(2, 1)}},
        {"at a port",
         [] { return DEV_AMTRDRV_PMGR_DeleteAddrByPort(2, 3, 0); },
         {station(1, 3), station(1, 4), station(2, 3)}},
        {"learned at a port",
         [] { return DEV_AMTRDRV_PMGR_DeleteDynamicAddrByPort(2, 3, 0); },
         {station(1, 1), station(1, 3), station(1, 4), station(2, 1), station(2, 3)}},
        {"learned in a VLAN",
         [] { return DEV_AMTRDRV_PMGR_DeleteDynamicAddrByVlan(9, 2); },
         {station(1, 1), station(1, 2), station(1, 3), station(1, 4), station(2, 1)}},
        {"at a trunk",
         [] { return DEV_AMTRDRV_PMGR_DeleteAddrByPort(0, 0, 5); },
         {station(1, 1), station(1, 2), station(1, 4), station(2, 1), station(2, 2), station(2, 3)}},
        {"learned at a port in a VLAN",
         [] { return DEV_AMTRDRV_PMGR_DeleteDynamicAddrByPortAndVlan(2, 3, 0, 2); },
         {station(1, 1), station(1, 2), station(1, 3), station(1, 4), station(2, 1), station(2, 3)}},
    };
    for (const auto &row : rows) {
        DEV_AMTRDRV_PMGR_CreateMulticastAddrTblEntry(1, group);
        for (const auto &[of, kind, destination] : entries) {
            const auto access = model.lock();
            const MacEntry entry{.kind = kind, .destination = destination};
            EXPECT_TRUE(access->macs().set(of, entry, access->chips.vlans, access->chips.trunks));
        }
        EXPECT_EQ(row.call(), 1) << row.what;
        std::vector<MacKey> left;
        for (const auto &[of, entry] : model.lock()->macs()) {
            if (entry.kind != MacKind::multicast) {
                left.push_back(of);
            }
        }
        EXPECT_EQ(left, row.left) << row.what;
        EXPECT_EQ(size(), row.left.empty() ? 0 : row.left.size() + 1) << row.what;
    }
}

TEST_F(AmtrdrvTest, LooksAddressesUp)
{
    const AddrTblEntry own = entry(0xE0);
    uint32_t unit = 9, port = 9, status = 9;
    uint8_t flag = 9;
    EXPECT_EQ(DEV_AMTRDRV_PMGR_ARLLookUp(1, mac, &unit, &port, &flag), 0);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_SetAddrTblEntryByDevice(1, &own), 1U);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_ARLLookUp(1, mac, &unit, &port, &flag), 1);
    EXPECT_EQ(std::tuple(unit, port, flag), std::tuple(2U, 3U, at_port));
    EXPECT_EQ(DEV_AMTRDRV_PMGR_ARLFirstChipLookUp(1, mac, &unit, &port, &status, &flag), 0);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_SetAddrTblEntry(&own), 1);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_ARLFirstChipLookUp(1, mac, &unit, &port, &status, &flag), 1);
    EXPECT_EQ(std::tuple(unit, port, status, flag), std::tuple(2U, 3U, set_by_management, at_port));
    uint32_t depth = 0;
    EXPECT_EQ(DEV_AMTRDRV_PMGR_GetHashLookupDepth(&depth), 1);
    EXPECT_EQ(depth, 16384U);
}

TEST_F(AmtrdrvTest, TellsWhereAnAddressWasSeenOnce)
{
    using Ports = std::array<uint8_t, 32>;
    const Ports all_ports{};
    const Ports port_3{0b100};
    const Ports port_4{0b1000};
    const auto hit = [](uint8_t last_byte, uint32_t unit, const Ports &ports, uint8_t clear) {
        const uint8_t address[6] = {0x02, 0xA0, 0xB0, 0xC0, 0xD0, last_byte};
        uint8_t seen = 9;
        EXPECT_EQ(DEV_AMTRDRV_PMGR_ReadAndClearLocalHitBit(&seen, address, 1, unit, ports.data(), clear), 1);
        return seen;
    };
    const AddrTblEntry own = entry(0xE0);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_SetAddrTblEntry(&own), 1);
    EXPECT_EQ(hit(0xE0, 2, all_ports, 1), 0);
    EXPECT_TRUE(model.lock()->learn(key, {2, 3}));
    EXPECT_EQ(hit(0xE0, 2, port_4, 1), 0);
    EXPECT_EQ(hit(0xE0, 1, all_ports, 1), 0);
    EXPECT_EQ(hit(0xE0, 2, all_ports, 0), 1);
    EXPECT_EQ(hit(0xE0, 2, port_3, 1), 1);
    EXPECT_EQ(hit(0xE0, 2, all_ports, 1), 0);
    EXPECT_TRUE(model.lock()->learn(key, {2, 3}));
    EXPECT_EQ(hit(0xE0, 2, port_3, 1), 1) << "seen again";

    EXPECT_TRUE(model.lock()->chips.trunks.create(5));
    EXPECT_TRUE(model.lock()->chips.trunks.set_members(5, 1, driver::port_bit(3)));
    EXPECT_TRUE(model.lock()->learn({1, {0x02, 0xA0, 0xB0, 0xC0, 0xD0, 0xE1}}, {1, 3}));
    EXPECT_EQ(hit(0xE1, 1, port_3, 0), 1) << "at a member of a trunk";
    EXPECT_EQ(hit(0xE1, 1, port_4, 0), 0);

    uint8_t seen = 9;
    Ports port_65{};
    port_65[8] = 1;
    const Ports port_29{0, 0, 0, 0x10};
    EXPECT_EQ(DEV_AMTRDRV_PMGR_ReadAndClearLocalHitBit(&seen, mac, 1, 2, all_ports.data(), 2), 0);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_ReadAndClearLocalHitBit(&seen, mac, 1, 3, all_ports.data(), 1), 0);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_ReadAndClearLocalHitBit(&seen, mac, 2, 2, all_ports.data(), 1), 0);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_ReadAndClearLocalHitBit(&seen, mac, 1, 2, port_65.data(), 1), 0);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_ReadAndClearLocalHitBit(&seen, mac, 1, 2, port_29.data(), 1), 0);
}

TEST_F(AmtrdrvTest, HasMulticastEntries)
{
    using Tagged = std::map<driver::LogicalPort, bool>;
    const auto members = [this](const MacKey &of) {
        const auto access = model.lock();
        return std::get<driver::MulticastMembers>(access->macs().find(of)->destination).tagged;
    };
    const MacKey group_key{1, std::to_array(group)};
    static constexpr uint8_t two_ports[8] = {0b110};
    static constexpr uint8_t one_port[8] = {0b100};
    static constexpr uint8_t port_29[8] = {0, 0, 0, 0x10};
    static constexpr uint8_t no_port[8] = {};
    EXPECT_EQ(DEV_AMTRDRV_PMGR_AddMulticastPortMember(1, group, 2, 3, 1), 0);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_CreateMulticastAddrTblEntry(1, group), 1);
    EXPECT_EQ(members(group_key), Tagged{});
    EXPECT_EQ(DEV_AMTRDRV_PMGR_AddMulticastPortMember(1, group, 1, 1, 1), 1);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_AddMulticastPortMember(1, group, 2, 3, 1), 1);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_SetMulticastPortList(1, group, two_ports, one_port), 1);
    expect_refused({
        {"there", [] { return DEV_AMTRDRV_PMGR_CreateMulticastAddrTblEntry(1, group); }},
        {"a station", [] { return DEV_AMTRDRV_PMGR_CreateMulticastAddrTblEntry(1, mac); }},
        {"no VLAN", [] { return DEV_AMTRDRV_PMGR_CreateMulticastAddrTblEntry(3, group); }},
        {"no entry", [] { return DEV_AMTRDRV_PMGR_AddMulticastPortMember(2, group, 2, 3, 1); }},
        {"no port", [] { return DEV_AMTRDRV_PMGR_AddMulticastPortMember(1, group, 1, 29, 1); }},
        {"no flag", [] { return DEV_AMTRDRV_PMGR_AddMulticastPortMember(1, group, 2, 3, 2); }},
        {"no member", [] { return DEV_AMTRDRV_PMGR_SetMulticastPortList(1, group, one_port, two_ports); }},
        {"no port of a list", [] { return DEV_AMTRDRV_PMGR_SetMulticastPortList(1, group, port_29, no_port); }},
        {"no such member", [] { return DEV_AMTRDRV_PMGR_DeleteMulticastPortMember(1, 2, 4, group); }},
        {"multicast", [] { return DEV_AMTRDRV_PMGR_DeleteAddr(1, group); }},
    });
    EXPECT_EQ(members(group_key), (Tagged{{{1, 2}, false}, {{1, 3}, true}, {{2, 3}, true}}));
    uint32_t unit = 9, count = 9;
    uint8_t flag = 9;
    EXPECT_EQ(DEV_AMTRDRV_PMGR_ARLLookUp(1, group, &unit, &count, &flag), 1);
    EXPECT_EQ(std::tuple(count, flag), std::tuple(3U, 4));
    EXPECT_EQ(DEV_AMTRDRV_PMGR_DeleteMulticastPortMember(1, 2, 3, group), 1);
    EXPECT_EQ(members(group_key), (Tagged{{{1, 2}, false}, {{1, 3}, true}}));
    EXPECT_EQ(DEV_AMTRDRV_PMGR_DestroyMulticastAddrTblEntry(1, group), 1);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_DestroyMulticastAddrTblEntry(1, group), 0);
    DEV_AMTRDRV_PMGR_SetMCastEntryForInternalPacket();
    DEV_AMTRDRV_PMGR_SetMCastEntryForInternalPacket();
    EXPECT_EQ(size(), 1U);
    EXPECT_EQ(members({1, driver::MacTable::internal_multicast}).size(), 56U);
}

TEST_F(AmtrdrvTest, ShowsNullAddressesInTheLog)
{
    AddrTblEntry null = entry(0);
    std::fill_n(null.bytes, 6, uint8_t{0});
    EXPECT_EQ(DEV_AMTRDRV_PMGR_SetAddrTblEntry(&null), 1);
    DEV_AMTRDRV_PMGR_ShowValidNullMac();
    EXPECT_THAT(served.logged(), testing::HasSubstr("info null-mac entries=1 at=1/1/2/3\n"));
}

}  // namespace
}  // namespace quillon::test
