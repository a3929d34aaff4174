#include "host/driver/dispatcher.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stddef.h>
#include <stdint.h>

#include <algorithm>
#include <array>
#include <future>
#include <numeric>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "driver/served_dispatcher.h"
#include "ipc/command.h"
#include "support/byte_text.h"

namespace quillon::test {
namespace {

using driver::Call;
using driver::Dispatcher;
using driver::Parked;
using testing::HasSubstr;

// Commands of every shape that the protocol has.
using At24 = ipc::Family<120, 24>;
using At20 = ipc::Family<121, 20>;
struct MainQueue : ipc::Queue<24> {};
struct TwsiQueue : ipc::Queue<59> {};

struct Byte {
    uint8_t value;
};
struct Word {
    uint32_t value;
};
struct TwoWords {
    uint32_t first;
    uint32_t second;
};
struct WordAndFlag {
    uint32_t word;
    ipc::Padded<uint8_t> flag;
};
struct ManyBytes {
    std::array<uint8_t, 8188> bytes;
};
struct Records {
    std::array<uint8_t, 4080> bytes;
};

using Count = ipc::Command<At24, MainQueue, 1>;
using Swap = ipc::Command<At24, MainQueue, 2, TwoWords, TwoWords>;
using SwapAt20 = ipc::Command<At20, MainQueue, 2, TwoWords, TwoWords>;
using TakeByte = ipc::Command<At24, MainQueue, 3, Byte, ipc::Empty>;
using Sum = ipc::Command<At24, MainQueue, 4, ManyBytes, Word, uint32_t>;
using Fill = ipc::Command<At24, MainQueue, 5, Word, Records>;
using OnOtherQueue = ipc::Command<At24, TwsiQueue, 6, ipc::Empty, Word>;
using FlagBack = ipc::Command<At24, MainQueue, 7, WordAndFlag, WordAndFlag>;
struct Status : ipc::Command<At20, MainQueue, 8, Word, Word, uint32_t> {
    static constexpr uint32_t failure = 7;
};
struct Unchanged : ipc::Command<At24, MainQueue, 0x0142, Word, ipc::Empty, uint32_t> {
    static constexpr bool failure_is_type = true;
};
using Ignored = ipc::Command<At24, MainQueue, 10, Word, ipc::Empty, void>;
using Throws = ipc::Command<At24, MainQueue, 11>;
struct Unmodelled : Status {
    static constexpr uint32_t code = 12;
};

void add_all_shapes(Dispatcher &dispatcher)
{
    const auto swap = [](const TwoWords &request, TwoWords &reply) {
        reply = {.first = request.second, .second = request.first};
        return true;
    };
    dispatcher.on<Count>([] { return uint8_t{0xC3}; });
    dispatcher.on<Swap>(swap);
    dispatcher.on<SwapAt20>(swap);
    dispatcher.on<TakeByte>([](const Byte &request) { return request.value == 0x5A; });
    dispatcher.on<Sum>([](const ManyBytes &request, Word &reply) {
        reply.value = std::accumulate(request.bytes.begin(), request.bytes.end(), 0U);
        return 0x01020304U;
    });
    dispatcher.on<Fill>([](const Word &request, Records &reply) {
        reply.bytes.fill(static_cast<uint8_t>(request.value));
        return true;
    });
    dispatcher.on<OnOtherQueue>([](Word &reply) {
        reply.value = 59;
        return true;
    });
    dispatcher.on<FlagBack>([](const WordAndFlag &request, WordAndFlag &reply) {
        reply = request;
        reply.flag = static_cast<uint8_t>(request.flag + 1);
        return true;
    });
    dispatcher.on<Status>([](const Word &request, Word & /*reply*/) { return request.value; });
    dispatcher.on<Unchanged>([](const Word &request) { return request.value; });
    dispatcher.on<Ignored>([](const Word & /*request*/) { return false; });
    dispatcher.on<Throws>([]() -> bool { throw std::runtime_error("as asked"); });
    dispatcher.not_modelled<Unmodelled>();
}

struct Row {
    const char *what;
    uint32_t queue;
    std::string request;
    uint32_t room;
    std::string reply;
};

void expect_replies(std::initializer_list<Row> rows, const ServedDispatcher &served)
{
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        const auto reply = served.client(row.queue).exchange(closed_bytes_of(row.request), row.room);
        ASSERT_TRUE(reply);
        EXPECT_EQ(differences(bytes_of(row.reply), *reply), "");
    }
}

// The place of each member, the sizes, the result, the header that is given back and the gap that is not.
TEST(Dispatcher, AnswersCommandsOfEveryShape)
{
    const ServedDispatcher served(add_all_shapes);
    expect_replies(
        {
            {"a result alone", 24, "A0..A7 7800 0400 B0..B3 01000000 C0..C3", 24,
             "A0..A7 7800 0400 B0..B3 C3000000 00*4"},
            {"members behind a gap", 24, "A0..A7 7800 0C00 B0..B3 02000000 C0..C3 11223344 55667788", 32,
             "A0..A7 7800 0C00 B0..B3 01000000 00*4 55667788 11223344"},
            {"members without a gap", 24, "+8 7900 0C00 +16 02000000 11223344 55667788 D0..D3", 32,
             "+8 7900 0C00 +16 01000000 55667788 11223344 00*4"},
            {"a single byte", 24, "+8 7800 0500 +16 03000000 +24 5A", 24, "+8 7800 0500 +16 01000000 00*4"},
            {"another byte, refused by its handler", 24, "+8 7800 0500 +16 03000000 +24 5B", 24,
             "+8 7800 0500 +16 00000000 00*4"},
            {"a large request, a word as result", 24, "+8 7800 0020 +16 04000000 +24 02*8188", 28,
             "+8 7800 0020 +16 04030201 00*4 F83F0000"},
            {"a large reply", 24, "+8 7800 0800 +16 05000000 +24 EE000000", 4104,
             "+8 7800 0800 +16 01000000 00*4 EE*4080"},
            {"the other queue", 59, "+8 7800 0400 +16 06000000 00*4", 28, "+8 7800 0400 +16 01000000 00*4 3B000000"},
            {"in place, a narrow field", 24, "+8 7800 0C00 +16 07000000 +24 11223344 7F000000", 32,
             "+8 7800 0C00 +16 01000000 00*4 11223344 80000000"},
            {"a status of four bytes, a reply that its handler leaves", 24, "+8 7900 0800 +16 08000000 01020304 00*4",
             28, "+8 7900 0800 +16 01020304 00*8"},
            {"a caller that ignores the result", 24, "+8 7800 0800 +16 0A000000 +24 11223344", 24,
             "+8 7800 0800 +16 00*8"},
        },
        served);
    EXPECT_EQ(served.logged(), "");
}

TEST(Dispatcher, CutsTheReplyToTheRoom)
{
    const ServedDispatcher served(add_all_shapes);
    const std::string request = "+8 7800 0C00 +16 02000000 +24 11223344 55667788";
    expect_replies({{"half a member", 24, request, 30, "+8 7800 0C00 +16 01000000 00*4 55667788 1122"},
                    {"no member", 24, request, 24, "+8 7800 0C00 +16 01000000 00*4"},
                    {"the result alone", 24, request, 20, "+8 7800 0C00 +16 01000000"},
                    {"more than there is", 24, request, 1000, "+8 7800 0C00 +16 01000000 00*4 55667788 11223344"}},
                   served);
    EXPECT_EQ(served.client().exchange(closed_bytes_of(request), 19), std::nullopt);
    EXPECT_EQ(served.client().exchange(closed_bytes_of(request), 0), std::nullopt);
}

// A handler that sees what it cannot understand, a caller that waits for ever, or one that takes a refusal for a
// success.
TEST(Dispatcher, RefusesWhatNoHandlerIsFor)
{
    const ServedDispatcher served(add_all_shapes);
    const struct {
        Row row;
        const char *logged;
    } rows[] = {
        {{"nothing", 24, "", 24, "00*24"}, "reason=\"cut short\" queue=24 module=0 code=0 msg_size=0 bytes=0"},
        {{"a piece of a header", 24, "A0..A7 7800 0400 B0..B2", 24, "A0..A7 7800 0400 B0..B2 00*9"},
         "reason=\"cut short\" queue=24 module=120 code=0 msg_size=4 bytes=15"},
        {{"a size that is not what came", 24, "+8 7800 0D00 +16 02000000 00*12", 32, "+8 7800 0D00 +16 00*16"},
         "reason=\"wrong size\" queue=24 module=120 code=2 msg_size=13 bytes=32"},
        {{"too small for the command", 24, "+8 7800 0800 +16 02000000 00*8", 32, "+8 7800 0800 +16 00*16"},
         "reason=\"wrong size\" queue=24 module=120 code=2 msg_size=8 bytes=28"},
        {{"too large for the command", 24, "+8 7900 0900 +16 08000000 00*9", 28, "+8 7900 0900 +16 07000000 00*8"},
         "reason=\"wrong size\" queue=24 module=121 code=8 msg_size=9 bytes=29"},
        {{"an unknown module", 24, "+8 7B00 0400 +16 01000000 00*4", 24, "+8 7B00 0400 +16 00*8"},
         "reason=\"unknown module\" queue=24 module=123 code=1 "},
        {{"an unknown code", 24, "+8 7800 0400 +16 FF000000 00*4", 24, "+8 7800 0400 +16 00*8"},
         "reason=\"unknown code\" queue=24 module=120 code=255 "},
        {{"a code that is known by its low half", 24, "+8 7800 0400 +16 01000100 00*4", 24, "+8 7800 0400 +16 00*8"},
         "reason=\"unknown code\" queue=24 module=120 code=65537 "},
        {{"a code of another module", 24, "+8 7900 0400 +16 01000000 00*4", 24, "+8 7900 0400 +16 00*8"},
         "reason=\"unknown code\" queue=24 module=121 code=1 "},
        {{"a queue that is not the command's", 59, "+8 7900 0800 +16 08000000 00*8", 28,
          "+8 7900 0800 +16 07000000 00*8"},
         "reason=\"wrong queue\" queue=59 module=121 code=8 "},
        {{"another one", 24, "+8 7800 0400 +16 06000000 00*4", 28, "+8 7800 0400 +16 00*12"},
         "reason=\"wrong queue\" queue=24 module=120 code=6 "},
        {{"a caller that looks at the type", 59, "+8 7800 0800 +16 42010000 00*8", 24,
          "+8 7800 0800 +16 42010000 00*4"},
         "reason=\"wrong queue\" queue=59 module=120 code=322 "},
        {{"a command that is not modelled", 24, "+8 7900 0800 +16 0C000000 00*8", 28, "+8 7900 0800 +16 07000000 00*8"},
         "reason=\"not modelled\" queue=24 module=121 code=12 "},
        {{"a handler that fails", 24, "+8 7800 0400 +16 0B000000 00*4", 24, "+8 7800 0400 +16 00*8"},
         "error request-refused reason=\"handler failed\" queue=24 module=120 code=11 msg_size=4 bytes=24"},
    };
    for (const auto &[row, logged] : rows) {
        expect_replies({row}, served);
        EXPECT_THAT(served.logged(), HasSubstr(logged)) << row.what;
    }
    EXPECT_THAT(served.logged(), HasSubstr("error=\"as asked\""));
    EXPECT_EQ(std::ranges::count(served.logged(), '\n'), std::ssize(rows));
}

TEST(Dispatcher, RefusesASecondHandlerForACommand)
{
    driver::EventLog log(STDERR_FILENO, driver::Level::info);
    Dispatcher dispatcher(log);
    dispatcher.on<Count>([] { return true; });
    EXPECT_THROW(dispatcher.not_modelled<Count>(), std::logic_error);
}

// ---- Answers that are given later ----

using Wait = ipc::Command<At20, MainQueue, 20, Word, Word, uint32_t>;
const std::string wait_request = "A0..A7 7900 0800 B0..B3 14000000 11223344 00*4";

// A handler that parks what it is asked for, and answers a request for 0 at once.
class Waits {
  public:
    explicit Waits(Dispatcher &dispatcher)
    {
        dispatcher.on_parkable<Wait>(
            [this](const Word &request, Word &reply, Call<Wait> &call) -> std::optional<uint32_t> {
                if (request.value == 0) {
                    reply.value = 0x77;
                    return 5;
                }
                parked_.set_value(call.park([this] { gone_.set_value(); }));
                return std::nullopt;
            });
        dispatcher.on<Count>([] { return uint8_t{0xC3}; });
    }

