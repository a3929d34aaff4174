#include "host/driver/reception.h"

#include "host/driver/model/parsed_packet.h"

namespace quillon::driver {
namespace {

void learn_source(Switch &chips, const LogicalPort &port, const ParsedPacket &packet)
{
    const bool names_vlan = packet.tag && packet.tag->vid != 0;  // a tag without one is a priority alone
    const uint32_t vlan = names_vlan ? packet.tag->vid : chips.chips.vlans.rules(port)->pvid;
    if (packet.source) {
        chips.learn({.vlan = vlan, .mac = *packet.source}, port);
    }
}

}  // namespace

std::optional<Treatment> receive_packet(SharedSwitch &model, const LogicalPort &port, std::span<const std::byte> packet)
{
    const auto access = model.lock();
    if (!access->running_port(port)->status().link_up()) {
        return std::nullopt;
    }
    learn_source(*access, port, parse_packet(packet));
    PortTraffic &traffic = *access->chips.traffic.find(port);
    traffic.receive(frame_of(packet));
    const Treatment treatment = access->chips.rules.receive(access->chips.trunks, port, packet, access->now());
    if (treatment.drop) {
        traffic.discard();
    }
    return treatment;
}

}  // namespace quillon::driver
