// Where packets are routed to: host routes, network routes with up to eight next hops, and the special default routes.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <array>
#include <optional>
#include <span>
#include <vector>

#include "host/driver/model/ip_address.h"
#include "host/driver/model/l3_interfaces.h"
#include "host/driver/model/numbered_table.h"
#include "host/driver/model/stack.h"
#include "host/driver/model/table_status.h"

namespace quillon::driver {

// How a station is reached.
struct Neighbour {
    uint32_t interface;
    MacAddress mac;
    LogicalPort port;

    bool operator==(const Neighbour &) const = default;
};

struct HostRoute {
    std::optional<Neighbour> neighbour;  // none of an address of the switch itself
    bool hit = false;
};

// A neighbour's number in the table of host routes, or the CPU.
using NextHop = uint32_t;
inline constexpr NextHop cpu_next_hop = 0;

struct NetRoute {
    std::vector<NextHop> paths;  // one at least; the CPU only alone
};

class Routes {
  public:
    static constexpr uint32_t most_hosts = 2048;
    static constexpr uint32_t most_networks = 4096;
    static constexpr size_t most_paths = 8;

    using Hosts = NumberedTable<IpAddress, HostRoute>;
    using Networks = NumberedTable<IpPrefix, NetRoute>;

    explicit Routes(const Stack &stack) : stack_(stack) {}

    const Hosts &hosts() const { return hosts_; }
    const Networks &networks() const { return networks_; }
    // Of a next hop that is not the CPU; null when there is none of that number.
    const Neighbour *neighbour(NextHop next_hop) const;
    bool uses_interface(uint32_t id) const;

    // Adds a neighbour, or changes it.
    TableStatus set_neighbour(const L3Interfaces &interfaces, const IpAddress &address, const Neighbour &neighbour);
    TableStatus remove_neighbour(const IpAddress &address);
    TableStatus add_own(const IpAddress &address);
    TableStatus remove_own(const IpAddress &address);
    // Nothing for a host without a route.
    std::optional<bool> take_hit(const IpAddress &address);

    // Next hops come from outside with 64 bits. Those that are no neighbours are unresolved.
    TableStatus add_network(const IpPrefix &prefix, std::span<const uint64_t> next_hops);
    TableStatus remove_network(const IpPrefix &prefix);
    // Only when it is the route's one path.
    TableStatus remove_network(const IpPrefix &prefix, uint64_t only_next_hop);
    // With `first`, a route that is not there begins with this path.
    TableStatus add_path(const IpPrefix &prefix, uint64_t next_hop, bool first);
    // With `last`, the route goes with its last path.
    TableStatus remove_path(const IpPrefix &prefix, uint64_t next_hop, bool last);

    // Used when nothing in the tables leads to an address.
    TableStatus set_special_default(IpVersion version, uint64_t next_hop);
    bool remove_special_default(IpVersion version);

    // Host routes of an interface that is gone go, and with them the paths through them.
    void forget_interface(uint32_t id);

    struct Match {
        uint32_t prefix_length;
        NextHop next_hop;
    };

    // Routes a packet: by the longest prefix that its destination has.
    std::optional<Match> route(const IpAddress &destination);

  private:
    std::optional<NextHop> resolved(uint64_t next_hop) const;
    std::optional<NextHop> &special_default(IpVersion version)
    {
        return special_defaults_.at(static_cast<size_t>(version));
    }
    bool leads_to(NextHop next_hop) const;

    Stack stack_;
    Hosts hosts_{most_hosts};
    Networks networks_{most_networks};
    std::array<std::optional<NextHop>, 2> special_defaults_;
};

}  // namespace quillon::driver
