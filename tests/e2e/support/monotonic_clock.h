// The clock that all processes read alike.
#pragma once

#include <stdint.h>
#include <time.h>

namespace quillon::test {

// In nanoseconds.
inline int64_t monotonic_now()
{
    timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

}  // namespace quillon::test
