// A client that sends what no client library would.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <optional>
#include <string>
#include <vector>

#include "host/platform/descriptor.h"

namespace quillon::test {

class RawQueue {
  public:
    RawQueue(const std::string &folder, uint32_t key);

    // An envelope, or what is sent in place of one. `room` is how many bytes of a reply's envelope the client takes.
    void send(const std::vector<uint8_t> &envelope, uint32_t room);
    // The reply's envelope; nothing when the driver process gives none, or has dropped this client.
    std::optional<std::vector<uint8_t>> receive();
    std::optional<std::vector<uint8_t>> exchange(const std::vector<uint8_t> &envelope, uint32_t room);

    // Without the transport's own header.
    void send_packet(const std::vector<uint8_t> &packet);

  private:
    host::Descriptor socket_;
    uint32_t sequence_ = 0;
};

}  // namespace quillon::test
