// Each row's call with an exchange that succeeds: what is sent, and what its caller then holds.
#include <gtest/gtest.h>

#include "support/arguments.h"
#include "support/recording_platform.h"
#include "support/used_stack.h"
#include "wire/row_exchange.h"

namespace quillon::test {
namespace {

class WireTest : public testing::TestWithParam<WireRow> {
  protected:
    void SetUp() override
    {
        start_all_families();
        reset_platform();
        if (GetParam().code) {
            platform().answer = [](const SentRequest &) {
                const WireRow &row = GetParam();
                return PlayedReply{.poisoned = !row.short_reply,
                                   .from_type = reply_from_type(row, request_facts(row.sent_by))};
            };
        }
    }
};

std::optional<uint64_t> expected_return(const WireRow &row)
{
    if (row.returned) {
        return row.returned;
    }
    switch (row.result) {
        case Result::byte:
            return row.code ? row.reply_type & 0xFF : 0;
        case Result::word:
            return row.code ? row.reply_type : 0;
        case Result::nothing:
            break;
    }
    return std::nullopt;
}

void expect_sent_once(const WireRow &row)
{
    ASSERT_EQ(platform().sent.size(), 1);
    const RequestFacts facts = request_facts(row.sent_by);
    const SentRequest &sent = platform().sent.front();
    EXPECT_EQ(differences(sent_envelope(row, facts), sent.envelope), "");
    EXPECT_EQ(sent.queue_key, facts.queue_key);
    EXPECT_EQ(sent.reply_size, row.reply_size);
    EXPECT_EQ(sent.wait_time, 0xFFFFFFFF);
    EXPECT_EQ(sent.event_mask, 0x20000000);
    EXPECT_EQ(sent.function, row.sent_by);
    EXPECT_GT(sent.line, 0);
    EXPECT_TRUE(sent.reply_in_place);
}

TEST_P(WireTest, SendsItsBytesAndTakesTheReply)
{
    const WireRow &row = GetParam();
    Arguments arguments;

    testing::internal::CaptureStdout();
    leave_garbage_on_the_stack();
    const std::optional<uint64_t> returned = row.call(arguments);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), row.printed);

    EXPECT_EQ(returned, expected_return(row));
    EXPECT_EQ(platform().shell_commands, std::vector<std::string>{});
    if (row.code) {
        expect_sent_once(row);
        EXPECT_EQ(arguments.wrong_after_success(), "");
    } else {
        EXPECT_TRUE(platform().sent.empty());
        EXPECT_EQ(arguments.wrong_after_failure(), "");
    }
}

INSTANTIATE_TEST_SUITE_P(Request, WireTest, testing::ValuesIn(all_wire_rows()),
                         [](const testing::TestParamInfo<WireRow> &row) { return test_name(row.param); });

}  // namespace
}  // namespace quillon::test
