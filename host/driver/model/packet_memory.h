// The memory in which packets are handed over, as the driver process has it.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <optional>
#include <span>

#include "host/driver/model/packet.h"

namespace quillon::driver {

// What describes a packet that is to be sent. It is the sender's but for this field.
struct BufferDescriptor {
    static constexpr size_t size = 80;
    static constexpr size_t buffer_kind_offset = 72;
    // Of a packet whose offset is counted from the start of the whole memory, such as one that was received. That of
    // any other is counted from the start of the transmit area.
    static constexpr uint16_t anywhere = 1;
};

// Clients may write to all of it at any time, so that nothing is read twice. Offsets are as they come on the wire.
class PacketMemory {
  public:
    PacketMemory() = default;
    PacketMemory(std::span<const std::byte> all, std::span<const std::byte> transmit, std::span<std::byte> receive)
        : all_(all), transmit_(transmit), receive_(receive)
    {
    }

    std::span<std::byte> receive_area() const { return receive_; }

    // A copy of a packet that is to be sent. Nothing when it or its descriptor is not in the memory, or when it is of
    // no length that a packet can have.
    std::optional<PacketBytes> packet(int64_t offset, uint64_t length, int64_t descriptor_offset) const;
    // One without a descriptor, in the transmit area.
    std::optional<PacketBytes> packet(int64_t offset, uint64_t length) const;

  private:
    std::span<const std::byte> all_;
    std::span<const std::byte> transmit_;
    std::span<std::byte> receive_;
};

}  // namespace quillon::driver
