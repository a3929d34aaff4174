// Each row's call with an exchange that succeeds: what is sent, and what its caller then holds.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

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
        reset_platform();
        handle_ = start_family_of(row_.sent_by, facts_.queue_key);
        if (row_.code) {
            platform().answer = [this](const SentRequest &) {
                return PlayedReply{.poisoned = !row_.short_reply, .from_type = reply_from_type(row_, facts_)};
            };
        }
    }

    void expect_sent_once() const
    {
        ASSERT_EQ(platform().sent.size(), 1);
        const SentRequest &sent = platform().sent.front();
        EXPECT_EQ(differences(sent_envelope(row_, facts_), sent.envelope), "");
        EXPECT_EQ(sent.queue_key, facts_.queue_key);
        EXPECT_EQ(sent.handle, handle_);
        EXPECT_EQ(sent.reply_size, row_.reply_size);
        EXPECT_EQ(sent.wait_time, 0xFFFFFFFF);
        EXPECT_EQ(sent.event_mask, 0x20000000);
        EXPECT_EQ(sent.function, row_.sent_by);
        EXPECT_GT(sent.line, 0);
        EXPECT_TRUE(sent.reply_in_place);
    }

    const WireRow &row_ = GetParam();
    const RequestFacts facts_ = request_facts(row_.sent_by);
    void *handle_ = nullptr;
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

// What was printed, with "<line>" in place of the number that stands where `expected` has it.
std::string without_line(std::string printed, const std::string &expected)
{
    constexpr std::string_view placeholder = "<line>";
    const size_t start = expected.find(placeholder);
    if (start == std::string::npos || start >= printed.size()) {
        return printed;
    }
    const size_t digits = std::min(printed.find_first_not_of("0123456789", start), printed.size()) - start;
    return digits == 0 ? printed : printed.replace(start, digits, placeholder);
}

TEST_P(WireTest, SendsItsBytesAndTakesTheReply)
{
    Arguments arguments;

    testing::internal::CaptureStdout();
    leave_garbage_on_the_stack();
    const std::optional<uint64_t> returned = row_.call(arguments);
    EXPECT_EQ(without_line(testing::internal::GetCapturedStdout(), row_.printed), row_.printed);

    EXPECT_EQ(returned, expected_return(row_));
    EXPECT_EQ(platform().shell_commands, std::vector<std::string>{});
    if (row_.code) {
        expect_sent_once();
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
