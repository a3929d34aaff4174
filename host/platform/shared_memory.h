// What a run's shared memory looks like. C library only.
#ifndef QUILLON_HOST_PLATFORM_SHARED_MEMORY_H
#define QUILLON_HOST_PLATFORM_SHARED_MEMORY_H

#include <fcntl.h>
#include <sys/types.h>
#include <time.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

#include "host/platform/shared_semaphore.h"
#include "host/platform/task_mailbox.h"

namespace quillon::host {

inline constexpr size_t kMostSegments = 16;
inline constexpr size_t kMostSemaphores = 16;
inline constexpr size_t kMostMailboxes = 16;
inline constexpr size_t kMostSharedMemory = size_t{64} << 20;

// The driver process says that it is there every kBeat. Who sees no sign of it for longer than kLateBeat asks the
// kernel.
inline constexpr uint64_t kBeatNs = 20'000'000;
inline constexpr uint64_t kLateBeatNs = 50'000'000;

// Read without a system call.
inline uint64_t beat_clock()
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return static_cast<uint64_t>(now.tv_sec) * 1'000'000'000 + static_cast<uint64_t>(now.tv_nsec);
}

// At the start of the memory. A peer can write anything here: nobody finds his way by it.
struct RunRecord {
    std::atomic<uint64_t> beat;  // the beat_clock() of the last one; 0 when the run is over
    std::array<SharedSemaphore, kMostSemaphores> semaphores;
    std::array<TaskMailbox, kMostMailboxes> mailboxes;
};

inline bool is_late(const RunRecord &record)
{
    const uint64_t beat = record.beat.load(std::memory_order_relaxed);
    return beat == 0 || static_cast<int64_t>(beat_clock() - beat) > static_cast<int64_t>(kLateBeatNs);
}

// Where everything is. Both ends have one of their own.
struct MemoryMap {
    struct Segment {
        uint32_t id = 0;
        uint32_t size = 0;
        uint64_t offset = 0;
        bool operator==(const Segment &) const = default;
    };
    uint64_t size = 0;
    uint64_t ipc_memory = 0;  // its offset; the receive area, and the transmit area behind it
    uint32_t receive_area = 0;
    uint32_t transmit_area = 0;
    uint32_t segment_count = 0;
    uint32_t semaphore_count = 0;
    std::array<Segment, kMostSegments> segments = {};
    std::array<uint32_t, kMostSemaphores> semaphores = {};

    bool operator==(const MemoryMap &) const = default;

    const Segment *segment(uint32_t id) const
    {
        for (size_t i = 0; i < segment_count; ++i) {
            if (segments[i].id == id) {
                return &segments[i];
            }
        }
        return nullptr;
    }

    // All of it is inside, and nothing larger than a run may have.
    bool is_sound() const
    {
        const auto fits = [this](uint64_t offset, uint64_t bytes) { return offset <= size && bytes <= size - offset; };
        bool sound = size <= kMostSharedMemory && fits(0, sizeof(RunRecord)) && segment_count <= kMostSegments &&
                     semaphore_count <= kMostSemaphores && fits(ipc_memory, uint64_t{receive_area} + transmit_area);
        for (size_t i = 0; sound && i < segment_count; ++i) {
            sound = fits(segments[i].offset, segments[i].size);
        }
        return sound;
    }

    // Null for a key that there is no semaphore of.
    SharedSemaphore *semaphore(std::byte *memory, uint32_t key) const
    {
        for (size_t i = 0; i < semaphore_count; ++i) {
            if (semaphores[i] == key) {
                return &reinterpret_cast<RunRecord *>(memory)->semaphores[i];
            }
        }
        return nullptr;
    }
};

// What keeps a peer from pulling mapped memory away.
inline constexpr int kSizeSeals = F_SEAL_SHRINK | F_SEAL_GROW;

}  // namespace quillon::host

#endif
