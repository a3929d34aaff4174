// A packet to one port, as the requests say it that send one at once and that have a generator send it.
#pragma once

#include <optional>

#include "host/driver/model/packet_memory.h"
#include "host/driver/model/switch.h"
#include "host/driver/request_values.h"

namespace quillon::driver {

// Nothing for a packet that cannot be sent.
std::optional<SentPacket> packet_by_port(SharedSwitch &chips, const PacketMemory &memory, const auto &request)
{
    const LogicalPort port{.unit = request.arg1, .port = request.arg2};
    const uint32_t class_of_service = request.arg6;
    const auto tag = as_bool(request.arg3);
    auto packet = memory.packet(request.data_offset, request.arg5, request.descriptor_offset);
    if (!tag || !packet || class_of_service > most_class_of_service) {
        return std::nullopt;
    }
    const auto access = chips.lock();
    if (!access->stack.has(port)) {
        return std::nullopt;
    }
    if (*tag) {
        packet = tagged(*packet, access->chips.vlans.rules(port)->pvid, class_of_service);
    }
    return SentPacket{.port = port, .class_of_service = class_of_service, .bytes = *std::move(packet)};
}

}  // namespace quillon::driver
