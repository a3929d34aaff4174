#include "host/platform/queue_thread.h"

#include <errno.h>
#include <poll.h>
#include <string.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

#include "host/platform/descriptor_limit.h"
#include "host/platform/error_text.h"
#include "host/platform/listening_socket.h"
#include "host/platform/runtime_path.h"

namespace quillon::host {
namespace {

constexpr size_t kEventsARound = 64;
constexpr int kAcceptsARound = 16;
constexpr std::chrono::milliseconds kAcceptAgainAfter{100};

[[noreturn]] void fail_to_create(uint32_t key)
{
    throw QueueError("cannot create queue " + std::to_string(key) + ": " + error_text());
}

Descriptor queue_socket(const std::string &folder, uint32_t key)
{
    Descriptor socket =
        listening_socket(queue_address(folder.c_str(), key, SocketName::unready), queue_address(folder.c_str(), key));
    if (!socket) {
        fail_to_create(key);
    }
    return socket;
}

bool watch(int epoll, int descriptor, void *source)
{
    epoll_event event = {.events = EPOLLIN, .data = {.ptr = source}};
    return epoll_ctl(epoll, EPOLL_CTL_ADD, descriptor, &event) == 0;
}

bool is_readable(int descriptor)
{
    pollfd readable = {.fd = descriptor, .events = POLLIN, .revents = 0};
    return poll(&readable, 1, 0) == 1;
}

Request::Form form_of(std::span<const std::byte> envelope, size_t sent_size)
{
    if (sent_size < kEnvelopeStart) {
        return Request::Form::too_short;
    }
    uint16_t msg_size;
    memcpy(&msg_size, &envelope[kMsgSizeOffset], sizeof msg_size);
    return sent_size == kEnvelopeStart + msg_size ? Request::Form::sound : Request::Form::wrong_size;
}

}  // namespace

QueueThread::QueueThread(const std::string &folder, uint32_t key, int stop, Handler handler,
                         const IncidentReport &report)
    : key_(key),
      path_(queue_address(folder.c_str(), key).sun_path),
      handler_(std::move(handler)),
      report_(report),
      epoll_(epoll_create1(EPOLL_CLOEXEC)),
      listener_(queue_socket(folder, key))
{
    if (!epoll_ || !watch(epoll_.number(), stop, nullptr) || !watch(epoll_.number(), listener_.number(), this)) {
        fail_to_create(key);
    }
}

QueueThread::~QueueThread()
{
    unlink(path_.c_str());
    for (const auto &[client, owner] : clients_) {
        client->close();
    }
}

void QueueThread::run()
{
    std::array<epoll_event, kEventsARound> events;
    bool stopped = false;
    while (!stopped) {
        const size_t count = wait(events);
        for (const epoll_event &event : std::span(events).first(count)) {
            if (event.data.ptr == nullptr) {
                stopped = true;  // what has come with it is still answered
            } else if (event.data.ptr == this) {
                accept_clients();
            } else {
                serve(*static_cast<ClientConnection *>(event.data.ptr));
            }
        }
        if (starving_ && Clock::now() >= accept_again_) {
            resume_accepting();
        }
    }
}

size_t QueueThread::wait(std::span<epoll_event> events)
{
    const auto wait_for = [&](int milliseconds) {
        return epoll_wait(epoll_.number(), events.data(), static_cast<int>(events.size()), milliseconds);
    };
    const bool elsewhere = std::exchange(served_, false) && !std::exchange(served_own_cpu_, false);
    int count = 0;
    if (elsewhere && polling_.worthwhile()) {
        polling_.poll([&] { return (count = wait_for(0)) != 0; });
    }
    if (count == 0) {
        count = wait_for(starving_ ? static_cast<int>(kAcceptAgainAfter.count()) : -1);
    }
    return static_cast<size_t>(std::max(count, 0));
}

void QueueThread::accept_clients()
{
    for (int i = 0; i < kAcceptsARound; ++i) {
        Descriptor socket(accept4(listener_.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (socket) {
            accept_client(std::move(socket));
            continue;
        }
        const int error = errno;
        // Without a descriptor to give, accept4() does not look whether anyone waits.
        if (error == EAGAIN || !is_readable(listener_.number())) {
            starving_reported_ = false;  // all who waited are in
            return;
        }
        if (error == EMFILE && raise_descriptor_limit()) {
            continue;
        }
        if (error == EMFILE || error == ENFILE || error == ENOBUFS || error == ENOMEM) {
            stop_accepting(error);
        }
        return;
    }
}

void QueueThread::accept_client(Descriptor socket)
{
    ucred peer;
    socklen_t size = sizeof peer;
    if (getsockopt(socket.number(), SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0) {
        return;
    }
    if (peer.uid != geteuid()) {
        report(Incident::Kind::refused_peer, peer.pid);
        return;
    }
    auto client = std::make_shared<ClientConnection>(std::move(socket), peer.pid, epoll_.number());
    if (client->watch()) {
        clients_.emplace(client.get(), std::move(client));
    } else {
        report(Incident::Kind::no_descriptors, peer.pid, error_text());
    }
}

void QueueThread::stop_accepting(int error)
{
    if (!std::exchange(starving_reported_, true)) {
        report(Incident::Kind::no_descriptors, 0, error_text(error));
    }
    epoll_ctl(epoll_.number(), EPOLL_CTL_DEL, listener_.number(), nullptr);
    starving_ = true;
    accept_again_ = Clock::now() + kAcceptAgainAfter;
}

void QueueThread::resume_accepting()
{
    if (watch(epoll_.number(), listener_.number(), this)) {
        starving_ = false;
    } else {
        accept_again_ = Clock::now() + kAcceptAgainAfter;
    }
}

void QueueThread::serve(ClientConnection &client)
{
    switch (client.state()) {
        case ClientConnection::State::ready:
            break;
        case ClientConnection::State::answer_not_taken:
            report(Incident::Kind::reply_not_taken, client.pid());
            [[fallthrough]];
        case ClientConnection::State::parked:  // nothing else is listened for than its end
            drop(client);
            return;
    }
    const ssize_t size = client.receive(*request_);
    if (size < 0 && (errno == EAGAIN || errno == EINTR)) {
        return;
    }
    if (size <= 0) {
        drop(client);
        return;
    }
    serve_packet(client, static_cast<size_t>(size));
}

void QueueThread::serve_packet(ClientConnection &client, size_t size)
{
    const PacketHeader &header = request_->header;
    if (size < sizeof header || !header.is_ours() || header.kind != PacketHeader::kRequest) {
        report(Incident::Kind::foreign_peer, client.pid());
        drop(client);
        return;
    }
    served_ = true;
    served_own_cpu_ |= !is_another_cpu(header.cpu);

    const size_t sent_size = size - sizeof header;
    const auto envelope = std::span(request_->envelope).first(std::min(sent_size, kLargestEnvelope));
    const size_t room = std::min<size_t>(header.room, kLargestEnvelope);
    Request request(key_, client, header.sequence, form_of(envelope, sent_size), envelope,
                    std::span(reply_->envelope).first(room));

    const size_t reply_size = std::min(handle(request), room);
    if (request.later_) {
        return;
    }
    reply_->header = {.kind = PacketHeader::kReply, .sequence = header.sequence, .cpu = current_cpu()};
    const auto delivery = reply_size == 0 ? client.refuse(header.sequence) : client.reply(*reply_, reply_size);
    if (delivery == ClientConnection::Delivery::delivered) {
        return;
    }
    if (delivery == ClientConnection::Delivery::not_taken) {
        report(Incident::Kind::reply_not_taken, client.pid());
    }
    drop(client);
}

size_t QueueThread::handle(Request &request)
{
    try {
        return handler_(request);
    } catch (const std::exception &error) {
        report(Incident::Kind::handler_threw, request.client(), error.what());
    } catch (...) {
        report(Incident::Kind::handler_threw, request.client());
    }
    return 0;
}

void QueueThread::drop(ClientConnection &client)
{
    const auto owner = std::move(clients_.extract(&client).mapped());
    const std::function<void()> client_gone = owner->close();
    if (starving_) {
        accept_again_ = Clock::now();  // its descriptor may do for one that waits
    }
    if (client_gone) {
        client_gone();
    }
}

void QueueThread::report(Incident::Kind kind, pid_t client, std::string_view text) const
{
    if (report_) {
        report_({.kind = kind, .queue = key_, .client = client, .text = text});
    }
}

}  // namespace quillon::host
