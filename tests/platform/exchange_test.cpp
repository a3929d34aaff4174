// One exchange: what travels, what is stored, and which status says what.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <functional>
#include <numeric>
#include <thread>
#include <vector>

#include "host/platform/deadline.h"
#include "support.h"

namespace quillon::test {
namespace {

using host::PacketHeader;

// An envelope whose bytes all differ from their neighbours, with `msg_size` in place.
std::vector<unsigned char> patterned(uint16_t msg_size)
{
    std::vector<unsigned char> bytes(size_t{20} + msg_size);
    std::iota(bytes.begin(), bytes.end(), static_cast<unsigned char>(3));
    memcpy(&bytes[10], &msg_size, sizeof msg_size);
    const Ask type = Ask::echo;
    memcpy(&bytes[16], &type, sizeof type);
    return bytes;
}

// Faults: a byte lost or moved at either end of an envelope; a size that is taken for another width.
TEST(Exchange, CarriesEveryByteOfAnEnvelope)
{
    const Driver driver;
    void *const queue = attach();
    for (const uint16_t msg_size : std::initializer_list<uint16_t>{4, 5, 12, 255, 256, 8212, 65535}) {
        const auto request = patterned(msg_size);
        auto buffer = request;
        std::vector<unsigned char> reply(request.size(), 0xEE);
        ASSERT_EQ(__SYSFUN_SendRequestMsg(queue, buffer.data(), QUILLON_WAIT_FOREVER, 0, msg_size, reply.data(), "", 0),
                  QUILLON_STATUS_OK);
        EXPECT_EQ(reply, request) << msg_size;
        EXPECT_EQ(buffer, request) << "the request is not the reply's buffer";
    }
}

// Faults: a handle that remembers another queue; the connection of one queue used for another.
TEST(Exchange, ReachesTheQueueOfItsHandle)
{
    const Driver driver;
    void *const queue = attach(kQueue);
    void *const other = attach(kOtherQueue);
    EXPECT_EQ(attach(kQueue), queue);
    uint32_t key;
    memcpy(&key, static_cast<char *>(other) + 12, sizeof key);
    EXPECT_EQ(key, kOtherQueue);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(ask(queue, Ask::queue), kQueue);
        EXPECT_EQ(ask(other, Ask::queue), kOtherQueue);
    }
}

// Faults: a write past the reply's room; bytes past a short reply cleared; 20 + `reply_size` that overflows.
TEST(Exchange, StoresAsMuchAsIsThereAndFits)
{
    const Driver driver;
    void *const queue = attach();
    struct {
        uint32_t replied;
        uint32_t reply_size;
        ptrdiff_t stored;
    } const cases[] = {
        {20, 12, 20}, {27, 12, 27}, {32, 12, 32}, {64, 12, 32}, {64, 0, 20}, {64, 44, 64}, {65555, UINT32_MAX, 65555}};
    for (const auto &[replied, reply_size, stored] : cases) {
        Envelope request(Ask::sized, replied);
        std::vector<unsigned char> reply(65556, 0xEE);
        auto expected = reply;
        std::fill_n(expected.begin(), stored, static_cast<unsigned char>(0xAB));
        ASSERT_EQ(__SYSFUN_SendRequestMsg(queue, request.bytes.data(), QUILLON_WAIT_FOREVER, 0, reply_size,
                                          reply.data(), "", 0),
                  QUILLON_STATUS_OK);
        EXPECT_TRUE(reply == expected) << replied << " bytes into 20 + " << reply_size;
    }
}

TEST(Exchange, RefusesWhatIsNoHandleOrBuffer)
{
    const Driver driver;
    void *const queue = attach();
    Envelope envelope(Ask::echo);
    char elsewhere[64] = {};
    EXPECT_EQ(exchange(nullptr, envelope), QUILLON_STATUS_BAD_HANDLE);
    EXPECT_EQ(exchange(elsewhere, envelope), QUILLON_STATUS_BAD_HANDLE);
    EXPECT_EQ(exchange(static_cast<char *>(queue) + 1, envelope), QUILLON_STATUS_BAD_HANDLE);
    EXPECT_EQ(exchange(static_cast<char *>(queue) + (size_t{1} << 20), envelope), QUILLON_STATUS_BAD_HANDLE);
    EXPECT_EQ(__SYSFUN_SendRequestMsg(queue, nullptr, 1, 0, 4, envelope.bytes.data(), "", 0),
              QUILLON_STATUS_BAD_ARGUMENT);
    EXPECT_EQ(__SYSFUN_SendRequestMsg(queue, envelope.bytes.data(), 1, 0, 4, nullptr, "", 0),
              QUILLON_STATUS_BAD_ARGUMENT);
    EXPECT_EQ(SYSFUN_GetMsgQ(kQueue, 1, nullptr), QUILLON_STATUS_BAD_ARGUMENT);
    EXPECT_EQ(exchange(queue, envelope), QUILLON_STATUS_OK);
}

// Fault: the table of queues written past its end.
TEST(Exchange, RefusesMoreKeysThanThereIsRoomFor)
{
    EXPECT_EQ(in_child([] {
                  uint32_t status = QUILLON_STATUS_NO_DRIVER;
                  void *handle = nullptr;
                  uint32_t keys = 0;
                  while ((status = SYSFUN_GetMsgQ(1000 + keys, 1, &handle)) == QUILLON_STATUS_NO_DRIVER && keys < 100) {
                      ++keys;
                  }
                  const bool refused = status == QUILLON_STATUS_TOO_MANY_QUEUES && handle == nullptr;
                  return refused && attach(1000) != nullptr ? static_cast<int>(keys > 50) : 2;
              }),
              1);
}

// Faults: a handle that is not stored when nobody is there; a status that does not tell this case from others.
TEST(Exchange, SaysThatNobodyServesTheQueue)
{
    void *handle = nullptr;
    EXPECT_EQ(SYSFUN_GetMsgQ(kQueue, 1, &handle), QUILLON_STATUS_NO_DRIVER);
    ASSERT_NE(handle, nullptr);
    Envelope envelope(Ask::echo);
    const auto before = envelope.bytes;
    EXPECT_EQ(exchange(handle, envelope), QUILLON_STATUS_NO_DRIVER);
    EXPECT_EQ(envelope.bytes, before);
    const Driver driver;
    EXPECT_EQ(exchange(handle, envelope), QUILLON_STATUS_OK);
}

TEST(Exchange, SaysThatNoReplyWillCome)
{
    const Events events;
    const Driver driver(&events);
    void *const queue = attach();
    for (const Ask type : {Ask::silence, Ask::forget, Ask::throw_error}) {
        Envelope envelope(type);
        const auto before = envelope.bytes;
        EXPECT_EQ(exchange(queue, envelope), QUILLON_STATUS_NO_REPLY);
        EXPECT_EQ(envelope.bytes, before);
    }
    EXPECT_EQ(events.next(), 't');
    EXPECT_EQ(ask(queue, Ask::queue), kQueue);
}

// Fault: the reply that comes too late is taken for that of the next request.
TEST(Exchange, ALateReplyReachesNobody)
{
    const Events events;
    const Driver driver(&events);
    void *const queue = attach();
    for (const uint32_t wait_time : {0u, 1u, 30u}) {
        Envelope parked(Ask::park);
        const auto before = parked.bytes;
        EXPECT_EQ(exchange(queue, parked, wait_time), QUILLON_STATUS_TIMED_OUT);
        EXPECT_EQ(parked.bytes, before);
        EXPECT_EQ(events.next(), 'p');
        EXPECT_EQ(events.next(), 'g') << "the driver process learns that nobody waits";
        EXPECT_EQ(ask(queue, Ask::release), 0u);
        EXPECT_EQ(ask(queue, Ask::queue), kQueue);
    }
    Envelope in_time(Ask::echo);
    EXPECT_EQ(exchange(queue, in_time, 60'000), QUILLON_STATUS_OK);
}

// What a driver process with another idea of the transport might do, on a queue of its own.
class RawDriver {
  public:
    static constexpr uint32_t kKey = 77;

    explicit RawDriver(int backlog) : listener_(socket(AF_UNIX, SOCK_SEQPACKET, 0))
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        queue_path(kKey).copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(bind(listener_, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
        EXPECT_EQ(listen(listener_, backlog), 0);
    }
    ~RawDriver()
    {
        close(listener_);
        unlink(queue_path(kKey).c_str());
    }
    RawDriver(const RawDriver &) = delete;
    RawDriver &operator=(const RawDriver &) = delete;

    int accept_one() const { return accept(listener_, nullptr, nullptr); }

  private:
    int listener_;
};

struct RawReply {
    PacketHeader header = {.kind = PacketHeader::kReply};
    std::array<unsigned char, 40> envelope;
};

// Faults: a size from the peer believed; a reply stored before it is checked, or a second one as that of the next
// request; a connection kept that is out of step.
TEST(Exchange, RefusesWhatIsNoReply)
{
    constexpr size_t kWhole = sizeof(PacketHeader) + 24;
    struct Case {
        const char *what;
        size_t size;
        std::function<void(RawReply &)> spoil;
        int replies = 1;
    };
    const Case cases[] = {
        {"magic", kWhole, [](RawReply &reply) { reply.header.magic ^= 1; }},
        {"version", kWhole, [](RawReply &reply) { ++reply.header.version; }},
        {"kind", kWhole, [](RawReply &reply) { reply.header.kind = PacketHeader::kRequest; }},
        {"another request's", kWhole, [](RawReply &reply) { --reply.header.sequence; }},
        {"no header", sizeof(PacketHeader) - 1, [](RawReply &) {}},
        {"no result", sizeof(PacketHeader) + 19, [](RawReply &) {}},
        {"a second one", kWhole, [](RawReply &) {}, 2},
    };
    for (const Case &one : cases) {
        const RawDriver driver(8);
        std::jthread answering([&] {
            const int connection = driver.accept_one();
            RawReply reply;
            reply.envelope.fill(0xCD);
            recv(connection, &reply.header, sizeof reply.header, 0);
            reply.header.kind = PacketHeader::kReply;
            one.spoil(reply);
            for (int i = 0; i < one.replies; ++i) {
                ::send(connection, &reply, one.size, 0);
            }
            char end;
            while (recv(connection, &end, 1, 0) > 0) {
                EXPECT_GT(one.replies, 1) << "the client goes on with a connection that is out of step";
            }
            close(connection);
        });
        void *queue = nullptr;
        ASSERT_EQ(SYSFUN_GetMsgQ(RawDriver::kKey, 1, &queue), QUILLON_STATUS_OK);
        if (one.replies > 1) {
            Envelope first(Ask::echo);
            EXPECT_EQ(exchange(queue, first), QUILLON_STATUS_OK);
        }
        Envelope envelope(Ask::echo);
        const auto before = envelope.bytes;
        EXPECT_EQ(exchange(queue, envelope), QUILLON_STATUS_MALFORMED_REPLY) << one.what;
        EXPECT_EQ(envelope.bytes, before) << one.what;
    }
}

// Fault: the kernel refuses a rest of a wait that has a million microseconds besides its seconds.
TEST(Exchange, WaitsForAnyPartOfASecond)
{
    for (const long nanoseconds : {0L, 1L, 999'998'999L, 999'999'000L, 999'999'999L}) {
        const timeval wait = host::rounded_up({.tv_sec = 7, .tv_nsec = nanoseconds});
        EXPECT_LT(wait.tv_usec, 1'000'000) << nanoseconds;
        EXPECT_EQ(wait.tv_sec * 1'000'000 + wait.tv_usec, 7'000'001 + nanoseconds / 1000);
    }
}

// Fault: `wait_time` counts only from when the driver process has accepted.
TEST(Exchange, TimesOutBeforeItIsAccepted)
{
    void *const queue = attach(RawDriver::kKey);
    const RawDriver driver(0);
    const int in_the_backlog = raw_connection(RawDriver::kKey);
    Envelope envelope(Ask::echo);
    EXPECT_EQ(exchange(queue, envelope, 20), QUILLON_STATUS_TIMED_OUT);
    close(in_the_backlog);
}

}  // namespace
}  // namespace quillon::test
