// L3 interfaces, and the MAC addresses whose frames are routed.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <compare>
#include <map>
#include <optional>
#include <vector>

#include "host/driver/model/mac_address.h"
#include "host/driver/model/numbered_table.h"
#include "host/driver/model/table_status.h"
#include "host/driver/model/vlans.h"

namespace quillon::driver {

struct VlanMac {
    uint32_t vlan;
    MacAddress mac;

    // NOLINTNEXTLINE(modernize-use-nullptr): takes the comparison for one of pointers
    auto operator<=>(const VlanMac &) const = default;
};

class L3Interfaces {
  public:
    static constexpr uint32_t most_interfaces = 512;
    static constexpr size_t most_macs = 512;

    struct Created {
        TableStatus status;
        uint32_t id;  // also of one that exists already; 0 for none
    };

    bool has(uint32_t id) const { return interfaces_.key_of(id) != nullptr; }
    bool is(uint32_t id, const VlanMac &where) const;
    std::vector<uint32_t> in_vlan(uint32_t vlan) const;
    // Nothing for an address that was not added.
    std::optional<bool> l3_bit(const VlanMac &mac) const;

    // An interface of a VLAN, which sends from a MAC address.
    Created create(const Vlans &vlans, const VlanMac &where);
    void remove(uint32_t id);

    // The L3 bit of an address is set when it is added.
    TableStatus add_mac(const Vlans &vlans, const VlanMac &mac);
    bool remove_mac(const VlanMac &mac) { return l3_bits_.erase(mac) != 0; }
    bool set_l3_bit(const VlanMac &mac, bool on);

    void forget_vlan(uint32_t vlan);

  private:
    struct Nothing {};

    NumberedTable<VlanMac, Nothing> interfaces_{most_interfaces};
    std::map<VlanMac, bool> l3_bits_;
};

}  // namespace quillon::driver
