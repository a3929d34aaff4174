// Tasks of application processes that wait for OAM events, and what ends their waits.
#include <signal.h>
#include <stdint.h>
#include <stdio.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "e2e/support/client_test.h"

namespace quillon::test {
namespace {

constexpr uint32_t lost = 1;
constexpr uint32_t mismerge = 3;
constexpr size_t most_waiters = 100;

// Of each waiter.
using Counts = std::array<std::atomic<uint32_t>, most_waiters>;

// Tasks of one process, each of which waits by a binding of its own, again and again, until its wait fails.
void wait_for_events(size_t waiters, Counts &events, const Events &end)
{
    std::vector<std::jthread> tasks;
    for (uint32_t waiter = 0; waiter < waiters; ++waiter) {
        uint64_t handle = 0;
        EXPECT_EQ(DEV_SWDRV_PMGR_EventBindUnbindOam(1, lost, waiter, &handle), 1);
        tasks.emplace_back([&count = events[waiter], handle] {
            while (DEV_SWDRV_PMGR_WaitAndReceiveOam(lost, handle, nullptr) == 1) {
                ++count;
            }
        });
    }
    end.told();
    for (uint32_t waiter = 0; waiter < waiters; ++waiter) {
        EXPECT_EQ(DEV_SWDRV_PMGR_EventBindUnbindOam(0, lost, waiter, nullptr), 1);
    }
}

// A process of theirs.
class Waiters {
  public:
    explicit Waiters(size_t count) : count_(count), process_([this] { wait_for_events(count_, *events_, end_); })
    {
        // The process's first thread waits for the end.
        wait_until_waiting(process_.pid(), count + 1);
    }

    void wait_for(uint32_t times) const
    {
        for (size_t waiter = 0; waiter < count_; ++waiter) {
            wait_until("each waiter has its events", [&] { return (*events_)[waiter] >= times; });
        }
    }

    void expect_end(uint32_t times)
    {
        end_.tell('e');
        process_.expect_success();
        for (size_t waiter = 0; waiter < count_; ++waiter) {
            EXPECT_EQ((*events_)[waiter], times) << waiter;
        }
    }

    int kill_and_wait() { return process_.kill_and_wait(); }

  private:
    size_t count_;
    Shared<Counts> events_;
    Events end_;
    Application process_;
};

struct OamEventsTest : ClientTest {
    // Returns how many bindings the event is for.
    static int raise(const std::string &event)
    {
        const std::string out = told({"raise-event", event});
        int bindings = -1;
        EXPECT_EQ(sscanf(out.c_str(), "bindings %d\n", &bindings), 1) << out;
        return bindings;
    }
};

TEST_F(OamEventsTest, ReachEachBoundWaiterOnceBesideOtherRequests)
{
    constexpr uint32_t events = 20;
    Waiters process(most_waiters);
    std::atomic<uint64_t> reads = 0;
    const auto wait_for_reads = [&reads] {
        const uint64_t enough = reads + 1000;
        wait_until("link status is read", [&] { return reads >= enough; });
    };
    const std::jthread reader([&reads](const std::stop_token &stop) {
        for (uint32_t link = 0; !stop.stop_requested(); ++reads) {
            EXPECT_EQ(DEV_SWDRV_PMGR_GetPortLinkStatus(2, 3, &link), 1);
            EXPECT_EQ(link, 1U);
        }
    });
    wait_for_reads();
    EXPECT_EQ(raise("mismerge"), 0);
    // Some of them come between two waits.
    for (uint32_t i = 0; i < events; ++i) {
        EXPECT_EQ(raise("loss-of-continuity"), static_cast<int>(most_waiters));
    }
    process.wait_for(events);
    wait_for_reads();
    process.expect_end(events);
    EXPECT_EQ(raise("loss-of-continuity"), 0);
}

TEST_F(OamEventsTest, EndWithTheirTime)
{
    uint64_t handle = 0;
    ASSERT_EQ(DEV_SWDRV_PMGR_EventBindUnbindOam(1, lost, 0, &handle), 1);
    std::jthread longer([&] {
        constexpr uint32_t an_hour = 3'600'000;
        EXPECT_EQ(DEV_SWDRV_PMGR_WaitAndReceiveOam(lost, handle, &an_hour), 0);
    });
    wait_until_waiting(getpid(), 1);

    constexpr uint32_t milliseconds = 20;
    EXPECT_EQ(DEV_SWDRV_PMGR_WaitAndReceiveOam(lost, handle, &milliseconds), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_WaitAndReceiveOam(lost, handle, &milliseconds), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_EventBindUnbindOam(0, lost, 0, nullptr), 1);
}

TEST_F(OamEventsTest, AreNoLongerForAClientThatDied)
{
    Waiters dies(20);
    Waiters stays(2);
    // The fixture's connection to the queue of the buses is in, too, before any are counted.
    constexpr uint8_t eeprom = 0x57;
    uint8_t byte = 0;
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(1, eeprom, 0, 1, 0, 1, 1, &byte), 1);
    EXPECT_EQ(raise("loss-of-continuity"), 22);
    dies.wait_for(1);
    stays.wait_for(1);

    const size_t with_both = sockets_of(driver.pid());
    EXPECT_EQ(dies.kill_and_wait(), 128 + SIGKILL);
    wait_until("the dead client's waits are gone", [&] { return sockets_of(driver.pid()) <= with_both - 20; });
    EXPECT_EQ(raise("loss-of-continuity"), 2);
    stays.wait_for(2);

    // With waits on, the driver process ends as ever.
    driver.expect_quiet_end();
}

TEST_F(OamEventsTest, ShowWhereTheyWereFound)
{
    const OamEntryRecord record = {};
    uint64_t handle = 0;
    uint32_t entries = 0;
    EXPECT_EQ(DEV_SWDRV_PMGR_SetOamEntry(1, 33, 2, 0, &record), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_EventBindUnbindOam(1, mismerge, 0, &handle), 1);
    EXPECT_EQ(told({"raise-event", "mismerge", "33", "egress"}), "bindings 1\n");
    EXPECT_EQ(DEV_SWDRV_PMGR_WaitAndReceiveOam(mismerge, handle, nullptr), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_GetOamExceptionStatus(3, 1, mismerge, 1, &entries), 1);
    EXPECT_EQ(entries, 2U);
}

}  // namespace
}  // namespace quillon::test
