// The spanning trees, which VLANs are in which of them, and the state of each port in each.
#pragma once

#include <stdint.h>

#include <array>
#include <map>
#include <span>

#include "host/driver/model/per_port.h"
#include "host/driver/model/stack.h"
#include "host/driver/model/vlans.h"

namespace quillon::driver {

enum class SpanningTreeMode : uint8_t { stp, rstp, mstp };

enum class SpanningTreeState : uint8_t { disabled, blocking, listening, learning, forwarding };

// Instance 0 is the common tree: every VLAN that was not given to another instance is in it.
class SpanningTree {
  public:
    static constexpr uint32_t instances = 65;

    explicit SpanningTree(const Stack &stack);

    SpanningTreeMode mode() const { return mode_; }
    void set_mode(SpanningTreeMode mode) { mode_ = mode; }

    uint32_t instance_of(uint32_t vlan) const;
    // Of a port and an instance that exist.
    SpanningTreeState state(uint32_t instance, const LogicalPort &port) const;

    // What follows returns false, and changes nothing, for instances, ports and VLANs that do not exist.

    bool set_state(uint32_t instance, const LogicalPort &port, SpanningTreeState state);
    // The same for a caller that holds `vlans_in_it` to be in the instance. False when one of them is not.
    bool set_state(const Vlans &vlans, uint32_t instance, std::span<const uint16_t> vlans_in_it,
                   const LogicalPort &port, SpanningTreeState state);

    // A VLAN is in one instance: it leaves the one that it was in.
    bool add_vlan(const Vlans &vlans, uint32_t instance, uint32_t vlan);
    // Back to the common tree. False when it is not in the instance, or when that is the common tree.
    bool remove_vlan(uint32_t instance, uint32_t vlan);
    void forget_vlan(uint32_t vlan) { instances_.erase(vlan); }

  private:
    using States = std::array<SpanningTreeState, instances>;

    SpanningTreeMode mode_ = SpanningTreeMode::rstp;
    std::map<uint32_t, uint32_t> instances_;  // by VLAN; none of the common tree's
    PerPort<States> states_;
};

}  // namespace quillon::driver
