// Tasks of application processes that wait for OAM events, and what ends their waits.
#include <gtest/gtest.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#include <atomic>
#include <map>
#include <string>
#include <thread>

#include "e2e/support/control.h"
#include "e2e/support/observe.h"
#include "quillon/platform.h"
#include "quillon/swdrv.h"

namespace quillon::test {
namespace {

constexpr uint32_t lost = 1;
constexpr uint32_t mismerge = 3;

// This process is a client as well. A client looks its run-time folder up once.
const std::string &folder()
{
    static const TestFolder for_this_process;
    static const int set = setenv("QUILLON_RUNTIME_DIR", for_this_process.path().c_str(), 1);
    EXPECT_EQ(set, 0);
    return for_this_process.path();
}

// Returns how many bindings the event is for.
int raise(const std::string &event)
{
    const Ended ended = control(folder(), {"raise-event", event});
    int bindings = -1;
    EXPECT_EQ(sscanf(ended.out.c_str(), "bindings %d\n", &bindings), 1) << ended.out << ended.err;
    return bindings;
}

class Waiters : public Child {
  public:
    explicit Waiters(int count)
        : Child({QUILLON_OAM_WAITER, std::to_string(count)}, {{"QUILLON_RUNTIME_DIR", folder()}})
    {
        for (int i = 0; i < count; ++i) {
            const std::string line = out().line();
            int thread = 0;
            if (sscanf(line.c_str(), "waiting %d", &thread) != 1) {
                ADD_FAILURE() << line;
                return;
            }
            wait_until("the task waits for its event", [&] { return waits_for_reply(pid(), thread); });
        }
    }

    // How often each of the next `lines` lines was told.
    std::map<std::string, int> told(int lines)
    {
        std::map<std::string, int> counts;
        for (int i = 0; i < lines; ++i) {
            ++counts[out().line()];
        }
        return counts;
    }
};

std::map<std::string, int> from_each(const std::string &what, int waiters, int times)
{
    std::map<std::string, int> counts;
    for (int waiter = 0; waiter < waiters; ++waiter) {
        counts[what + " " + std::to_string(waiter)] = times;
    }
    return counts;
}

// Reads link status as fast as it is answered.
class LinkReader {
  public:
    uint64_t reads() const { return reads_; }

    void wait_for_more(uint64_t more) const
    {
        const uint64_t enough = reads() + more;
        wait_until("link status is read", [&] { return reads() >= enough; });
    }

  private:
    void run(const std::stop_token &stop)
    {
        while (!stop.stop_requested()) {
            uint32_t link = 0;
            EXPECT_EQ(DEV_SWDRV_PMGR_GetPortLinkStatus(2, 3, &link), 1);
            EXPECT_EQ(link, 1U);
            ++reads_;
        }
    }

    std::atomic<uint64_t> reads_ = 0;
    std::jthread thread_{[this](const std::stop_token &stop) { run(stop); }};
};

struct OamEventsTest : testing::Test {
    OamEventsTest() { DEV_SWDRV_PMGR_InitiateProcessResource(); }

