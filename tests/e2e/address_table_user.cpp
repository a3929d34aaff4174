// An application process for the tests. It begins when it has read a line and prints a line for everything that is not
// as it should be.
//
//     address_table_user singly|batches    walks the table ten times, and until addresses were missing
//     address_table_user delete            deletes the addresses of a port and sets them again until its input ends
#include <poll.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>
#include <unistd.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "e2e/address_table.h"
#include "quillon/amtrdrv.h"

namespace {

using namespace quillon::test;

constexpr unsigned least_walks = 10;

std::vector<AddrTblEntry> walk_singly()
{
    std::vector<AddrTblEntry> entries;
    for (AddrTblEntry entry{}; DEV_AMTRDRV_PMGR_GetNextAddrTblEntry(&entry) == 1;) {
        entries.push_back(entry);
    }
    return entries;
}

std::vector<AddrTblEntry> walk_in_batches()
{
    std::vector<AddrTblEntry> entries;
    AddrTblEntry batch[QUILLON_ADDR_TBL_BATCH_ENTRIES];
    uint32_t count = 0;
    if (DEV_AMTRDRV_PMGR_ResetToFirstAddrTblEntry(1) != 1) {
        puts("the walk cannot be put back");
    }
    // A size that does not divide the table evenly.
    while (DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry(batch, 149, &count) == 1) {
        entries.insert(entries.end(), batch, batch + count);
    }
    return entries;
}

void walk(std::vector<AddrTblEntry> (*whole_table)())
{
    bool seen_deleted = false;
    for (unsigned walks = 0; walks < least_walks || !seen_deleted; ++walks) {
        const auto entries = whole_table();
        // All are in one VLAN: their order is that of their addresses.
        const auto follows = [](const AddrTblEntry &left, const AddrTblEntry &right) {
            return memcmp(left.bytes, right.bytes, 6) >= 0;
        };
        const auto kept =
            std::ranges::count_if(entries, [](const AddrTblEntry &entry) { return entry.bytes[10] == kept_port; });
        if (std::ranges::adjacent_find(entries, follows) != entries.end()) {
            puts("an address came twice, or out of order");
        }
        if (kept != address_count / 2) {
            printf("%td of the addresses that stand throughout came\n", kept);
        }
        const auto others = static_cast<uint32_t>(std::ranges::ssize(entries) - kept);
        seen_deleted |= others < address_count / 4;  // fewer than are set again
    }
}

bool input_ends()
{
    pollfd input{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
    return poll(&input, 1, 0) == 1;
}

void delete_and_set()
{
    while (!input_ends()) {
        if (DEV_AMTRDRV_PMGR_DeleteAddrByPort(1, deleted_port, 0) != 1) {
            puts("the addresses of the port cannot be deleted");
        }
        for (uint32_t number = 0; number < address_count; ++number) {
            const AddrTblEntry entry = static_entry(number);
            if (is_set(number) && port_of_address(number) == deleted_port &&
                DEV_AMTRDRV_PMGR_SetAddrTblEntry(&entry) != 1) {
                printf("address %u cannot be set\n", number);
            }
        }
    }
}

}  // namespace

int main(int argc, char **argv)
{
    const std::string_view task = argc == 2 ? argv[1] : "";
    char letter;
    DEV_AMTRDRV_PMGR_InitiateProcessResource();
    if (read(STDIN_FILENO, &letter, 1) != 1) {
        return 2;
    }
    if (task == "singly") {
        walk(walk_singly);
    } else if (task == "batches") {
        walk(walk_in_batches);
    } else if (task == "delete") {
        delete_and_set();
    } else {
        return 2;
    }
    return 0;
}
