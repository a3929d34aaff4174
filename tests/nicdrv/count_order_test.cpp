// The order in which the counters change, as another process sees it that looks after every instruction.
#include <signal.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <vector>

#include "nicdrv/shared_record_fixture.h"

namespace quillon::test {
namespace {

using Offsets = std::vector<size_t>;

class CountOrderTest : public SharedRecordTest {
  protected:
    CountOrderTest()
    {
        void *const memory = mmap(nullptr, record_size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        shared = new (memory) RecordBytes(record);
        const uint16_t pool = 5;
        std::memcpy(&shared->at(cookie_pool_at + 2 * cookie), &pool, sizeof pool);
        platform().segments = {{6, shared->data()}};
        DEV_NICDRV_OM_InitSystemResources();
    }
    ~CountOrderTest() override
    {
        munmap(shared, record_size);
        DEV_NICDRV_OM_SetFreeFunc(DEV_NICDRV_PMGR_FreeRxPacket);
    }

    // The words of the record that a call changes, one after another.
    Offsets changed_by(const std::function<void()> &call) const
    {
        const pid_t child = fork();
        if (child == 0) {
            ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
            raise(SIGSTOP);
            call();
            _exit(0);
        }
        Offsets changed;
        RecordBytes seen = *shared;
        int status = 0;
        while (waitpid(child, &status, 0) == child && WIFSTOPPED(status)) {
            for (size_t at = 0; at < record_size; at += 4) {
                if (word_at(*shared, at) != word_at(seen, at)) {
                    changed.push_back(at);
                }
            }
            seen = *shared;
            ptrace(PTRACE_SINGLESTEP, child, nullptr, nullptr);
        }
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
        return changed;
    }

    static constexpr uint32_t cookie = 2;
    RecordBytes *shared;
};

TEST_F(CountOrderTest, IsTheSameForWhoeverGoesOnAfterADeath)
{
    DEV_NICDRV_OM_SetFreeFunc([](void * /*buffer*/) { return uint8_t{1}; });
    const auto free_with = [](uint32_t given) { return [given] { DEV_NICDRV_MREF_MemFree(nullptr, given, nullptr); }; };
    EXPECT_EQ(changed_by(free_with(cookie)), (Offsets{200, 296, 64, 176, 104}));
    EXPECT_EQ(changed_by(free_with(10)), (Offsets{200, 488}));
    EXPECT_EQ(changed_by([] { DEV_NICDRV_ReserveFragmentBuffer(cookie); }), (Offsets{176, 184, 296, 64, 104}));
    EXPECT_EQ(changed_by([] { DEV_NICDRV_ReleaseFragmentBuffer(cookie); }), (Offsets{176, 184, 296, 64, 104}));
}

}  // namespace
}  // namespace quillon::test
