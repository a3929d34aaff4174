// What a run shares besides its queues: semaphores, task events, segments and the IPC memory.
#include "host/platform/shared_run.h"

#include <errno.h>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <filesystem>
#include <memory>
#include <thread>
#include <vector>

#include "host/platform/run_offer.h"
#include "host/platform/runtime_path.h"
#include "host/platform/task_identity.h"
#include "shared_run_support.h"

namespace quillon::test {
namespace {

using host::QueueError;
using host::RuntimeFolder;
using host::SharedLayout;
using host::SharedRun;
using host::TaskEvents;

// Faults: two tasks hold it at one time; a wake-up that is lost.
TEST(SharedSemaphore, ExcludesTheTasksOfAllProcesses)
{
    constexpr uint32_t kTurns = 2000;
    const auto count_up = [] {
        volatile uint32_t *counter = nullptr;
        comes_true([&] {
            counter = static_cast<volatile uint32_t *>(SYSRSC_MGR_GetShMem(kSegment));
            return counter != nullptr;
        });
        for (uint32_t i = 0; i < kTurns; ++i) {
            take();
            const uint32_t before = *counter;
            if (i % 16 == 0) {
                std::this_thread::yield();
            }
            *counter = before + 1;
            give();
        }
    };
    std::vector<std::unique_ptr<Application>> clients;
    for (int i = 0; i < 4; ++i) {
        clients.push_back(std::make_unique<Application>([&] {
            const std::jthread other(count_up);
            count_up();
        }));
    }
    const RuntimeFolder folder = RuntimeFolder::claim();
    SharedRun run(folder, layout());
    auto &counter = *reinterpret_cast<volatile uint32_t *>(run.segment(kSegment).data());
    for (uint32_t i = 0; i < kTurns; ++i) {
        EXPECT_EQ(run.take(kSemaphore, QUILLON_WAIT_FOREVER), QUILLON_STATUS_OK);
        counter = counter + 1;
        EXPECT_EQ(run.give(kSemaphore), QUILLON_STATUS_OK);
    }
    for (const auto &client : clients) {
        client->expect_success();
    }
    EXPECT_EQ(counter, 9 * kTurns);
}

TEST(SharedSemaphore, RefusesWhatItCannotDo)
{
    const MemoryDriver driver(1);
    as_client([] {
        uint32_t id = 0;
        EXPECT_EQ(SYSFUN_GetSem(kSemaphore, &id), QUILLON_STATUS_OK);
        EXPECT_EQ(SYSFUN_GetSem(99, &id), QUILLON_STATUS_NO_SUCH_SEMAPHORE);
        EXPECT_EQ(SYSFUN_GetSem(kSemaphore, nullptr), QUILLON_STATUS_BAD_ARGUMENT);
        EXPECT_EQ(SYSFUN_TakeSem(99, 0), QUILLON_STATUS_NO_SUCH_SEMAPHORE);
        EXPECT_EQ(SYSFUN_GiveSem(99), QUILLON_STATUS_NO_SUCH_SEMAPHORE);
        EXPECT_EQ(give(), QUILLON_STATUS_NOT_HELD);
        ASSERT_EQ(take(), QUILLON_STATUS_OK);
        EXPECT_EQ(take(), QUILLON_STATUS_ALREADY_HELD);

        const auto as_another_task = [] {
            EXPECT_EQ(give(), QUILLON_STATUS_NOT_HELD);
            EXPECT_EQ(take(0), QUILLON_STATUS_TIMED_OUT);
            EXPECT_EQ(take(50), QUILLON_STATUS_TIMED_OUT) << "longer than a waiter sleeps at a time";
        };
        std::jthread(as_another_task).join();
        as_client(as_another_task);  // a child is not the task that has forked it
        EXPECT_EQ(SYSFUN_TakeSem(kOtherSemaphore, 0), QUILLON_STATUS_OK);
        EXPECT_EQ(SYSFUN_GiveSem(kOtherSemaphore), QUILLON_STATUS_OK);
        EXPECT_EQ(give(), QUILLON_STATUS_OK);
        EXPECT_EQ(take(0), QUILLON_STATUS_OK);
        EXPECT_EQ(give(), QUILLON_STATUS_OK);
    });
}

enum class Death {
    of_thread,   // one that is not its process's first
    of_process,  // with such a thread
    killed,      // in the first thread, which stays a zombie: nobody waits for the process
};

class DyingHolder {
  public:
    explicit DyingHolder(Death death)
        : death_(death), process_([death](const auto &ready) {
              const auto hold = [&] {
                  take();
                  ready();
                  if (death != Death::of_thread) {
                      pause();
                  }
              };
              if (death == Death::killed) {
                  hold();
              }
              std::jthread(hold).join();
              pause();
              return 0;
          })
    {
    }

