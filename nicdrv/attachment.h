// What a process is attached to beside the queues: the shared record, and the semaphore that guards its counters.
#pragma once

#include <assert.h>
#include <stdint.h>

#include "nicdrv/shared_record.h"
#include "quillon/platform.h"

namespace quillon::nicdrv {

// Null until one of the attach functions has run; written once, before the process's tasks free buffers.
inline NicShMem *nic_shmem = nullptr;
inline uint32_t nic_sem = 0;

inline NicShMem &shared_record()
{
    assert(nic_shmem != nullptr && "an attach function runs first");
    return *nic_shmem;
}

// The right to change the record's counters, for as long as the object lives. What the platform says is not looked at:
// a count that may be wrong is better than a buffer that is lost.
class CountersLock {
  public:
    CountersLock()
    {
        constexpr uint32_t wait_for_ever = 0xFFFFFFFF;
        SYSFUN_TakeSem(nic_sem, wait_for_ever);
    }
    ~CountersLock() { SYSFUN_GiveSem(nic_sem); }
    CountersLock(const CountersLock &) = delete;
    CountersLock &operator=(const CountersLock &) = delete;
};

// Counters wrap. They are written one by one and in the order of the code, for whoever goes on when a task has died
// between two of them.
inline void increment(uint32_t &counter)
{
    volatile uint32_t &shared = counter;
    shared = shared + 1;
}

inline void decrement(uint32_t &counter)
{
    volatile uint32_t &shared = counter;
    shared = shared - 1;
}

}  // namespace quillon::nicdrv
