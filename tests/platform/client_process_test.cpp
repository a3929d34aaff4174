// What the client's half does to the process that loads it: forks, descriptors, limits, signals.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <functional>
#include <set>
#include <thread>
#include <vector>

#include "support.h"

namespace quillon::test {
namespace {

bool echoes(void *queue, uint32_t word)
{
    Envelope envelope(Ask::echo, word);
    return exchange(queue, envelope) == QUILLON_STATUS_OK && envelope.word() == word;
}

// Faults: a child that hangs on a lock of the parent's, or reads the replies to the parent's calls.
TEST(ClientProcess, ForksWhileCallsAreUnderWay)
{
    const Driver driver;
    EXPECT_EQ(in_child([] {
                  void *const queue = attach();
                  std::atomic<bool> stop = false;
                  std::atomic<int> wrong = 0;
                  std::vector<std::jthread> callers;
                  for (uint32_t i = 0; i < 4; ++i) {
                      callers.emplace_back([&, i] {
                          for (uint32_t call = 0; !stop; ++call) {
                              wrong += !echoes(queue, i << 24 | call);
                          }
                      });
                  }
                  for (uint32_t i = 0; i < 40; ++i) {
                      const pid_t child = fork();
                      if (child == 0) {
                          _exit(echoes(queue, 0xC0000000 + i) && echoes(attach(kOtherQueue), i) ? 0 : 1);
                      }
                      int status = -1;
                      waitpid(child, &status, 0);
                      wrong += status != 0;
                  }
                  stop = true;
                  callers.clear();
                  return wrong.load();
              }),
              0);
}

// Fault: a child that lives on keeps its parent's connections open, and the parent's death goes unnoticed.
TEST(ClientProcess, AChildHoldsNoConnectionOfItsParents)
{
    const Events events;
    const Driver driver(&events);
    int child_lives[2];
    ASSERT_EQ(pipe(child_lives), 0);
    Process parent([&](const auto &ready) {
        void *const queue = attach();
        if (fork() == 0) {
            close(child_lives[1]);
            char end;
            read(child_lives[0], &end, 1);
            _exit(0);
        }
        ready();
        return static_cast<int>(ask(queue, Ask::park));
    });
    EXPECT_EQ(events.next(), 'p');
    parent.kill_and_wait();
    EXPECT_EQ(events.next(), 'g');
    close(child_lives[0]);
    close(child_lives[1]);
}

// Fault: a program that the client starts holds a connection, and with it the driver process's idea of who lives.
TEST(ClientProcess, ClosesItsDescriptorsOnExec)
{
    const Driver driver;
    EXPECT_EQ(in_child([] {
                  const std::set<int> before = open_sockets();
                  attach();
                  int kept = 0;
                  for (const int descriptor : open_sockets()) {
                      kept += !before.contains(descriptor) && fcntl(descriptor, F_GETFD) != FD_CLOEXEC;
                  }
                  return open_sockets().size() == before.size() + 1 ? kept : -1;
              }),
              0);
}

// Fault: a program that closed its standard streams prints into a queue.
TEST(ClientProcess, KeepsAwayFromStandardStreams)
{
    const Driver driver;
    EXPECT_EQ(in_child([] {
                  close(0);
                  close(1);
                  close(2);
                  void *const queue = attach();
                  const bool free = fcntl(0, F_GETFD) < 0 && fcntl(1, F_GETFD) < 0 && fcntl(2, F_GETFD) < 0;
                  return free && echoes(queue, 1) ? 0 : 1;
              }),
              0);
}

// Fault: a connection for each thread that ever called.
TEST(ClientProcess, NeedsDescriptorsForCallsAtOneTimeOnly)
{
    const Events events;
    const Driver driver(&events);
    EXPECT_EQ(in_child([&] {
                  const size_t before = open_sockets().size();
                  void *const queue = attach();
                  for (uint32_t i = 0; i < 100; ++i) {
                      std::jthread([&] { ask(queue, Ask::echo); });
                  }
                  if (open_sockets().size() != before + 1) {
                      return 1;
                  }
                  std::vector<std::jthread> waiting;
                  for (int i = 0; i < 5; ++i) {
                      waiting.emplace_back([&] { ask(queue, Ask::park); });
                      events.next();
                  }
                  ask(queue, Ask::release);
                  waiting.clear();
                  return open_sockets().size() == before + 6 ? 0 : 2;
              }),
              0);
}

// A client that parks calls until one is refused, whereupon the test releases the others: for the client itself the
// queue is out of reach.
class CrowdedClient {
  public:
    struct Outcome {
        uint32_t refusal = 0;
        size_t parked = 0;
    };

    // `first` and `last` run in the client; `last` says whether all is well, from what the calls came to.
    static bool run(const std::function<void()> &first, const std::function<bool(void *queue, Outcome)> &last)
    {
        const Events events;
        const Events refused;
        const Driver driver(&events);
        Process client([&](const auto &ready) {
            void *const queue = attach();
            first();
            ready();
            return last(queue, park_until_refused(queue, events, refused)) ? 0 : 1;
        });
        EXPECT_EQ(refused.next(), 'r');
        EXPECT_GT(ask(attach(), Ask::release), 0u);
        return client.wait() == 0;
    }

