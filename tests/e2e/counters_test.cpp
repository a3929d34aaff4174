// Counters of all ports, with traffic from outside.
#include <stdint.h>
#include <string.h>

#include <array>
#include <string>

#include "e2e/support/client_test.h"

namespace quillon::test {
namespace {

constexpr uint32_t units = 2;
constexpr uint32_t ports = 28;

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

struct CountersTest : ClientTest {
    struct Expected {
        Column broadcasts;
        Column pauses_sent;
        Column fcs_errors;
    };

    // Where the frames that come in at a port show.
    void expect_counted() const
    {
        for (uint32_t unit = 1; unit <= units; ++unit) {
            const auto &[broadcasts, pauses_sent, fcs_errors] = expected[unit];
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
            EXPECT_EQ(column(DEV_NMTRDRV_PMGR_GetEtherLikePause, unit, 2), pauses_sent) << unit;
        }
    }

    std::array<Expected, units + 1> expected{};
};

TEST_F(CountersTest, AreReadForAllPortsAndCleared)
{
    for (uint32_t unit = 1; unit <= units; ++unit) {
        auto &[broadcasts, pauses, errors] = expected[unit];
        const std::string of_unit = std::to_string(unit);
        for (uint32_t port = 1; port <= ports; ++port) {
            const uint64_t count = broadcasts[port - 1] = unit * 1'000'000'000ULL + port;
            told({"traffic", of_unit, std::to_string(port), "received", "broadcast", "100", std::to_string(count)});
        }
        pauses[unit] = 5;
        errors[ports - unit] = 6;
        told({"traffic", of_unit, std::to_string(unit + 1), "sent", "pause", "64", "5"});
        told({"traffic", of_unit, std::to_string(ports + 1 - unit), "received", "fcs-error", "99", "6"});
    }
    told({"inject-packet", "2", "28", "FFFFFFFFFFFF 020000000001 0806" + std::string(size_t{2} * (96 - 14), '0')});
    ++expected[2].broadcasts[27];
    expect_counted();

    EXPECT_EQ(DEV_NMTRDRV_PMGR_ClearPortCounter(2, 28), 1);
    expected[2].broadcasts[27] = expected[2].pauses_sent[27] = expected[2].fcs_errors[27] = 0;
    expect_counted();
    EXPECT_EQ(DEV_NMTRDRV_PMGR_ClearAllCounters(), 1);
    expected = {};
    expect_counted();
    driver.expect_quiet_end();
}

}  // namespace
}  // namespace quillon::test
