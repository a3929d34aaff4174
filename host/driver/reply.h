// Reply envelopes, as they stand on the wire.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <array>
#include <span>

#include "ipc/envelope.h"

namespace quillon::driver {

// What a reply consists of besides its member.
struct ReplyShape {
    uint32_t result;
    size_t reply_size;  // as the command counts it: `type` and the member
    size_t data_offset;
};

// The bytes in front of `type`. A reply repeats its request's.
class ReplyHeader {
  public:
    // Of a request that is cut short, what there is of it.
    explicit ReplyHeader(std::span<const std::byte> request);

    std::span<const std::byte> bytes() const { return bytes_; }

  private:
    std::array<std::byte, offsetof(ipc::Header, type)> bytes_{};
};

// Writes a reply into `room`, cut to it; what `member` does not fill is zero. Returns the size of what was written, 0
// when there is not even room for the result.
size_t write_reply(std::span<std::byte> room, const ReplyHeader &header, const ReplyShape &shape,
                   std::span<const std::byte> member = {});

}  // namespace quillon::driver
