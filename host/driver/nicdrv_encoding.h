// What the packet driver's values and records mean on the wire.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <array>
#include <span>

#include "host/driver/model/packet_receiver.h"
#include "nicdrv/commands.h"
#include "quillon/receive.h"

namespace quillon::driver {

// ---- Received packets, as quillon/receive.h has them ----

struct ReceiveRequest {
    uint32_t most;
    uint32_t wait_time;  // in milliseconds, QUILLON_WAIT_FOREVER for ever
};

struct ReceivedPackets {
    uint32_t count;
    ipc::Unused<4> unused;
    std::array<QuillonReceivedPacket, QUILLON_RECEIVE_MOST> packets;
};

using ReceivePackets = nicdrv::Command<QUILLON_RECEIVE_CODE, ReceiveRequest, ReceivedPackets>;
static_assert(ReceivePackets::module == QUILLON_RECEIVE_MODULE && ReceivePackets::Queue::key == QUILLON_RECEIVE_QUEUE &&
              ReceivePackets::data_offset == offsetof(QuillonReceiveEnvelope, count) &&
              sizeof(QuillonReceiveEnvelope) == ReceivePackets::data_offset + sizeof(ReceivedPackets));

ReceivedPackets encoded(std::span<const OfferedPacket> packets);

// ---- Statistics ----

// An entry for each cookie, and zeros behind the last.
struct CookieStatistics {
    uint64_t packets;
    uint64_t bytes;
    uint64_t dropped;
};
static_assert(sizeof(CookieStatistics) * cookies <= sizeof(NicPriInfo));

}  // namespace quillon::driver
