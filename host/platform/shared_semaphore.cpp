#include "host/platform/shared_semaphore.h"

#include "quillon/platform.h"

namespace quillon::host {
namespace {

// A fifth of what a holder's death may cost.
constexpr timespec kMoment = {.tv_sec = 0, .tv_nsec = 20'000'000};

timespec shorter(timespec a, timespec b)
{
    return a.tv_sec < b.tv_sec || (a.tv_sec == b.tv_sec && a.tv_nsec < b.tv_nsec) ? a : b;
}

uint64_t word_of(TaskIdentity task)
{
    return uint64_t{task.started} << 32 | task.id;
}

bool is_held_by(uint64_t word, uint64_t task)
{
    return (word & ~SharedSemaphore::kAwaited) == task;
}

// Waits for the semaphore's word to change; false when the moment is over.
bool wait_a_moment(const SharedSemaphore &semaphore, uint64_t seen, const Deadline &deadline)
{
    const timespec most = deadline.limited() ? shorter(deadline.left(), kMoment) : kMoment;
    return wait_for_change(semaphore.holder, seen, &most);
}

// Of those who find a holder dead, one takes its place.
bool take_over(SharedSemaphore &semaphore, uint64_t dead, uint64_t self)
{
    if (!semaphore.holder.compare_exchange_strong(dead, self | SharedSemaphore::kAwaited)) {
        return false;
    }
    semaphore.last_lost.store(holder_of(dead).id, std::memory_order_relaxed);
    semaphore.losses.fetch_add(1, std::memory_order_release);
    return true;
}

uint32_t take_contended(SharedSemaphore &semaphore, uint64_t self, const Deadline &deadline)
{
    using enum std::memory_order;
    for (bool waits = true;;) {
        uint64_t word = semaphore.holder.load(relaxed);
        if (word == 0) {
            // Others may sleep as well: who has slept wakes one more than needed rather than one too few.
            if (semaphore.holder.compare_exchange_weak(word, self | SharedSemaphore::kAwaited)) {
                return QUILLON_STATUS_OK;
            }
        } else if (is_held_by(word, self)) {
            return QUILLON_STATUS_ALREADY_HELD;
        } else if (!waits) {
            if (is_alive(holder_of(word))) {
                return QUILLON_STATUS_TIMED_OUT;
            }
            if (take_over(semaphore, word, self)) {
                return QUILLON_STATUS_RECOVERED;
            }
        } else if ((word & SharedSemaphore::kAwaited) != 0 ||
                   semaphore.holder.compare_exchange_weak(word, word | SharedSemaphore::kAwaited)) {
            waits = wait_a_moment(semaphore, word | SharedSemaphore::kAwaited, deadline);
        }
    }
}

}  // namespace

uint32_t take_within_a_moment(SharedSemaphore &semaphore, const Deadline &deadline)
{
    const uint64_t self = word_of(own_identity());
    uint64_t free = 0;
    return semaphore.holder.compare_exchange_strong(free, self) ? QUILLON_STATUS_OK
                                                                : take_contended(semaphore, self, deadline);
}

bool is_held(const SharedSemaphore &semaphore)
{
    return is_held_by(semaphore.holder.load(std::memory_order_relaxed), word_of(own_identity()));
}

uint32_t give(SharedSemaphore &semaphore)
{
    if (!is_held(semaphore)) {
        return QUILLON_STATUS_NOT_HELD;
    }
    const uint64_t word = semaphore.holder.exchange(0, std::memory_order_release);
    if ((word & SharedSemaphore::kAwaited) != 0) {
        wake_one(semaphore.holder);
    }
    return QUILLON_STATUS_OK;
}

}  // namespace quillon::host
