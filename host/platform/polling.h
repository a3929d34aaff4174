// Whether to poll a socket for a moment before sleeping on it.
#ifndef QUILLON_HOST_PLATFORM_POLLING_H
#define QUILLON_HOST_PLATFORM_POLLING_H

#include <time.h>

#include <cstdint>

namespace quillon::host {

// Where the peer runs on a CPU of its own, polling saves this side's wake-up, several times the cost of the exchange
// itself. It is given up after a few waits that it could not shorten, and tried again now and then.
class Polling {
  public:
    bool worthwhile() { return misses_ < kPatience || ++skipped_ % kTryAgainAfter == 0; }

    // Calls `ready` until it returns true or a sleep would have been as cheap. Returns what the last call did.
    template <typename Ready>
    bool poll(Ready ready)
    {
        const int64_t end = now_ns() + kLongestNs;
        do {
            if (ready()) {
                misses_ = 0;
                return true;
            }
        } while (now_ns() < end);
        if (misses_ < kPatience) {
            ++misses_;
        }
        return false;
    }

  private:
    // About what both wake-ups of a sleeping exchange cost on a virtual machine: with less, two ends that sleep would
    // never find each other awake.
    static constexpr int64_t kLongestNs = 50'000;
    static constexpr uint32_t kPatience = 4;
    static constexpr uint32_t kTryAgainAfter = 32;

    static int64_t now_ns()
    {
        timespec now;
        clock_gettime(CLOCK_MONOTONIC, &now);
        return int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
    }

    uint32_t misses_ = 0;
    uint32_t skipped_ = 0;
};

}  // namespace quillon::host

#endif
