// The driver process dies, is stopped, ends, and comes back.
#include <gtest/gtest.h>
#include <signal.h>

#include <array>
#include <atomic>
#include <optional>
#include <thread>
#include <vector>

#include "support.h"

namespace quillon::test {
namespace {

constexpr size_t kCallers = 32;

// Calls that wait for a reply, each from a thread of its own.
class WaitingCalls {
  public:
    WaitingCalls(void *queue, const Events &events)
    {
        for (size_t i = 0; i < kCallers; ++i) {
            threads_.emplace_back([this, queue, i] {
                Envelope envelope(Ask::park);
                statuses_[i] = exchange(queue, envelope);
                untouched_ += envelope.bytes == Envelope(Ask::park).bytes;
            });
        }
        for (size_t i = 0; i < kCallers; ++i) {
            EXPECT_EQ(events.next(), 'p');
        }
    }

    void expect_all(uint32_t status)
    {
        threads_.clear();
        for (const uint32_t one : statuses_) {
            EXPECT_EQ(one, status);
        }
        EXPECT_EQ(untouched_, status == QUILLON_STATUS_OK ? 0 : kCallers);
    }

  private:
    std::array<uint32_t, kCallers> statuses_ = {};
    std::atomic<size_t> untouched_ = 0;
    std::vector<std::jthread> threads_;
};

// Faults: a call that outlives its driver process; a second kind of death (orderly end) that is not noticed.
TEST(DriverLoss, EndsEveryWaitingCall)
{
    for (const int signal : {SIGKILL, SIGTERM}) {
        const Events events;
        Driver driver(&events);
        void *const queue = attach();
        WaitingCalls calls(queue, events);
        driver.signal(signal);
        calls.expect_all(QUILLON_STATUS_DRIVER_DIED);
        EXPECT_EQ(driver.wait(), signal == SIGKILL ? 128 + SIGKILL : 0);
        Envelope envelope(Ask::echo);
        EXPECT_EQ(exchange(queue, envelope), QUILLON_STATUS_NO_DRIVER);
    }
}

// Fault: the request that killed the driver process is sent again to the next one.
TEST(DriverLoss, NeverSendsARequestAgain)
{
    std::optional<Driver> driver(std::in_place);
    void *const queue = attach();
    EXPECT_EQ(ask(queue, Ask::count), 1u);
    driver.reset();
    driver.emplace();
    EXPECT_EQ(ask(queue, Ask::count), 1u) << "the idle connection was stale: sent anew, and executed once";

    Envelope deadly(Ask::die);
    EXPECT_EQ(exchange(queue, deadly), QUILLON_STATUS_DRIVER_DIED);
    driver.reset();
    driver.emplace();
    EXPECT_EQ(ask(queue, Ask::count), 1u);
    EXPECT_EQ(ask(queue, Ask::count), 2u);
}

// Faults: only one of many stale connections is given up, and each of the others costs a call; attaching is answered by
// what is left of a driver process that died.
TEST(DriverLoss, AllIdleConnectionsSurviveARestart)
{
    const Events events;
    std::optional<Driver> driver(std::in_place, &events);
    void *const queue = attach();
    WaitingCalls calls(queue, events);
    EXPECT_EQ(ask(queue, Ask::release), kCallers);
    calls.expect_all(QUILLON_STATUS_OK);
    driver.reset();
    void *handle = nullptr;
    EXPECT_EQ(SYSFUN_GetMsgQ(kOtherQueue, 1, &handle), QUILLON_STATUS_NO_DRIVER);
    driver.emplace(&events);
    EXPECT_EQ(SYSFUN_GetMsgQ(kOtherQueue, 1, &handle), QUILLON_STATUS_OK);
    WaitingCalls again(queue, events);
    EXPECT_EQ(ask(queue, Ask::release), kCallers);
    again.expect_all(QUILLON_STATUS_OK);
}

}  // namespace
}  // namespace quillon::test
