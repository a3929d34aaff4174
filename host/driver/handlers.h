// The handlers of the families' requests. Each function registers those of one topic; they translate between the wire
// and the model, and decide nothing else.
#pragma once

#include "host/driver/dispatcher.h"
#include "host/driver/models.h"

namespace quillon::driver {

// All that the driver process answers. `models` must outlive the dispatcher.
void add_handlers(Dispatcher &dispatcher, Models &models);

void add_devrm_rules(Dispatcher &dispatcher, SharedSwitch &model);
void add_amtrdrv_walk(Dispatcher &dispatcher, SharedSwitch &model);
void add_amtrdrv_entries(Dispatcher &dispatcher, SharedSwitch &model);
void add_amtrdrv_deletion(Dispatcher &dispatcher, SharedSwitch &model);
void add_amtrdrv_multicast(Dispatcher &dispatcher, SharedSwitch &model);
void add_amtrdrv_lookup(Dispatcher &dispatcher, SharedSwitch &model);
void add_amtrdrv_learning(Dispatcher &dispatcher, SharedSwitch &model);

void add_nicdrv_packet_generator(Dispatcher &dispatcher, PacketPath &path, SharedSwitch &chips);
void add_nicdrv_receive(Dispatcher &dispatcher, PacketPath &path);
void add_nicdrv_transmit(Dispatcher &dispatcher, PacketPath &path, SharedSwitch &chips);

void add_nmtrdrv_ability(Dispatcher &dispatcher, SharedSwitch &model);
void add_nmtrdrv_clearing(Dispatcher &dispatcher, SharedSwitch &model);
void add_nmtrdrv_statistics(Dispatcher &dispatcher, SharedSwitch &model);

void add_swdrv_mapping(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrv_port_config(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrv_spanning_tree(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrv_vlan(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrv_frame_size(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrv_dot1q_tunnel(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrv_mirroring(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrv_trunk(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrv_igmp_trap(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrv_storm_control(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrv_priority(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrv_port_status(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrv_multicast_traps(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrv_vlan_rules(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrv_stacking(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrv_oam(Dispatcher &dispatcher, SharedSwitch &model, OamDelivery &delivery);
void add_swdrv_phy(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrv_twsi_poe(Dispatcher &dispatcher, SharedTwsi &buses, SharedSwitch &model);

void add_swdrvl3_interfaces(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrvl3_multicast(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrvl3_routes(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrvl3_routing(Dispatcher &dispatcher, SharedSwitch &model);

void add_swdrvl4_cos_mapping(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrvl4_dscp_mapping(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrvl4_port_isolation(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrvl4_port_security(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrvl4_rate_limit(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrvl4_scheduling(Dispatcher &dispatcher, SharedSwitch &model);
void add_swdrvl4_sflow_and_dos(Dispatcher &dispatcher, SharedSwitch &model);

}  // namespace quillon::driver