    Parked<Wait> take() { return parked_.get_future().get(); }
    void wait_until_client_is_gone() { gone_.get_future().wait(); }

  private:
    std::promise<Parked<Wait>> parked_;
    std::promise<void> gone_;
};

struct ParkingTest : testing::Test {
    std::optional<Waits> waits;
    ServedDispatcher served{[this](Dispatcher &dispatcher) { waits.emplace(dispatcher); }};
    std::optional<RawQueue> waiter = served.client();
};

TEST_F(ParkingTest, HoldsNobodyUp)
{
    waiter->send(closed_bytes_of(wait_request), 28);
    Parked<Wait> parked = waits->take();

    RawQueue other = served.client();
    for (int i = 0; i < 100; ++i) {
        ASSERT_TRUE(other.exchange(closed_bytes_of("+8 7800 0400 +16 01000000 00*4"), 24));
    }
    EXPECT_TRUE(parked.awaited());
    EXPECT_TRUE(parked.answer(0x01020304U, {.value = 0x55}));
    EXPECT_EQ(differences(bytes_of("A0..A7 7900 0800 B0..B3 04030201 55000000 00*4"), waiter->receive().value()), "");

    // Only once, and the connection goes on.
    EXPECT_FALSE(parked.answer(1U));
    EXPECT_TRUE(waiter->exchange(closed_bytes_of("+8 7800 0400 +16 01000000 00*4"), 24));
}

TEST_F(ParkingTest, MayAnswerAtOnce)
{
    const auto reply = waiter->exchange(closed_bytes_of("+8 7900 0800 +16 14000000 00*8"), 28);
    EXPECT_EQ(differences(bytes_of("+8 7900 0800 +16 05000000 77000000 00*4"), reply.value()), "");
}

TEST_F(ParkingTest, RefusesLikeEveryOtherRefusal)
{
    waiter->send(closed_bytes_of(wait_request), 28);
    waits->take().refuse();
    EXPECT_EQ(differences(bytes_of("A0..A7 7900 0800 B0..B3 00*12"), waiter->receive().value()), "");
}

TEST_F(ParkingTest, FailsTheCallOfWhatIsDropped)
{
    waiter->send(closed_bytes_of(wait_request), 28);
    {
        const Parked<Wait> dropped = waits->take();
    }
    EXPECT_EQ(waiter->receive(), std::nullopt);
}

TEST_F(ParkingTest, TellsThatTheClientIsGone)
{
    waiter->send(closed_bytes_of(wait_request), 28);
    Parked<Wait> parked = waits->take();
    waiter.reset();
    waits->wait_until_client_is_gone();
    EXPECT_FALSE(parked.awaited());
    EXPECT_FALSE(parked.answer(1U));
}

}  // namespace
}  // namespace quillon::test
