// What a port has received and sent.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <array>
#include <span>

namespace quillon::driver {

// Bytes from the destination address to the check sequence. No port can be set to carry longer frames: those are the
// largest MTU with addresses, type, two tags and check sequence.
inline constexpr uint32_t shortest_frame = 64;
inline constexpr uint32_t longest_frame = 9216 + 14 + 2 * 4 + 4;

enum class FrameKind : uint8_t { unicast, multicast, broadcast, pause, fcs_error, alignment_error };

// Frames that are alike.
struct Frames {
    FrameKind kind;
    uint32_t size;
    uint64_t count = 1;
};

// The frame of a packet, which is without padding and check sequence and has at least the two addresses and the type.
Frames frame_of(std::span<const std::byte> packet);

// Of frames that are in order.
struct FrameCounts {
    uint64_t octets = 0;
    uint64_t unicast = 0;
    uint64_t multicast = 0;
    uint64_t broadcast = 0;
    uint64_t pauses = 0;

    void add(const Frames &frames);
    uint64_t all() const { return unicast + multicast + broadcast + pauses; }
};

struct PortCounters {
    FrameCounts received;
    FrameCounts sent;
    uint64_t discards = 0;  // received frames that were dropped although they were in order

    // A received frame that is not in order counts in one of these.
    uint64_t fcs_errors = 0;
    uint64_t alignment_errors = 0;
    uint64_t undersize = 0;
    uint64_t fragments = 0;
    uint64_t oversize = 0;
    uint64_t jabbers = 0;

    // Of all received frames.
    uint64_t octets = 0;
    std::array<uint64_t, 6> sizes = {};  // 64 bytes, up to 127, 255, 511, 1023 and 1518; others in none

    void receive(const Frames &frames);

    uint64_t crc_align_errors() const { return fcs_errors + alignment_errors; }
    uint64_t too_long() const { return oversize + jabbers; }
    uint64_t frames() const { return received.all() + crc_align_errors() + undersize + fragments + too_long(); }
};

struct PortTraffic {
    PortCounters counters;     // since they were cleared
    PortCounters since_reset;  // of the chips

    void receive(const Frames &frames)
    {
        counters.receive(frames);
        since_reset.receive(frames);
    }
    void discard()
    {
        ++counters.discards;
        ++since_reset.discards;
    }
    // Frames that are in order.
    void send(const Frames &frames)
    {
        counters.sent.add(frames);
        since_reset.sent.add(frames);
    }
};

}  // namespace quillon::driver
