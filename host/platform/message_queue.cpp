// The client's half of the message queues: handles, and one exchange at a time on a connection.
#include <errno.h>
#include <string.h>
#include <sys/socket.h>
#include <sys/uio.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

#include "host/platform/cancellation.h"
#include "host/platform/client_folder.h"
#include "host/platform/connection_pool.h"
#include "host/platform/deadline.h"
#include "host/platform/fork_lock.h"
#include "host/platform/packet.h"
#include "host/platform/runtime_path.h"
#include "quillon/platform.h"

namespace quillon::host {
namespace {

// What a handle points to. Callers read `key`, at byte 12, for their failure reports.
struct Queue {
    std::array<uint32_t, 3> reserved;
    uint32_t key;
};
static_assert(offsetof(Queue, key) == 12);

constexpr size_t kMostQueues = 64;

constinit std::array<Queue, kMostQueues> queues = {};
constinit std::atomic<size_t> queues_used = 0;

// A handle of ours, null for anything else.
const Queue *queue_of(const void *handle)
{
    const size_t used = queues_used.load(std::memory_order_acquire);
    const auto offset = reinterpret_cast<uintptr_t>(handle) - reinterpret_cast<uintptr_t>(queues.data());
    if (offset >= used * sizeof(Queue) || offset % sizeof(Queue) != 0) {
        return nullptr;
    }
    return &queues[offset / sizeof(Queue)];
}

Queue *queue_with(uint32_t key)
{
    const ForkLock lock;
    const size_t used = queues_used.load(std::memory_order_relaxed);
    for (size_t i = 0; i < used; ++i) {
        if (queues[i].key == key) {
            return &queues[i];
        }
    }
    if (used == kMostQueues) {
        return nullptr;
    }
    queues[used].key = key;
    queues_used.store(used + 1, std::memory_order_release);
    return &queues[used];
}

// One call's way through a connection.
struct Exchange {
    const void *request;
    size_t request_size;
    void *reply;
    uint32_t room;  // of `reply`
    Deadline deadline;
};

// Sends the request as a whole or not at all. False with errno when the kernel did not queue it.
bool send_request(Connection &connection, const Exchange &exchange)
{
    PacketHeader header = {
        .kind = PacketHeader::kRequest, .sequence = ++connection.sequence, .room = exchange.room, .cpu = current_cpu()};
    std::array<iovec, 2> parts = {
        {{&header, sizeof header}, {const_cast<void *>(exchange.request), exchange.request_size}}};
    msghdr packet = {};
    packet.msg_iov = parts.data();
    packet.msg_iovlen = parts.size();
    ssize_t sent;
    do {
        sent = sendmsg(connection.descriptor, &packet, MSG_NOSIGNAL);
    } while (sent < 0 && errno == EINTR);
    return sent >= 0;
}

// Where the next packet, or the start of it, goes.
struct Destination {
    void *packet;
    size_t size;
    int flags;  // of recv()
};

// Waits for a packet, polling for a moment where that pays. Its whole size, which may be more than there is room for; 0
// when the driver process is gone; or -1, with errno ETIMEDOUT after the deadline.
ssize_t await_packet(Connection &connection, const Deadline &deadline, const Destination &to)
{
    ssize_t size = -1;
    const auto arrived = [&](int flags) {
        size = recv(connection.descriptor, to.packet, to.size, MSG_TRUNC | to.flags | flags);
        return size >= 0 || (errno != EAGAIN && errno != EINTR);
    };
    if (is_another_cpu(connection.driver_cpu) && connection.polling.worthwhile() &&
        connection.polling.poll([&] { return arrived(MSG_DONTWAIT); })) {
        return size;
    }

    for (;;) {
        if (deadline.limited() && !sleep_until_readable(connection, deadline)) {
            if (errno != EINTR) {
                return -1;
            }
        } else if (arrived(deadline.limited() ? MSG_DONTWAIT : 0)) {
            return size;
        }
    }
}

uint32_t check_reply(const Connection &connection, ssize_t size, const PacketHeader &header)
{
    if (size < 0 && errno == ETIMEDOUT) {
        return QUILLON_STATUS_TIMED_OUT;
    }
    if (size == 0 || (size < 0 && errno == ECONNRESET)) {
        return QUILLON_STATUS_DRIVER_DIED;
    }
    if (size < 0) {
        return QUILLON_STATUS_SYSTEM_ERROR;
    }
    const auto bytes = static_cast<size_t>(size);
    if (bytes < sizeof header || !header.is_ours() || header.sequence != connection.sequence) {
        return QUILLON_STATUS_MALFORMED_REPLY;
    }
    if (header.kind == PacketHeader::kNoReply) {
        return QUILLON_STATUS_NO_REPLY;
    }
    return header.kind == PacketHeader::kReply && bytes >= sizeof header + kEnvelopeStart
               ? QUILLON_STATUS_OK
               : QUILLON_STATUS_MALFORMED_REPLY;
}

// A reply is checked before it reaches the caller's buffer, which one that is refused leaves alone. A small one is
// copied there, which is cheaper than another system call.
constexpr size_t kCopiedReply = 1024;

uint32_t receive_small_reply(Connection &connection, const Exchange &exchange)
{
    struct {
        PacketHeader header;
        std::array<std::byte, kCopiedReply> envelope;
    } packet;
    const size_t most = sizeof packet.header + exchange.room;
    const ssize_t size = await_packet(connection, exchange.deadline, {.packet = &packet, .size = most, .flags = 0});
    const uint32_t status = check_reply(connection, size, packet.header);
    if (status != QUILLON_STATUS_OK) {
        return status;
    }
    const size_t received = static_cast<size_t>(size) < most ? static_cast<size_t>(size) : most;
    memcpy(exchange.reply, packet.envelope.data(), received - sizeof packet.header);
    connection.driver_cpu = packet.header.cpu;
    return status;
}

// Looked at where it is, and then received straight into its place.
uint32_t receive_large_reply(Connection &connection, const Exchange &exchange)
{
    PacketHeader header;
    const ssize_t size =
        await_packet(connection, exchange.deadline, {.packet = &header, .size = sizeof header, .flags = MSG_PEEK});
    const uint32_t status = check_reply(connection, size, header);
    if (status != QUILLON_STATUS_OK) {
        return status;
    }

    std::array<iovec, 2> parts = {{{&header, sizeof header}, {exchange.reply, exchange.room}}};
    msghdr packet = {};
    packet.msg_iov = parts.data();
    packet.msg_iovlen = parts.size();
    ssize_t received;
    do {
        received = recvmsg(connection.descriptor, &packet, MSG_DONTWAIT);
    } while (received < 0 && errno == EINTR);
    connection.driver_cpu = header.cpu;
    return received < 0 ? QUILLON_STATUS_SYSTEM_ERROR : QUILLON_STATUS_OK;
}

uint32_t receive_reply(Connection &connection, const Exchange &exchange)
{
    return exchange.room <= kCopiedReply ? receive_small_reply(connection, exchange)
                                         : receive_large_reply(connection, exchange);
}

sockaddr_un address_of(uint32_t key)
{
    return queue_address(client_runtime_folder(), key);
}

// A connection on which the request has been sent. What send_request() refused was never queued, so that it may be sent
// again: idle connections are tried until none is left of a driver process that is gone.
uint32_t send_on_some_connection(uint32_t key, const Exchange &exchange, Connection *&connection)
{
    while ((connection = take_idle(key)) != nullptr) {
        if (send_request(*connection, exchange)) {
            return QUILLON_STATUS_OK;
        }
        discard(*connection);
    }
    const uint32_t status = connect_anew(key, address_of(key), exchange.deadline, connection);
    if (status != QUILLON_STATUS_OK) {
        return status;
    }
    if (send_request(*connection, exchange)) {
        return QUILLON_STATUS_OK;
    }
    const bool driver_gone = errno == EPIPE || errno == ECONNRESET;
    discard(*connection);
    return driver_gone ? QUILLON_STATUS_NO_DRIVER : QUILLON_STATUS_SYSTEM_ERROR;
}

uint32_t exchange_on(uint32_t key, const Exchange &exchange)
{
    Connection *connection = nullptr;
    uint32_t status = send_on_some_connection(key, exchange, connection);
    if (status != QUILLON_STATUS_OK) {
        return status;
    }
    status = receive_reply(*connection, exchange);
    if (status == QUILLON_STATUS_OK) {
        keep(*connection);
    } else {
        discard(*connection);
    }
    return status;
}

uint32_t attach(uint32_t key)
{
    Connection *connection;
    while ((connection = take_idle(key)) != nullptr) {
        if (still_open(*connection)) {
            keep(*connection);
            return QUILLON_STATUS_OK;
        }
        discard(*connection);
    }
    const uint32_t status = connect_anew(key, address_of(key), Deadline::never(), connection);
    if (status == QUILLON_STATUS_OK) {
        keep(*connection);
    }
    return status;
}

size_t envelope_size(const void *request)
{
    uint16_t msg_size;
    memcpy(&msg_size, static_cast<const std::byte *>(request) + kMsgSizeOffset, sizeof msg_size);
    return kEnvelopeStart + msg_size;
}

// 20 + `reply_size` bytes, or as many as any reply has.
uint32_t room_for_reply(uint32_t reply_size)
{
    constexpr uint32_t kMost = kLargestEnvelope - kEnvelopeStart;
    return uint32_t{kEnvelopeStart} + (reply_size < kMost ? reply_size : kMost);
}

}  // namespace
}  // namespace quillon::host

