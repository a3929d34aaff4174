#include "host/platform/client_connection.h"

#include <errno.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <sys/uio.h>

#include <algorithm>
#include <array>
#include <utility>

namespace quillon::host {
namespace {

ClientConnection::Delivery outcome(ssize_t sent)
{
    using enum ClientConnection::Delivery;
    if (sent >= 0) {
        return delivered;
    }
    return errno == EPIPE || errno == ECONNRESET ? client_gone : not_taken;
}

}  // namespace

bool ClientConnection::listen_for(uint32_t events, int operation)
{
    epoll_event event = {.events = events, .data = {.ptr = this}};
    return epoll_ctl(epoll_, operation, socket_.number(), &event) == 0;
}

bool ClientConnection::watch()
{
    return listen_for(EPOLLIN, EPOLL_CTL_ADD);
}

ssize_t ClientConnection::receive(Packet &packet) const
{
    return recv(socket_.number(), &packet, sizeof packet, MSG_TRUNC | MSG_DONTWAIT);
}

ClientConnection::Delivery ClientConnection::reply(Packet &packet, size_t envelope_size) const
{
    return outcome(send(socket_.number(), &packet, sizeof packet.header + envelope_size, MSG_NOSIGNAL | MSG_DONTWAIT));
}

ClientConnection::Delivery ClientConnection::refuse(uint32_t sequence) const
{
    const PacketHeader header = {.kind = PacketHeader::kNoReply, .sequence = sequence, .cpu = current_cpu()};
    return outcome(send(socket_.number(), &header, sizeof header, MSG_NOSIGNAL | MSG_DONTWAIT));
}

void ClientConnection::park(uint32_t sequence, size_t room, std::function<void()> client_gone)
{
    const std::lock_guard lock(mutex_);
    state_ = State::parked;
    sequence_ = sequence;
    room_ = room;
    client_gone_ = std::move(client_gone);
    // Its next request is none of ours before this one is answered; that it hangs up is.
    listen_for(EPOLLRDHUP, EPOLL_CTL_MOD);
}

ClientConnection::State ClientConnection::state() const
{
    const std::lock_guard lock(mutex_);
    return state_;
}

ClientConnection::Delivery ClientConnection::send_parked(uint16_t kind, std::span<const std::byte> envelope) const
{
    PacketHeader header = {.kind = kind, .sequence = sequence_, .cpu = current_cpu()};
    std::array<iovec, 2> parts = {
        {{&header, sizeof header}, {const_cast<std::byte *>(envelope.data()), std::min(envelope.size(), room_)}}};
    msghdr packet = {};
    packet.msg_iov = parts.data();
    packet.msg_iovlen = parts.size();
    return outcome(sendmsg(socket_.number(), &packet, MSG_NOSIGNAL | MSG_DONTWAIT));
}

bool ClientConnection::unpark(uint16_t kind, std::span<const std::byte> envelope)
{
    std::function<void()> forgotten;  // destroyed without the lock: it may hold anything
    const std::lock_guard lock(mutex_);
    if (state_ != State::parked) {
        return false;
    }
    state_ = State::ready;
    forgotten = std::exchange(client_gone_, nullptr);

    const Delivery delivery = send_parked(kind, envelope);
    if (delivery == Delivery::delivered) {
        listen_for(EPOLLIN, EPOLL_CTL_MOD);
        return true;
    }
    // The queue's thread closes it: it finds the connection hung up.
    if (delivery == Delivery::not_taken) {
        state_ = State::answer_not_taken;
    }
    shutdown(socket_.number(), SHUT_RDWR);
    return false;
}

bool ClientConnection::answer(std::span<const std::byte> envelope)
{
    return unpark(PacketHeader::kReply, envelope);
}

void ClientConnection::refuse_parked()
{
    unpark(PacketHeader::kNoReply, {});
}

std::function<void()> ClientConnection::close()
{
    const std::lock_guard lock(mutex_);
    socket_.reset();
    state_ = State::ready;
    return std::exchange(client_gone_, nullptr);
}

}  // namespace quillon::host
