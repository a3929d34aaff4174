// The functions on what the run shares: semaphores, events, segments and the IPC memory.
#include <cstddef>
#include <cstdint>

#include "host/platform/client_run.h"
#include "quillon/platform.h"

namespace quillon::host {
namespace {

SharedSemaphore *semaphore_with(uint32_t key)
{
    return ClientRun::memory() == nullptr ? nullptr : ClientRun::map().semaphore(ClientRun::memory(), key);
}

uint32_t take(SharedSemaphore &semaphore, const Deadline &deadline)
{
    for (;;) {
        const uint64_t run = ClientRun::number();
        const uint32_t status = take_within_a_moment(semaphore, deadline);
        if (status == QUILLON_STATUS_ALREADY_HELD) {
            return status;
        }
        const bool taken = status != QUILLON_STATUS_TIMED_OUT;
        if (ClientRun::number() != run || is_late(ClientRun::record())) [[unlikely]] {
            const auto change = ClientRun::keep_up(run, taken ? &semaphore : nullptr);
            if (change == ClientRun::Change::refused) {
                give(semaphore);
                return QUILLON_STATUS_OTHER_LAYOUT;
            }
            if (change == ClientRun::Change::exchanged && !is_held(semaphore)) {
                continue;  // it was the former run's, if any
            }
        }
        if (taken || deadline.passed()) {
            return status;
        }
    }
}

// The offset from `start` of an address in the `size` bytes there.
uint32_t offset_from(const std::byte *start, size_t size, const void *address)
{
    const auto offset = reinterpret_cast<uintptr_t>(address) - reinterpret_cast<uintptr_t>(start);
    return offset < size ? static_cast<uint32_t>(offset) : QUILLON_NO_OFFSET;
}

// The IPC memory; null while this process has never been attached and cannot be.
std::byte *ipc_memory()
{
    if (ClientRun::memory() == nullptr) {
        ClientRun::attach(Deadline::never());
    } else {
        ClientRun::keep_up(ClientRun::number(), nullptr);
    }
    return ClientRun::memory() == nullptr ? nullptr : ClientRun::memory() + ClientRun::map().ipc_memory;
}

}  // namespace
}  // namespace quillon::host

using namespace quillon::host;

// The id is the key: it outlives any driver process.
uint32_t SYSFUN_GetSem(uint32_t key, uint32_t *semaphore)
{
    if (semaphore == nullptr) {
        return QUILLON_STATUS_BAD_ARGUMENT;
    }
    *semaphore = key;
    const uint32_t status = ClientRun::attach(Deadline::never());
    if (status == QUILLON_STATUS_OK && semaphore_with(key) == nullptr) {
        return QUILLON_STATUS_NO_SUCH_SEMAPHORE;
    }
    return status;
}

uint32_t SYSFUN_TakeSem(uint32_t semaphore, uint32_t timeout)
{
    const Deadline deadline(timeout);
    if (ClientRun::memory() == nullptr) [[unlikely]] {
        const uint32_t status = ClientRun::attach(deadline);
        if (status != QUILLON_STATUS_OK) {
            return status;
        }
    }
    SharedSemaphore *const shared = semaphore_with(semaphore);
    return shared == nullptr ? QUILLON_STATUS_NO_SUCH_SEMAPHORE : take(*shared, deadline);
}

uint32_t SYSFUN_GiveSem(uint32_t semaphore)
{
    SharedSemaphore *const shared = semaphore_with(semaphore);
    return shared == nullptr ? QUILLON_STATUS_NO_SUCH_SEMAPHORE : give(*shared);
}

uint32_t SYSFUN_SendEvent(uint32_t task_id, uint32_t events)
{
    const uint32_t status = ClientRun::attach(Deadline::never());
    return status == QUILLON_STATUS_OK ? post(ClientRun::record().mailboxes, task_id, events) : status;
}

void *SYSRSC_MGR_GetShMem(uint32_t segment_id)
{
    if (ClientRun::attach(Deadline::never()) != QUILLON_STATUS_OK) {
        return nullptr;
    }
    const MemoryMap::Segment *const segment = ClientRun::map().segment(segment_id);
    return segment == nullptr ? nullptr : ClientRun::memory() + segment->offset;
}

uint8_t L_IPCMEM_GetRxBufStartAddress(void **start)
{
    if (start == nullptr || ClientRun::attach(Deadline::never()) != QUILLON_STATUS_OK ||
        ClientRun::map().receive_area == 0) {
        return 0;
    }
    *start = ClientRun::memory() + ClientRun::map().ipc_memory;
    return 1;
}

uint32_t L_IPCMEM_GetOffset(const void *address)
{
    const std::byte *const memory = ipc_memory();
    if (memory == nullptr) {
        return QUILLON_NO_OFFSET;
    }
    return offset_from(memory, size_t{ClientRun::map().receive_area} + ClientRun::map().transmit_area, address);
}

uint32_t L_IPCMEM_GetTxOffset(const void *address)
{
    const std::byte *const memory = ipc_memory();
    if (memory == nullptr) {
        return QUILLON_NO_OFFSET;
    }
    return offset_from(memory + ClientRun::map().receive_area, ClientRun::map().transmit_area, address);
}