    void die() const
    {
        if (death_ != Death::of_thread) {
            process_.signal(death_ == Death::killed ? SIGKILL : SIGTERM);
        }
    }

  private:
    Death death_;
    Process process_;
};

// Faults: a kind of death that goes unnoticed; two waiters that take over; a loss that nobody hears of.
TEST(SharedSemaphore, IsFreeAgainAfterItsHoldersDeath)
{
    const Events losses;
    const MemoryDriver driver(1, layout(), &losses);
    for (const Death death : {Death::of_thread, Death::of_process, Death::killed}) {
        SCOPED_TRACE(static_cast<int>(death));
        as_client([death] {
            const DyingHolder holder(death);
            std::array<uint32_t, 3> statuses = {};
            {
                std::vector<std::jthread> waiters;
                for (uint32_t &status : statuses) {
                    waiters.emplace_back([&status] {
                        status = take();
                        give();
                    });
                }
                holder.die();
            }
            std::ranges::sort(statuses);
            EXPECT_THAT(statuses, testing::ElementsAre(QUILLON_STATUS_OK, QUILLON_STATUS_OK, QUILLON_STATUS_RECOVERED));
        });
        EXPECT_EQ(losses.next(), 'l');
    }
}

// Fault: a task that has got the number of a dead one is taken for that.
TEST(TaskIdentity, IsMoreThanANumber)
{
    host::TaskIdentity self = host::own_identity();
    EXPECT_NE(self.started, 0u);
    EXPECT_TRUE(is_alive(self));
    ++self.started;
    EXPECT_FALSE(is_alive(self));
}

// The driver process is the test itself.
class SharedRunTest : public testing::Test {
  protected:
    RuntimeFolder folder = RuntimeFolder::claim();
    SharedRun run{folder, layout()};
};

// Faults: an event that overwrites another; one that comes just when the receiver goes to sleep or takes others.
TEST_F(SharedRunTest, NoEventIsLost)
{
    constexpr uint32_t kSenders = 8;
    constexpr uint32_t kTimes = 500;
    TaskEvents events(run);
    auto *const received = reinterpret_cast<std::atomic<uint32_t> *>(run.segment(kSegment).data());
    std::vector<std::unique_ptr<Application>> senders;
    for (uint32_t sender = 0; sender < kSenders; ++sender) {
        senders.push_back(std::make_unique<Application>([&, sender] {
            const auto *const mine = static_cast<std::atomic<uint32_t> *>(SYSRSC_MGR_GetShMem(kSegment)) + sender;
            for (uint32_t i = 1; i <= kTimes; ++i) {
                ASSERT_EQ(SYSFUN_SendEvent(events.task_id(), UINT32_C(1) << (sender * 4)), QUILLON_STATUS_OK);
                ASSERT_TRUE(comes_true([&] { return *mine == i; }));
            }
        }));
    }
    for (uint32_t count = 0; count < kSenders * kTimes;) {
        const uint32_t now = events.wait(0x11111111, 60'000);
        ASSERT_NE(now, 0u) << count;
        for (uint32_t sender = 0; sender < kSenders; ++sender) {
            if ((now & UINT32_C(1) << (sender * 4)) != 0) {
                ++count;
                ++received[sender];
            }
        }
    }
    for (const auto &sender : senders) {
        sender->expect_success();
    }
    EXPECT_EQ(events.wait(UINT32_MAX, 0), 0u);
}

TEST_F(SharedRunTest, EventsAreThoseOfATask)
{
    const auto expect_sent = [](uint32_t task_id, uint32_t sent, uint32_t status) {
        as_client([&] { EXPECT_EQ(SYSFUN_SendEvent(task_id, sent), status); });
    };
    const uint32_t self = SYSFUN_TaskIdSelf();
    expect_sent(self, 8, QUILLON_STATUS_NO_SUCH_TASK);
    expect_sent(0, 8, QUILLON_STATUS_NO_SUCH_TASK);
    {
        TaskEvents events(run);
        EXPECT_EQ(events.task_id(), self);
        EXPECT_THROW(TaskEvents twice(run), QueueError);
        expect_sent(self, 8, QUILLON_STATUS_OK);
        expect_sent(self + 1, 2, QUILLON_STATUS_NO_SUCH_TASK);
        EXPECT_EQ(run.send_event(self, 0x80000001), QUILLON_STATUS_OK);
        EXPECT_EQ(events.wait(4, 0), 0u);
        EXPECT_EQ(events.wait(8, 0), 8u);
        EXPECT_EQ(events.wait(UINT32_MAX, 0), 0x80000001);
        EXPECT_EQ(events.wait(UINT32_MAX, 1), 0u);
        expect_sent(self, 2, QUILLON_STATUS_OK);
    }
    expect_sent(self, 8, QUILLON_STATUS_NO_SUCH_TASK);
    TaskEvents anew(run);
    EXPECT_EQ(anew.wait(UINT32_MAX, 0), 0u);
}

void expect_offsets(const std::byte *packets)
{
    constexpr uint32_t kAll = kReceiveArea + kTransmitArea;
    struct {
        const std::byte *address;
        uint32_t offset;
        uint32_t transmit_offset;
    } const cases[] = {
        {packets, 0, QUILLON_NO_OFFSET},
        {packets + kReceiveArea - 1, kReceiveArea - 1, QUILLON_NO_OFFSET},
        {packets + kReceiveArea, kReceiveArea, 0},
        {packets + kAll - 1, kAll - 1, kTransmitArea - 1},
        {packets + kAll, QUILLON_NO_OFFSET, QUILLON_NO_OFFSET},
        {packets - 1, QUILLON_NO_OFFSET, QUILLON_NO_OFFSET},
        {nullptr, QUILLON_NO_OFFSET, QUILLON_NO_OFFSET},
    };
    for (const auto &[address, offset, transmit_offset] : cases) {
        EXPECT_EQ(L_IPCMEM_GetOffset(address), offset);
        EXPECT_EQ(L_IPCMEM_GetTxOffset(address), transmit_offset);
    }
}

// Faults: two names for one place; an offset that the two sides count from different places.
TEST_F(SharedRunTest, BothSidesFindTheSamePlaces)
{
    as_client([] {
        auto *const segment = static_cast<std::byte *>(SYSRSC_MGR_GetShMem(kSegment));
        auto *const other = static_cast<std::byte *>(SYSRSC_MGR_GetShMem(9));
        void *start = nullptr;
        ASSERT_EQ(L_IPCMEM_GetRxBufStartAddress(&start), 1);
        auto *const packets = static_cast<std::byte *>(start);
        ASSERT_TRUE(segment != nullptr && other != nullptr);
        EXPECT_EQ(SYSRSC_MGR_GetShMem(7), nullptr);
        std::fill_n(segment, 496, std::byte{1});
        std::fill_n(other, 100'000, std::byte{2});
        std::fill_n(packets, kReceiveArea, std::byte{3});
        std::fill_n(packets + kReceiveArea, kTransmitArea, std::byte{4});
        expect_offsets(packets);
    });
    EXPECT_EQ(run.segment(kSegment).size(), 496u);
    EXPECT_TRUE(run.segment(7).empty());
    EXPECT_THAT(run.segment(kSegment), testing::Each(std::byte{1}));
    EXPECT_THAT(run.segment(9), testing::Each(std::byte{2}));
    EXPECT_THAT(run.receive_area(), testing::Each(std::byte{3}));
    EXPECT_THAT(run.transmit_area(), testing::Each(std::byte{4}));
}

TEST(SharedLayout, IsRefusedWhenItCannotBe)
{
    const RuntimeFolder folder = RuntimeFolder::claim();
    const SharedLayout refused[] = {
        {.segments = {{6, 1}, {6, 2}}, .semaphores = {}},
        {.segments = {}, .semaphores = {17, 17}},
        {.segments = std::vector<SharedLayout::Segment>(17), .semaphores = {}},
        {.segments = {{6, size_t{64} << 20}}, .semaphores = {}},
        {.segments = {{6, SIZE_MAX}}, .semaphores = {}},
        {.segments = {}, .semaphores = {}, .receive_area = 4095},
        {.segments = {}, .semaphores = {}, .transmit_area = size_t{1} << 40},
    };
    for (const SharedLayout &one : refused) {
        EXPECT_THROW(SharedRun(folder, one), QueueError);
    }
    EXPECT_FALSE(std::filesystem::exists(folder.path() + "/memory.sock"));
}

// The descriptor of the memory, as a client gets it.
int offered_memory()
{
    const int socket = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
    const sockaddr_un address = host::memory_address(runtime_folder().c_str());
    EXPECT_EQ(connect(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    host::RunOffer offer;
    int memory = -1;
    EXPECT_TRUE(comes_true([&] { return host::receive_offer(socket, offer, memory) > 0; }));
    close(socket);
    return memory;
}

// Fault: a client takes the memory away from under the others, who die of it.
TEST_F(SharedRunTest, NobodyCanResizeTheMemory)
{
    const int memory = offered_memory();
    struct stat status;
    ASSERT_EQ(fstat(memory, &status), 0);
    for (const off_t size : {off_t{0}, status.st_size - 1, status.st_size + 1}) {
        EXPECT_EQ(ftruncate(memory, size), -1) << size;
        EXPECT_EQ(errno, EPERM);
    }
    EXPECT_EQ(fcntl(memory, F_ADD_SEALS, F_SEAL_WRITE), -1);
    close(memory);
}

}  // namespace
}  // namespace quillon::test
