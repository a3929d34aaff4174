#include "host/driver/model/spanning_tree.h"

#include <algorithm>

namespace quillon::driver {

SpanningTree::SpanningTree(const Stack &stack)
    : states_(stack, [](const LogicalPort & /*port*/) {
          States states;
          states.fill(SpanningTreeState::forwarding);
          return states;
      })
{
}

uint32_t SpanningTree::instance_of(uint32_t vlan) const
{
    const auto found = instances_.find(vlan);
    return found == instances_.end() ? 0 : found->second;
}

SpanningTreeState SpanningTree::state(uint32_t instance, const LogicalPort &port) const
{
    return states_.find(port)->at(instance);
}

bool SpanningTree::set_state(uint32_t instance, const LogicalPort &port, SpanningTreeState state)
{
    States *const states = states_.find(port);
    if (states == nullptr || instance >= instances) {
        return false;
    }
    states->at(instance) = state;
    return true;
}

bool SpanningTree::set_state(const Vlans &vlans, uint32_t instance, std::span<const uint16_t> vlans_in_it,
                             const LogicalPort &port, SpanningTreeState state)
{
    const auto is_in_it = [&](uint16_t vlan) { return vlans.has(vlan) && instance_of(vlan) == instance; };
    return std::ranges::all_of(vlans_in_it, is_in_it) && set_state(instance, port, state);
}

bool SpanningTree::add_vlan(const Vlans &vlans, uint32_t instance, uint32_t vlan)
{
    if (instance >= instances || !vlans.has(vlan)) {
        return false;
    }
    if (instance == 0) {
        instances_.erase(vlan);
    } else {
        instances_[vlan] = instance;
    }
    return true;
}

bool SpanningTree::remove_vlan(uint32_t instance, uint32_t vlan)
{
    if (instance == 0 || instance_of(vlan) != instance) {
        return false;
    }
    instances_.erase(vlan);
    return true;
}

}  // namespace quillon::driver
