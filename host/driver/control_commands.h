// What can be done to the switch from outside. Each function adds the commands of one topic.
#pragma once

#include "host/driver/control.h"
#include "host/driver/models.h"

namespace quillon::driver {

// All of them. `models` must outlive the commands.
void add_control_commands(ControlCommands &commands, Models &models);

// Throws ControlError when frames can neither come in nor leave.
void require_link(const Switch &chips, const LogicalPort &port);

void add_cable_control(ControlCommands &commands, SharedSwitch &model);
void add_learning_control(ControlCommands &commands, SharedSwitch &model);
void add_oam_control(ControlCommands &commands, SharedSwitch &model, OamDelivery &delivery);
void add_packet_control(ControlCommands &commands, PacketPath &path, SharedSwitch &chips);
void add_routing_control(ControlCommands &commands, SharedSwitch &model);
void add_traffic_control(ControlCommands &commands, SharedSwitch &model);

}  // namespace quillon::driver
