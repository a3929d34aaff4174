#include "ipc/failure_report.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "quillon/platform.h"

namespace quillon::ipc {
namespace {

// The key stands at a fixed place of the platform's queue object. A queue that was never attached reads as key 0.
uint32_t key_of(const void *queue)
{
    constexpr size_t key_offset = 12;
    uint32_t key = 0;
    if (queue != nullptr) {
        memcpy(&key, static_cast<const char *>(queue) + key_offset, sizeof key);
    }
    return key;
}

void dump_user_stack()
{
    char command[sizeof "cat /proc/-9223372036854775808/ustack"];
    sprintf(command, "cat /proc/%ld/ustack", static_cast<long>(SYSFUN_TaskIdSelf()));
    // Nothing is left to do about a dump that fails.
    [[maybe_unused]] const int status = system(command);
}

}  // namespace

void report_failure(const void *queue, const char *name, uint32_t line, uint32_t status, bool send_line)
{
    printf("%s() line %d:Failed to send/receive IPC message.(msgq_key=%lu, rc=%lu)\r\n", name, static_cast<int>(line),
           static_cast<unsigned long>(key_of(queue)), static_cast<unsigned long>(status));
    dump_user_stack();
    if (send_line) {
        printf("%s:SYSFUN_SendRequestMsg fail! (%ld)\n", name, static_cast<long>(status));
    }
}

void report_allocation_failure(const char *name, uint32_t line, uint32_t size)
{
    printf("\n%s(%d): Failed to malloc %lu bytes", name, static_cast<int>(line), static_cast<unsigned long>(size));
}

void report_attach_failure(const char *name)
{
    printf("%s(): SYSFUN_GetMsgQ fail.\n", name);
}

}  // namespace quillon::ipc
