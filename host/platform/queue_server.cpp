#include "host/platform/queue_server.h"

#include <errno.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "host/platform/client_connection.h"
#include "host/platform/descriptor.h"
#include "host/platform/error_text.h"
#include "host/platform/queue_thread.h"
#include "host/platform/signals_blocked.h"

namespace quillon::host {

PendingReply::PendingReply(std::shared_ptr<ClientConnection> client) noexcept : client_(std::move(client)) {}

PendingReply::PendingReply(PendingReply &&other) noexcept = default;

PendingReply &PendingReply::operator=(PendingReply &&other) noexcept
{
    if (this != &other) {
        if (client_) {
            client_->refuse_parked();
        }
        client_ = std::move(other.client_);
    }
    return *this;
}

PendingReply::~PendingReply()
{
    if (client_) {
        client_->refuse_parked();
    }
}

bool PendingReply::awaited() const noexcept
{
    return client_ && client_->state() == ClientConnection::State::parked;
}

bool PendingReply::answer(std::span<const std::byte> envelope) noexcept
{
    const auto client = std::exchange(client_, nullptr);
    return client && client->answer(envelope);
}

Request::Request(uint32_t queue, ClientConnection &connection, uint32_t sequence, Form form,
                 std::span<const std::byte> bytes, std::span<std::byte> reply) noexcept
    : queue_(queue),
      client_(connection.pid()),
      form_(form),
      sequence_(sequence),
      bytes_(bytes),
      reply_(reply),
      connection_(connection)
{
}

PendingReply Request::answer_later(std::function<void()> client_gone)
{
    if (later_) {
        throw std::logic_error("a request is answered once");
    }
    later_ = true;
    connection_.park(sequence_, reply_.size(), std::move(client_gone));
    return PendingReply(connection_.shared_from_this());
}

struct QueueServer::Queues {
    std::string folder;
    IncidentReport report;
    Descriptor stop{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
    std::vector<std::unique_ptr<QueueThread>> all = {};
};

QueueServer::QueueServer(const RuntimeFolder &folder, IncidentReport report)
    : queues_(new Queues{.folder = folder.path(), .report = std::move(report)})
{
    if (!queues_->stop) {
        throw QueueError("cannot serve queues: " + error_text());
    }
}

QueueServer::~QueueServer() = default;

void QueueServer::create_queue(uint32_t key, Handler handler)
{
    if (std::ranges::any_of(queues_->all, [&](const auto &queue) { return queue->key() == key; })) {
        throw QueueError("queue " + std::to_string(key) + " is there already");
    }
    queues_->all.push_back(std::make_unique<QueueThread>(queues_->folder, key, queues_->stop.number(),
                                                         std::move(handler), queues_->report));
}

void QueueServer::run()
{
    {
        std::vector<std::jthread> threads;
        try {
            const SignalsBlocked blocked;
            for (const auto &queue : queues_->all) {
                threads.emplace_back([&queue] { queue->run(); });
            }
        } catch (...) {
            stop();
            throw;
        }
    }
    queues_->all.clear();
}

void QueueServer::stop() noexcept
{
    // Never read: every thread sees it. From a signal handler, errno is the interrupted code's.
    const int error = errno;
    eventfd_write(queues_->stop.number(), 1);
    errno = error;
}

}  // namespace quillon::host
