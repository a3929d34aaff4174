// Trunks: ports that act as one, in all units of the stack.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <compare>
#include <map>
#include <optional>
#include <set>

#include "host/driver/model/mac_address.h"
#include "host/driver/model/port_set.h"
#include "host/driver/model/stack.h"
#include "host/driver/model/vlans.h"

namespace quillon::driver {

// What decides on the member that a frame leaves by.
enum class TrunkBalance : uint8_t {
    source_mac,
    destination_mac,
    both_macs,
    source_ip,
    destination_ip,
    both_ips,
};

struct Trunk {
    TrunkBalance balance;
    PortSet members;

    bool operator==(const Trunk &) const = default;
};

// A multicast address of a VLAN whose frames leave by one member of a trunk.
struct TrunkMulticast {
    MacAddress mac;
    uint32_t vlan;
    LogicalPort port;

    // NOLINTNEXTLINE(modernize-use-nullptr): takes the comparison for one of pointers
    auto operator<=>(const TrunkMulticast &) const = default;
};

class Trunks {
  public:
    static constexpr uint32_t most_trunks = 128;  // which is also the largest id
    static constexpr uint32_t most_members = 8;   // of a trunk
    static constexpr size_t most_multicasts = 1024;

    explicit Trunks(const Stack &stack) : stack_(stack) {}

    const Trunk *find(uint32_t id) const;  // null when it does not exist
    // Nothing when the port is in none.
    const Trunk *trunk_of(const LogicalPort &port) const;
    std::optional<uint32_t> id_of_trunk_of(const LogicalPort &port) const;
    bool has(const TrunkMulticast &multicast) const { return multicasts_.contains(multicast); }
    TrunkBalance default_balance() const { return default_balance_; }

    // Of all trunks, and of those to come that are created without one.
    void set_balance_of_all(TrunkBalance balance);

    // What follows returns false, and changes nothing, for trunks, units, ports and VLANs that do not exist.

    bool create(uint32_t id) { return create(id, default_balance_); }
    // False when it is there.
    bool create(uint32_t id, TrunkBalance balance);
    bool destroy(uint32_t id);
    bool set_balance(uint32_t id, TrunkBalance balance);
    // Of one unit; those of other units stay. False also when one is in another trunk, or when there would be too many
    // members. The multicasts of a port that is no member any more are forgotten.
    bool set_members(uint32_t id, uint32_t unit, PortMask ports);

    // False also when the address is not a multicast address, when the port is in no trunk, when the entry is there,
    // and when the table is full.
    bool add(const Vlans &vlans, const TrunkMulticast &multicast);
    bool remove(const TrunkMulticast &multicast) { return multicasts_.erase(multicast) != 0; }
    void forget_vlan(uint32_t vlan);

  private:
    void forget_multicasts_outside_trunks();

    Stack stack_;
    TrunkBalance default_balance_ = TrunkBalance::both_macs;
    std::map<uint32_t, Trunk> trunks_;
    std::set<TrunkMulticast> multicasts_;
};

}  // namespace quillon::driver
