// What the routing family's callers hold after a refusal, and after a failed exchange where that is not the usual.
#include <gtest/gtest.h>

#include "quillon/swdrvl3.h"
#include "support/arguments.h"
#include "support/recording_platform.h"
#include "wire/row_exchange.h"

namespace quillon::test {
namespace {

std::vector<WireRow> routing_rows_with_outputs()
{
    std::vector<WireRow> rows;
    for (const WireRow &row : all_wire_rows()) {
        if (row.function.starts_with("DEV_SWDRVL3_PMGR_") && !row.reply.empty()) {
            rows.push_back(row);
        }
    }
    return rows;
}

class RefusedRoutingTest : public testing::TestWithParam<WireRow> {};

// The driver process notes hardware information in the entries also when it refuses.
TEST_P(RefusedRoutingTest, StillCopiesTheReplyBack)
{
    WireRow row = GetParam();
    row.reply_type = refused;
    DEV_SWDRVL3_PMGR_InitiateProcessResource();
    reset_platform();
    platform().answer = [&row](const SentRequest &) {
        return PlayedReply{.from_type = reply_from_type(row, request_facts(row.sent_by))};
    };
    Arguments arguments;

    EXPECT_EQ(row.call(arguments), row.result == Result::byte ? 0 : refused);
    EXPECT_EQ(arguments.wrong_after_success(), "");
}

INSTANTIATE_TEST_SUITE_P(Request, RefusedRoutingTest, testing::ValuesIn(routing_rows_with_outputs()),
                         [](const testing::TestParamInfo<WireRow> &row) { return test_name(row.param); });

TEST(MulticastEntryStatusTest, IsTheRequestsCodeWhenTheExchangeFailsAndNobodyWrote)
{
    constexpr uint32_t failed_status = 0xFFFFFFD6;
    constexpr uint8_t address[16] = {};
    DEV_SWDRVL3_PMGR_InitiateProcessResource();
    reset_platform();
    platform().answer = [](const SentRequest &) {
        return PlayedReply{.status = failed_status, .poisoned = false, .from_type = {}};
    };
    uint32_t entry_status = 0x64636261;

    testing::internal::CaptureStdout();
    EXPECT_EQ(DEV_SWDRVL3_PMGR_l3mc_entry_stat(1, 2, address, address, &entry_status), failed_status);
    testing::internal::GetCapturedStdout();

    EXPECT_EQ(entry_status, 114);
}

}  // namespace
}  // namespace quillon::test
