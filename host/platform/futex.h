// Waiting for a change of the lower half of a 64-bit word that processes share.
#ifndef QUILLON_HOST_PLATFORM_FUTEX_H
#define QUILLON_HOST_PLATFORM_FUTEX_H

#include <errno.h>
#include <limits.h>
#include <linux/futex.h>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

#include <atomic>
#include <bit>
#include <cstdint>

namespace quillon::host {

using SharedWord = std::atomic<uint64_t>;
static_assert(SharedWord::is_always_lock_free, "other processes know of no lock");
static_assert(std::endian::native == std::endian::little, "the word's address is that of its lower half");

inline uint32_t lower_half(uint64_t word)
{
    return static_cast<uint32_t>(word);
}

inline uint32_t upper_half(uint64_t word)
{
    return static_cast<uint32_t>(word >> 32);
}

// Sleeps while the lower half is that of `seen`. False when `most` has passed (null: no limit).
inline bool wait_for_change(const SharedWord &word, uint64_t seen, const timespec *most)
{
    return syscall(SYS_futex, &word, FUTEX_WAIT, lower_half(seen), most, nullptr, 0) == 0 || errno != ETIMEDOUT;
}

inline void wake_one(const SharedWord &word)
{
    syscall(SYS_futex, &word, FUTEX_WAKE, 1, nullptr, nullptr, 0);
}

inline void wake_all(const SharedWord &word)
{
    syscall(SYS_futex, &word, FUTEX_WAKE, INT_MAX, nullptr, nullptr, 0);
}

}  // namespace quillon::host

#endif
