// Start-up of each family, with all its queues and with one missing.
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
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

template <void (*start_up)()>
std::optional<uint8_t> started()
{
    start_up();
    return std::nullopt;
}

struct Family {
    std::function<std::optional<uint8_t>()> start_up;
    std::vector<uint32_t> keys;
    std::string failure;
    // It attaches no further than to a queue that is missing, and returns whether all are there.
    bool tells = false;
};

const Family families[] = {
    {started<DEV_SWDRV_PMGR_InitiateProcessResource>, {24, 59}, ""},
    {started<DEV_AMTRDRV_PMGR_InitiateProcessResource>,
     {24},
     "DEV_AMTRDRV_PMGR_InitiateProcessResource(): SYSFUN_GetMsgQ fail.\n"},
    {DEV_NICDRV_PMGR_InitiateProcessResource,
     {25, 52},
     "DEV_NICDRV_PMGR_InitiateProcessResource(): SYSFUN_GetMsgQ fail.\n",
     true},
    {started<DEV_SWDRVL4_PMGR_InitiateProcessResource>, {24}, ""},
    {started<DEV_SWDRVL3_PMGR_InitiateProcessResource>,
     {24},
     "DEV_SWDRVL3_PMGR_InitiateProcessResource(): SYSFUN_GetMsgQ fail.\n"},
    {started<DEV_NMTRDRV_PMGR_InitiateProcessResource>,
     {24},
     "DEV_NMTRDRV_PMGR_InitiateProcessResource(): SYSFUN_GetMsgQ fail.\n"},
    {started<DEVRM_PMGR_InitiateProcessResource>, {24}, "(): SYSFUN_GetMsgQ fail.\n"},
};

void expect_start_up(const Family &family, std::optional<uint32_t> missing)
{
    reset_platform();
    if (missing) {
        platform().missing_queues = {*missing};
    }
    testing::internal::CaptureStdout();
    const std::optional<uint8_t> returned = family.start_up();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), missing ? family.failure : "");

    EXPECT_EQ(returned, family.tells ? std::optional<uint8_t>(missing ? 0 : 1) : std::nullopt);
    std::vector<uint32_t> expected = family.keys;
    if (family.tells && missing == expected[0]) {
        expected.resize(1);
    }
    std::vector<uint32_t> keys;
    for (const Attach &attach : platform().attaches) {
        keys.push_back(attach.key);
        EXPECT_EQ(attach.mode, 1);
    }
    EXPECT_EQ(keys, expected);
    EXPECT_EQ(platform().shell_commands, std::vector<std::string>{});
}

TEST(StartUpTest, AttachesInOrderAndReportsAsTheFamilyDoes)
{
    for (const Family &family : families) {
        SCOPED_TRACE("family " + std::to_string(&family - families));
        expect_start_up(family, {});
        for (const uint32_t missing : family.keys) {
            SCOPED_TRACE("without queue " + std::to_string(missing));
            expect_start_up(family, missing);
        }
    }
}

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
