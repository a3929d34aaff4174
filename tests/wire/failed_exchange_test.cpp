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
        start_all_families();
        reset_platform();
    }

    std::optional<uint64_t> call_with(const PlayedReply &reply)
    {
        platform().answer = [&reply](const SentRequest &) { return reply; };
        testing::internal::CaptureStdout();
        const std::optional<uint64_t> returned = GetParam().call(arguments_);
        printed_ = testing::internal::GetCapturedStdout();
        return returned;
    }

    static std::optional<uint64_t> expected_return(uint32_t type_afterwards)
    {
        const RequestFacts facts = request_facts(GetParam().sent_by);
        if (GetParam().result == Result::nothing) {
            return std::nullopt;
        }
        switch (facts.failure) {
            case Failure::value:
                return facts.failure_value;
            case Failure::type:
                return type_afterwards;
            case Failure::status:
                return failed_status;
        }
        return std::nullopt;
    }

    static std::string expected_report()
    {
        const RequestFacts facts = request_facts(GetParam().sent_by);
        const std::string name = facts.named_in_report ? GetParam().sent_by : "";
        std::string report = name + "() line " + std::to_string(platform().sent.at(0).line) +
                             ":Failed to send/receive IPC message.(msgq_key=" + std::to_string(facts.queue_key) +
                             ", rc=" + printed_status + ")\r\n";
        if (facts.send_line) {
            report += name + ":SYSFUN_SendRequestMsg fail! (" + printed_status + ")\n";
        }
        return report;
    }

    Arguments arguments_;
    std::string printed_;
};

TEST_P(FailedExchangeTest, IsReportedAndNotTriedAgain)
{
    const uint32_t code = GetParam().code.value();

    const std::optional<uint64_t> returned = call_with({.status = failed_status, .poisoned = false, .from_type = {}});

    ASSERT_EQ(platform().sent.size(), 1);
    EXPECT_EQ(printed_, expected_report());
    EXPECT_EQ(platform().shell_commands, std::vector<std::string>{"cat /proc/2271560481/ustack"});
    EXPECT_EQ(returned, expected_return(code));
}

// A whole reply stands in the buffer when the platform fails: nothing but the status says so.
TEST_P(FailedExchangeTest, LeavesTheOutputsAlone)
{
    const WireRow &row = GetParam();
    const RequestFacts facts = request_facts(row.sent_by);

    const std::optional<uint64_t> returned =
        call_with({.status = failed_status, .from_type = reply_from_type(row, facts)});

    EXPECT_EQ(returned, expected_return(row.reply_type));
    const bool writes_type = facts.failure == Failure::status;
    EXPECT_EQ(writes_type ? arguments_.wrong_after_success() : arguments_.wrong_after_failure(), "");
}

INSTANTIATE_TEST_SUITE_P(Request, FailedExchangeTest, testing::ValuesIn(one_row_a_function()),
                         [](const testing::TestParamInfo<WireRow> &row) { return row.param.function; });

}  // namespace
}  // namespace quillon::test
