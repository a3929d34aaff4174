// Counters of all ports, with traffic from outside.
#include <gtest/gtest.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <array>
#include <string>
#include <vector>

#include "e2e/support/control.h"
#include "e2e/support/driver_process.h"
#include "e2e/support/observe.h"
#include "quillon/nmtrdrv.h"

namespace quillon::test {
namespace {

constexpr uint32_t units = 2;
constexpr uint32_t ports = 30;

// This process is a client as well. A client looks its run-time folder up once.
const std::string &folder()
{
    static const TestFolder for_this_process;
    static const int set = setenv("QUILLON_RUNTIME_DIR", for_this_process.path().c_str(), 1);
    EXPECT_EQ(set, 0);
    return for_this_process.path();
}

struct CountersTest : testing::Test {
    CountersTest() { DEV_NMTRDRV_PMGR_InitiateProcessResource(); }

    static Ended traffic(const std::vector<std::string> &words)
    {
        std::vector<std::string> all = {"traffic"};
        all.insert(all.end(), words.begin(), words.end());
        return control(folder(), all);
    }

    DriverProcess driver{folder(), {"--log-level=warning", "--ports=" + std::to_string(ports)}};
};

// One column of the records of all ports of a unit.
using Column = std::array<uint64_t, ports>;

template <class Record>
Column column(uint8_t (*read)(uint32_t, uint32_t, uint32_t, Record *), uint32_t unit, size_t number)
{
    std::array<Record, ports> records;
    EXPECT_EQ(read(unit, 1, ports, records.data()), 1);
    Column values;
    for (size_t i = 0; i < ports; ++i) {
        memcpy(&values[i], &records[i].bytes[number * sizeof values[i]], sizeof values[i]);
    }
    return values;
}

// Where the frames that come in at a port show.
void expect_counted(uint32_t unit, const Column &broadcasts, const Column &pauses_sent, const Column &fcs_errors)
{
    Column octets;
    Column frames;
    for (size_t i = 0; i < ports; ++i) {
        octets[i] = 100 * broadcasts[i];
        frames[i] = broadcasts[i] + fcs_errors[i];
    }
    EXPECT_EQ(column(DEV_NMTRDRV_PMGR_GetIfTableStats, unit, 0), octets) << unit;
    EXPECT_EQ(column(DEV_NMTRDRV_PMGR_GetIfTableStats, unit, 4), fcs_errors) << unit;
    EXPECT_EQ(column(DEV_NMTRDRV_PMGR_GetIfXTableStats, unit, 7), broadcasts) << unit;
    EXPECT_EQ(column(DEV_NMTRDRV_PMGR_GetRmonStats, unit, 2), frames) << unit;
    EXPECT_EQ(column(DEV_NMTRDRV_PMGR_GetRmonStats, unit, 12), frames) << unit;
    EXPECT_EQ(column(DEV_NMTRDRV_PMGR_GetEtherLikeStats, unit, 1), fcs_errors) << unit;
    EXPECT_EQ(column(DEV_NMTRDRV_PMGR_GetEtherLikePause, unit, 2), pauses_sent) << unit;
}

TEST_F(CountersTest, AreReadForAllPortsAndCleared)
{
    std::array<std::array<Column, 3>, units + 1> expected{};
    for (uint32_t unit = 1; unit <= units; ++unit) {
        auto &[broadcasts, pauses, errors] = expected[unit];
        for (uint32_t port = 1; port <= ports; ++port) {
            const std::string at = std::to_string(port);
            const uint64_t count = broadcasts[port - 1] = unit * 1'000'000'000ULL + port;
            EXPECT_EQ(traffic({std::to_string(unit), at, "received", "broadcast", "100", std::to_string(count)}).status,
                      0);
        }
        pauses[unit] = 5;
        errors[ports - unit] = 6;
        EXPECT_EQ(traffic({std::to_string(unit), std::to_string(unit + 1), "sent", "pause", "64", "5"}).status, 0);
        EXPECT_EQ(traffic({std::to_string(unit), std::to_string(ports + 1 - unit), "received", "fcs-error", "99", "6"})
                      .status,
                  0);
    }
    const std::string packet = "FFFFFFFFFFFF 020000000001 0806" + std::string(size_t{2} * (96 - 14), '0');
    EXPECT_EQ(control(folder(), {"inject-packet", "2", "30", packet}).status, 0);
    ++expected[2][0][29];
    for (uint32_t unit = 1; unit <= units; ++unit) {
        const auto &[broadcasts, pauses, errors] = expected[unit];
        expect_counted(unit, broadcasts, pauses, errors);
    }

    EXPECT_EQ(DEV_NMTRDRV_PMGR_ClearPortCounter(2, 30), 1);
    for (Column &values : expected[2]) {
        values[29] = 0;
    }
    for (uint32_t unit = 1; unit <= units; ++unit) {
        const auto &[broadcasts, pauses, errors] = expected[unit];
        expect_counted(unit, broadcasts, pauses, errors);
    }
    EXPECT_EQ(DEV_NMTRDRV_PMGR_ClearAllCounters(), 1);
    for (uint32_t unit = 1; unit <= units; ++unit) {
        expect_counted(unit, {}, {}, {});
    }
    driver.signal(SIGTERM);
    EXPECT_EQ(driver.err().rest(), "") << "nothing was refused as malformed";
    EXPECT_EQ(driver.wait(), 0);
}

TEST_F(CountersTest, RefuseTrafficThatCannotBe)
{
    const struct {
        std::vector<std::string> words;
        std::string err;
    } rows[] = {
        {{"1", "31", "sent", "unicast", "64", "1"}, "PORT is a number from 1 to 30, not '31'"},
        {{"1", "1", "lost", "unicast", "64", "1"}, "frames are received or sent, not 'lost'"},
        {{"1", "1", "sent", "anycast", "64", "1"}, "there are no 'anycast' frames"},
        {{"1", "1", "sent", "fcs-error", "64", "1"}, "ports do not send fcs-error frames"},
        {{"1", "1", "sent", "unicast", "63", "1"}, "SIZE is a number from 64 to 9242, not '63'"},
        {{"1", "1", "received", "unicast", "65536", "1"}, "SIZE is a number from 1 to 65535, not '65536'"},
        {{"1", "1", "received", "unicast", "64", "0"}, "COUNT is a number from 1 to 4294967295, not '0'"},
        {{"1", "2", "received", "unicast", "64", "1"}, "the link of port 1/2 is down"},
    };
    EXPECT_EQ(control(folder(), {"cable", "1", "2", "pull"}).status, 0);
    for (const auto &row : rows) {
        const Ended ended = traffic(row.words);
        EXPECT_EQ(ended.status, 1);
        EXPECT_EQ(ended.err, "quillon-ctl: traffic: " + row.err + "\n");
    }
    expect_counted(1, {}, {}, {});
}

}  // namespace
}  // namespace quillon::test
