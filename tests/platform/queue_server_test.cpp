// The driver process's half: odd packets, clients that misbehave, replies that come later.
#include <errno.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "support.h"

namespace quillon::test {
namespace {

using host::PacketHeader;
using host::QueueError;
using host::QueueServer;
using host::Request;
using host::RuntimeFolder;

bool send_raw(int connection, const std::vector<char> &packet)
{
    return ::send(connection, packet.data(), packet.size(), MSG_NOSIGNAL | MSG_DONTWAIT) >= 0;
}

// The reply's size, 0 when the connection was closed.
ssize_t receive_raw(int connection)
{
    char packet[256];
    const ssize_t size = recv(connection, packet, sizeof packet, 0);
    return size < 0 && errno == ECONNRESET ? 0 : size;
}

// Faults: a size that is believed; an envelope too short for a header handed on as a sound one.
TEST(QueueServer, HandsMalformedRequestsToTheHandlerAsSuch)
{
    const Events events;
    const Driver driver(&events);
    const auto sound = raw_request(Ask::echo);
    struct {
        size_t envelope_size;
        char told;
    } const cases[] = {{0, 's'}, {10, 's'}, {19, 's'}, {20, 'w'}, {31, 'w'}, {33, 'w'}, {200'000, 'w'}};
    const int connection = raw_connection();
    for (const auto &[envelope_size, told] : cases) {
        auto packet = sound;
        packet.resize(sizeof(PacketHeader) + envelope_size);
        ASSERT_TRUE(send_raw(connection, packet)) << envelope_size;
        EXPECT_EQ(events.next(), told) << envelope_size;
        EXPECT_EQ(receive_raw(connection), static_cast<ssize_t>(sizeof(PacketHeader) + 24))
            << "a failure can be replied";
    }
    ASSERT_TRUE(send_raw(connection, sound));
    EXPECT_EQ(receive_raw(connection), static_cast<ssize_t>(sound.size()));
    close(connection);
}

// Fault: bytes of something else interpreted as a request.
TEST(QueueServer, DropsWhoeverDoesNotSpeakItsTransport)
{
    const Events events;
    const Driver driver(&events);
    const auto sound = raw_request(Ask::echo);
    auto wrong_magic = sound;
    wrong_magic[0] = 'x';
    auto wrong_version = sound;
    ++wrong_version[4];
    auto wrong_kind = sound;
    wrong_kind[6] = PacketHeader::kReply;
    const std::vector<char> too_short(sound.begin(), sound.begin() + sizeof(PacketHeader) - 1);
    for (const auto &packet : {wrong_magic, wrong_version, wrong_kind, too_short}) {
        const int connection = raw_connection();
        ASSERT_TRUE(send_raw(connection, packet));
        EXPECT_EQ(events.next(), 'f');
        EXPECT_EQ(receive_raw(connection), 0);
        close(connection);
    }
    EXPECT_EQ(ask(attach(), Ask::queue), kQueue);
}

// Fault: the server blocks on a client that does not read, or serves one that floods before all others.
TEST(QueueServer, DropsAClientThatDoesNotReadItsReplies)
{
    const Events events;
    const Driver driver(&events);
    void *const queue = attach();
    const auto packet = raw_request(Ask::echo);
    const int flooding = raw_connection();
    std::jthread other([queue] {
        for (int i = 0; i < 100; ++i) {
            EXPECT_EQ(ask(queue, Ask::queue), kQueue);
        }
    });
    while (::send(flooding, packet.data(), packet.size(), MSG_NOSIGNAL) >= 0) {
        continue;
    }
    EXPECT_EQ(events.next(), 'n');
    other.join();
    close(flooding);
}

// Faults: an answer that is lost because it comes before the handler returns; a connection that is deaf afterwards.
TEST(QueueServer, AnswersFromAnotherThread)
{
    const Driver driver;
    void *const queue = attach();
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(ask(queue, Ask::cross), 7u);
        EXPECT_EQ(ask(queue, Ask::queue), kQueue);
    }
}

// Fault: a client that sends on while its request is parked gets a reply to the wrong one.
TEST(QueueServer, TakesOneRequestOfAClientAtATime)
{
    const Events events;
    const Driver driver(&events);
    const int connection = raw_connection();
    ASSERT_TRUE(send_raw(connection, raw_request(Ask::park, 1)));
    EXPECT_EQ(events.next(), 'p');
    ASSERT_TRUE(send_raw(connection, raw_request(Ask::queue, 2)));
    void *const queue = attach();
    EXPECT_EQ(ask(queue, Ask::queue), kQueue);
    EXPECT_EQ(ask(queue, Ask::release), 1u);
    for (const uint32_t sequence : {1u, 2u}) {
        PacketHeader header;
        ASSERT_GE(recv(connection, &header, sizeof header, 0), static_cast<ssize_t>(sizeof header));
        EXPECT_EQ(header.sequence, sequence);
    }
    close(connection);
}

// Fault: the listener that cannot accept stays ready, and the thread spins on it and reports for ever.
TEST(QueueServer, WaitsForDescriptorsAndReportsItOnce)
{
    const Events events;
    // Room for a few clients beside the two queues' own descriptors.
    Driver driver(&events, [] { limit_descriptors(12, 12); });
    void *const queue = attach();
    EXPECT_EQ(ask(queue, Ask::queue), kQueue);
    std::vector<int> crowd;
    rlimit limit;
    ASSERT_EQ(prlimit(driver.pid(), RLIMIT_NOFILE, nullptr, &limit), 0);
    const std::filesystem::path descriptors = "/proc/" + std::to_string(driver.pid()) + "/fd";
    while (std::distance(std::filesystem::directory_iterator(descriptors), {}) < static_cast<long>(limit.rlim_cur)) {
        crowd.push_back(raw_connection());
        ASSERT_TRUE(send_raw(crowd.back(), raw_request(Ask::queue)));
        EXPECT_GT(receive_raw(crowd.back()), 0);
    }
    const int last_in = crowd.back();
    crowd.pop_back();
    ASSERT_TRUE(send_raw(last_in, raw_request(Ask::park)));
    EXPECT_EQ(events.next(), 'p') << "nobody waits for a descriptor, and nothing is reported";
    for (int i = 0; i < 30; ++i) {
        crowd.push_back(raw_connection());
    }
    EXPECT_EQ(events.next(), 'd');
    EXPECT_TRUE(driver.comes_to_wait());
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(ask(queue, Ask::queue), kQueue) << "who is in is served";
    }
    ASSERT_TRUE(send_raw(crowd.back(), raw_request(Ask::throw_error)));
    for (const int connection : crowd) {
        if (connection != crowd.back()) {
            close(connection);
        }
    }
    EXPECT_EQ(events.next(), 't') << "who waited has its turn, and nothing was reported twice";
    close(crowd.back());
    close(last_in);
}

// Fault: loosened modes are all that keeps other users out, or a client believes a queue that another user serves.
TEST(QueueServer, AndClientRefuseAnotherUser)
{
    // The tests' command runs as root, where this always runs; whoever builds as another user has no second one.
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can be two users";
    }
    const Events events;
    const Driver driver(&events);
    ASSERT_EQ(chmod(runtime_folder().c_str(), 0711), 0);
    ASSERT_EQ(chmod(queue_path().c_str(), 0666), 0);
    const auto as_another_user = [](const std::function<int()> &body) {
        return in_child([&] { return setuid(65534) == 0 ? body() : -1; });
    };
    EXPECT_EQ(as_another_user([] {
                  void *handle = nullptr;
                  return static_cast<int>(SYSFUN_GetMsgQ(kQueue, 1, &handle));
              }),
              static_cast<int>(QUILLON_STATUS_REFUSED_PEER));
    EXPECT_EQ(events.next(), 'u');
    EXPECT_EQ(as_another_user([] {
                  const int connection = raw_connection();
                  send_raw(connection, raw_request(Ask::echo));
                  return static_cast<int>(receive_raw(connection));
              }),
              0);
    EXPECT_EQ(events.next(), 'u');
    chmod(runtime_folder().c_str(), 0700);
}

TEST(QueueServer, CreatesAQueueOnceAndForItsUserOnly)
{
    const RuntimeFolder folder = RuntimeFolder::claim();
    QueueServer server(folder);
    const auto handler = [](Request &) { return size_t{0}; };
    // A run that was killed between the two steps of making a queue.
    close(open((runtime_folder() + "/.queue-24.new").c_str(), O_CREAT | O_CLOEXEC, 0600));
    server.create_queue(kQueue, handler);
    EXPECT_THROW(server.create_queue(kQueue, handler), QueueError);
    struct stat status;
    ASSERT_EQ(stat(queue_path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, static_cast<mode_t>(S_IFSOCK | 0600));
    server.stop();
    server.run();  // a stop that came first is not lost
}

}  // namespace
}  // namespace quillon::test
