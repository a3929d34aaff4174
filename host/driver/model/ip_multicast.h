// Where IP multicast packets go: within their VLAN, and routed into others.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <compare>
#include <map>
#include <optional>
#include <set>
#include <span>

#include "host/driver/model/ip_address.h"
#include "host/driver/model/l3_interfaces.h"
#include "host/driver/model/port_set.h"
#include "host/driver/model/stack.h"
#include "host/driver/model/table_status.h"
#include "host/driver/model/vlans.h"

namespace quillon::driver {

// Packets of a VLAN to a group.
struct McastFlow {
    uint32_t vlan;
    IpAddress group;
    IpAddress source;  // the unspecified address: any

    // NOLINTNEXTLINE(modernize-use-nullptr): takes the comparison for one of pointers
    auto operator<=>(const McastFlow &) const = default;
};

// A copy that is routed through an interface and leaves by a port.
struct McastCopy {
    LogicalPort port;
    uint32_t interface;

    // NOLINTNEXTLINE(modernize-use-nullptr): takes the comparison for one of pointers
    auto operator<=>(const McastCopy &) const = default;
};

struct L3McastEntry {
    std::optional<LogicalPort> upstream;  // packets that come in elsewhere are not routed; none: all are
    PortSet ports;                        // of the flow's own VLAN
    std::set<McastCopy> downstream;
    std::set<McastCopy> replications;
    bool to_cpu = false;
    bool hit = false;
};

class IpMulticast {
  public:
    static constexpr size_t most_entries = 1024;  // of each layer
    static constexpr size_t most_copies = 32;     // of each kind and entry

    explicit IpMulticast(const Stack &stack) : stack_(stack) {}

    bool routes_ipv4 = false;
    bool routes_ipv6 = false;
    bool debugged = false;

    const PortSet *l2_entry(const McastFlow &flow) const;       // null when there is none
    const L3McastEntry *l3_entry(const McastFlow &flow) const;  // likewise
    bool uses_interface(uint32_t id) const;

    // A layer-2 entry comes with its first port and goes with its last.
    TableStatus add_l2_port(const Vlans &vlans, const McastFlow &flow, const LogicalPort &port);
    TableStatus remove_l2_port(const McastFlow &flow, const LogicalPort &port);

    TableStatus add(const Vlans &vlans, const L3Interfaces &interfaces, const McastFlow &flow,
                    const std::optional<LogicalPort> &upstream, std::span<const McastCopy> downstream);
    TableStatus remove(const McastFlow &flow);

    // Of a layer-3 entry that is there. Adding what is there, and removing what is not, is refused.
    TableStatus add_port(const McastFlow &flow, const LogicalPort &port);
    TableStatus remove_port(const McastFlow &flow, const LogicalPort &port);
    using Copies = std::set<McastCopy> L3McastEntry::*;
    TableStatus add_copy(const L3Interfaces &interfaces, const McastFlow &flow, Copies which, const McastCopy &copy);
    TableStatus remove_copy(const McastFlow &flow, Copies which, const McastCopy &copy);
    TableStatus set_to_cpu(const McastFlow &flow, bool on);
    void clear_hit(const McastFlow &flow);

    // With a VLAN go its flows, with an interface the copies that are routed through it.
    void forget_vlan(uint32_t vlan);
    void forget_interface(uint32_t id);

    struct Delivery {
        PortSet bridged;
        std::set<McastCopy> routed;
        bool to_cpu;
    };

    // A packet comes in at a port. Nothing when no entry is for it: it is flooded.
    std::optional<Delivery> forward(const LogicalPort &port, const McastFlow &flow);

  private:
    bool is_routed(const LogicalPort &port, const IpAddress &group, const L3McastEntry &entry) const;
    bool resolves(const L3Interfaces &interfaces, const McastCopy &copy) const;

    Stack stack_;
    std::map<McastFlow, PortSet> l2_;
    std::map<McastFlow, L3McastEntry> l3_;
};

}  // namespace quillon::driver
