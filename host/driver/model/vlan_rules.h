// What puts frames in VLANs besides ports and tags, and which VLANs are carried for others.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <array>
#include <compare>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "host/driver/model/port_set.h"
#include "host/driver/model/priorities.h"
#include "host/driver/model/stack.h"
#include "host/driver/model/trunks.h"
#include "host/driver/model/vlans.h"

namespace quillon::driver {

struct VlanAssignment {
    uint32_t vlan;
    uint32_t priority;

    bool operator==(const VlanAssignment &) const = default;
};

// Entries that lead to a VLAN. An entry is or has a VlanAssignment.
template <class Key, class Entry = VlanAssignment>
class VlanTable {
  public:
    explicit VlanTable(size_t most) : most_(most) {}

    // In place of what is there for the key. False for a VLAN or priority that does not exist, and when the table is
    // full; nothing changes then.
    bool set(const Vlans &vlans, const Key &key, const Entry &entry)
    {
        if (!vlans.has(entry.vlan) || !is_priority(entry.priority) ||
            (entries_.size() == most_ && !entries_.contains(key))) {
            return false;
        }
        entries_.insert_or_assign(key, entry);
        return true;
    }

    // False when there is none.
    bool erase(const Key &key) { return entries_.erase(key) != 0; }

    // Null when there is none.
    const Entry *find(const Key &key) const
    {
        const auto found = entries_.find(key);
        return found == entries_.end() ? nullptr : &found->second;
    }

    void forget_vlan(uint32_t vlan)
    {
        std::erase_if(entries_, [vlan](const auto &entry) { return entry.second.vlan == vlan; });
    }

  private:
    size_t most_;
    std::map<Key, Entry> entries_;
};

struct Ipv4Subnet {
    uint32_t address;
    uint32_t mask;

    // NOLINTNEXTLINE(modernize-use-nullptr): takes the comparison for one of pointers
    auto operator<=>(const Ipv4Subnet &) const = default;
    // A prefix that is not empty, and nothing behind it.
    constexpr bool is_sound() const { return mask != 0 && (~mask & (~mask + 1)) == 0 && (address & ~mask) == 0; }
};

// A group of protocols at a port.
struct ProtocolGroupPort {
    LogicalPort port;
    uint32_t group;

    // NOLINTNEXTLINE(modernize-use-nullptr): takes the comparison for one of pointers
    auto operator<=>(const ProtocolGroupPort &) const = default;
};

struct ProtocolVlan : VlanAssignment {
    using Key = std::array<uint8_t, 12>;
    using Protocol = std::array<uint8_t, 5>;

    Key key;
    std::vector<Protocol> protocols;

    // Whether both are for the same; the priority does not matter.
    bool matches(const ProtocolVlan &other) const
    {
        return vlan == other.vlan && key == other.key && protocols == other.protocols;
    }
};

// The tag that frames of remote mirroring get.
struct RspanTag : VlanAssignment {
    uint32_t tpid;

    bool operator==(const RspanTag &) const = default;
};

struct VlanRules {
    VlanTable<MacAddress> macs{1024};
    VlanTable<Ipv4Subnet> subnets{256};
    VlanTable<ProtocolGroupPort, ProtocolVlan> protocols{1024};
    VlanTable<std::pair<MacAddress, uint32_t>> ipv6_multicasts{1024};  // by address and VLAN

    std::map<uint32_t, PortSet> trunked;  // the ports that carry a VLAN without being its members
    std::optional<RspanTag> rspan_tag;

    void forget_vlan(uint32_t vlan)
    {
        macs.forget_vlan(vlan);
        subnets.forget_vlan(vlan);
        protocols.forget_vlan(vlan);
        ipv6_multicasts.forget_vlan(vlan);
        trunked.erase(vlan);
        if (rspan_tag && rspan_tag->vlan == vlan) {
            rspan_tag.reset();
        }
    }
};

}  // namespace quillon::driver
