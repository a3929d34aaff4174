// The switch that the driver process pretends to own. Each subject has a header of its own in this folder; here they
// are put together.
#pragma once

#include <stdint.h>

#include <array>
#include <optional>
#include <span>

#include "host/driver/model/clock.h"
#include "host/driver/model/frame_sizes.h"
#include "host/driver/model/guarded.h"
#include "host/driver/model/igmp_trap.h"
#include "host/driver/model/ip_multicast.h"
#include "host/driver/model/kept_settings.h"
#include "host/driver/model/l3_interfaces.h"
#include "host/driver/model/line.h"
#include "host/driver/model/link_scan.h"
#include "host/driver/model/mac_table.h"
#include "host/driver/model/mac_walks.h"
#include "host/driver/model/mirrors.h"
#include "host/driver/model/oam_entries.h"
#include "host/driver/model/per_port.h"
#include "host/driver/model/phy.h"
#include "host/driver/model/poe_controller.h"
#include "host/driver/model/port_counters.h"
#include "host/driver/model/port_learning.h"
#include "host/driver/model/port_overrides.h"
#include "host/driver/model/port_settings.h"
#include "host/driver/model/port_status.h"
#include "host/driver/model/priorities.h"
#include "host/driver/model/routes.h"
#include "host/driver/model/routing_switches.h"
#include "host/driver/model/rules.h"
#include "host/driver/model/spanning_tree.h"
#include "host/driver/model/stack.h"
#include "host/driver/model/storm_control.h"
#include "host/driver/model/topology.h"
#include "host/driver/model/trunks.h"
#include "host/driver/model/tunnels.h"
#include "host/driver/model/vlan_rules.h"
#include "host/driver/model/vlans.h"

namespace quillon::driver {

// What the chips hold, and lose when they are reset.
struct ChipState {
    explicit ChipState(const Stack &stack);

    // False for a VLAN that does not exist and for the default VLAN. What leads to the VLAN goes with it.
    bool destroy_vlan(uint32_t id);
    // False when there is no such interface, and while a route or multicast entry leads to it.
    bool delete_l3_interface(uint32_t id, const VlanMac &where);
    // False for a trunk that does not exist. What is bound to it goes with it.
    bool destroy_trunk(uint32_t id);
    void shut_all_ports();

    PerPort<PortOverrides> overrides;
    PerPort<PortSettings> ports;
    PerPort<PhyState> phys;
    bool hg_ports_admin_up = false;
    LinkScan link_scan;
    Vlans vlans;
    VlanRules vlan_rules;
    PerPort<PortLearning> learning;
    SpanningTree spanning_tree;
    FrameSizes frame_sizes;
    Tunnels tunnels;
    Mirrors mirrors;
    Trunks trunks;
    IgmpTrap igmp_trap;
    StormControl storm_control;
    Priorities priorities;
    std::array<OamEntries, 2> oam_entries;  // of the engine that frames pass as they come in, and as they leave
    Topology topology;
    Topology fabric_table;  // where the fabric chip sends frames, which is told apart from the topology
    KeptSettings kept;
    RoutingSwitches routing;
    L3Interfaces l3_interfaces;
    Routes routes;
    IpMulticast ip_multicast;
    Rules rules;
    MacTable macs;
    PerPort<PortTraffic> traffic;
};

class Switch {
  public:
    explicit Switch(const StackShape &shape, Clock clock = std::chrono::steady_clock::now);

    Time now() const { return clock_(); }

    // Puts the chips back in the state that they start in.
    void reset_chips();

    // Nothing for a port that does not exist.
    std::optional<RunningPort> running_port(const LogicalPort &port) const;

    // Nothing and null also for a port without copper.
    std::optional<Phy> phy(const LogicalPort &port) const;
    PhyState *copper_phy(const LogicalPort &port);
    // Runs all of them or, when one of them is refused, none.
    bool run_phy_operations(const LogicalPort &port, std::span<const PhyOperation> operations);

    // In degrees Celsius. Transceivers warm up with their links, and chips with the transceivers.
    uint32_t average_port_temperature() const;
    uint32_t device_temperature() const { return average_port_temperature() + 10; }

    std::optional<FrameSize> largest_frame(const LogicalPort &port) const;

    // The MAC address table as it stands now, without what has aged. All requests use it through here.
    MacTable &macs();
    // A frame came in at a port. False when its address cannot be learned.
    bool learn(const MacKey &key, const LogicalPort &port);

    const Stack stack;
    ChipState chips;
    PerPort<Line> lines;
    PoeController poe;
    MacWalks mac_walks;

  private:
    Clock clock_;
};

using SharedSwitch = Guarded<Switch>;

}  // namespace quillon::driver
