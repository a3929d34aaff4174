#include "host/driver/model/switch.h"

namespace quillon::driver {
namespace {

// A value that depends on nothing but the type of the port.
template <class T>
PerPort<T> by_port_type(const Stack &stack)
{
    return {stack, [&stack](const LogicalPort &port) { return T(port_type_of(port.port, stack.shape().ports)); }};
}

}  // namespace

ChipState::ChipState(const Stack &stack)
    : overrides(stack),
      ports(by_port_type<PortSettings>(stack)),
      vlans(stack),
      spanning_tree(stack),
      frame_sizes(stack),
      tunnels(stack),
      mirrors(stack),
      trunks(stack),
      storm_control(stack),
      priorities(stack),
      topology(stack),
      fabric_table(stack),
      routing(stack),
      routes(stack)
{
}

bool ChipState::destroy_vlan(uint32_t id)
{
    if (!vlans.destroy(id)) {
        return false;
    }
    spanning_tree.forget_vlan(id);
    tunnels.forget_vlan(id);
    mirrors.forget_vlan(id);
    trunks.forget_vlan(id);
    for (const uint32_t interface : l3_interfaces.in_vlan(id)) {
        routes.forget_interface(interface);
    }
    l3_interfaces.forget_vlan(id);
    return true;
}

bool ChipState::delete_l3_interface(uint32_t id, const VlanMac &where)
{
    if (!l3_interfaces.is(id, where) || routes.uses_interface(id)) {
        return false;
    }
    l3_interfaces.remove(id);
    return true;
}

Switch::Switch(const StackShape &shape) : stack(shape), chips(stack), lines(by_port_type<Line>(stack)) {}

std::optional<RunningPort> Switch::running_port(const LogicalPort &port) const
{
    const PortSettings *const settings = chips.ports.find(port);
    if (settings == nullptr) {
        return std::nullopt;
    }
    return RunningPort(*settings, *lines.find(port), chips.overrides.find(port)->link_down);
}

std::optional<FrameSize> Switch::largest_frame(const LogicalPort &port) const
{
    const PortTunnel *const tunnel = chips.tunnels.find(port);
    return tunnel == nullptr ? std::nullopt : chips.frame_sizes.largest(port, tunnel->mode != TunnelMode::off);
}

}  // namespace quillon::driver
