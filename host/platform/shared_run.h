// The driver process's half of what a run shares besides its queues: memory, semaphores and task events.
#ifndef QUILLON_HOST_PLATFORM_SHARED_RUN_H
#define QUILLON_HOST_PLATFORM_SHARED_RUN_H

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "host/platform/queue_server.h"

namespace quillon::host {

// What a run shares. The same for all driver processes of a folder, one after the other: clients keep their addresses
// over a restart, and one that is attached refuses another layout.
struct SharedLayout {
    struct Segment {
        uint32_t id;
        size_t size;
    };
    std::vector<Segment> segments;     // 16 at most
    std::vector<uint32_t> semaphores;  // their keys, 16 at most
    // The IPC memory: the area of the receive buffers from its start on, and behind that the transmit area. Both are
    // multiples of 4,096 bytes.
    size_t receive_area = 0;
    size_t transmit_area = 0;
};

// A semaphore whose holder died and that another task has taken since.
struct SemaphoreLoss {
    uint32_t key;
    pid_t holder;    // the Linux thread id of the last one that died
    uint32_t times;  // since the last report
};

// Called on a thread of the run's own.
using LossReport = std::function<void(const SemaphoreLoss &)>;

class TaskEvents;

// Exists from construction to destruction: clients attach to it without any of the queues. All memory starts as zeros,
// is locked against being resized, and is gone with the driver process and the clients that are attached to it.
class SharedRun {
  public:
    // In place of what a crashed run left. `folder` must outlive the object. Throws QueueError.
    SharedRun(const RuntimeFolder &folder, const SharedLayout &layout, LossReport report = {});
    ~SharedRun();
    SharedRun(const SharedRun &) = delete;
    SharedRun &operator=(const SharedRun &) = delete;

    // Of the size that the layout says, aligned to 64 bytes; empty for an id that it does not have. Clients write it
    // at any time: what is read from it is checked like a request.
    std::span<std::byte> segment(uint32_t id) const noexcept;

    // L_IPCMEM_GetOffset() counts from the start of ipc_memory(), L_IPCMEM_GetTxOffset() from that of transmit_area().
    // Both are 0xFFFFFFFF for an address that is not in there.
    std::span<std::byte> ipc_memory() const noexcept;
    std::span<std::byte> receive_area() const noexcept;
    std::span<std::byte> transmit_area() const noexcept;

    // As SYSFUN_TakeSem() and SYSFUN_GiveSem() for the calling thread, and with their status values.
    uint32_t take(uint32_t key, uint32_t timeout_ms) noexcept;
    uint32_t give(uint32_t key) noexcept;

    // As SYSFUN_SendEvent().
    uint32_t send_event(uint32_t task_id, uint32_t events) noexcept;

  private:
    friend class TaskEvents;
    struct Run;
    std::unique_ptr<Run> run_;
};

// The events of the thread that makes this object: while it exists, SYSFUN_SendEvent() to that thread's id succeeds.
// Events are bits, which stay pending until they are taken; the same bit sent twice before that is pending once.
class TaskEvents {
  public:
    // `run` must outlive the object. Throws QueueError when 16 threads have events, or this one has them already.
    explicit TaskEvents(SharedRun &run);
    ~TaskEvents();
    TaskEvents(const TaskEvents &) = delete;
    TaskEvents &operator=(const TaskEvents &) = delete;

    uint32_t task_id() const noexcept { return task_id_; }

    // Waits until one of the events `mask` is pending, then takes those of them that are and returns them. 0 when none
    // came within `timeout_ms` (QUILLON_WAIT_FOREVER: no limit; 0: does not wait). Whoever ends a thread that waits
    // sends it an event of his own.
    uint32_t wait(uint32_t mask, uint32_t timeout_ms) noexcept;

  private:
    SharedRun::Run &run_;
    uint32_t task_id_;
    size_t mailbox_;
};

}  // namespace quillon::host

#endif
