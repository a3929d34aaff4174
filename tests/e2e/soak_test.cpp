// The driver process killed again and again while application processes ask it: a few times as a test, and as often as
// one likes by scripts/soak.
#include <errno.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdint.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <deque>
#include <filesystem>
#include <iostream>
#include <map>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <system_error>
#include <vector>

#include "e2e/support/driver_process.h"
#include "e2e/support/monotonic_clock.h"
#include "e2e/support/observe.h"
#include "e2e/support/soak_page.h"

namespace quillon::test {
namespace {

constexpr size_t clients = 8;
constexpr size_t requesters = 1;  // threads of each client
constexpr size_t lockers = 1;
constexpr size_t all_threads = clients * (requesters + lockers);
static_assert(all_threads <= SoakPage::most_threads);

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

Holdings holdings_of(const std::deque<Child> &processes)
{
    Holdings all;
    for (const Child &process : processes) {
        const std::string folder = "/proc/" + std::to_string(process.pid());
        all.descriptors += static_cast<size_t>(std::ranges::distance(
            std::filesystem::directory_iterator(folder + "/fd"), std::filesystem::directory_iterator()));
        const std::string status = contents_of(folder + "/status");
        all.resident += kilobytes_in(status, "VmRSS");
        all.mapped += kilobytes_in(status, "VmSize");
    }
    return all;
}

// Application processes that make calls as fast as they can.
class Load {
  public:
    explicit Load(const std::string &folder)
    {
        const std::string path = folder_.path() + "/page";
        const host::Descriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
        void *const memory = ftruncate(file.number(), sizeof(SoakPage)) == 0
                                 ? mmap(nullptr, sizeof(SoakPage), PROT_READ | PROT_WRITE, MAP_SHARED, file.number(), 0)
                                 : MAP_FAILED;
        if (memory == MAP_FAILED) {
            throw std::system_error(errno, std::generic_category(), path);
        }
        page_ = new (memory) SoakPage();
        for (size_t i = 0; i < clients; ++i) {
            const std::vector<std::string> command = {QUILLON_SOAK_CLIENT, path,
                                                      std::to_string(i * (requesters + lockers)),
                                                      std::to_string(requesters), std::to_string(lockers)};
            clients_.emplace_back(command, std::map<std::string, std::string>{{"QUILLON_RUNTIME_DIR", folder}});
        }
    }
    ~Load() { munmap(page_, sizeof(SoakPage)); }
    Load(const Load &) = delete;
    Load &operator=(const Load &) = delete;

    SoakPage &page() { return *page_; }

    // A call of each thread that was begun after this one has been answered.
    void wait_until_all_are_served()
    {
        std::array<uint64_t, all_threads> before;
        std::ranges::transform(threads(), before.begin(), [](const auto &thread) { return thread.served.load(); });
        for (size_t i = 0; i < all_threads; ++i) {
            wait_until("a thread's call is answered", [&] { return threads()[i].served >= before[i] + 2; });
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

    uint64_t total(std::atomic<uint64_t> SoakPage::Thread::*count)
    {
        uint64_t sum = 0;
        for (const SoakPage::Thread &thread : threads()) {
            sum += thread.*count;
        }
        return sum;
    }

    void end()
    {
        for (Child &client : clients_) {
            client.close_input();
            EXPECT_EQ(client.wait(), 0);
        }
    }

  private:
    std::span<SoakPage::Thread> threads() { return std::span(page_->threads).first(all_threads); }

    TestFolder folder_;
    SoakPage *page_;
    std::deque<Child> clients_;
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
    const TestFolder folder;
    std::optional<DriverProcess> driver(std::in_place, folder.path(), options);
    Load load(folder.path());
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
        driver.emplace(folder.path(), options);
    }
    load.wait_until_all_are_served();
    const Holdings after = load.holdings();
    load.end();
    driver->signal(SIGTERM);
    EXPECT_EQ(driver->wait(), 0);

    std::cout << "kills of the driver process       " << kills << " under " << all_threads << " threads of " << clients
              << " processes\n"
              << "calls answered                    " << load.total(&SoakPage::Thread::served) << '\n'
              << "calls failed for want of a driver " << load.total(&SoakPage::Thread::failed) << '\n'
              << "calls with another outcome        " << load.total(&SoakPage::Thread::wrong) << '\n'
              << "longest call                      " << load.page().longest / microsecond << " us\n"
              << "longest end of a call by a kill   " << load.page().longest_failed / microsecond << " us\n"
              << "descriptors of all clients        " << before.descriptors << " before, " << after.descriptors
              << " after\n"
              << "resident memory of all clients    " << before.resident << " KiB before, " << after.resident
              << " KiB after\n"
              << "mapped memory of all clients      " << before.mapped << " KiB before, " << after.mapped
              << " KiB after\n"
              << "files left in the run-time folder " << folder.entries().size() << '\n';

    EXPECT_EQ(load.total(&SoakPage::Thread::wrong), 0u);
    EXPECT_EQ(after.descriptors, before.descriptors);
    EXPECT_LE(after.resident, before.resident + clients * largest_growth);
    EXPECT_LE(after.mapped, before.mapped + clients * largest_growth);
    EXPECT_TRUE(folder.entries().empty());
}

}  // namespace
}  // namespace quillon::test
