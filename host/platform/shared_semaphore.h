// A semaphore in memory that processes share. C library only.
#ifndef QUILLON_HOST_PLATFORM_SHARED_SEMAPHORE_H
#define QUILLON_HOST_PLATFORM_SHARED_SEMAPHORE_H

#include <atomic>
#include <cstdint>

#include "host/platform/deadline.h"
#include "host/platform/futex.h"
#include "host/platform/task_identity.h"

namespace quillon::host {

// One word says who holds it, so that taking it and saying so cannot be torn apart by a death in between.
struct alignas(64) SharedSemaphore {
    SharedWord holder;             // 0 when it is free; above, when its task started, below, the task's id and kAwaited
    std::atomic<uint32_t> losses;  // how often a holder has died
    std::atomic<uint32_t> last_lost;

    static constexpr uint64_t kAwaited = UINT64_C(1) << 31;  // somebody sleeps
};

// The last holder by its word, whoever waits for it.
inline TaskIdentity holder_of(uint64_t word)
{
    return {.id = lower_half(word & ~SharedSemaphore::kAwaited), .started = upper_half(word)};
}

// Takes it, or gives up at the deadline, or after a moment in which it did not get it: whoever waits for longer calls
// again. A holder that has died is found at the end of the moment.
// Returns QUILLON_STATUS_OK, _RECOVERED, _ALREADY_HELD, or _TIMED_OUT for either end of the wait.
uint32_t take_within_a_moment(SharedSemaphore &semaphore, const Deadline &deadline);

uint32_t give(SharedSemaphore &semaphore);

// By the calling task.
bool is_held(const SharedSemaphore &semaphore);

}  // namespace quillon::host

#endif
