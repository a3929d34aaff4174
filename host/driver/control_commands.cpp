#include "host/driver/control_commands.h"

#include <fmt/format.h>

namespace quillon::driver {

void require_link(const Switch &chips, const LogicalPort &port)
{
    if (!chips.running_port(port)->status().link_up()) {
        throw ControlError(fmt::format("the link of port {}/{} is down", port.unit, port.port));
    }
}

void add_control_commands(ControlCommands &commands, Models &models)
{
    add_cable_control(commands, models.chips);
    add_learning_control(commands, models.chips);
    add_oam_control(commands, models.chips, models.oam_events);
    add_packet_control(commands, models.packets, models.chips);
    add_routing_control(commands, models.chips);
    add_traffic_control(commands, models.chips);
}

}  // namespace quillon::driver
