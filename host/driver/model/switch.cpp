#include "host/driver/model/switch.h"

#include <algorithm>
#include <utility>

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
      phys(stack),
      vlans(stack),
      learning(stack),
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
      routes(stack),
      ip_multicast(stack),
      rules(stack),
      macs(stack),
      traffic(stack)
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
    vlan_rules.forget_vlan(id);
    for (const uint32_t interface : l3_interfaces.in_vlan(id)) {
        routes.forget_interface(interface);
        ip_multicast.forget_interface(interface);
    }
    ip_multicast.forget_vlan(id);
    l3_interfaces.forget_vlan(id);
    macs.remove_all({.vlan = id});
    return true;
}

bool ChipState::delete_l3_interface(uint32_t id, const VlanMac &where)
{
    if (!l3_interfaces.is(id, where) || routes.uses_interface(id) || ip_multicast.uses_interface(id)) {
        return false;
    }
    l3_interfaces.remove(id);
    return true;
}

bool ChipState::destroy_trunk(uint32_t id)
{
    if (!trunks.destroy(id)) {
        return false;
    }
    rules.forget_trunk(id);
    macs.remove_all({.destination = TrunkId{id}});
    return true;
}

void ChipState::shut_all_ports()
{
    for (PortSettings &port : ports) {
        port.set_admin_up(false);
    }
}

Switch::Switch(const StackShape &shape, Clock clock)
    : stack(shape), chips(stack), lines(by_port_type<Line>(stack)), clock_(std::move(clock))
{
}

void Switch::reset_chips()
{
    chips = ChipState(stack);
    mac_walks = {};
}

MacTable &Switch::macs()
{
    chips.macs.age(now());
    return chips.macs;
}

bool Switch::learn(const MacKey &key, const LogicalPort &port)
{
    const PortLearning *const learning = chips.learning.find(port);
    return learning != nullptr && macs().see(key, port, learning->learns, chips.vlans, chips.trunks, now());
}

std::optional<RunningPort> Switch::running_port(const LogicalPort &port) const
{
    const PortSettings *const settings = chips.ports.find(port);
    if (settings == nullptr) {
        return std::nullopt;
    }
    return RunningPort(*settings, *lines.find(port),
                       chips.overrides.find(port)->link_down || chips.phys.find(port)->is_silent());
}

PhyState *Switch::copper_phy(const LogicalPort &port)
{
    const PortSettings *const settings = chips.ports.find(port);
    return settings != nullptr && settings->type() == PortType::copper ? chips.phys.find(port) : nullptr;
}

std::optional<Phy> Switch::phy(const LogicalPort &port) const
{
    const PortSettings *const settings = chips.ports.find(port);
    if (settings == nullptr || settings->type() != PortType::copper) {
        return std::nullopt;
    }
    return Phy(*settings, *chips.phys.find(port), *lines.find(port), chips.overrides.find(port)->link_down);
}

bool Switch::run_phy_operations(const LogicalPort &port, std::span<const PhyOperation> operations)
{
    auto changed = phy(port);
    if (!changed || !std::ranges::all_of(operations, [&](const PhyOperation &each) { return changed->run(each); })) {
        return false;
    }
    *chips.ports.find(port) = changed->settings();
    *chips.phys.find(port) = changed->state();
    return true;
}

uint32_t Switch::average_port_temperature() const
{
    constexpr uint32_t idle = 35;
    constexpr uint32_t running = 45;
    uint32_t sum = 0;
    for (LogicalPort port{.unit = 1, .port = 1}; stack.has(port); ++port.unit) {
        for (port.port = 1; stack.has(port); ++port.port) {
            sum += running_port(port)->status().link_up() ? running : idle;
        }
        port.port = 1;
    }
    return sum / (stack.shape().units * stack.shape().ports);
}

std::optional<FrameSize> Switch::largest_frame(const LogicalPort &port) const
{
    const PortTunnel *const tunnel = chips.tunnels.find(port);
    return tunnel == nullptr ? std::nullopt : chips.frame_sizes.largest(port, tunnel->mode != TunnelMode::off);
}

}  // namespace quillon::driver
