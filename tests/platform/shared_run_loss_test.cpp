// Shared memory whose driver process dies, is stopped, comes back, or is not what it should be.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stddef.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include "host/platform/listening_socket.h"
#include "host/platform/run_offer.h"
#include "host/platform/runtime_path.h"
#include "shared_run_support.h"

namespace quillon::test {
namespace {

using host::RuntimeFolder;
using host::SharedLayout;
using host::SharedRun;

// Faults: a client that goes on in the memory of a run that is over; a holder of the former run that blocks the next.
TEST(SharedRunLoss, AClientGoesOnInTheNextRunsMemory)
{
    as_client([] {
        uint32_t id = 0;
        EXPECT_EQ(SYSFUN_GetSem(kSemaphore, &id), QUILLON_STATUS_NO_DRIVER);
        EXPECT_EQ(take(0), QUILLON_STATUS_NO_DRIVER);
        EXPECT_EQ(SYSRSC_MGR_GetShMem(kSegment), nullptr);
        EXPECT_EQ(SYSFUN_SendEvent(1, 1), QUILLON_STATUS_NO_DRIVER);
        std::optional<MemoryDriver> driver(std::in_place, uint8_t{1});
        EXPECT_EQ(id, kSemaphore);
        auto *const segment = static_cast<volatile uint8_t *>(SYSRSC_MGR_GetShMem(kSegment));
        EXPECT_EQ(*segment, 1);

        // Another process holds it to the end of the first run, and lives on.
        const Process holder([](const auto &ready) {
            take();
            ready();
            pause();
            return 0;
        });
        EXPECT_EQ(take(0), QUILLON_STATUS_TIMED_OUT);
        driver->kill_and_wait();
        EXPECT_EQ(SYSRSC_MGR_GetShMem(kSegment), nullptr);
        EXPECT_EQ(SYSFUN_GetSem(kSemaphore, &id), QUILLON_STATUS_NO_DRIVER);
        EXPECT_EQ(SYSFUN_SendEvent(1, 1), QUILLON_STATUS_NO_DRIVER);
        EXPECT_EQ(*segment, 1) << "still there: callers have pointers to it";

        std::jthread waiter([] {
            EXPECT_EQ(take(), QUILLON_STATUS_OK) << "the next run's";
            EXPECT_EQ(give(), QUILLON_STATUS_OK);
        });
        driver.emplace(uint8_t{2});
        waiter.join();
        EXPECT_EQ(*segment, 2);
        EXPECT_EQ(SYSRSC_MGR_GetShMem(kSegment), segment);

        // Nothing but the semaphore is used from here on.
        driver->kill_and_wait();
        driver.emplace(uint8_t{3});
        EXPECT_TRUE(comes_true(
            [segment] { return take() == QUILLON_STATUS_OK && give() == QUILLON_STATUS_OK && *segment == 3; }));
    });
}

// Fault: the counters that a thread is about to change are exchanged under it.
TEST(SharedRunLoss, TheMemoryStaysWhileASemaphoreIsHeld)
{
    as_client([] {
        std::optional<MemoryDriver> driver(std::in_place, uint8_t{1});
        auto *const segment = static_cast<volatile uint8_t *>(SYSRSC_MGR_GetShMem(kSegment));
        EXPECT_EQ(take(), QUILLON_STATUS_OK);
        driver->kill_and_wait();
        driver.emplace(uint8_t{2});
        std::jthread([] {
            EXPECT_EQ(SYSRSC_MGR_GetShMem(kSegment), nullptr);
            EXPECT_EQ(take(100), QUILLON_STATUS_TIMED_OUT);
            EXPECT_EQ(SYSFUN_TakeSem(kOtherSemaphore, 0), QUILLON_STATUS_OK);
            EXPECT_EQ(SYSFUN_GiveSem(kOtherSemaphore), QUILLON_STATUS_OK);
        }).join();
        EXPECT_EQ(*segment, 1);
        EXPECT_EQ(give(), QUILLON_STATUS_OK);
        EXPECT_EQ(SYSRSC_MGR_GetShMem(kSegment), segment);
        EXPECT_EQ(*segment, 2);
    });
}

// What the tests of a restart under load tell each other, in memory that no driver process has to do with.
struct Progress {
    static constexpr size_t kThreads = 3;

    std::atomic<bool> stop;
    std::array<std::atomic<uint8_t>, kThreads> mark;  // of the run that the thread was in last

