// What holds for every request function when the platform fails the exchange.
#include <gtest/gtest.h>

#include <set>

#include "support/arguments.h"
#include "support/recording_platform.h"
#include "wire/row_exchange.h"

namespace quillon::test {
namespace {

// Both lines of the report print the low 32 bits of the status, and none of them as a sign.
constexpr uint32_t failed_status = 0xFFFFFFD6;
constexpr const char *printed_status = "4294967254";

std::vector<WireRow> one_row_a_function()
{
    std::vector<WireRow> rows;
    std::set<std::string> seen;
    for (const WireRow &row : all_wire_rows()) {
        if (row.code && seen.insert(row.function).second) {
            rows.push_back(row);
        }
    }
    return rows;
}

class FailedExchangeTest : public testing::TestWithParam<WireRow> {
  protected:
    void SetUp() override
    {
        reset_platform();
        start_family_of(row_.sent_by, facts_.queue_key);
    }

    std::optional<uint64_t> call_with(const PlayedReply &reply)
    {
        platform().answer = [&reply](const SentRequest &) { return reply; };
        testing::internal::CaptureStdout();
        const std::optional<uint64_t> returned = row_.call(arguments_);
        printed_ = testing::internal::GetCapturedStdout();
        return returned;
    }

    std::optional<uint64_t> expected_return(uint32_t type_afterwards) const
    {
        if (row_.result == Result::nothing) {
            return std::nullopt;
        }
        switch (facts_.failure) {
            case Failure::value:
                return facts_.failure_value;
            case Failure::type:
                return type_afterwards;
            case Failure::status:
                return failed_status;
        }
        return std::nullopt;
    }

    std::string expected_report() const
    {
        const std::string name = facts_.named_in_report ? row_.sent_by : "";
        std::string report = name + "() line " + std::to_string(platform().sent.at(0).line) +
                             ":Failed to send/receive IPC message.(msgq_key=" + std::to_string(facts_.queue_key) +
                             ", rc=" + printed_status + ")\r\n";
        if (facts_.send_line) {
            report += name + ":SYSFUN_SendRequestMsg fail! (" + printed_status + ")\n";
        }
        return report;
    }

    const WireRow &row_ = GetParam();
    const RequestFacts facts_ = request_facts(row_.sent_by);
    Arguments arguments_;
    std::string printed_;
};

TEST_P(FailedExchangeTest, IsReportedAndNotTriedAgain)
{
    const uint32_t code = row_.code.value();

    const std::optional<uint64_t> returned = call_with({.status = failed_status, .poisoned = false});

    ASSERT_EQ(platform().sent.size(), 1);
    EXPECT_EQ(printed_, expected_report());
    EXPECT_EQ(platform().shell_commands, std::vector<std::string>{"cat /proc/2271560481/ustack"});
    EXPECT_EQ(returned, expected_return(code));
}

// A whole reply stands in the buffer when the platform fails: nothing but the status says so.
TEST_P(FailedExchangeTest, LeavesTheOutputsAlone)
{
    const std::optional<uint64_t> returned =
        call_with({.status = failed_status, .from_type = reply_from_type(row_, facts_)});

    EXPECT_EQ(returned, expected_return(row_.reply_type));
    const bool writes_type = facts_.failure == Failure::status;
    EXPECT_EQ(writes_type ? arguments_.wrong_after_success() : arguments_.wrong_after_failure(), "");
}

INSTANTIATE_TEST_SUITE_P(Request, FailedExchangeTest, testing::ValuesIn(one_row_a_function()),
                         [](const testing::TestParamInfo<WireRow> &row) { return row.param.function; });

}  // namespace
}  // namespace quillon::test
