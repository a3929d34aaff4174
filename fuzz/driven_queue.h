// A queue of the driver process that is served when it is told to, on the caller's thread, and a client of it.
#pragma once

#include <errno.h>
#include <stdint.h>
#include <string.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "fuzz/require.h"
#include "host/platform/descriptor.h"
#include "host/platform/packet.h"
#include "host/platform/queue_server.h"
#include "host/platform/queue_thread.h"
#include "host/platform/runtime_path.h"

namespace quillon::fuzz {

class DrivenQueue {
  public:
    DrivenQueue(const std::string &folder, uint32_t key, const host::Handler &handler,
                const host::IncidentReport &report)
        : thread_(folder, key, stop_.number(), handler, report), address_(host::queue_address(folder.c_str(), key))
    {
    }

    uint32_t key() const { return thread_.key(); }

    // Everything that has come so far.
    void serve()
    {
        eventfd_write(stop_.number(), 1);
        thread_.run();
        eventfd_t ended;
        eventfd_read(stop_.number(), &ended);
    }

    host::Descriptor connect()
    {
        host::Descriptor client(socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        const auto *const address = reinterpret_cast<const sockaddr *>(&address_);
        require(::connect(client.number(), address, sizeof address_) == 0,
                std::string("the queue lets nobody in: ") + strerror(errno));
        serve();
        return client;
    }

  private:
    host::Descriptor stop_{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
    host::QueueThread thread_;
    sockaddr_un address_;
};

// Like a connection of the library, it has one call at a time and gives up the last one for the next.
class QueueClient {
  public:
    explicit QueueClient(DrivenQueue &queue) : queue_(queue) {}
    ~QueueClient() { hang_up(); }
    QueueClient(const QueueClient &) = delete;
    QueueClient &operator=(const QueueClient &) = delete;

    void send(const host::PacketHeader &header, std::span<const uint8_t> envelope)
    {
        if (waits_) {
            receive();
        }
        if (waits_) {
            hang_up();
        }
        if (!socket_) {
            socket_ = queue_.connect();
        }
        std::vector<uint8_t> packet(sizeof header);
        memcpy(packet.data(), &header, sizeof header);
        packet.insert(packet.end(), envelope.begin(), envelope.end());
        require(::send(socket_.number(), packet.data(), packet.size(), MSG_NOSIGNAL) > 0, "the queue takes nothing");
        waits_ = true;
        queue_.serve();
    }

    // The packet that has come, if one has. Hangs up when the other end has.
    std::vector<uint8_t> receive()
    {
        std::vector<uint8_t> packet(sizeof(host::PacketHeader) + host::kLargestEnvelope);
        const ssize_t size = recv(socket_.number(), packet.data(), packet.size(), 0);
        packet.resize(static_cast<size_t>(std::max<ssize_t>(size, 0)));
        waits_ = size < 0;
        if (size == 0) {
            socket_.reset();
        }
        return packet;
    }

    void hang_up()
    {
        if (socket_) {
            socket_.reset();
            queue_.serve();
        }
        waits_ = false;
    }

  private:
    DrivenQueue &queue_;
    host::Descriptor socket_;
    bool waits_ = false;
};

}  // namespace quillon::fuzz
