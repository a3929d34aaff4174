// Who a task is, also after its number was given to another one. C library only.
#ifndef QUILLON_HOST_PLATFORM_TASK_IDENTITY_H
#define QUILLON_HOST_PLATFORM_TASK_IDENTITY_H

#include <cstdint>

namespace quillon::host {

struct TaskIdentity {
    uint32_t id = 0;       // the Linux thread id
    uint32_t started = 0;  // in clock ticks since the machine has; 0 when it is not known
};

// The calling task's, from a copy after its first call.
TaskIdentity own_identity();

// False once the task has ended, also while nobody has waited for its process yet. True when that cannot be found out.
bool is_alive(TaskIdentity task);

}  // namespace quillon::host

#endif
