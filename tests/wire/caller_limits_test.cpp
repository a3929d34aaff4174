// Limits that the functions leave to their callers: a debug build of the library stops beyond them.
#include <gtest/gtest.h>
#include <stdint.h>

#include <string>
#include <vector>

#include "quillon/nmtrdrv.h"
#include "quillon/swdrv.h"
#include "quillon/swdrvl3.h"

namespace quillon::test {
namespace {

struct CallerLimit {
    std::string name;
    uint32_t most;
    const char *assertion;
    void (*call)(uint32_t count);
};

// For GoogleTest's messages.
void PrintTo(const CallerLimit &limit, std::ostream *stream)
{
    *stream << limit.name;
}

const CallerLimit caller_limits[] = {
    {"AddDot1vProtocolPortEntry", 11, "max_templates",
     [](uint32_t count) {
         const ProtocolGroupKey key{};
         const std::vector<uint8_t> templates(count * sizeof(ProtocolTemplate));
         DEV_SWDRV_PMGR_AddDot1vProtocolPortEntry(1, 1, 0, 0, count, &key, 0, templates.data());
     }},
    {"DelDot1vProtocolPortEntry", 11, "max_templates",
     [](uint32_t count) {
         const ProtocolGroupKey key{};
         const std::vector<uint8_t> templates(count * sizeof(ProtocolTemplate));
         DEV_SWDRV_PMGR_DelDot1vProtocolPortEntry(1, 1, 0, 0, count, &key, templates.data());
     }},
    {"SetPortSTAState", 4094, "max_entries",
     [](uint32_t count) {
         const std::vector<uint16_t> vlans(count);
         DEV_SWDRV_PMGR_SetPortSTAState(0, count, vlans.data(), 1, 1, 5);
     }},
    {"AddInetECMPRouteMultiPath", 8, "max_next_hops",
     [](uint32_t count) {
         NetRouteEntry entry{};
         const std::vector<uint64_t> next_hops(count);
         DEV_SWDRVL3_PMGR_AddInetECMPRouteMultiPath(&entry, next_hops.data(), count);
     }},
    {"GetIfTableStats", QUILLON_STATS_PORTS, "max_ports",
     [](uint32_t count) {
         std::vector<IfTableStats> records(count);
         DEV_NMTRDRV_PMGR_GetIfTableStats(0, 1, count, records.data());
     }},
    {"GetRmonStats", QUILLON_STATS_PORTS, "max_ports",
     [](uint32_t count) {
         std::vector<RmonStats> records(count);
         DEV_NMTRDRV_PMGR_GetRmonStats(0, 1, count, records.data());
     }},
};

class CallerLimitTest : public testing::TestWithParam<CallerLimit> {};

TEST_P(CallerLimitTest, IsAssertedInADebugBuild)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(GetParam().call(GetParam().most + 1), GetParam().assertion);
}

INSTANTIATE_TEST_SUITE_P(Request, CallerLimitTest, testing::ValuesIn(caller_limits),
                         [](const testing::TestParamInfo<CallerLimit> &limit) { return limit.param.name; });

}  // namespace
}  // namespace quillon::test
