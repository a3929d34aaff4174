#include "host/platform/task_identity.h"

#include <errno.h>
#include <fcntl.h>
#include <pthread.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

namespace quillon::host {
namespace {

// In the static block, which needs no heap.
[[gnu::tls_model("initial-exec")]] constinit thread_local TaskIdentity own = {};

void forget_own()
{
    own = {};
}

// The child's one task is another one than its parent's.
[[gnu::constructor]] void watch_forks()
{
    pthread_atfork(nullptr, nullptr, forget_own);
}

struct TaskStatus {
    char state = '\0';  // none: there is no such task, or no way to know
    uint32_t started = 0;
};

// /proc/<id>/stat would do but for user-mode emulation, which makes one up for its own process.
TaskStatus status_of(uint32_t id)
{
    char path[64];
    (void)snprintf(path, sizeof path, "/proc/%u/task/%u/stat", id, id);
    const int file = open(path, O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        return {};
    }
    char line[1024];
    const ssize_t size = read(file, line, sizeof line - 1);
    close(file);
    if (size <= 0) {
        return {};
    }
    line[size] = '\0';

    // "id (name) state ...": the name may have blanks and parentheses of its own. The start is the 22nd field.
    const char *field = strrchr(line, ')');
    if (field == nullptr || field[1] == '\0') {
        return {};
    }
    const char state = field[2];
    for (int number = 2; field != nullptr && number < 22; ++number) {
        field = strchr(field + 1, ' ');
    }
    return {.state = state, .started = field == nullptr ? 0 : static_cast<uint32_t>(strtoull(field, nullptr, 10))};
}

}  // namespace

TaskIdentity own_identity()
{
    if (own.id == 0) [[unlikely]] {
        const auto id = static_cast<uint32_t>(gettid());
        own = {.id = id, .started = status_of(id).started};
    }
    return own;
}

bool is_alive(TaskIdentity task)
{
    const TaskStatus status = status_of(task.id);
    switch (status.state) {
        case '\0':
            return kill(static_cast<pid_t>(task.id), 0) == 0 || errno != ESRCH;
        case 'Z':
        case 'X':
        case 'x':
            return false;
        default:
            return task.started == 0 || status.started == task.started;
    }
}

}  // namespace quillon::host
