#include "host/driver/control_commands.h"

namespace quillon::driver {

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
