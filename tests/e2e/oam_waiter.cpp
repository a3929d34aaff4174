// An application process for the tests: `oam_waiter WAITERS` binds as many tasks to the loss of continuity, each by a
// binding of its own, and has each of them wait for it again and again, without a time-out. When it has read a line it
// takes all bindings back. It tells what happens:
//
//     waiting <thread>     before a task's first wait
//     event <waiter>       after a wait that an event ended
//     ended <waiter>       after the wait that something else ended; the task's last line
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#include <thread>
#include <vector>

#include "quillon/platform.h"
#include "quillon/swdrv.h"

namespace {

constexpr int8_t unbind = 0;
constexpr int8_t bind = 1;
constexpr uint32_t loss_of_continuity = 1;

void wait_for_events(uint32_t waiter, uint64_t handle)
{
    printf("waiting %u\n", SYSFUN_TaskIdSelf());
    while (DEV_SWDRV_PMGR_WaitAndReceiveOam(loss_of_continuity, handle, nullptr) == 1) {
        printf("event %u\n", waiter);
    }
    printf("ended %u\n", waiter);
}

}  // namespace

int main(int argc, char **argv)
{
    const uint32_t waiters = argc == 2 ? static_cast<uint32_t>(atoi(argv[1])) : 1;
    setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    DEV_SWDRV_PMGR_InitiateProcessResource();
    std::vector<std::jthread> tasks;
    for (uint32_t waiter = 0; waiter < waiters; ++waiter) {
        uint64_t handle = 0;
        if (DEV_SWDRV_PMGR_EventBindUnbindOam(bind, loss_of_continuity, waiter, &handle) != 1) {
            printf("not bound %u\n", waiter);
        }
        tasks.emplace_back(wait_for_events, waiter, handle);
    }
    getchar();
    for (uint32_t waiter = 0; waiter < waiters; ++waiter) {
        DEV_SWDRV_PMGR_EventBindUnbindOam(unbind, loss_of_continuity, waiter, nullptr);
    }
    return 0;
}
