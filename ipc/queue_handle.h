// The process's handles of the driver process's queues.
#pragma once

#include <stdint.h>

#include "quillon/platform.h"

namespace quillon::ipc {

// Null until start-up; written once, before the process's tasks make requests, and read without a lock afterwards.
template <class Queue>
inline void *queue_handle = nullptr;

// The platform decides what stands in the handle when it fails.
template <class Queue>
bool attach()
{
    constexpr uint32_t mode = 1;
    return SYSFUN_GetMsgQ(Queue::key, mode, &queue_handle<Queue>) == 0;
}

}  // namespace quillon::ipc