using namespace quillon::host;

uint32_t SYSFUN_GetMsgQ(uint32_t key, uint32_t, void **handle)
{
    if (handle == nullptr) {
        return QUILLON_STATUS_BAD_ARGUMENT;
    }
    const CancellationOff off;

    *handle = queue_with(key);
    if (*handle == nullptr) {
        return QUILLON_STATUS_TOO_MANY_QUEUES;
    }
    return client_runtime_folder() != nullptr ? attach(key) : QUILLON_STATUS_BAD_RUNTIME_DIR;
}

uint32_t __SYSFUN_SendRequestMsg(void *handle, void *request, uint32_t wait_time, uint32_t, uint32_t reply_size,
                                 void *reply, const char *, uint32_t)
{
    const Queue *const queue = queue_of(handle);
    if (queue == nullptr) {
        return QUILLON_STATUS_BAD_HANDLE;
    }
    if (request == nullptr || reply == nullptr) {
        return QUILLON_STATUS_BAD_ARGUMENT;
    }
    if (client_runtime_folder() == nullptr) {
        return QUILLON_STATUS_BAD_RUNTIME_DIR;
    }

    const CancellationOff off;
    return exchange_on(queue->key, {.request = request,
                                    .request_size = envelope_size(request),
                                    .reply = reply,
                                    .room = room_for_reply(reply_size),
                                    .deadline = Deadline(wait_time)});
}
