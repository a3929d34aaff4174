#include "host/driver/model/packet_memory.h"

#include <string.h>

namespace quillon::driver {
namespace {

std::optional<std::span<const std::byte>> part(std::span<const std::byte> memory, int64_t offset, size_t length)
{
    if (offset < 0 || static_cast<uint64_t>(offset) > memory.size() ||
        length > memory.size() - static_cast<uint64_t>(offset)) {
        return std::nullopt;
    }
    return memory.subspan(static_cast<size_t>(offset), length);
}

std::optional<PacketBytes> packet_in(std::span<const std::byte> memory, int64_t offset, uint64_t length)
{
    const auto bytes = is_packet_length(length) ? part(memory, offset, length) : std::nullopt;
    return bytes ? std::optional(PacketBytes(bytes->begin(), bytes->end())) : std::nullopt;
}

}  // namespace

std::optional<PacketBytes> PacketMemory::packet(int64_t offset, uint64_t length, int64_t descriptor_offset) const
{
    const auto descriptor = part(transmit_, descriptor_offset, BufferDescriptor::size);
    if (!descriptor) {
        return std::nullopt;
    }
    uint16_t kind;
    memcpy(&kind, &(*descriptor)[BufferDescriptor::buffer_kind_offset], sizeof kind);
    return packet_in(kind == BufferDescriptor::anywhere ? all_ : transmit_, offset, length);
}

std::optional<PacketBytes> PacketMemory::packet(int64_t offset, uint64_t length) const
{
    return packet_in(transmit_, offset, length);
}

}  // namespace quillon::driver
