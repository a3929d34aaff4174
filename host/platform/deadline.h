// The end of a call's wait.
#ifndef QUILLON_HOST_PLATFORM_DEADLINE_H
#define QUILLON_HOST_PLATFORM_DEADLINE_H

#include <sys/time.h>
#include <time.h>

#include <cstdint>

#include "quillon/platform.h"

namespace quillon::host {

// Never zero, which is no limit to the kernel.
inline timeval rounded_up(timespec time)
{
    const long microseconds = time.tv_nsec / 1000 + 1;
    return {.tv_sec = time.tv_sec + microseconds / 1'000'000, .tv_usec = microseconds % 1'000'000};
}

class Deadline {
  public:
    static Deadline never() { return Deadline(QUILLON_WAIT_FOREVER); }

    explicit Deadline(uint32_t wait_ms) : limited_(wait_ms != QUILLON_WAIT_FOREVER)
    {
        if (!limited_) {
            return;
        }
        clock_gettime(CLOCK_MONOTONIC, &end_);
        end_.tv_sec += wait_ms / 1000;
        end_.tv_nsec += static_cast<long>(wait_ms % 1000) * 1'000'000;
        if (end_.tv_nsec >= 1'000'000'000) {
            ++end_.tv_sec;
            end_.tv_nsec -= 1'000'000'000;
        }
    }

    bool limited() const { return limited_; }

    bool passed() const
    {
        const timespec rest = limited_ ? left() : timespec{.tv_sec = 1, .tv_nsec = 0};
        return rest.tv_sec == 0 && rest.tv_nsec == 0;
    }

    // What is left of a limited wait, zero when it has passed.
    timespec left() const
    {
        timespec now;
        clock_gettime(CLOCK_MONOTONIC, &now);
        timespec left = {.tv_sec = end_.tv_sec - now.tv_sec, .tv_nsec = end_.tv_nsec - now.tv_nsec};
        if (left.tv_nsec < 0) {
            --left.tv_sec;
            left.tv_nsec += 1'000'000'000;
        }
        return left.tv_sec < 0 ? timespec{} : left;
    }

  private:
    timespec end_ = {};
    bool limited_;
};

}  // namespace quillon::host

#endif
