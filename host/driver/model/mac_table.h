// The MAC address table: where the frames of a VLAN to an address go.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <bitset>
#include <chrono>
#include <compare>
#include <map>
#include <optional>
#include <variant>

#include "host/driver/model/clock.h"
#include "host/driver/model/mac_address.h"
#include "host/driver/model/port_set.h"
#include "host/driver/model/stack.h"
#include "host/driver/model/trunks.h"
#include "host/driver/model/vlans.h"

namespace quillon::driver {

// In the order in which the table is walked.
struct MacKey {
    uint32_t vlan = 0;
    MacAddress mac = {};

    // NOLINTNEXTLINE(modernize-use-nullptr): takes the comparison for one of pointers
    auto operator<=>(const MacKey &) const = default;
};

enum class MacKind : uint8_t {
    learned,       // by the chips, or set as if it were; it ages
    set,           // static
    of_vlan,       // the switch's own address in the VLAN
    intervention,  // frames to it are for the CPU
    multicast,
};

struct TrunkId {
    uint32_t id;

    bool operator==(const TrunkId &) const = default;
};

struct Cpu {
    bool operator==(const Cpu &) const = default;
};

// The ports that frames to a multicast address leave by, and whether they do so tagged.
struct MulticastMembers {
    std::map<LogicalPort, bool> tagged;

    bool operator==(const MulticastMembers &) const = default;
};

using MacDestination = std::variant<LogicalPort, TrunkId, Cpu, MulticastMembers>;

// What is done with frames besides.
struct MacTreatment {
    bool discards_from = false;
    bool discards_to = false;
    bool copies_to_cpu = false;  // frames to an intervention address are flooded as well
    uint32_t cpu_priority = 0;

    bool operator==(const MacTreatment &) const = default;
};

// Chips of the local unit, by device id.
using ChipSet = std::bitset<StackShape::most_chips>;

struct MacEntry {
    MacKind kind = MacKind::learned;
    MacDestination destination;
    MacTreatment treatment = {};
    bool hit = false;     // a frame came from the address since this was last cleared
    Time last_seen = {};  // of one that ages
    ChipSet chips = {};   // whose tables have it
};

// All entries for which what is given holds.
struct MacSelection {
    bool only_learned = false;
    std::optional<MacDestination> destination = {};
    std::optional<uint32_t> vlan = {};
};

// Each chip has a table. An entry stands in all of them, unless it was set or deleted in the one of a single chip.
class MacTable {
  public:
    using Entries = std::map<MacKey, MacEntry>;

    static constexpr size_t capacity = 16384;
    static constexpr std::chrono::seconds shortest_ageing_time{10};
    static constexpr std::chrono::seconds longest_ageing_time{1'000'000};

    // What the units of the stack send to one another.
    static constexpr MacAddress internal_multicast = {0x03, 0, 0, 0, 0, 0x01};

    explicit MacTable(const Stack &stack) : stack_(stack) {}

    size_t size() const { return entries_.size(); }
    const MacEntry *find(const MacKey &key) const;  // null when there is none
    Entries::const_iterator begin() const { return entries_.begin(); }
    Entries::const_iterator end() const { return entries_.end(); }
    Entries::const_iterator after(const MacKey &key) const { return entries_.upper_bound(key); }
    std::chrono::seconds ageing_time() const { return ageing_time_; }

    // Forgets learned addresses that were not seen for the ageing time; looks for them once a second.
    void age(Time now);
    // 0 ends ageing. False when out of range.
    bool set_ageing_time(std::chrono::seconds time);

    // A frame came in. Its address moves to the port, or to the trunk that the port is in, unless it was set to be
    // elsewhere. False when it cannot be learned: the port does not learn what it has not learned before, VLAN or port
    // do not exist, the address is a multicast address or the switch's own, the table is full.
    bool see(const MacKey &key, const LogicalPort &port, bool learns, const Vlans &vlans, const Trunks &trunks,
             Time now);

    // What follows returns false, and changes nothing, for VLANs, trunks, ports, chips and entries that do not exist,
    // when the table is full, and for a multicast address where none can be, or the other way round.

    // Takes the place of an entry of the same kind and of a learned one; one to be learned also of a static one. False
    // when there is another. Only in the table of a chip if there is one.
    bool set(const MacKey &key, const MacEntry &entry, const Vlans &vlans, const Trunks &trunks,
             std::optional<uint32_t> chip = {});

    // False when it is there.
    bool create_multicast(const MacKey &key, const Vlans &vlans);
    bool add_member(const MacKey &key, const LogicalPort &port, bool tagged);
    bool remove_member(const MacKey &key, const LogicalPort &port);
    // Of one unit; those of other units stay. False also when not all of `tagged` are members.
    bool set_members(const MacKey &key, uint32_t unit, PortMask members, PortMask tagged);
    // At all ports of the default VLAN.
    bool set_internal_multicast(const Vlans &vlans);

    bool remove(const MacKey &key, MacKind kind);  // false when it is of another kind
    bool remove(const MacKey &key);                // of an address that was learned or set
    bool remove_from_chip(const MacKey &key, uint32_t chip);
    void remove_all(const MacSelection &selection);

    // Whether the address was seen at one of the ports; then that can be cleared. Nothing when there is no such entry,
    // unit or port.
    std::optional<bool> hit(const MacKey &key, uint32_t unit, PortMask ports, const Trunks &trunks, bool clear);

  private:
    bool put(const MacKey &key, MacEntry entry, std::optional<uint32_t> chip = {});
    bool exists(const MacDestination &destination, const Trunks &trunks) const;
    ChipSet all_chips() const;
    MulticastMembers *members_of(const MacKey &key);

    Stack stack_;
    Entries entries_;
    std::chrono::seconds ageing_time_{300};
    Time aged_at_{};
};

}  // namespace quillon::driver
