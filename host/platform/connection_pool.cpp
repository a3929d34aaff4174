#include "host/platform/connection_pool.h"

#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <array>

#include "host/platform/descriptor_limit.h"
#include "host/platform/fork_lock.h"
#include "host/platform/packet.h"
#include "quillon/platform.h"

namespace quillon::host {
namespace {

using Use = Connection::Use;

constinit std::array<Connection, kMostCalls> connections;
constinit std::atomic<size_t> connections_ever_used = 0;

void before_fork()
{
    pthread_mutex_lock(&ForkLock::mutex);
}

void after_fork_in_parent()
{
    pthread_mutex_unlock(&ForkLock::mutex);
}

// A copy left open here would hide the parent's death from the driver process, and a call here would read the parent's
// replies.
void after_fork_in_child()
{
    for (Connection &connection : connections) {
        if (connection.descriptor != 0) {
            close(connection.descriptor);
        }
        connection.descriptor = 0;
        connection.use.store(Use::none, std::memory_order_relaxed);
    }
    connections_ever_used.store(0, std::memory_order_relaxed);
    pthread_mutex_unlock(&ForkLock::mutex);
}

[[gnu::constructor]] void watch_forks()
{
    pthread_atfork(before_fork, after_fork_in_parent, after_fork_in_child);
}

bool change(Connection &connection, Use from, Use to)
{
    return connection.use.load(std::memory_order_relaxed) == from &&
           connection.use.compare_exchange_strong(from, to, std::memory_order_acquire);
}

Connection *take_unused()
{
    for (size_t i = 0; i < kMostCalls; ++i) {
        if (!change(connections[i], Use::none, Use::busy)) {
            continue;
        }
        size_t used = connections_ever_used.load(std::memory_order_relaxed);
        while (used <= i && !connections_ever_used.compare_exchange_weak(used, i + 1, std::memory_order_relaxed)) {
        }
        return &connections[i];
    }
    return nullptr;
}

// Takes any idle connection, whatever its queue.
Connection *take_any_idle()
{
    const size_t used = connections_ever_used.load(std::memory_order_relaxed);
    for (size_t i = 0; i < used; ++i) {
        if (change(connections[i], Use::idle, Use::busy)) {
            return &connections[i];
        }
    }
    return nullptr;
}

void close_descriptor(Connection &connection)
{
    const ForkLock lock;
    close(connection.descriptor);
    connection.descriptor = 0;
}

// A program that closed its standard streams must not find a queue in their place, and print into it.
int away_from_standard_streams(int descriptor)
{
    if (descriptor < 0 || descriptor > STDERR_FILENO) {
        return descriptor;
    }
    const int higher = fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int error = errno;
    close(descriptor);
    errno = error;
    return higher;
}

bool open_descriptor(Connection &connection)
{
    const ForkLock lock;
    const int descriptor = away_from_standard_streams(socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
    if (descriptor < 0) {
        return false;
    }
    connection.descriptor = descriptor;
    return true;
}

uint32_t open_socket(Connection &connection)
{
    while (!open_descriptor(connection)) {
        if (errno != EMFILE && errno != ENFILE) {
            return QUILLON_STATUS_SYSTEM_ERROR;
        }
        if (errno == EMFILE && raise_descriptor_limit()) {
            continue;
        }
        Connection *spare = take_any_idle();
        if (spare == nullptr) {
            return QUILLON_STATUS_NO_DESCRIPTORS;
        }
        discard(*spare);
    }
    return QUILLON_STATUS_OK;
}

uint32_t status_of_connect(int error)
{
    switch (error) {
        case ENOENT:  // never served, or its folder is gone
        case ENOTDIR:
        case ECONNREFUSED:  // its driver process is gone
        case ECONNRESET:
            return QUILLON_STATUS_NO_DRIVER;
        case EACCES:
        case EPERM:
            return QUILLON_STATUS_REFUSED_PEER;
        case EAGAIN:
            return QUILLON_STATUS_TIMED_OUT;
        default:
            return QUILLON_STATUS_SYSTEM_ERROR;
    }
}

// Zero is no limit to the kernel.
bool limit_send(int descriptor, timeval wait)
{
    return setsockopt(descriptor, SOL_SOCKET, SO_SNDTIMEO, &wait, sizeof wait) == 0;
}

uint32_t connect_socket(int descriptor, const sockaddr_un &address, const Deadline &deadline)
{
    // A listener whose backlog is full holds connect() up, for as long as a send may take.
    do {
        if (deadline.limited() && !limit_send(descriptor, rounded_up(deadline.left()))) {
            return QUILLON_STATUS_SYSTEM_ERROR;
        }
        if (connect(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0) {
            return deadline.limited() && !limit_send(descriptor, {}) ? QUILLON_STATUS_SYSTEM_ERROR : QUILLON_STATUS_OK;
        }
    } while (errno == EINTR);
    return status_of_connect(errno);
}

uint32_t check_peer(int descriptor)
{
    ucred peer;
    socklen_t size = sizeof peer;
    if (getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0) {
        return QUILLON_STATUS_SYSTEM_ERROR;
    }
    return peer.uid == geteuid() ? QUILLON_STATUS_OK : QUILLON_STATUS_REFUSED_PEER;
}

}  // namespace

Connection *take_idle(uint32_t queue)
{
    const size_t used = connections_ever_used.load(std::memory_order_relaxed);
    for (size_t i = 0; i < used; ++i) {
        Connection &connection = connections[i];
        if (connection.queue.load(std::memory_order_relaxed) != queue || !change(connection, Use::idle, Use::busy)) {
            continue;
        }
        if (connection.queue.load(std::memory_order_relaxed) == queue) {
            return &connection;
        }
        keep(connection);  // another thread gave it to another queue in between
    }
    return nullptr;
}

uint32_t connect_anew(uint32_t queue, const sockaddr_un &address, const Deadline &deadline, Connection *&connection)
{
    Connection *fresh = take_unused();
    if (fresh == nullptr) {
        fresh = take_any_idle();
        if (fresh == nullptr) {
            return QUILLON_STATUS_TOO_MANY_CALLS;
        }
        close_descriptor(*fresh);
    }

    uint32_t status = open_socket(*fresh);
    if (status == QUILLON_STATUS_OK) {
        status = connect_socket(fresh->descriptor, address, deadline);
    }
    if (status == QUILLON_STATUS_OK) {
        status = check_peer(fresh->descriptor);
    }
    if (status != QUILLON_STATUS_OK) {
        discard(*fresh);
        return status;
    }
    fresh->queue.store(queue, std::memory_order_relaxed);
    fresh->sequence = 0;
    fresh->driver_cpu = PacketHeader::kUnknownCpu;
    fresh->polling = {};
    connection = fresh;
    return QUILLON_STATUS_OK;
}

bool sleep_until_readable(const Connection &connection, const Deadline &deadline)
{
    pollfd readable = {.fd = connection.descriptor, .events = POLLIN, .revents = 0};
    const timespec left = deadline.limited() ? deadline.left() : timespec{};
    const int ready = ppoll(&readable, 1, deadline.limited() ? &left : nullptr, nullptr);
    if (ready == 0) {
        errno = ETIMEDOUT;
    }
    return ready > 0;
}

bool still_open(const Connection &connection)
{
    char any;
    return recv(connection.descriptor, &any, sizeof any, MSG_PEEK | MSG_DONTWAIT) < 0 && errno == EAGAIN;
}

void keep(Connection &connection)
{
    connection.use.store(Use::idle, std::memory_order_release);
}

void discard(Connection &connection)
{
    if (connection.descriptor != 0) {
        close_descriptor(connection);
    }
    connection.use.store(Use::none, std::memory_order_release);
}

}  // namespace quillon::host
