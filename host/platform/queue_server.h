// The driver process's half of the message queues: the run-time folder, the queues in it, and the replies.
#ifndef QUILLON_HOST_PLATFORM_QUEUE_SERVER_H
#define QUILLON_HOST_PLATFORM_QUEUE_SERVER_H

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "host/platform/descriptor.h"

namespace quillon::host {

class ClientConnection;

// Why a folder or a queue cannot be had; what() is one clear line for the user.
class QueueError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The private folder of one run: its queues' sockets and whatever else the driver process keeps there.
//
// QUILLON_RUNTIME_DIR, else $XDG_RUNTIME_DIR/quillon, else /tmp/quillon-<uid>. It is created with mode 0700 when it is
// not there, and refused when it is a symbolic link, another user's, open to others, or too long for a socket's name.
class RuntimeFolder {
  public:
    // Opens the folder and locks it for this process: a second driver process in the same folder is refused. The lock
    // goes with the object or the process, however it ends. Throws QueueError.
    static RuntimeFolder claim();

    const std::string &path() const noexcept { return path_; }
    int descriptor() const noexcept { return folder_.number(); }  // of the folder itself, for the *at() functions

  private:
    RuntimeFolder(std::string path, Descriptor folder) noexcept;

    std::string path_;
    Descriptor folder_;  // holds the lock
};

// A reply that is given later, from any thread, exactly once.
//
// Destroyed without an answer, it fails the client's call (QUILLON_STATUS_NO_REPLY) instead of leaving it to hang.
class PendingReply {
  public:
    PendingReply() noexcept = default;
    PendingReply(PendingReply &&other) noexcept;
    PendingReply &operator=(PendingReply &&other) noexcept;
    ~PendingReply();

    // True until it was answered or moved from. Says nothing about the client.
    explicit operator bool() const noexcept { return client_ != nullptr; }

    // The client still waits: it has neither died nor timed out, and the server runs.
    bool awaited() const noexcept;

    // Sends `envelope`, cut to the room that the client has. False when nobody waits any more (or it was answered
    // before).
    bool answer(std::span<const std::byte> envelope) noexcept;

  private:
    friend class Request;
    explicit PendingReply(std::shared_ptr<ClientConnection> client) noexcept;

    std::shared_ptr<ClientConnection> client_;
};

// One request as its client sent it. Lives as long as the handler's call.
class Request {
  public:
    enum class Form {
        sound,       // 20 + msg_size bytes
        too_short,   // less than an envelope's first 20 bytes
        wrong_size,  // msg_size says something else than what came
    };

    Request(const Request &) = delete;
    Request &operator=(const Request &) = delete;

    uint32_t queue() const noexcept { return queue_; }  // its key
    pid_t client() const noexcept { return client_; }
    Form form() const noexcept { return form_; }

    // The envelope, from `msg_type` on.
    std::span<const std::byte> bytes() const noexcept { return bytes_; }

    // Where a reply of up to 20 + reply size bytes is written. What stands there before is not defined.
    std::span<std::byte> reply() const noexcept { return reply_; }

    // Gives the reply later; the handler then returns 0. `client_gone` is called on the queue's thread, at most once,
    // and never before the handler returned nor after answer() returned true: when the client died or gave up waiting,
    // so that whatever was parked for it can be dropped at once. It is not called when the server stops. Throws
    // std::logic_error when called twice for one request.
    PendingReply answer_later(std::function<void()> client_gone = {});

  private:
    friend class QueueThread;
    Request(uint32_t queue, ClientConnection &connection, uint32_t sequence, Form form,
            std::span<const std::byte> bytes, std::span<std::byte> reply) noexcept;

    uint32_t queue_;
    pid_t client_;
    Form form_;
    bool later_ = false;
    uint32_t sequence_;
    std::span<const std::byte> bytes_;
    std::span<std::byte> reply_;
    ClientConnection &connection_;
};

// Answers one request: writes the reply into request.reply() and returns its size. Returns 0 after answer_later(); 0
// without it fails the client's call (QUILLON_STATUS_NO_REPLY). Also called for requests that are not `sound`. Called
// on the queue's thread, one request at a time; what it throws is reported and fails the call.
using Handler = std::function<size_t(Request &)>;

// What went wrong on a queue without stopping it.
struct Incident {
    enum class Kind {
        foreign_peer,     // a packet that is not of this transport, or of another version of it: the client was dropped
        refused_peer,     // another user's process tried to connect
        reply_not_taken,  // the client does not read its replies: it was dropped
        no_descriptors,   // clients wait to be accepted; reported once until all who wait are in
        handler_threw,    // `text` is what()
    };
    Kind kind;
    uint32_t queue;
    pid_t client;  // 0 when it is not known
    std::string_view text;
};

// Called on the queues' threads: it must be safe to call from several at once.
using IncidentReport = std::function<void(const Incident &)>;

// The queues of one driver process. Each is served by a thread of its own.
class QueueServer {
  public:
    // `folder` must outlive the server.
    explicit QueueServer(const RuntimeFolder &folder, IncidentReport report = {});
    ~QueueServer();
    QueueServer(const QueueServer &) = delete;
    QueueServer &operator=(const QueueServer &) = delete;

    // Creates the queue `key`, in place of what a crashed run left. From here on clients can attach and send; they are
    // answered once run() is called. Throws QueueError. Before run() only.
    void create_queue(uint32_t key, Handler handler);

    // Serves all queues until stop(), then closes them: every waiting call fails at once. Once only.
    void run();

    // From any thread, before or during run(), and from a signal handler.
    void stop() noexcept;

  private:
    struct Queues;
    std::unique_ptr<Queues> queues_;
};

}  // namespace quillon::host

#endif
