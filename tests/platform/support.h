// A driver process for the tests, and what a client of it needs.
#ifndef QUILLON_TESTS_PLATFORM_SUPPORT_H
#define QUILLON_TESTS_PLATFORM_SUPPORT_H

#include <gtest/gtest.h>
#include <stdint.h>
#include <string.h>
#include <sys/resource.h>
#include <sys/types.h>

#include <array>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "e2e/support/child.h"
#include "e2e/support/observe.h"
#include "host/platform/packet.h"
#include "host/platform/queue_server.h"
#include "quillon/platform.h"

namespace quillon::test {

inline constexpr uint32_t kQueue = 24;
inline constexpr uint32_t kOtherQueue = 59;

std::string queue_path(uint32_t key = kQueue);

// What the driver process of the tests does, by the `type` of the request.
enum class Ask : uint32_t {
    echo = 1,  // the request's own bytes
    queue,     // the queue's key
    count,     // how many requests of this kind came so far, this one included
    sized,     // a reply of as many bytes as `word` says, all 0xAB
    park,      // nothing, until `release`. Tells 'p', and 'g' when the client is gone
    release,   // what is parked, from another thread; the reply says how many took it
    cross,     // answered by another thread before the handler returns
    forget,    // lets go of a pending reply
    silence,   // returns 0
    throw_error,
    die,
};

// Tells, for an incident, the letter of its kind: foreign peer 'f', refused peer 'u', reply not taken 'n', no
// descriptors 'd', handler threw 't'. A request that is not sound is told as 's' (too short) or 'w' (wrong size), and
// refused by a reply with result 0.
class Driver : public Process {
  public:
    explicit Driver(const Events *events = nullptr, const std::function<void()> &first = {});
};

// A small envelope: `type`, one word and a tail that a reply may grow into.
struct Envelope {
    alignas(8) std::array<unsigned char, 64> bytes = {};

    explicit Envelope(Ask type, uint32_t word = 0);
    uint32_t type() const { return at(16); }
    uint32_t word() const { return at(20); }

  private:
    uint32_t at(size_t offset) const
    {
        uint32_t value;
        memcpy(&value, &bytes[offset], sizeof value);
        return value;
    }
};

void *attach(uint32_t key = kQueue);
uint32_t exchange(void *handle, Envelope &envelope, uint32_t wait_time = QUILLON_WAIT_FOREVER);
// Sends, and returns the word of the reply. A failed call fails the test.
uint32_t ask(void *handle, Ask type, uint32_t word = 0);

// A connection without the client's half, for what that never does. Blocks, unless told otherwise.
int raw_connection(uint32_t key = kQueue);
std::vector<char> raw_request(Ask type, uint32_t sequence = 1);

// The sockets of this process.
std::set<int> open_sockets();

// Leaves this process room for so many more descriptors, by its soft and its hard limit.
void limit_descriptors(rlim_t soft, rlim_t hard);

}  // namespace quillon::test

#endif
