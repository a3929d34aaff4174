// Start-up of each family, with all its queues and with one missing.
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <set>
#include <vector>

#include "quillon/amtrdrv.h"
#include "quillon/devrm.h"
#include "quillon/nicdrv.h"
#include "quillon/nmtrdrv.h"
#include "quillon/swdrv.h"
#include "quillon/swdrvl3.h"
#include "quillon/swdrvl4.h"
#include "support/recording_platform.h"

namespace quillon::test {
namespace {

struct StartUpCase {
    const char *name;
    std::function<std::optional<uint8_t>()> start_up;
    std::set<uint32_t> missing;
    // Tried, in this order.
    std::vector<uint32_t> keys;
    const char *printed = "";
    std::optional<uint8_t> returned = {};
};

void PrintTo(const StartUpCase &start_up_case, std::ostream *stream)
{
    *stream << start_up_case.name;
}

class StartUpTest : public testing::TestWithParam<StartUpCase> {};

TEST_P(StartUpTest, AttachesInOrderAndReportsAsTheFamilyDoes)
{
    reset_platform();
    platform().missing_queues = GetParam().missing;

    testing::internal::CaptureStdout();
    const std::optional<uint8_t> returned = GetParam().start_up();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), GetParam().printed);

    EXPECT_EQ(returned, GetParam().returned);
    std::vector<uint32_t> keys;
    for (const Attach &attach : platform().attaches) {
        keys.push_back(attach.key);
        EXPECT_EQ(attach.mode, 1);
    }
    EXPECT_EQ(keys, GetParam().keys);
    EXPECT_EQ(platform().shell_commands, std::vector<std::string>{});
}

template <void (*start_up)()>
std::optional<uint8_t> started()
{
    start_up();
    return std::nullopt;
}

const StartUpCase start_up_cases[] = {
    {"swdrv", started<DEV_SWDRV_PMGR_InitiateProcessResource>, {}, {24, 59}},
    {"swdrv_without_24", started<DEV_SWDRV_PMGR_InitiateProcessResource>, {24}, {24, 59}},
    {"swdrv_without_59", started<DEV_SWDRV_PMGR_InitiateProcessResource>, {59}, {24, 59}},
    {"amtrdrv", started<DEV_AMTRDRV_PMGR_InitiateProcessResource>, {}, {24}},
    {"amtrdrv_without_24",
     started<DEV_AMTRDRV_PMGR_InitiateProcessResource>,
     {24},
     {24},
     "DEV_AMTRDRV_PMGR_InitiateProcessResource(): SYSFUN_GetMsgQ fail.\n"},
    {"nicdrv", DEV_NICDRV_PMGR_InitiateProcessResource, {}, {25, 52}, "", 1},
    {"nicdrv_without_25",
     DEV_NICDRV_PMGR_InitiateProcessResource,
     {25},
     {25},
     "DEV_NICDRV_PMGR_InitiateProcessResource(): SYSFUN_GetMsgQ fail.\n",
     0},
    {"nicdrv_without_52",
     DEV_NICDRV_PMGR_InitiateProcessResource,
     {52},
     {25, 52},
     "DEV_NICDRV_PMGR_InitiateProcessResource(): SYSFUN_GetMsgQ fail.\n",
     0},
    {"swdrvl4", started<DEV_SWDRVL4_PMGR_InitiateProcessResource>, {}, {24}},
    {"swdrvl4_without_24", started<DEV_SWDRVL4_PMGR_InitiateProcessResource>, {24}, {24}},
    {"swdrvl3", started<DEV_SWDRVL3_PMGR_InitiateProcessResource>, {}, {24}},
    {"swdrvl3_without_24",
     started<DEV_SWDRVL3_PMGR_InitiateProcessResource>,
     {24},
     {24},
     "DEV_SWDRVL3_PMGR_InitiateProcessResource(): SYSFUN_GetMsgQ fail.\n"},
    {"nmtrdrv", started<DEV_NMTRDRV_PMGR_InitiateProcessResource>, {}, {24}},
    {"nmtrdrv_without_24",
     started<DEV_NMTRDRV_PMGR_InitiateProcessResource>,
     {24},
     {24},
     "DEV_NMTRDRV_PMGR_InitiateProcessResource(): SYSFUN_GetMsgQ fail.\n"},
    {"devrm", started<DEVRM_PMGR_InitiateProcessResource>, {}, {24}},
    {"devrm_without_24", started<DEVRM_PMGR_InitiateProcessResource>, {24}, {24}, "(): SYSFUN_GetMsgQ fail.\n"},
};

INSTANTIATE_TEST_SUITE_P(Family, StartUpTest, testing::ValuesIn(start_up_cases),
                         [](const testing::TestParamInfo<StartUpCase> &row) { return std::string(row.param.name); });

class StartedFamilyTest : public testing::Test {
  protected:
    void SetUp() override
    {
        reset_platform();
        platform().answer = [](const SentRequest &) { return PlayedReply{.from_type = bytes_of("02000000")}; };
    }
};

TEST_F(StartedFamilyTest, WorksOnItsOtherQueueWhenOneIsMissing)
{
    platform().missing_queues = {59};
    DEV_SWDRV_PMGR_InitiateProcessResource();
    platform().answer = [](const SentRequest &request) {
        return request.handle == nullptr ? PlayedReply{.status = 5, .poisoned = false}
                                         : PlayedReply{.from_type = bytes_of("02000000")};
    };

    EXPECT_EQ(DEV_SWDRV_PMGR_GetLocalUnitChipsetNumber(), 2);
    testing::internal::CaptureStdout();
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiInit(), 0);

    const std::string line = std::to_string(platform().sent.at(1).line);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "DEV_SWDRV_PMGR_TwsiInit() line " + line + ":Failed to send/receive IPC message.(msgq_key=0, rc=5)\r\n");
}

TEST_F(StartedFamilyTest, UsesTheHandlesOfItsLatestStartUp)
{
    DEV_SWDRV_PMGR_InitiateProcessResource();
    DEV_SWDRV_PMGR_InitiateProcessResource();
    DEV_SWDRV_PMGR_GetLocalUnitChipsetNumber();

    ASSERT_EQ(platform().attaches.size(), 4);
    EXPECT_NE(platform().attaches[0].handle, platform().attaches[2].handle);
    EXPECT_EQ(platform().sent.at(0).handle, platform().attaches[2].handle);
}

// Two families attach to the same queue; what one finds there is nothing to the other.
TEST_F(StartedFamilyTest, KeepsItsHandleWhenAnotherFamilyStarts)
{
    DEV_SWDRV_PMGR_InitiateProcessResource();
    platform().missing_queues = {24};
    DEV_SWDRVL4_PMGR_InitiateProcessResource();

    DEV_SWDRV_PMGR_GetLocalUnitChipsetNumber();

    EXPECT_EQ(platform().sent.at(0).handle, platform().attaches[0].handle);
}

}  // namespace
}  // namespace quillon::test