    DriverProcess driver{folder(), {"--log-level=warning"}};
};

TEST_F(OamEventsTest, ReachEachBoundWaiterOnceBesideOtherRequests)
{
    constexpr int waiters = 100;
    constexpr int events = 20;
    Waiters process(waiters);
    const LinkReader reader;
    reader.wait_for_more(1000);

    EXPECT_EQ(raise("mismerge"), 0);
    // Some of them come between two waits.
    for (int i = 0; i < events; ++i) {
        EXPECT_EQ(raise("loss-of-continuity"), waiters);
    }
    EXPECT_EQ(process.told(waiters * events), from_each("event", waiters, events));
    reader.wait_for_more(1000);

    process.write_line("");
    EXPECT_EQ(process.told(waiters), from_each("ended", waiters, 1));
    EXPECT_EQ(process.out().rest(), "");
    EXPECT_EQ(process.wait(), 0);
    EXPECT_EQ(raise("loss-of-continuity"), 0);
}

TEST_F(OamEventsTest, EndWithTheirTime)
{
    uint64_t handle = 0;
    ASSERT_EQ(DEV_SWDRV_PMGR_EventBindUnbindOam(1, lost, 0, &handle), 1);
    std::atomic<uint32_t> thread = 0;
    std::jthread longer([&] {
        constexpr uint32_t an_hour = 3'600'000;
        thread = SYSFUN_TaskIdSelf();
        EXPECT_EQ(DEV_SWDRV_PMGR_WaitAndReceiveOam(lost, handle, &an_hour), 0);
    });
    wait_until("the longer wait is on",
               [&] { return thread != 0 && waits_for_reply(getpid(), static_cast<pid_t>(thread)); });

    constexpr uint32_t milliseconds = 20;
    EXPECT_EQ(DEV_SWDRV_PMGR_WaitAndReceiveOam(lost, handle, &milliseconds), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_WaitAndReceiveOam(lost, handle, &milliseconds), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_EventBindUnbindOam(0, lost, 0, nullptr), 1);
    longer.join();
}

TEST_F(OamEventsTest, AreNoLongerForAClientThatDied)
{
    Waiters dies(20);
    Waiters stays(2);
    const size_t with_both = sockets_of(driver.pid());
    EXPECT_EQ(raise("loss-of-continuity"), 22);
    EXPECT_EQ(stays.told(2), from_each("event", 2, 1));

    EXPECT_EQ(dies.kill_and_wait(), 128 + SIGKILL);
    wait_until("the dead client's waits are gone", [&] { return sockets_of(driver.pid()) <= with_both - 20; });
    EXPECT_EQ(raise("loss-of-continuity"), 2);
    EXPECT_EQ(stays.told(2), from_each("event", 2, 1));

    // With waits on, the driver process ends as ever.
    driver.signal(SIGTERM);
    EXPECT_EQ(driver.err().rest(), "");
    EXPECT_EQ(driver.wait(), 0);
}

TEST_F(OamEventsTest, ShowWhereTheyWereFound)
{
    const OamEntryRecord record = {};
    uint64_t handle = 0;
    uint32_t entries = 0;
    EXPECT_EQ(DEV_SWDRV_PMGR_SetOamEntry(1, 33, 2, 0, &record), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_EventBindUnbindOam(1, mismerge, 0, &handle), 1);

    const struct {
        std::vector<std::string> arguments;
        int status;
        std::string out;
        std::string err;
    } rows[] = {
        {{"mismerge", "33", "egress"}, 0, "bindings 1\n", ""},
        {{"mismerge", "33"}, 1, "", "quillon-ctl: raise-event: OAM entry 33 is not set\n"},
        {{"mismerge", "2048"}, 1, "", "quillon-ctl: raise-event: ENTRY is a number from 0 to 2047, not '2048'\n"},
        {{"mismerge", "33", "both"},
         1,
         "",
         "quillon-ctl: raise-event: an OAM engine is ingress or egress, not 'both'\n"},
        {{"loss"},
         1,
         "",
         "quillon-ctl: raise-event: no event 'loss' (loss-of-continuity, unexpected-mep, mismerge, unexpected-period, "
         "unexpected-level, remote-defect)\n"},
    };
    for (const auto &row : rows) {
        std::vector<std::string> words = row.arguments;
        words.insert(words.begin(), "raise-event");
        const Ended ended = control(folder(), words);
        EXPECT_EQ(ended.status, row.status);
        EXPECT_EQ(ended.out, row.out);
        EXPECT_EQ(ended.err, row.err);
    }
    EXPECT_EQ(DEV_SWDRV_PMGR_WaitAndReceiveOam(mismerge, handle, nullptr), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_GetOamExceptionStatus(3, 1, mismerge, 1, &entries), 1);
    EXPECT_EQ(entries, 2U);
}

}  // namespace
}  // namespace quillon::test
