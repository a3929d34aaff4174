// The failure report and the failure value of each family.
#include <gtest/gtest.h>

#include <functional>
#include <optional>

#include "frame/family_commands.h"
#include "support/recording_platform.h"

namespace quillon::test {
namespace {

constexpr uint32_t failed_status = 0xFFFFFFD6;

struct FailureCase {
    const char *name;
    std::function<std::optional<uint64_t>()> request;
    const char *report;
    // When the platform left the buffer alone, and when it had put 0x9A8B7C6D in place of the code.
    std::optional<uint64_t> value;
    std::optional<uint64_t> value_after_write;
};

void PrintTo(const FailureCase &failure_case, std::ostream *stream)
{
    *stream << failure_case.name;
}

class FailedExchangeTest : public testing::TestWithParam<FailureCase> {
  protected:
    void SetUp() override { reset_platform(); }

    static std::optional<uint64_t> printed_by_request(std::string &printed)
    {
        testing::internal::CaptureStdout();
        const std::optional<uint64_t> value = GetParam().request();
        printed = testing::internal::GetCapturedStdout();
        return value;
    }
};

TEST_P(FailedExchangeTest, IsReportedAsTheFamilyDoes)
{
    platform().answer = [](const SentRequest &) { return PlayedReply{.status = failed_status, .poisoned = false}; };
    std::string printed;

    EXPECT_EQ(printed_by_request(printed), GetParam().value);
    EXPECT_EQ(printed, GetParam().report);
    EXPECT_EQ(platform().shell_commands, std::vector<std::string>{"cat /proc/2271560481/ustack"});
    EXPECT_EQ(platform().sent.size(), 1);
}

TEST_P(FailedExchangeTest, GivesItsValueWhateverTheBufferHolds)
{
    platform().answer = [](const SentRequest &) {
        return PlayedReply{.status = failed_status, .from_type = bytes_of("6D7C8B9A")};
    };
    std::string printed;

    EXPECT_EQ(printed_by_request(printed), GetParam().value_after_write);
    EXPECT_EQ(printed, GetParam().report);
}

template <class C>
std::optional<uint64_t> value_of()
{
    if constexpr (std::is_void_v<typename C::Result>) {
        request_of<C>();
        return std::nullopt;
    } else {
        return request_of<C>();
    }
}

constexpr const char *one_line =
    "an_exported_function() line 77:Failed to send/receive IPC message.(msgq_key=24, rc=4294967254)\r\n";
constexpr const char *two_lines =
    "an_exported_function() line 77:Failed to send/receive IPC message.(msgq_key=24, rc=4294967254)\r\n"
    "an_exported_function:SYSFUN_SendRequestMsg fail! (4294967254)\n";
constexpr const char *two_lines_without_name =
    "() line 77:Failed to send/receive IPC message.(msgq_key=24, rc=4294967254)\r\n"
    ":SYSFUN_SendRequestMsg fail! (4294967254)\n";

const FailureCase failure_cases[] = {
    {"switch", value_of<SwitchCommand>, one_line, 0, 0},
    {"twsi", value_of<TwsiCommand>,
     "an_exported_function() line 77:Failed to send/receive IPC message.(msgq_key=59, rc=4294967254)\r\n", 0, 0},
    {"address", value_of<AddressCommand>, two_lines, 0, 0},
    {"address_without_result", value_of<AddressCommandWithoutResult>, two_lines, {}, {}},
    {"qos", value_of<QosCommand>, one_line, 0, 0},
    {"qos_with_send_line", value_of<QosCommandWithSendLine>, two_lines, 0, 0},
    {"counters", value_of<CounterCommand>, two_lines, 0, 0},
    {"rules", value_of<RuleCommand>, two_lines_without_name, 0, 0},
    {"rules_word", value_of<RuleWordCommand>, two_lines_without_name, 0, 0},
    {"routing", value_of<RoutingCommand>, two_lines, 0, 0},
    {"routing_status", value_of<RoutingStatusCommand>, two_lines, 7, 7},
    {"routing_status_byte", value_of<RoutingByteStatusCommand>, two_lines, 7, 7},
    {"multicast", value_of<MulticastCommand>, two_lines, 0x1234, 0x9A8B7C6D},
    {"packets", value_of<PacketCommand>,
     "an_exported_function() line 77:Failed to send/receive IPC message.(msgq_key=25, rc=4294967254)\r\n", 0, 0},
    {"packet_free", value_of<PacketFreeCommand>,
     "an_exported_function() line 77:Failed to send/receive IPC message.(msgq_key=52, rc=4294967254)\r\n", 0, 0},
};

INSTANTIATE_TEST_SUITE_P(Family, FailedExchangeTest, testing::ValuesIn(failure_cases),
                         [](const testing::TestParamInfo<FailureCase> &row) { return std::string(row.param.name); });

TEST(FailureReportTest, PrintsKeyZeroForAQueueThatWasNeverAttached)
{
    struct NeverAttached : ipc::Queue<24> {};
    reset_platform();
    platform().answer = [](const SentRequest &) { return PlayedReply{.status = 1, .poisoned = false}; };

    testing::internal::CaptureStdout();
    const uint8_t value = ipc::call<ipc::Command<swdrv::Family, NeverAttached, 2>>(ipc::NoOutput(), some_caller);

    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "an_exported_function() line 77:Failed to send/receive IPC message.(msgq_key=0, rc=1)\r\n");
    EXPECT_EQ(value, 0);
    EXPECT_EQ(platform().sent.at(0).handle, nullptr);
}

}  // namespace
}  // namespace quillon::test
