// What travels on a queue's socket: one packet a request or reply, an envelope behind this transport's own header.
#ifndef QUILLON_HOST_PLATFORM_PACKET_H
#define QUILLON_HOST_PLATFORM_PACKET_H

#include <sched.h>

#include <cstddef>
#include <cstdint>

namespace quillon::host {

// The part of an envelope that every request and reply has: the header and `type`.
inline constexpr size_t kEnvelopeStart = 20;
inline constexpr size_t kMsgSizeOffset = 10;

// The largest envelope that `msg_size`, a u16, can state; replies keep to it as well.
inline constexpr size_t kLargestEnvelope = kEnvelopeStart + UINT16_MAX;

struct PacketHeader {
    static constexpr uint32_t kMagic = 0x6e6c6c71;
    static constexpr uint16_t kVersion = 1;
    static constexpr uint16_t kRequest = 1;
    static constexpr uint16_t kReply = 2;
    static constexpr uint16_t kNoReply = 3;  // the driver process took the request and will not answer it
    static constexpr uint32_t kUnknownCpu = UINT32_MAX;

    uint32_t magic = kMagic;
    uint16_t version = kVersion;
    uint16_t kind = kRequest;
    uint32_t sequence = 0;       // of the request on its connection; the reply repeats it
    uint32_t room = 0;           // in a request: what the client can take of the reply's envelope
    uint32_t cpu = kUnknownCpu;  // where the sender ran: nobody polls on his peer's own CPU
    uint32_t reserved = 0;

    bool is_ours() const { return magic == kMagic && version == kVersion; }
};
static_assert(sizeof(PacketHeader) == 24, "both ends may come from different builds; envelopes stay 8-byte aligned");

inline uint32_t current_cpu()
{
    const int cpu = sched_getcpu();
    return cpu < 0 ? PacketHeader::kUnknownCpu : static_cast<uint32_t>(cpu);
}

inline bool is_another_cpu(uint32_t cpu)
{
    return cpu != PacketHeader::kUnknownCpu && cpu != current_cpu();
}

}  // namespace quillon::host

#endif
