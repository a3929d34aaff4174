// The record that the driver process shares with all processes on the packet path: its operating mode, and the received
// buffers that are on loan.
#pragma once

#include <stdint.h>

#include <array>
#include <cstddef>

namespace quillon::nicdrv {

inline constexpr uint32_t shared_record_segment = 6;
// What is counted changes only while it is held, but for the fragments that a starting process forgets.
inline constexpr uint32_t shared_record_semaphore_key = 17;

inline constexpr uint32_t pools = 10;

enum class OperatingMode : uint32_t { transition = 0, master = 1, slave = 2 };

// What a received buffer comes with: 0 to 9 for the pool that it was drawn from, or this one for no pool.
inline constexpr uint32_t cookie_without_pool = 10;

// Bytes that are the driver process's alone.
template <size_t Size>
using DriverBytes = std::array<uint8_t, Size>;

struct CookieUsage {
    uint32_t held;
    DriverBytes<20> driver;
};
static_assert(sizeof(CookieUsage) == 24);

struct NicShMem {
    uint32_t operating_mode;  // an OperatingMode, which changes without the semaphore
    std::array<uint16_t, pools> cookie_pool;
    DriverBytes<20> driver1;
    std::array<uint32_t, pools> pool_held;
    std::array<uint32_t, pools> pool_flow_held;
    std::array<uint32_t, pools> pool_resume_level;
    std::array<uint8_t, pools> pool_stopped;
    DriverBytes<2> driver2;
    uint32_t total_held;
    uint32_t rx_task_id;
    uint32_t fragment_held;
    DriverBytes<12> driver3;
    uint32_t free_ok_count;
    uint32_t free_fail_count;
    DriverBytes<40> driver4;
    std::array<CookieUsage, pools> cookie_usage;
    uint32_t cookie10_held;
    DriverBytes<4> driver5;
};
static_assert(sizeof(NicShMem) == 496 && alignof(NicShMem) == 4);
static_assert(offsetof(NicShMem, operating_mode) == 0);
static_assert(offsetof(NicShMem, cookie_pool) == 4);
static_assert(offsetof(NicShMem, driver1) == 24);
static_assert(offsetof(NicShMem, pool_held) == 44);
static_assert(offsetof(NicShMem, pool_flow_held) == 84);
static_assert(offsetof(NicShMem, pool_resume_level) == 124);
static_assert(offsetof(NicShMem, pool_stopped) == 164);
static_assert(offsetof(NicShMem, driver2) == 174);
static_assert(offsetof(NicShMem, total_held) == 176);
static_assert(offsetof(NicShMem, rx_task_id) == 180);
static_assert(offsetof(NicShMem, fragment_held) == 184);
static_assert(offsetof(NicShMem, driver3) == 188);
static_assert(offsetof(NicShMem, free_ok_count) == 200);
static_assert(offsetof(NicShMem, free_fail_count) == 204);
static_assert(offsetof(NicShMem, driver4) == 208);
static_assert(offsetof(NicShMem, cookie_usage) == 248);
static_assert(offsetof(NicShMem, cookie10_held) == 488);
static_assert(offsetof(NicShMem, driver5) == 492);

}  // namespace quillon::nicdrv
