#include "host/platform/client_run.h"

#include <errno.h>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "host/platform/cancellation.h"
#include "host/platform/client_folder.h"
#include "host/platform/connection_pool.h"
#include "host/platform/fork_lock.h"
#include "host/platform/run_offer.h"
#include "host/platform/runtime_path.h"
#include "quillon/platform.h"

namespace quillon::host {
namespace {

// For a driver process that comes back while its memory is in use: one that is stopped must not hold that up for long.
constexpr uint32_t kWaitToCatchUpMs = 100;

// Never that of a call: the connection is busy for as long as it is kept.
constexpr uint32_t kNoQueue = UINT32_MAX;

constinit MemoryMap memory_map = {};  // written once, before `mapped`
constinit std::atomic<std::byte *> mapped = nullptr;
constinit std::atomic<uint64_t> mapped_run = 0;  // 0 while the memory is being exchanged, under the ForkLock

constinit pthread_mutex_t attaching = PTHREAD_MUTEX_INITIALIZER;  // of `connection`
constinit Connection *connection = nullptr;                       // to the run that is mapped

// The memory stays mapped in the child; its connection was closed with the others.
void forget_connection()
{
    attaching = PTHREAD_MUTEX_INITIALIZER;
    connection = nullptr;
}

[[gnu::constructor]] void watch_forks()
{
    pthread_atfork(nullptr, nullptr, forget_connection);
}

bool is_of_this_process(uint32_t task_id)
{
    return syscall(SYS_tgkill, getpid(), task_id, 0) == 0;
}

// A semaphore that is not `own` and is held by any thread of this process.
bool holds_another(const SharedSemaphore *own)
{
    for (const SharedSemaphore &semaphore : ClientRun::record().semaphores) {
        const uint64_t word = semaphore.holder.load();
        if (&semaphore != own && word != 0 && is_of_this_process(holder_of(word).id)) {
            return true;
        }
    }
    return false;
}

void *map_shared(size_t size, int file)
{
    return mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
}

uint32_t map_first(const RunOffer &offer, int file)
{
    void *const memory = map_shared(offer.map.size, file);
    if (memory == MAP_FAILED) {
        return QUILLON_STATUS_SYSTEM_ERROR;
    }
    memory_map = offer.map;
    mapped_run.store(offer.run);
    mapped.store(static_cast<std::byte *>(memory), std::memory_order_release);
    return QUILLON_STATUS_OK;
}

// Whoever takes a semaphore looks at the run's number afterwards: either it is found here to be held, or that thread
// finds the number gone, and starts again.
uint32_t exchange_for(void *memory, const RunOffer &offer, SharedSemaphore *held)
{
    const uint64_t former = mapped_run.exchange(0);
    if (holds_another(held)) {
        mapped_run.store(former);
        return QUILLON_STATUS_NO_DRIVER;
    }
    if (held != nullptr) {
        give(*held);
    }
    // At one go: there is never nothing at the address that other threads look at.
    const size_t size = memory_map.size;
    if (mremap(memory, size, size, MREMAP_MAYMOVE | MREMAP_FIXED, ClientRun::memory()) == MAP_FAILED) {
        mapped_run.store(former);
        return QUILLON_STATUS_SYSTEM_ERROR;
    }
    mapped_run.store(offer.run);
    return QUILLON_STATUS_OK;
}

uint32_t exchange_memory(const RunOffer &offer, int file, SharedSemaphore *held)
{
    void *const memory = map_shared(memory_map.size, file);
    if (memory == MAP_FAILED) {
        return QUILLON_STATUS_SYSTEM_ERROR;
    }
    const uint32_t status = exchange_for(memory, offer, held);
    if (status != QUILLON_STATUS_OK) {
        munmap(memory, memory_map.size);
    }
    return status;
}

// The file is what was offered, and nobody can make it shorter.
bool is_as_offered(int file, const MemoryMap &map)
{
    struct stat status;
    const int seals = fcntl(file, F_GET_SEALS);
    return map.is_sound() && seals >= 0 && (seals & kSizeSeals) == kSizeSeals && fstat(file, &status) == 0 &&
           static_cast<uint64_t>(status.st_size) == map.size;
}

uint32_t adopt(const RunOffer &offer, int file, SharedSemaphore *held)
{
    if (offer.client != getpid()) {
        return QUILLON_STATUS_REFUSED_PEER;
    }
    if (!is_as_offered(file, offer.map)) {
        return QUILLON_STATUS_MALFORMED_REPLY;
    }
    if (ClientRun::memory() == nullptr) {
        return map_first(offer, file);
    }
    if (offer.run == mapped_run.load()) {
        return QUILLON_STATUS_OK;
    }
    return offer.map == memory_map ? exchange_memory(offer, file, held) : QUILLON_STATUS_OTHER_LAYOUT;
}

uint32_t status_of_receive(int error)
{
    switch (error) {
        case ECONNRESET:
            return QUILLON_STATUS_NO_DRIVER;
        case EMFILE:
            return QUILLON_STATUS_NO_DESCRIPTORS;
        default:
            return QUILLON_STATUS_SYSTEM_ERROR;
    }
}

uint32_t receive_and_adopt(const Connection &fresh, SharedSemaphore *held)
{
    const ForkLock lock;  // no child gets the descriptor
    RunOffer offer;
    int file;
    const ssize_t size = receive_offer(fresh.descriptor, offer, file);
    if (size <= 0) {
        return size == 0 ? QUILLON_STATUS_NO_DRIVER : status_of_receive(errno);
    }
    if (file < 0) {
        return QUILLON_STATUS_MALFORMED_REPLY;
    }
    const bool ours = size == sizeof offer && offer.is_ours();
    const uint32_t status = ours ? adopt(offer, file, held) : QUILLON_STATUS_MALFORMED_REPLY;
    close(file);
    return status;
}

uint32_t await_offer(const Connection &fresh, const Deadline &deadline)
{
    while (!sleep_until_readable(fresh, deadline)) {
        if (errno != EINTR) {
            return errno == ETIMEDOUT ? QUILLON_STATUS_TIMED_OUT : QUILLON_STATUS_SYSTEM_ERROR;
        }
    }
    return QUILLON_STATUS_OK;
}

// With `attaching` locked.
uint32_t catch_up(const Deadline &deadline, SharedSemaphore *held)
{
    if (connection != nullptr) {
        if (still_open(*connection)) {
            return QUILLON_STATUS_OK;
        }
        discard(*connection);
        connection = nullptr;
    }
    const char *const folder = client_runtime_folder();
    if (folder == nullptr) {
        return QUILLON_STATUS_BAD_RUNTIME_DIR;
    }
    Connection *fresh = nullptr;
    uint32_t status = connect_anew(kNoQueue, memory_address(folder), deadline, fresh);
    if (status != QUILLON_STATUS_OK) {
        return status;
    }
    status = await_offer(*fresh, deadline);
    if (status == QUILLON_STATUS_OK) {
        status = receive_and_adopt(*fresh, held);
    }
    if (status == QUILLON_STATUS_OK) {
        connection = fresh;
    } else {
        discard(*fresh);
    }
    return status;
}

}  // namespace

uint32_t ClientRun::attach(const Deadline &deadline)
{
    const CancellationOff off;
    pthread_mutex_lock(&attaching);
    const uint32_t status = catch_up(deadline, nullptr);
    pthread_mutex_unlock(&attaching);
    return status;
}

std::byte *ClientRun::memory()
{
    return mapped.load(std::memory_order_acquire);
}

const MemoryMap &ClientRun::map()
{
    return memory_map;
}

uint64_t ClientRun::number()
{
    const uint64_t number = mapped_run.load();
    if (number != 0) {
        return number;
    }
    const ForkLock until_exchanged;
    return mapped_run.load();
}

ClientRun::Change ClientRun::keep_up(uint64_t number, SharedSemaphore *held)
{
    if (ClientRun::number() != number) {
        return Change::exchanged;
    }
    const CancellationOff off;
    // Whoever else is at it will not exchange the memory of a semaphore that is held.
    if (!is_late(record()) || pthread_mutex_trylock(&attaching) != 0) {
        return Change::none;
    }
    const uint32_t status = catch_up(Deadline(kWaitToCatchUpMs), held);
    pthread_mutex_unlock(&attaching);
    if (status == QUILLON_STATUS_OTHER_LAYOUT || status == QUILLON_STATUS_SYSTEM_ERROR) {
        return Change::refused;
    }
    return ClientRun::number() == number ? Change::none : Change::exchanged;
}

}  // namespace quillon::host
