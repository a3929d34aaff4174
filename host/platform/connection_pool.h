// The client's connections to the driver process: one call in flight on each, idle ones kept for the next call.
#ifndef QUILLON_HOST_PLATFORM_CONNECTION_POOL_H
#define QUILLON_HOST_PLATFORM_CONNECTION_POOL_H

#include <sys/un.h>

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "host/platform/deadline.h"
#include "host/platform/polling.h"

namespace quillon::host {

// As many calls of one process can be under way at one time.
inline constexpr size_t kMostCalls = 1024;

struct alignas(64) Connection {
    enum class Use : uint32_t { none, idle, busy };

    std::atomic<Use> use = Use::none;
    std::atomic<uint32_t> queue = 0;  // its key
    int descriptor = 0;               // 0 is none: standard streams are never used. Changed under the ForkLock only
    uint32_t sequence = 0;            // of the last request
    uint32_t driver_cpu = 0;          // when it sent the last reply
    Polling polling;
};

// An idle connection to the queue, now busy; it may be to a driver process that is gone. Null when there is none.
Connection *take_idle(uint32_t queue);

// Connects anew to the queue, until the deadline when its driver process does not get round to accepting.
// Returns QUILLON_STATUS_OK and a busy connection, or what failed.
uint32_t connect_anew(uint32_t queue, const sockaddr_un &address, const Deadline &deadline, Connection *&connection);

// True when something can be read, or the connection has ended; false with errno ETIMEDOUT or what failed.
bool sleep_until_readable(const Connection &connection, const Deadline &deadline);

// For one that nothing is sent on by its driver process now: what can be read is its end.
bool still_open(const Connection &connection);

// Gives a busy connection back for the next call.
void keep(Connection &connection);

// Closes a busy connection, so that nothing that still comes on it reaches anybody.
void discard(Connection &connection);

}  // namespace quillon::host

#endif