    bool all_at(uint8_t run) const
    {
        return std::ranges::all_of(mark, [run](const auto &one) { return one == run; });
    }
};

// Takes and gives for as long as it may, alone with the second byte of the segment while it holds the semaphore.
bool is_alone_all_along(Progress &progress, size_t thread)
{
    auto *const segment = static_cast<volatile uint8_t *>(SYSRSC_MGR_GetShMem(kSegment));
    const auto own = static_cast<uint8_t>(static_cast<size_t>(getpid()) * Progress::kThreads + thread + 1);
    bool alone = true;
    while (alone && !progress.stop) {
        alone = take() == QUILLON_STATUS_OK && segment[1] == 0;
        segment[1] = own;
        progress.mark[thread] = segment[0];
        std::this_thread::yield();
        alone = alone && segment[1] == own;
        segment[1] = 0;
        alone = give() == QUILLON_STATUS_OK && alone;
    }
    return alone;
}

// Faults: threads of one process that are in the memory of two runs; one that waits for ever in that of the last.
TEST(SharedRunLoss, ASemaphoreExcludesOverRestarts)
{
    const Shared<std::array<Progress, 2>> shared;
    auto &progress = *shared;
    std::optional<MemoryDriver> driver(std::in_place, uint8_t{1});
    const auto client = [&progress](size_t number) {
        return std::make_unique<Application>([&progress, number] {
            std::vector<std::jthread> threads;
            for (size_t i = 0; i < Progress::kThreads; ++i) {
                threads.emplace_back([&, i] { EXPECT_TRUE(is_alone_all_along(progress[number], i)); });
            }
        });
    };
    const std::array clients = {client(0), client(1)};
    for (uint8_t run = 1; run <= 5; ++run) {
        if (run > 1) {
            driver->kill_and_wait();
            driver.emplace(run);
        }
        EXPECT_TRUE(comes_true([&] { return progress[0].all_at(run) && progress[1].all_at(run); })) << int{run};
    }
    progress[0].stop = true;
    progress[1].stop = true;
    for (const auto &one : clients) {
        one->expect_success();
    }
}

// Fault: pointers into the memory lead somewhere else, or past its end, after a restart.
TEST(SharedRunLoss, RefusesAnotherLayout)
{
    as_client([] {
        std::optional<MemoryDriver> driver(std::in_place, uint8_t{1});
        auto *const segment = static_cast<volatile uint8_t *>(SYSRSC_MGR_GetShMem(kSegment));
        driver->kill_and_wait();
        SharedLayout smaller = layout();
        smaller.transmit_area = 4096;
        driver.emplace(uint8_t{2}, smaller);
        uint32_t id = 0;
        EXPECT_EQ(SYSFUN_GetSem(kSemaphore, &id), QUILLON_STATUS_OTHER_LAYOUT);
        EXPECT_EQ(SYSRSC_MGR_GetShMem(kSegment), nullptr);
        EXPECT_TRUE(comes_true([] {
            const uint32_t status = take();
            give();
            return status == QUILLON_STATUS_OTHER_LAYOUT;
        }));
        EXPECT_EQ(give(), QUILLON_STATUS_NOT_HELD);
        EXPECT_EQ(*segment, 1);
    });
}

// Fault: a driver process that is held by a debugger is taken for a dead one.
TEST(SharedRunLoss, StoppedIsNotDead)
{
    as_client([] {
        MemoryDriver driver(1);
        EXPECT_NE(SYSRSC_MGR_GetShMem(kSegment), nullptr);
        driver.signal(SIGSTOP);
        int status = 0;
        waitpid(driver.pid(), &status, WUNTRACED);
        for (int i = 0; i < 100; ++i) {
            EXPECT_EQ(take(), QUILLON_STATUS_OK);
            EXPECT_EQ(give(), QUILLON_STATUS_OK);
        }
        EXPECT_NE(SYSRSC_MGR_GetShMem(kSegment), nullptr);
    });
}

// Faults: a client maps what its peer can shorten, or as much as its peer says.
TEST(SharedRunOffer, IsCheckedBeforeItIsMapped)
{
    struct {
        const char *what;
        int seals;
        std::function<void(host::RunOffer &)> change;
        bool taken;
    } const cases[] = {
        {"sound", host::kSizeSeals, [](auto &) {}, true},
        {"not sealed", F_SEAL_GROW, [](auto &) {}, false},
        {"another version", host::kSizeSeals, [](auto &offer) { ++offer.version; }, false},
        {"another PID namespace", host::kSizeSeals, [](auto &offer) { ++offer.client; }, false},
        {"smaller than said", host::kSizeSeals, [](auto &offer) { offer.map.size += 4096; }, false},
        {"a segment outside", host::kSizeSeals, [](auto &offer) { offer.map.segments[0].offset = UINT64_MAX - 8; },
         false},
        {"too many segments", host::kSizeSeals, [](auto &offer) { offer.map.segment_count = 17; }, false},
        {"an area outside", host::kSizeSeals, [](auto &offer) { offer.map.transmit_area = UINT32_MAX; }, false},
    };
    for (const auto &one : cases) {
        constexpr size_t kSize = 16384;
        const host::Descriptor memory(memfd_create("test", MFD_ALLOW_SEALING));
        ASSERT_EQ(ftruncate(memory.number(), kSize), 0);
        ASSERT_EQ(fcntl(memory.number(), F_ADD_SEALS, one.seals), 0);
        const host::Descriptor listener =
            host::listening_socket(host::memory_address(runtime_folder().c_str(), host::SocketName::unready),
                                   host::memory_address(runtime_folder().c_str()));
        Process client([](const auto &ready) {
            ready();
            return SYSRSC_MGR_GetShMem(kSegment) == nullptr ? 1 : 0;
        });
        ASSERT_TRUE(comes_true([&] {
            const host::Descriptor connection(accept4(listener.number(), nullptr, nullptr, SOCK_CLOEXEC));
            if (!connection) {
                return false;
            }
            host::RunOffer offer = {.run = 1, .client = client.pid()};
            offer.map = {.size = kSize, .ipc_memory = 12288, .receive_area = 4096, .segment_count = 1};
            offer.map.segments[0] = {.id = kSegment, .size = 496, .offset = 8192};
            one.change(offer);
            EXPECT_TRUE(host::send_offer(connection.number(), offer, memory.number()));
            return true;
        }));
        EXPECT_EQ(client.wait(), one.taken ? 0 : 1) << one.what;
    }
    unlink(host::memory_address(runtime_folder().c_str()).sun_path);
}

}  // namespace
}  // namespace quillon::test
