// A MAC address table that several processes use at once.
#include "e2e/address_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdint.h>
#include <stdlib.h>

#include <string>
#include <vector>

#include "e2e/support/child.h"
#include "e2e/support/control.h"
#include "e2e/support/driver_process.h"
#include "e2e/support/observe.h"

namespace quillon::test {
namespace {

using testing::EndsWith;

// This process is a client as well. A client looks its run-time folder up once.
const std::string &folder()
{
    static const TestFolder for_this_process;
    static const int set = setenv("QUILLON_RUNTIME_DIR", for_this_process.path().c_str(), 1);
    EXPECT_EQ(set, 0);
    return for_this_process.path();
}

struct AddressTableTest : testing::Test {
    AddressTableTest() { DEV_AMTRDRV_PMGR_InitiateProcessResource(); }

    static uint32_t size()
    {
        uint32_t entries = 0;
        for (AddrTblEntry entry{}; DEV_AMTRDRV_PMGR_GetNextAddrTblEntry(&entry) == 1;) {
            ++entries;
        }
        return entries;
    }

    DriverProcess driver{folder(), {"--log-level=warning"}};
};

TEST_F(AddressTableTest, IsWalkedWhileAddressesAreDeleted)
{
    for (uint32_t number = 0; number < address_count; ++number) {
        const AddrTblEntry entry = static_entry(number);
        if (is_set(number)) {
            EXPECT_EQ(DEV_AMTRDRV_PMGR_SetAddrTblEntry(&entry), 1);
        } else if (number % block == 0) {
            char mac[18];
            snprintf(mac, sizeof mac, "02:00:00:00:%02x:%02x", number >> 8, number & 0xFF);
            EXPECT_EQ(control(folder(), {"learn-address", "1", mac, "1", std::to_string(port_of_address(number)),
                                         std::to_string(block)})
                          .status,
                      0);
        }
    }
    EXPECT_EQ(size(), address_count);

    const std::map<std::string, std::string> environment = {{"QUILLON_RUNTIME_DIR", folder()}};
    Child singly({QUILLON_ADDRESS_TABLE_USER, "singly"}, environment);
    Child batches({QUILLON_ADDRESS_TABLE_USER, "batches"}, environment);
    Child batches_too({QUILLON_ADDRESS_TABLE_USER, "batches"}, environment);
    Child deletes({QUILLON_ADDRESS_TABLE_USER, "delete"}, environment);
    for (Child *const process : {&singly, &batches, &batches_too, &deletes}) {
        process->write_line("");
    }
    for (Child *const walker : {&singly, &batches, &batches_too}) {
        EXPECT_EQ(walker->out().rest(), "");
        EXPECT_EQ(walker->wait(), 0);
    }
    deletes.close_input();
    EXPECT_EQ(deletes.out().rest(), "");
    EXPECT_EQ(deletes.wait(), 0);

    // What was learned at the port is gone, what was set there came back.
    EXPECT_EQ(size(), address_count * 3 / 4);
    EXPECT_EQ(DEV_AMTRDRV_PMGR_DeleteAllDynamicAddr(), 1);
    EXPECT_EQ(size(), address_count / 2);
    driver.signal(SIGTERM);
    EXPECT_EQ(driver.err().rest(), "") << "nothing was refused as malformed";
}

TEST_F(AddressTableTest, LearnsFromOutside)
{
    const struct {
        std::vector<std::string> words;
        std::string err;
    } rows[] = {
        {{"1", "02:00:00:00:00:01", "1", "1"}, ""},
        {{"1", "02-00-00-00-00-01", "2", "28", "16384"}, ""},
        {{"1", "02-00-00-00-40-01", "1", "1"},
         "02-00-00-00-40-01 cannot be learned (0 of 1 learned): the table is full"},
        {{"2", "02-00-00-00-00-01", "1", "1"}, "there is no VLAN 2"},
        {{"1", "02-00-00-00-00-01", "1", "29"}, "PORT is a number from 1 to 28, not '29'"},
        {{"1", "01-00-00-00-00-01", "1", "1"},
         "01-00-00-00-00-01 cannot be learned (0 of 1 learned): it is a multicast address or the switch's own"},
        {{"1", "02-00:00-00-00-01", "1", "1"},
         "MAC is like 02-00-00-00-00-01 or 02:00:00:00:00:01, not '02-00:00-00-00-01'"},
        {{"1", "02-00-00-00-00-0g", "1", "1"},
         "MAC is like 02-00-00-00-00-01 or 02:00:00:00:00:01, not '02-00-00-00-00-0g'"},
    };
    for (auto [words, err] : rows) {
        words.insert(words.begin(), "learn-address");
        const Ended ended = control(folder(), words);
        EXPECT_EQ(ended.status, err.empty() ? 0 : 1);
        EXPECT_EQ(ended.err, err.empty() ? "" : "quillon-ctl: learn-address: " + err + "\n");
    }
    const uint8_t moved[6] = {0x02, 0, 0, 0, 0, 1};
    uint32_t unit, port;
    uint8_t at;
    EXPECT_EQ(DEV_AMTRDRV_PMGR_ARLLookUp(1, moved, &unit, &port, &at), 1);
    EXPECT_EQ(std::tuple(unit, port), std::tuple(2U, 28U));
    EXPECT_EQ(DEV_AMTRDRV_PMGR_DisableHardwareLearning(), 1);
    EXPECT_THAT(control(folder(), {"learn-address", "1", "02-00-00-00-00-01", "1", "1"}).err,
                EndsWith("port 1 of unit 1 does not learn\n"));
}

}  // namespace
}  // namespace quillon::test
