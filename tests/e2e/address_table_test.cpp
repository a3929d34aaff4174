// A MAC address table that several processes use at once.
#include <stdint.h>
#include <string.h>

#include <algorithm>
#include <atomic>
#include <vector>

#include "e2e/support/client_test.h"

namespace quillon::test {
namespace {

constexpr uint32_t address_count = 1000;

// Those that stand throughout, and those that are deleted, by turns.
constexpr uint32_t kept_port = 3;
constexpr uint32_t deleted_port = 5;
constexpr uint32_t block = 50;

uint32_t port_of_address(uint32_t number)
{
    return number / block % 2 == 0 ? kept_port : deleted_port;
}

// The others are learned.
bool is_set(uint32_t number)
{
    return number / block % 4 >= 2;
}

// A static entry of VLAN 1, at a port of unit 1.
void set_address(uint32_t number)
{
    const auto port = static_cast<uint8_t>(port_of_address(number));
    const AddrTblEntry entry = {{0x02, 0, 0, 0, static_cast<uint8_t>(number >> 8), static_cast<uint8_t>(number), 1, 0,
                                 1, 0, port, 0, 5, 1, 0, 0}};
    EXPECT_EQ(DEV_AMTRDRV_PMGR_SetAddrTblEntry(&entry), 1) << number;
}

using Entries = std::vector<AddrTblEntry>;

Entries walk_singly()
{
    Entries entries;
    for (AddrTblEntry entry{}; DEV_AMTRDRV_PMGR_GetNextAddrTblEntry(&entry) == 1;) {
        entries.push_back(entry);
    }
    return entries;
}

Entries walk_in_batches()
{
    Entries entries;
    AddrTblEntry batch[QUILLON_ADDR_TBL_BATCH_ENTRIES];
    uint32_t count = 0;
    EXPECT_EQ(DEV_AMTRDRV_PMGR_ResetToFirstAddrTblEntry(1), 1);
    // A size that does not divide the table evenly.
    while (DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry(batch, 149, &count) == 1) {
        entries.insert(entries.end(), batch, batch + count);
    }
    return entries;
}

// Ten times, and until addresses were missing.
void walk(Entries (*whole_table)())
{
    bool seen_deleted = false;
    for (unsigned walks = 0; (walks < 10 || !seen_deleted) && !testing::Test::HasFailure(); ++walks) {
        const Entries entries = whole_table();
        // All are in one VLAN: their order is that of their addresses.
        const auto is_not_behind = [](const AddrTblEntry &left, const AddrTblEntry &right) {
            return memcmp(left.bytes, right.bytes, 6) >= 0;
        };
        EXPECT_EQ(std::ranges::adjacent_find(entries, is_not_behind), entries.end()) << "twice, or out of order";
        const auto kept =
            std::ranges::count_if(entries, [](const AddrTblEntry &entry) { return entry.bytes[10] == kept_port; });
        EXPECT_EQ(kept, address_count / 2) << "of the addresses that stand throughout";
        const auto others = static_cast<uint32_t>(std::ranges::ssize(entries) - kept);
        seen_deleted |= others < address_count / 4;  // fewer than are set again
    }
}

void delete_and_set(const std::atomic<bool> &ends)
{
    while (!ends) {
        EXPECT_EQ(DEV_AMTRDRV_PMGR_DeleteAddrByPort(1, deleted_port, 0), 1);
        for (uint32_t number = 0; number < address_count; ++number) {
            if (is_set(number) && port_of_address(number) == deleted_port) {
                set_address(number);
            }
        }
    }
}

struct AddressTableTest : ClientTest {};

TEST_F(AddressTableTest, IsWalkedWhileAddressesAreDeleted)
{
    EXPECT_EQ(DEV_AMTRDRV_PMGR_SetAgeingTime(0), 1);  // never
    for (uint32_t number = 0; number < address_count; ++number) {
        if (is_set(number)) {
            set_address(number);
        } else if (number % block == 0) {
            char mac[18];
            snprintf(mac, sizeof mac, "02:00:00:00:%02x:%02x", number >> 8 & 0xFF, number & 0xFF);
            told({"learn-address", "1", mac, "1", std::to_string(port_of_address(number)), std::to_string(block)});
        }
    }
    EXPECT_EQ(walk_singly().size(), address_count);

    const Shared<std::atomic<bool>> ends;
    Application deletes([&ends] { delete_and_set(*ends); });
    Application singly([] { walk(walk_singly); });
    Application batches([] { walk(walk_in_batches); });
    Application batches_too([] { walk(walk_in_batches); });
    for (Application *const walker : {&singly, &batches, &batches_too}) {
        walker->expect_success();
    }
    *ends = true;
    deletes.expect_success();

    // What was learned at the port is gone, what was set there came back.
    EXPECT_EQ(walk_singly().size(), address_count * 3 / 4);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_DeleteAllDynamicAddr(), 1);
    EXPECT_EQ(walk_singly().size(), address_count / 2);
    driver.expect_quiet_end();
}

}  // namespace
}  // namespace quillon::test
