#include "host/driver/handlers.h"

namespace quillon::driver {

void add_handlers(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_swdrv_mapping(dispatcher, model);
    add_swdrv_port_config(dispatcher, model);
    add_swdrv_spanning_tree(dispatcher, model);
    add_swdrv_vlan(dispatcher, model);
    add_swdrv_frame_size(dispatcher, model);
    add_swdrv_dot1q_tunnel(dispatcher, model);
    add_swdrv_mirroring(dispatcher, model);
    add_swdrv_trunk(dispatcher, model);
    add_swdrv_igmp_trap(dispatcher, model);
    add_swdrv_storm_control(dispatcher, model);
    add_swdrv_priority(dispatcher, model);
    add_swdrv_port_status(dispatcher, model);
}

}  // namespace quillon::driver
