#include "host/driver/model/port_counters.h"

#include <algorithm>

namespace quillon::driver {
namespace {

constexpr std::array<uint32_t, 6> largest_of_size = {64, 127, 255, 511, 1023, 1518};

bool starts_with(std::span<const std::byte> packet, std::span<const uint8_t> bytes)
{
    return std::ranges::equal(packet.first(bytes.size()), std::as_bytes(bytes));
}

// A MAC control frame with the opcode of a pause.
bool is_pause(std::span<const std::byte> packet)
{
    constexpr std::array<uint8_t, 6> to = {0x01, 0x80, 0xC2, 0x00, 0x00, 0x01};
    constexpr std::array<uint8_t, 4> type_and_opcode = {0x88, 0x08, 0x00, 0x01};
    constexpr size_t type_at = 12;
    return packet.size() >= type_at + type_and_opcode.size() && starts_with(packet, to) &&
           starts_with(packet.subspan(type_at), type_and_opcode);
}

bool is_damaged(FrameKind kind)
{
    return kind == FrameKind::fcs_error || kind == FrameKind::alignment_error;
}

}  // namespace

Frames frame_of(std::span<const std::byte> packet)
{
    constexpr uint32_t check_sequence = 4;
    constexpr std::array<uint8_t, 6> broadcast = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};
    Frames frame{.kind = FrameKind::unicast,
                 .size = std::max(static_cast<uint32_t>(packet.size()) + check_sequence, shortest_frame)};
    if (starts_with(packet, broadcast)) {
        frame.kind = FrameKind::broadcast;
    } else if (is_pause(packet)) {
        frame.kind = FrameKind::pause;
    } else if ((uint8_t(packet[0]) & 1) != 0) {
        frame.kind = FrameKind::multicast;
    }
    return frame;
}

void FrameCounts::add(const Frames &frames)
{
    octets += frames.size * frames.count;
    switch (frames.kind) {
        case FrameKind::unicast:
            unicast += frames.count;
            break;
        case FrameKind::multicast:
            multicast += frames.count;
            break;
        case FrameKind::broadcast:
            broadcast += frames.count;
            break;
        case FrameKind::pause:
            pauses += frames.count;
            break;
        case FrameKind::fcs_error:
        case FrameKind::alignment_error:
            break;
    }
}

void PortCounters::receive(const Frames &frames)
{
    octets += frames.size * frames.count;
    const auto *const size = std::ranges::lower_bound(largest_of_size, frames.size);
    if (frames.size >= shortest_frame && size != largest_of_size.end()) {
        sizes[static_cast<size_t>(size - largest_of_size.begin())] += frames.count;
    }
    const bool damaged = is_damaged(frames.kind);
    if (frames.size < shortest_frame) {
        (damaged ? fragments : undersize) += frames.count;
    } else if (frames.size > longest_frame) {
        (damaged ? jabbers : oversize) += frames.count;
    } else if (damaged) {
        (frames.kind == FrameKind::fcs_error ? fcs_errors : alignment_errors) += frames.count;
    } else {
        received.add(frames);
    }
}

}  // namespace quillon::driver
