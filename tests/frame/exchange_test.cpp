// What a family's facts make of a request, byte for byte, and of its result.
#include "ipc/exchange.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

#include "frame/family_commands.h"
#include "support/recording_platform.h"
#include "support/used_stack.h"

namespace quillon::test {
namespace {

PlayedReply success(const SentRequest &)
{
    return {.from_type = bytes_of("013C4B5A")};
}

struct SentCase {
    const char *name;
    std::function<void()> request;
    uint32_t queue_key;
    const char *envelope;
};

void PrintTo(const SentCase &sent_case, std::ostream *stream)
{
    *stream << sent_case.name;
}

class SentEnvelopeTest : public testing::TestWithParam<SentCase> {};

TEST_P(SentEnvelopeTest, HasTheFactsOfItsFamily)
{
    reset_platform();
    platform().answer = success;

    leave_garbage_on_the_stack();
    GetParam().request();

    ASSERT_EQ(platform().sent.size(), 1);
    const SentRequest &sent = platform().sent.front();
    EXPECT_EQ(differences(bytes_of(GetParam().envelope), sent.envelope), "");
    EXPECT_EQ(sent.queue_key, GetParam().queue_key);
    EXPECT_EQ(sent.wait_time, 0xFFFFFFFF);
    EXPECT_EQ(sent.event_mask, 0x20000000);
    EXPECT_TRUE(sent.reply_in_place);
    EXPECT_EQ(sent.function, "an_exported_function");
    EXPECT_EQ(sent.line, 77);
}

// Members start at +24 or at +20, and as many bytes travel in both cases. What an uncleared envelope holds is open.
const SentCase sent_cases[] = {
    {"switch", request_of<SwitchCommand>, 24, "00*8 78000C00 00*4 34120000 00*4 11121314 2122 3132"},
    {"twsi", request_of<TwsiCommand>, 59, "00*8 78000C00 00*4 34120000 00*4 11121314 2122 3132"},
    {"address", request_of<AddressCommand>, 24, "00*8 79000C00 00*4 34120000 11121314 2122 3132 00*4"},
    {"qos", request_of<QosCommand>, 24, "00*8 7A000C00 00*4 34120000 11121314 2122 3132 00*4"},
    {"counters", request_of<CounterCommand>, 24, "00*8 7E000C00 00*4 34120000 00*4 11121314 2122 3132"},
    {"rules", request_of<RuleCommand>, 24, "00*8 7F000C00 00*4 34120000 00*4 11121314 2122 3132"},
    {"routing", request_of<RoutingCommand>, 24, "00*8 80000C00 00*4 34120000 00*4 11121314 2122 3132"},
    {"multicast", request_of<MulticastCommand>, 24, "00*8 80000C00 00*4 34120000 00*4 11121314 2122 3132"},
    {"packets", request_of<PacketCommand>, 25, "--*8 25000C00 --*4 34120000 --*4 11121314 2122 3132"},
    {"packet_free", request_of<PacketFreeCommand>, 52, "--*8 25000C00 --*4 34120000 --*4 11121314 2122 3132"},
};

INSTANTIATE_TEST_SUITE_P(Family, SentEnvelopeTest, testing::ValuesIn(sent_cases),
                         [](const testing::TestParamInfo<SentCase> &row) { return std::string(row.param.name); });

class ExchangeTest : public testing::Test {
  protected:
    void SetUp() override
    {
        reset_platform();
        platform().answer = success;
    }
};

TEST_F(ExchangeTest, CountsATypeWordAndNothingElseWithoutMembers)
{
    using Bare = swdrv::Command<2>;
    using BareOfUnclearedFamily = nicdrv::Command<2>;
    leave_garbage_on_the_stack();

    ipc::call<Bare>();
    ipc::call<BareOfUnclearedFamily>();

    EXPECT_EQ(differences(bytes_of("00*8 78000400 00*4 02000000 00*4"), platform().sent.at(0).envelope), "");
    EXPECT_EQ(platform().sent.at(0).reply_size, 4);
    EXPECT_EQ(differences(bytes_of("--*8 25000400 --*4 02000000 --*4"), platform().sent.at(1).envelope), "");
}

// The packet path saves the stores; whoever reads these bytes would see it here first.
TEST_F(ExchangeTest, LeavesAnUnclearedEnvelopeAsTheStackHeldIt)
{
    leave_garbage_on_the_stack();
    request_of<PacketCommand>();

    const std::vector<uint8_t> &sent = platform().sent.at(0).envelope;
    EXPECT_NE(differences(bytes_of("00*8 --*4 00*4 --*4 00*4 --*8"), sent), "");
}

TEST_F(ExchangeTest, SendsTheWholeWordOfANarrowField)
{
    struct Narrow {
        ipc::Padded<uint8_t> byte;
        ipc::Padded<uint16_t> half;
    };
    leave_garbage_on_the_stack();

    ipc::call<nicdrv::Command<2, Narrow>>({.byte = uint8_t{0x91}, .half = uint16_t{0xA2A1}});

    EXPECT_EQ(
        differences(bytes_of("--*8 25000C00 --*4 02000000 --*4 91000000 A1A20000"), platform().sent.at(0).envelope),
        "");
}

TEST_F(ExchangeTest, SendsACountedByteThatNobodyFillsAsZero)
{
    struct Counted {
        uint8_t value;
        ipc::Unused<3> rest;
    };
    leave_garbage_on_the_stack();

    ipc::call<swdrv::Command<2, Counted>>({.value = 0x91, .rest = {}});
    ipc::call<swdrv::Command<10, ipc::Unused<8>>>({});

    EXPECT_EQ(differences(bytes_of("00*8 78000800 00*4 02000000 00*4 91000000"), platform().sent.at(0).envelope), "");
    EXPECT_EQ(differences(bytes_of("00*8 78000C00 00*4 0A000000 00*4 00*8"), platform().sent.at(1).envelope), "");
}

TEST_F(ExchangeTest, GivesTheLowByteOrTheWordOrNothingOfTheResult)
{
    static_assert(std::is_same_v<decltype(request_of<RuleCommand>()), uint8_t>);
    static_assert(std::is_same_v<decltype(request_of<RuleWordCommand>()), uint32_t>);
    static_assert(std::is_void_v<decltype(request_of<AddressCommandWithoutResult>())>);

    EXPECT_EQ(request_of<RuleCommand>(), 0x01);
    EXPECT_EQ(request_of<RuleWordCommand>(), 0x5A4B3C01);
    EXPECT_EQ(request_of<RoutingStatusCommand>(), 0x5A4B3C01);
    EXPECT_EQ(request_of<RoutingByteStatusCommand>(), 0x01);
    EXPECT_EQ(request_of<MulticastCommand>(), 0x5A4B3C01);
    request_of<AddressCommandWithoutResult>();
    EXPECT_EQ(platform().sent.size(), 6);
}

// At +20 in one family and at +24 in the other.
TEST_F(ExchangeTest, ReadsTheReplyWhereTheFamilysDataStarts)
{
    platform().answer = [](const SentRequest &) { return PlayedReply{.from_type = bytes_of("00000000 51525354")}; };
    uint32_t output = 0;
    ipc::call<amtrdrv::Command<2, ipc::Empty, ReplyMember>>(ipc::into(&output));
    EXPECT_EQ(output, 0x54535251);
    EXPECT_EQ(platform().sent.back().reply_size, 8);

    platform().answer = [](const SentRequest &) {
        return PlayedReply{.from_type = bytes_of("00000000 41424344 61626364")};
    };
    ipc::call<swdrv::Command<2, ipc::Empty, ReplyMember>>(ipc::into(&output));
    EXPECT_EQ(output, 0x64636261);
    EXPECT_EQ(platform().sent.back().reply_size, 8);
}

TEST_F(ExchangeTest, TellsAnOutputTheLowByteOfTheResult)
{
    uint8_t told = 0xFF;
    const auto output = [&](const ReplyMember &, uint8_t result) { told = result; };

    platform().answer = success;
    ipc::call<MulticastCommand>({}, output);
    EXPECT_EQ(told, 0x01);

    platform().answer = [](const SentRequest &) { return PlayedReply{.from_type = bytes_of("003C4B5A")}; };
    ipc::call<MulticastCommand>({}, output);
    EXPECT_EQ(told, 0x00);
}

TEST_F(ExchangeTest, NamesTheFunctionAndTheLineOfTheCall)
{
    constexpr uint32_t here = __LINE__;
    ipc::call<swdrv::Command<2>>();

    EXPECT_EQ(platform().sent.at(0).function, __func__);
    EXPECT_EQ(platform().sent.at(0).line, here + 1);
}

}  // namespace
}  // namespace quillon::test
