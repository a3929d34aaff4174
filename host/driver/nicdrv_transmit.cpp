// Packets to send.
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "host/driver/handlers.h"
#include "host/driver/model/vlans.h"
#include "host/driver/nicdrv_by_port.h"
#include "host/driver/swdrv_encoding.h"
#include "nicdrv/commands.h"

namespace quillon::driver {
namespace {

// Where a packet goes, and the VLAN whose tag it gets on the way.
struct Destination {
    LogicalPort port;
    std::optional<uint32_t> tag;
};

using Destinations = std::vector<Destination>;

// Nothing where there is a destination that does not exist.

std::optional<Destinations> to_port(SharedSwitch &chips, const nicdrv::PacketToPort &request)
{
    const LogicalPort port{.unit = request.arg1, .port = request.arg2};
    const auto tag = as_bool(request.arg3);
    if (!tag || (*tag && !is_vlan_id(request.arg4)) || !chips.lock()->stack.has(port)) {
        return std::nullopt;
    }
    return Destinations{{port, *tag ? std::optional(uint32_t{request.arg4}) : std::nullopt}};
}

std::optional<Destinations> to_ports(SharedSwitch &chips, const nicdrv::PacketByPortList &request)
{
    const auto ports = decoded_bitmap(request.first_ports);
    const auto tagged_ports = decoded_bitmap(request.second_ports);
    const auto access = chips.lock();
    if (!access->stack.has_unit(request.arg1) || *ports == 0 || (*tagged_ports & ~*ports) != 0 ||
        (*ports & ~first_ports(access->stack.shape().ports)) != 0) {
        return std::nullopt;
    }
    Destinations destinations;
    for (LogicalPort port{.unit = request.arg1, .port = 1}; access->stack.has(port); ++port.port) {
        if ((*ports & port_bit(port.port)) != 0) {
            const bool tag = (*tagged_ports & port_bit(port.port)) != 0;
            destinations.push_back({port, tag ? std::optional(access->chips.vlans.rules(port)->pvid) : std::nullopt});
        }
    }
    return destinations;
}

std::optional<Destinations> to_vlan(SharedSwitch &chips, uint32_t id)
{
    const auto access = chips.lock();
    const Vlan *const vlan = access->chips.vlans.find(id);
    if (vlan == nullptr) {
        return std::nullopt;
    }
    Destinations destinations;
    for (LogicalPort port{.unit = 1, .port = 1}; access->stack.has(port); ++port.unit, port.port = 1) {
        for (; access->stack.has(port); ++port.port) {
            if (vlan->members.contains(port)) {
                destinations.push_back({port, vlan->untagged.contains(port) ? std::nullopt : std::optional(id)});
            }
        }
    }
    return destinations;
}

std::optional<Destinations> to_unit(SharedSwitch &chips, uint32_t unit)
{
    return chips.lock()->stack.has_unit(unit)
               ? std::optional(Destinations{{{unit, SentPacket::cpu_port}, std::nullopt}})
               : std::nullopt;
}

bool send(PacketPath &path, const std::optional<Destinations> &destinations, const std::optional<PacketBytes> &packet,
          uint32_t class_of_service)
{
    if (!destinations || !packet || class_of_service > most_class_of_service) {
        ++path.transmission.lock()->refused;
        return false;
    }
    for (const auto &[port, tag] : *destinations) {
        path.send({.port = port,
                   .class_of_service = class_of_service,
                   .bytes = tag ? tagged(*packet, *tag, class_of_service) : *packet});
    }
    return true;
}

}  // namespace

void add_nicdrv_transmit(Dispatcher &dispatcher, PacketPath &path, SharedSwitch &chips)
{
    dispatcher.on<nicdrv::SendPacketToPort>([&](const nicdrv::PacketToPort &request) {
        return send(path, to_port(chips, request),
                    path.memory.packet(request.data_offset, request.arg6, request.descriptor_offset), request.arg7);
    });
    dispatcher.on<nicdrv::SendPacketByPort>([&](const nicdrv::PacketByPort &request) {
        const auto packet = packet_by_port(chips, path.memory, request);
        if (!packet) {
            ++path.transmission.lock()->refused;
            return false;
        }
        path.send(*packet);
        return true;
    });
    dispatcher.on<nicdrv::SendPacketByPortList>([&](const nicdrv::PacketByPortList &request) {
        return send(path, to_ports(chips, request),
                    path.memory.packet(request.data_offset, request.arg5, request.descriptor_offset), request.arg6);
    });
    dispatcher.on<nicdrv::SendPacketByVid>([&](const nicdrv::PacketByVid &request) {
        return send(path, to_vlan(chips, request.arg1),
                    path.memory.packet(request.data_offset, request.arg3, request.descriptor_offset), request.arg4);
    });
    dispatcher.on<nicdrv::SendIUCPacket>([&](const nicdrv::IucPacket &request) {
        return send(path, to_unit(chips, request.arg3), path.memory.packet(request.data_offset, request.arg2),
                    request.arg4);
    });
}

}  // namespace quillon::driver
