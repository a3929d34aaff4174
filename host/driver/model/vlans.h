// VLANs, who is in them, and what ports do with frames of them.
#pragma once

#include <stdint.h>

#include <map>

#include "host/driver/model/per_port.h"
#include "host/driver/model/port_set.h"
#include "host/driver/model/stack.h"

namespace quillon::driver {

constexpr bool is_vlan_id(uint32_t id)
{
    return id >= 1 && id <= 4094;
}

struct Vlan {
    PortSet members;
    PortSet untagged;  // members that send without a tag
    PortSet double_tagged;
    bool cpu_is_member = false;

    bool operator==(const Vlan &) const = default;
};

enum class VlanPorts : uint8_t { members, untagged, double_tagged };

enum class AdmittedFrames : uint8_t { all, tagged, untagged };

struct PortVlanRules {
    uint32_t pvid = 1;
    bool ingress_filter = false;
    AdmittedFrames admitted = AdmittedFrames::all;

    bool operator==(const PortVlanRules &) const = default;
};

// In the beginning there is VLAN 1, the default VLAN, with all ports and the CPU in it. The default VLAN is always
// there.
class Vlans {
  public:
    explicit Vlans(const Stack &stack);

    const Vlan *find(uint32_t id) const;  // null when it does not exist
    bool has(uint32_t id) const { return find(id) != nullptr; }
    uint32_t default_vlan() const { return default_vlan_; }
    bool traps_unspecified_tags() const { return traps_unspecified_tags_; }
    const PortVlanRules *rules(const LogicalPort &port) const { return rules_.find(port); }

    void set_traps_unspecified_tags(bool on) { traps_unspecified_tags_ = on; }

    // What follows returns false, and changes nothing, for VLANs, units and ports that do not exist.

    bool create(uint32_t id);  // false when it is there
    // Ports whose untagged frames belonged to it give them to the default VLAN. False for the default VLAN.
    bool destroy(uint32_t id);
    bool set_default(uint32_t id);

    // Adding a port that is there, and removing one that is not, succeeds. Only a member can be untagged, and a port
    // that is no member any more is not untagged either.
    bool add(VlanPorts which, uint32_t id, const LogicalPort &port);
    bool remove(VlanPorts which, uint32_t id, const LogicalPort &port);
    // Of the ports in `covered` of one unit, those in `ports` are in the set and the others are not. False also when
    // `ports` has others than those.
    bool assign(VlanPorts which, uint32_t id, uint32_t unit, PortMask ports, PortMask covered);
    bool set_cpu_is_member(uint32_t id, bool member);

    bool set_pvid(const LogicalPort &port, uint32_t id);
    bool set_ingress_filter(const LogicalPort &port, bool on);
    bool set_admitted(const LogicalPort &port, AdmittedFrames admitted);

  private:
    Stack stack_;
    uint32_t default_vlan_ = 1;
    bool traps_unspecified_tags_ = false;
    std::map<uint32_t, Vlan> vlans_;
    PerPort<PortVlanRules> rules_;
};

}  // namespace quillon::driver