  private:
    struct Caller {
        void *queue;
        const Events &events;
        std::atomic<uint32_t> refusal = 0;
    };

    static void *park(void *argument)
    {
        auto &caller = *static_cast<Caller *>(argument);
        Envelope envelope(Ask::park);
        const uint32_t status = exchange(caller.queue, envelope);
        if (status != QUILLON_STATUS_OK) {
            caller.refusal = status;
            caller.events.tell('r');
        }
        return nullptr;
    }

    static Outcome park_until_refused(void *queue, const Events &events, const Events &refused)
    {
        constexpr size_t kMost = 3000;
        Caller caller = {.queue = queue, .events = events};
        // Not of the C++ library: with checks in it, its threads need a descriptor to start.
        std::vector<pthread_t> threads;
        do {
            pthread_t thread;
            if (pthread_create(&thread, nullptr, park, &caller) != 0) {
                ADD_FAILURE() << "no more threads after " << threads.size();
                break;
            }
            threads.push_back(thread);
        } while (events.next() == 'p' && threads.size() < kMost);
        refused.tell('r');
        for (const pthread_t thread : threads) {
            pthread_join(thread, nullptr);
        }
        return {.refusal = caller.refusal, .parked = threads.size() - 1};
    }
};

// Faults: the soft limit taken for the hard one; the hard one reported as a missing driver process.
TEST(ClientProcess, RaisesTheSoftLimitAndReportsTheHardOne)
{
    EXPECT_TRUE(CrowdedClient::run([] { limit_descriptors(0, 20); },
                                   [](void *, CrowdedClient::Outcome outcome) {
                                       return outcome.refusal == QUILLON_STATUS_NO_DESCRIPTORS && outcome.parked == 21;
                                   }));
}

// Fault: idle connections to one queue keep another one out of reach.
TEST(ClientProcess, GivesIdleConnectionsUpBeforeItRefuses)
{
    const Driver driver;
    EXPECT_EQ(in_child([] {
                  void *const queue = attach();
                  limit_descriptors(0, 0);
                  void *const other = attach(kOtherQueue);
                  return ask(other, Ask::queue) == kOtherQueue && ask(queue, Ask::queue) == kQueue ? 0 : 1;
              }),
              0);
}

// Fault: the pool of connections written past its end, or a call that waits for a free one for ever.
TEST(ClientProcess, RefusesMoreCallsThanThePoolHolds)
{
    EXPECT_TRUE(CrowdedClient::run([] {},
                                   [](void *queue, CrowdedClient::Outcome outcome) {
                                       return outcome.refusal == QUILLON_STATUS_TOO_MANY_CALLS &&
                                              outcome.parked == 1024 && echoes(queue, 1);
                                   }));
}

std::atomic<bool> signalled = false;

// Fault: a call that a signal ends, or executes twice.
TEST(ClientProcess, ASignalDuringACallIsNoFailure)
{
    const Events events;
    const Driver driver(&events);
    void *const queue = attach();
    struct sigaction action = {};
    action.sa_handler = [](int) {
        signalled = true;
        signalled.notify_all();
    };
    sigaction(SIGUSR1, &action, nullptr);  // without SA_RESTART
    for (const uint32_t wait_time : {QUILLON_WAIT_FOREVER, uint32_t{60'000}}) {
        signalled = false;
        uint32_t status = 99;
        std::jthread waiting([&] {
            Envelope envelope(Ask::park);
            status = exchange(queue, envelope, wait_time);
        });
        EXPECT_EQ(events.next(), 'p');
        pthread_kill(waiting.native_handle(), SIGUSR1);
        signalled.wait(false);
        EXPECT_EQ(ask(queue, Ask::release), 1u);
        waiting.join();
        EXPECT_EQ(status, QUILLON_STATUS_OK);
    }
}

// Fault: a cancelled thread takes its connection with it.
TEST(ClientProcess, ACallIsNoCancellationPoint)
{
    const Events events;
    const Driver driver(&events);
    struct Caller {
        void *queue;
        std::atomic<uint32_t> status;
    } caller = {attach(), 99};
    pthread_t thread;
    const auto body = [](void *argument) -> void * {
        Caller &self = *static_cast<Caller *>(argument);
        Envelope envelope(Ask::park);
        self.status = exchange(self.queue, envelope);
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, nullptr, body, &caller), 0);
    EXPECT_EQ(events.next(), 'p');
    pthread_cancel(thread);
    EXPECT_EQ(ask(caller.queue, Ask::release), 1u);
    pthread_join(thread, nullptr);
    EXPECT_EQ(caller.status, QUILLON_STATUS_OK);
}

TEST(ClientProcess, TaskIdIsTheThreads)
{
    EXPECT_EQ(SYSFUN_TaskIdSelf(), static_cast<uint32_t>(getpid()));
    uint32_t other = 0;
    std::jthread([&] { other = SYSFUN_TaskIdSelf(); }).join();
    EXPECT_NE(other, SYSFUN_TaskIdSelf());
    EXPECT_NE(other, 0u);
}

}  // namespace
}  // namespace quillon::test
