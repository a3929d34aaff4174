// The memory that this process shares with its driver process, over restarts of that.
#ifndef QUILLON_HOST_PLATFORM_CLIENT_RUN_H
#define QUILLON_HOST_PLATFORM_CLIENT_RUN_H

#include <cstddef>
#include <cstdint>

#include "host/platform/deadline.h"
#include "host/platform/shared_memory.h"

namespace quillon::host {

// The address is this process's for good: the memory of the next run takes the place of the last one's there. Callers
// keep pointers into it, so that it is never exchanged while a thread of this process holds a semaphore that is in it.
class ClientRun {
  public:
    // Attaches to a driver process that lives, if need be anew: asks the kernel each time. Returns QUILLON_STATUS_OK or
    // what is in the way, QUILLON_STATUS_NO_DRIVER also while other threads hold semaphores of the last run.
    static uint32_t attach(const Deadline &deadline);

    // Null until the first attach().
    static std::byte *memory();
    static RunRecord &record() { return *reinterpret_cast<RunRecord *>(memory()); }
    // Once attached, for good.
    static const MemoryMap &map();

    // Which run's memory is there now.
    static uint64_t number();

    enum class Change { none, exchanged, refused };
    // Whether the memory is still that of the run that had `number`, and, if its driver process seems to be gone, that
    // of the next one if there is one. `held` is the semaphore that the calling thread has taken, or null; it is given
    // back if the memory is exchanged. `refused`: the next one has another layout.
    static Change keep_up(uint64_t number, SharedSemaphore *held);
};

}  // namespace quillon::host

#endif
