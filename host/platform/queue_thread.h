// One queue of the driver process and its clients, served by one thread.
#ifndef QUILLON_HOST_PLATFORM_QUEUE_THREAD_H
#define QUILLON_HOST_PLATFORM_QUEUE_THREAD_H

#include <sys/epoll.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "host/platform/client_connection.h"
#include "host/platform/descriptor.h"
#include "host/platform/polling.h"
#include "host/platform/queue_server.h"

namespace quillon::host {

// Level-triggered, one packet of each client a round: whoever floods the queue waits for the others' turns.
class QueueThread {
  public:
    // Creates the queue in `folder`. `stop` is an eventfd that ends run() once it is signalled. Throws QueueError.
    QueueThread(const std::string &folder, uint32_t key, int stop, Handler handler, const IncidentReport &report);
    ~QueueThread();
    QueueThread(const QueueThread &) = delete;
    QueueThread &operator=(const QueueThread &) = delete;

    uint32_t key() const { return key_; }
    void run();

  private:
    using Clock = std::chrono::steady_clock;

    size_t wait(std::span<epoll_event> events);
    void accept_clients();
    void accept_client(Descriptor socket);
    void stop_accepting(int error);
    void resume_accepting();
    void serve(ClientConnection &client);
    void serve_packet(ClientConnection &client, size_t size);
    size_t handle(Request &request);
    void drop(ClientConnection &client);
    void report(Incident::Kind kind, pid_t client, std::string_view text = {}) const;

    const uint32_t key_;
    const std::string path_;
    const Handler handler_;
    const IncidentReport &report_;

    Descriptor epoll_;
    Descriptor listener_;
    std::unordered_map<ClientConnection *, std::shared_ptr<ClientConnection>> clients_;

    // While descriptors are short: clients wait in the listener's backlog until one may be there again.
    bool starving_ = false;
    bool starving_reported_ = false;
    Clock::time_point accept_again_;

    // Of the last round: its requests came from other CPUs than the thread's own.
    bool served_ = false;
    bool served_own_cpu_ = false;
    Polling polling_;

    const std::unique_ptr<Packet> request_ = std::make_unique<Packet>();
    const std::unique_ptr<Packet> reply_ = std::make_unique<Packet>();
};

}  // namespace quillon::host

#endif
