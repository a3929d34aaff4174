#include "host/driver/nicdrv_encoding.h"

namespace quillon::driver {

ReceivedPackets encoded(std::span<const OfferedPacket> packets)
{
    ReceivedPackets reply{};
    for (const OfferedPacket &packet : packets.first(std::min(packets.size(), reply.packets.size()))) {
        reply.packets.at(reply.count++) = {.buffer = packet.buffer,
                                           .offset = packet.offset,
                                           .length = packet.length,
                                           .cookie = packet.cookie,
                                           .cpu_code = packet.cpu_code,
                                           .unit = packet.port.unit,
                                           .port = packet.port.port};
    }
    return reply;
}

}  // namespace quillon::driver
