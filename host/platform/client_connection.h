// The driver process's end of a client's connection.
#ifndef QUILLON_HOST_PLATFORM_CLIENT_CONNECTION_H
#define QUILLON_HOST_PLATFORM_CLIENT_CONNECTION_H

#include <sys/types.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <span>

#include "host/platform/descriptor.h"
#include "host/platform/packet.h"

namespace quillon::host {

struct Packet {
    PacketHeader header;
    std::array<std::byte, kLargestEnvelope> envelope;
};

// Parked while its request waits for a reply that comes later. That reply may come from any thread; all else is called
// on the queue's thread.
class ClientConnection : public std::enable_shared_from_this<ClientConnection> {
  public:
    ClientConnection(Descriptor socket, pid_t pid, int epoll) : socket_(std::move(socket)), pid_(pid), epoll_(epoll) {}

    pid_t pid() const { return pid_; }
    bool watch();

    // As recv(): the packet's size, which may be more than fits into `packet`; 0 when the client is gone.
    ssize_t receive(Packet &packet) const;

    enum class Delivery { delivered, not_taken, client_gone };
    Delivery reply(Packet &packet, size_t envelope_size) const;
    Delivery refuse(uint32_t sequence) const;

    void park(uint32_t sequence, size_t room, std::function<void()> client_gone);
    bool answer(std::span<const std::byte> envelope);
    void refuse_parked();

    enum class State { ready, parked, answer_not_taken };
    State state() const;

    // Closes the connection. Returns what is to be called if the client was parked.
    std::function<void()> close();

  private:
    Delivery send_parked(uint16_t kind, std::span<const std::byte> envelope) const;
    bool unpark(uint16_t kind, std::span<const std::byte> envelope);
    bool listen_for(uint32_t events, int operation);

    mutable std::mutex mutex_;  // of what follows, and of closing the socket
    Descriptor socket_;
    State state_ = State::ready;
    uint32_t sequence_ = 0;  // of the parked request, as what follows
    size_t room_ = 0;
    std::function<void()> client_gone_;

    const pid_t pid_;
    const int epoll_;
};

}  // namespace quillon::host

#endif
