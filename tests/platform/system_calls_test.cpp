// What is done without the kernel.
#include <gtest/gtest.h>
#include <linux/seccomp.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "shared_run_support.h"

namespace quillon::test {
namespace {

TEST(SharedSemaphore, CostsNoSystemCallWhenFree)
{
    const MemoryDriver driver(1);
    const auto take_and_give = [] {
        take();
        give();
        // From here on there are no system calls but reading, writing and the end of a thread.
        bool done = prctl(PR_SET_SECCOMP, SECCOMP_MODE_STRICT) == 0;
        for (int i = 0; i < 100; ++i) {
            done = done && take() == QUILLON_STATUS_OK && give() == QUILLON_STATUS_OK;
        }
        syscall(SYS_exit, done ? 0 : 1);
        return 1;
    };
    // A driver process that has not got a CPU for long is asked for.
    constexpr int made_a_call = 128 + SIGKILL;
    int result = made_a_call;
    for (int attempt = 0; attempt < 20 && result == made_a_call; ++attempt) {
        result = in_child(take_and_give);
    }
    EXPECT_EQ(result, 0);
}

}  // namespace
}  // namespace quillon::test
