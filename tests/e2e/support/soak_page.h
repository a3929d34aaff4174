// What a soak run and its clients tell each other, in memory that they share.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <array>
#include <atomic>

namespace quillon::test {

inline void raise_to(std::atomic<int64_t> &highest, int64_t value)
{
    int64_t seen = highest;
    while (seen < value && !highest.compare_exchange_weak(seen, value)) {
    }
}

struct SoakPage {
    static constexpr size_t most_threads = 64;

    // Of one thread, which makes calls of one kind.
    struct Thread {
        std::atomic<uint64_t> served;  // calls that the driver process or its memory answered
        std::atomic<uint64_t> failed;  // because there was no driver process, or no longer
        std::atomic<uint64_t> wrong;   // neither of both
    };

    std::atomic<bool> paused;
    std::atomic<uint32_t> resting;        // threads that have seen it
    std::atomic<int64_t> killed_at;       // the last kill
    std::atomic<int64_t> longest;         // of all calls, in nanoseconds
    std::atomic<int64_t> longest_failed;  // from a kill to the return of a call that it ended
    std::array<Thread, most_threads> threads;
};

}  // namespace quillon::test
