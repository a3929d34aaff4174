#include "host/driver/handlers.h"

namespace quillon::driver {

void add_handlers(Dispatcher &dispatcher, Models &models)
{
    add_devrm_rules(dispatcher, models.chips);
    add_amtrdrv_walk(dispatcher, models.chips);
    add_amtrdrv_entries(dispatcher, models.chips);
    add_amtrdrv_deletion(dispatcher, models.chips);
    add_amtrdrv_multicast(dispatcher, models.chips);
    add_amtrdrv_lookup(dispatcher, models.chips);
    add_amtrdrv_learning(dispatcher, models.chips);
    add_nicdrv_packet_generator(dispatcher, models.packets, models.chips);
    add_nicdrv_receive(dispatcher, models.packets);
    add_nicdrv_transmit(dispatcher, models.packets, models.chips);
    add_nmtrdrv_ability(dispatcher, models.chips);
    add_nmtrdrv_clearing(dispatcher, models.chips);
    add_nmtrdrv_statistics(dispatcher, models.chips);
    add_swdrv_mapping(dispatcher, models.chips);
    add_swdrv_port_config(dispatcher, models.chips);
    add_swdrv_spanning_tree(dispatcher, models.chips);
    add_swdrv_vlan(dispatcher, models.chips);
    add_swdrv_frame_size(dispatcher, models.chips);
    add_swdrv_dot1q_tunnel(dispatcher, models.chips);
    add_swdrv_mirroring(dispatcher, models.chips);
    add_swdrv_trunk(dispatcher, models.chips);
    add_swdrv_igmp_trap(dispatcher, models.chips);
    add_swdrv_storm_control(dispatcher, models.chips);
    add_swdrv_priority(dispatcher, models.chips);
    add_swdrv_port_status(dispatcher, models.chips);
    add_swdrv_multicast_traps(dispatcher, models.chips);
    add_swdrv_vlan_rules(dispatcher, models.chips);
    add_swdrv_stacking(dispatcher, models.chips);
    add_swdrv_oam(dispatcher, models.chips, models.oam_events);
    add_swdrv_phy(dispatcher, models.chips);
    add_swdrv_twsi_poe(dispatcher, models.twsi, models.chips);

    add_swdrvl3_interfaces(dispatcher, models.chips);
    add_swdrvl3_multicast(dispatcher, models.chips);
    add_swdrvl3_routes(dispatcher, models.chips);
    add_swdrvl3_routing(dispatcher, models.chips);

    add_swdrvl4_cos_mapping(dispatcher, models.chips);
    add_swdrvl4_dscp_mapping(dispatcher, models.chips);
    add_swdrvl4_port_isolation(dispatcher, models.chips);
    add_swdrvl4_port_security(dispatcher, models.chips);
    add_swdrvl4_rate_limit(dispatcher, models.chips);
    add_swdrvl4_scheduling(dispatcher, models.chips);
    add_swdrvl4_sflow_and_dos(dispatcher, models.chips);
}

}  // namespace quillon::driver
