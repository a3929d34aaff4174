// The pending events of a task, in memory that processes share. C library only.
#ifndef QUILLON_HOST_PLATFORM_TASK_MAILBOX_H
#define QUILLON_HOST_PLATFORM_TASK_MAILBOX_H

#include <cstdint>
#include <span>

#include "host/platform/futex.h"
#include "quillon/platform.h"

namespace quillon::host {

struct alignas(64) TaskMailbox {
    SharedWord mail;  // above, the task's id, 0 when the mailbox is nobody's; below, its pending events
};

// Events and owner are one word: what is sent to a task that goes at the same time reaches it or is refused, and never
// the mailbox's next owner.
inline uint32_t post(std::span<TaskMailbox> mailboxes, uint32_t task_id, uint32_t events)
{
    for (TaskMailbox &mailbox : mailboxes) {
        uint64_t mail = mailbox.mail.load(std::memory_order_relaxed);
        while (task_id != 0 && upper_half(mail) == task_id) {
            if (mailbox.mail.compare_exchange_weak(mail, mail | events, std::memory_order_release)) {
                wake_all(mailbox.mail);
                return QUILLON_STATUS_OK;
            }
        }
    }
    return QUILLON_STATUS_NO_SUCH_TASK;
}

}  // namespace quillon::host

#endif
