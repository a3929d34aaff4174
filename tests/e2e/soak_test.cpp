// The driver process killed again and again while application processes ask it: a few times as a test, and as often as
// one likes by scripts/soak.
#include <gtest/gtest.h>
#include <sched.h>
#include <signal.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <deque>
#include <filesystem>
#include <functional>
#include <iostream>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "e2e/support/driver_process.h"
#include "e2e/support/observe.h"
#include "quillon/platform.h"
#include "quillon/swdrv.h"

namespace quillon::test {
namespace {

constexpr size_t clients = 8;
constexpr size_t requesters = 1;  // threads of each client
constexpr size_t lockers = 1;
constexpr size_t all_threads = clients * (requesters + lockers);

// By then every thread has been through what it goes through.
constexpr int kills_before_measuring = 3;
// Of a client's memory, in KiB: a kilobyte for each of a thousand kills would be noticed.
constexpr size_t largest_growth = 512;

const std::vector<std::string> options = {"--log-level=error"};

// What a process holds, over all of them.
struct Holdings {
    size_t descriptors = 0;
    size_t resident = 0;  // in KiB, as what follows
    size_t mapped = 0;
};

size_t kilobytes_in(const std::string &status, const std::string &field)
{
    const size_t found = status.find(field + ":");
    return found == std::string::npos ? 0 : std::stoul(status.substr(found + field.size() + 1));
}

Holdings holdings_of(const std::deque<Application> &processes)
{
    Holdings all;
    for (const Application &process : processes) {
        const std::string folder = "/proc/" + std::to_string(process.pid());
        all.descriptors += static_cast<size_t>(std::ranges::distance(
            std::filesystem::directory_iterator(folder + "/fd"), std::filesystem::directory_iterator()));
        const std::string status = contents_of(folder + "/status");
        all.resident += kilobytes_in(status, "VmRSS");
        all.mapped += kilobytes_in(status, "VmSize");
    }
    return all;
}

int64_t monotonic_now()
{
    return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void raise_to(std::atomic<int64_t> &highest, int64_t value)
{
    int64_t seen = highest;
    while (seen < value && !highest.compare_exchange_weak(seen, value)) {
    }
}

// What the test and its clients tell each other.
struct Page {
    // Of one thread, which makes calls of one kind.
    struct Thread {
        std::atomic<uint64_t> served;  // calls that the driver process or its memory answered
        std::atomic<uint64_t> failed;  // because there was no driver process, or no longer
        std::atomic<uint64_t> wrong;   // neither of both
    };

    std::atomic<bool> ends;
    std::atomic<bool> paused;
    std::atomic<uint32_t> resting;        // threads that have seen it
    std::atomic<int64_t> killed_at;       // the last kill
    std::atomic<int64_t> longest;         // of all calls, in nanoseconds
    std::atomic<int64_t> longest_failed;  // from a kill to the return of a call that it ended
    std::array<Thread, all_threads> threads;
};

using Count = std::atomic<uint64_t> Page::Thread::*;

Count ask()
{
    constexpr unsigned chips_of_a_unit = 2;
    const unsigned chips = DEV_SWDRV_PMGR_GetLocalUnitChipsetNumber();
    return chips == chips_of_a_unit ? &Page::Thread::served : chips == 0 ? &Page::Thread::failed : &Page::Thread::wrong;
}

constexpr uint32_t packet_path_semaphore = 17;

Count take_and_give()
{
    switch (SYSFUN_TakeSem(packet_path_semaphore, QUILLON_WAIT_FOREVER)) {
        case QUILLON_STATUS_OK:
        case QUILLON_STATUS_RECOVERED:
            return SYSFUN_GiveSem(packet_path_semaphore) == QUILLON_STATUS_OK ? &Page::Thread::served
                                                                              : &Page::Thread::wrong;
        case QUILLON_STATUS_NO_DRIVER:
            return &Page::Thread::failed;
        default:
            return &Page::Thread::wrong;
    }
}

// A semaphore may have been taken in the memory of the last driver process, with that of this one yet to be fetched.
void attach_to_memory()
{
    wait_until("the memory is that of this driver process", [] {
        uint32_t id;
        return SYSFUN_GetSem(packet_path_semaphore, &id) == QUILLON_STATUS_OK;
    });
}

// One kind of calls, and what makes what its process holds the same whenever it rests.
struct Calls {
    Count (*call)();
    void (*settle)();
};

constexpr Calls asking = {.call = ask, .settle = [] {}};
constexpr Calls locking = {.call = take_and_give, .settle = attach_to_memory};

void make_calls(const Calls &calls, Page &page, Page::Thread &self)
{
    while (!page.ends) {
        if (page.paused) {
            calls.settle();
            ++page.resting;
            while (page.paused) {
                sched_yield();
            }
            --page.resting;
        }
        const int64_t begun = monotonic_now();
        const Count outcome = calls.call();
        const int64_t ended = monotonic_now();
        raise_to(page.longest, ended - begun);
        ++(self.*outcome);
        const int64_t killed_at = page.killed_at;
        if (outcome == &Page::Thread::failed && begun < killed_at && killed_at < ended) {
            raise_to(page.longest_failed, ended - killed_at);
        }
    }
}

// Application processes that make calls as fast as they can.
class Load {
  public:
    Load()
    {
        for (size_t i = 0; i < clients; ++i) {
            auto *const self = &page_->threads[i * (requesters + lockers)];
            clients_.emplace_back([this, self] {
                // Failure reports are part of the load; nobody reads them.
                EXPECT_NE(freopen("/dev/null", "w", stdout), nullptr);
                DEV_SWDRV_PMGR_InitiateProcessResource();
                std::vector<std::jthread> threads;
                for (size_t thread = 0; thread < requesters + lockers; ++thread) {
                    threads.emplace_back(make_calls, thread < requesters ? asking : locking, std::ref(*page_),
                                         std::ref(self[thread]));
                }
            });
        }
    }

    Page &page() { return *page_; }

    // A call of each thread that was begun after this one has been answered.
    void wait_until_all_are_served()
    {
        std::array<uint64_t, all_threads> before;
        std::ranges::transform(page_->threads, before.begin(), [](const auto &thread) { return thread.served.load(); });
        for (size_t i = 0; i < all_threads; ++i) {
            wait_until("a thread's call is answered", [&] { return page_->threads[i].served >= before[i] + 2; });
        }
    }

    // What all processes hold while no call is under way.
    Holdings holdings()
    {
        page_->paused = true;
        wait_until("all threads rest", [&] { return page_->resting == all_threads; });
        const Holdings all = holdings_of(clients_);
        page_->paused = false;
        wait_until("all threads go on", [&] { return page_->resting == 0; });
        return all;
    }

    uint64_t total(Count count)
    {
        uint64_t sum = 0;
        for (const Page::Thread &thread : page_->threads) {
            sum += thread.*count;
        }
        return sum;
    }

    uint64_t requests_answered()
    {
        uint64_t sum = 0;
        for (size_t i = 0; i < all_threads; ++i) {
            sum += i % (requesters + lockers) < requesters ? page_->threads[i].served.load() : 0;
        }
        return sum;
    }

    void end()
    {
        page_->ends = true;
        for (Application &client : clients_) {
            client.expect_success();
        }
    }

  private:
    Shared<Page> page_;
    std::deque<Application> clients_;
};

int wanted_kills()
{
    const char *const kills = getenv("QUILLON_SOAK_KILLS");
    return kills == nullptr ? 5 : atoi(kills);
}

constexpr int64_t microsecond = 1000;

// Faults: a call that hangs for ever, and whatever a call, a client or a run-time folder keeps of a driver process that
// is gone.
TEST(Soak, KillsUnderLoadLeaveNothingBehind)
{
    const int kills = wanted_kills();
    std::optional<DriverProcess> driver(std::in_place, runtime_folder(), options);
    Load load;
    Holdings before;
    for (int kill = -kills_before_measuring; kill < kills; ++kill) {
        load.wait_until_all_are_served();
        if (HasFatalFailure()) {
            return;
        }
        if (kill == 0) {
            before = load.holdings();
        }
        load.page().killed_at = monotonic_now();
        driver->kill_and_wait();
        driver.emplace(runtime_folder(), options);
    }
    load.wait_until_all_are_served();
    const Holdings after = load.holdings();
    load.end();
    driver->signal(SIGTERM);
    EXPECT_EQ(driver->wait(), 0);
    const auto files_left = std::distance(std::filesystem::directory_iterator(runtime_folder()), {});

    const uint64_t requests = load.requests_answered();
    std::cout << "kills of the driver process       " << kills << " under " << all_threads << " threads of " << clients
              << " processes\n"
              << "requests answered                 " << requests << '\n'
              << "semaphore taken and given         " << load.total(&Page::Thread::served) - requests << '\n'
              << "calls failed for want of a driver " << load.total(&Page::Thread::failed) << '\n'
              << "calls with another outcome        " << load.total(&Page::Thread::wrong) << '\n'
              << "longest call                      " << load.page().longest / microsecond << " us\n"
              << "longest end of a call by a kill   " << load.page().longest_failed / microsecond << " us\n"
              << "descriptors of all clients        " << before.descriptors << " before, " << after.descriptors
              << " after\n"
              << "resident memory of all clients    " << before.resident << " KiB before, " << after.resident
              << " KiB after\n"
              << "mapped memory of all clients      " << before.mapped << " KiB before, " << after.mapped
              << " KiB after\n"
              << "files left in the run-time folder " << files_left << '\n';

    EXPECT_EQ(load.total(&Page::Thread::wrong), 0u);
    EXPECT_EQ(after.descriptors, before.descriptors);
    EXPECT_LE(after.resident, before.resident + clients * largest_growth);
    EXPECT_LE(after.mapped, before.mapped + clients * largest_growth);
    EXPECT_EQ(files_left, 0);
}

}  // namespace
}  // namespace quillon::test
