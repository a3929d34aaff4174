// Mirroring: copies of frames for a port where an analyser listens.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <map>
#include <optional>
#include <set>
#include <utility>

#include "host/driver/model/stack.h"
#include "host/driver/model/vlans.h"

namespace quillon::driver {

// Which frames of a port are copied.
struct MirroredFrames {
    bool received = false;
    bool sent = false;

    bool operator==(const MirroredFrames &) const = default;
};

// The copies of ports' frames that go to one destination.
struct PortMirror {
    std::map<LogicalPort, MirroredFrames> sources;  // not empty
    bool enabled = false;

    bool operator==(const PortMirror &) const = default;
};

class Mirrors {
  public:
    static constexpr size_t most_destinations = 4;  // of ports' frames
    static constexpr size_t most_vlan_mirrors = 64;

    explicit Mirrors(const Stack &stack) : stack_(stack) {}

    const PortMirror *find(const LogicalPort &destination) const;  // null when nothing is mirrored to it
    bool has_vlan_mirror(uint32_t vlan, const LogicalPort &destination) const;
    const std::optional<LogicalPort> &mac_destination() const { return mac_destination_; }
    const std::optional<LogicalPort> &acl_destination() const { return acl_destination_; }

    // What follows returns false, and changes nothing, for ports and VLANs that do not exist and for what is not set
    // up.

    // A new destination gets no copies before it is enabled. Which frames are copied can be changed by setting it
    // again. False also for no frames at all, for a port that would be both a source and a destination, and when there
    // are the most destinations.
    bool set(const LogicalPort &source, const LogicalPort &destination, MirroredFrames frames);
    bool remove(const LogicalPort &source, const LogicalPort &destination);
    bool enable(const LogicalPort &destination, bool enabled);

    // False also when it is there, and when there are the most VLAN mirrors.
    bool add_vlan_mirror(const Vlans &vlans, uint32_t vlan, const LogicalPort &destination);
    bool remove_vlan_mirror(uint32_t vlan, const LogicalPort &destination);
    void forget_vlan(uint32_t vlan);

    // The one destination of all frames that are mirrored for their MAC address, or by an access-control list. Only
    // the destination itself can be cleared.
    bool set_mac_destination(const LogicalPort &port) { return set_destination(mac_destination_, port); }
    bool clear_mac_destination(const LogicalPort &port) { return clear_destination(mac_destination_, port); }
    bool set_acl_destination(const LogicalPort &port) { return set_destination(acl_destination_, port); }
    bool clear_acl_destination(const LogicalPort &port) { return clear_destination(acl_destination_, port); }

  private:
    bool is_source(const LogicalPort &port) const;
    bool set_destination(std::optional<LogicalPort> &destination, const LogicalPort &port) const;
    static bool clear_destination(std::optional<LogicalPort> &destination, const LogicalPort &port);

    Stack stack_;
    std::map<LogicalPort, PortMirror> mirrors_;  // by destination
    std::set<std::pair<uint32_t, LogicalPort>> vlan_mirrors_;
    std::optional<LogicalPort> mac_destination_;
    std::optional<LogicalPort> acl_destination_;
};

}  // namespace quillon::driver
