#include "host/driver/model/mac_table.h"

#include <utility>

#include "host/driver/model/priorities.h"

namespace quillon::driver {
namespace {

bool is_of_station(MacKind kind)
{
    return kind == MacKind::learned || kind == MacKind::set;
}

bool selects(const MacSelection &selection, const MacKey &key, const MacEntry &entry)
{
    return (!selection.only_learned || entry.kind == MacKind::learned) &&
           (!selection.destination || entry.destination == *selection.destination) &&
           (!selection.vlan || key.vlan == *selection.vlan);
}

bool leads_to(const MacDestination &destination, uint32_t unit, PortMask ports, const Trunks &trunks)
{
    if (const auto *const port = std::get_if<LogicalPort>(&destination)) {
        return port->unit == unit && (ports & port_bit(port->port)) != 0;
    }
    const auto *const trunk = std::get_if<TrunkId>(&destination);
    return trunk != nullptr && (trunks.find(trunk->id)->members.of_unit(unit) & ports) != 0;
}

}  // namespace

const MacEntry *MacTable::find(const MacKey &key) const
{
    const auto found = entries_.find(key);
    return found == entries_.end() ? nullptr : &found->second;
}

void MacTable::age(Time now)
{
    if (ageing_time_ == std::chrono::seconds::zero() || now - aged_at_ < std::chrono::seconds(1)) {
        return;
    }
    aged_at_ = now;
    std::erase_if(entries_, [&](const auto &entry) {
        return entry.second.kind == MacKind::learned && now - entry.second.last_seen >= ageing_time_;
    });
}

bool MacTable::set_ageing_time(std::chrono::seconds time)
{
    if (time != std::chrono::seconds::zero() && (time < shortest_ageing_time || time > longest_ageing_time)) {
        return false;
    }
    ageing_time_ = time;
    return true;
}

bool MacTable::see(const MacKey &key, const LogicalPort &port, bool learns, const Vlans &vlans, const Trunks &trunks,
                   Time now)
{
    const auto found = entries_.find(key);
    MacEntry entry = found == entries_.end() ? MacEntry{} : found->second;
    entry.hit = true;
    if (entry.kind == MacKind::set) {
        found->second = entry;
        return true;
    }
    const auto trunk = trunks.id_of_trunk_of(port);
    entry.destination = trunk ? MacDestination(TrunkId{*trunk}) : port;
    if (!learns && (found == entries_.end() || found->second.destination != entry.destination)) {
        return false;
    }
    entry.last_seen = now;
    return entry.kind == MacKind::learned && set(key, entry, vlans, trunks);
}

bool MacTable::set(const MacKey &key, const MacEntry &entry, const Vlans &vlans, const Trunks &trunks,
                   std::optional<uint32_t> chip)
{
    return vlans.has(key.vlan) && !is_multicast(key.mac) && exists(entry.destination, trunks) &&
           is_priority(entry.treatment.cpu_priority) && (!chip || *chip < stack_.shape().chips) &&
           put(key, entry, chip);
}

bool MacTable::create_multicast(const MacKey &key, const Vlans &vlans)
{
    return vlans.has(key.vlan) && is_multicast(key.mac) && find(key) == nullptr &&
           put(key, {.kind = MacKind::multicast, .destination = MulticastMembers{}});
}

bool MacTable::add_member(const MacKey &key, const LogicalPort &port, bool tagged)
{
    MulticastMembers *const members = members_of(key);
    if (members == nullptr || !stack_.has(port)) {
        return false;
    }
    members->tagged[port] = tagged;
    return true;
}

bool MacTable::remove_member(const MacKey &key, const LogicalPort &port)
{
    MulticastMembers *const members = members_of(key);
    return members != nullptr && members->tagged.erase(port) != 0;
}

bool MacTable::set_members(const MacKey &key, uint32_t unit, PortMask members, PortMask tagged)
{
    MulticastMembers *const all = members_of(key);
    if (all == nullptr || !stack_.has_unit(unit) || (members & ~first_ports(stack_.shape().ports)) != 0 ||
        (tagged & ~members) != 0) {
        return false;
    }
    std::erase_if(all->tagged, [unit](const auto &member) { return member.first.unit == unit; });
    for (uint32_t port = 1; port <= stack_.shape().ports; ++port) {
        if ((members & port_bit(port)) != 0) {
            all->tagged[{.unit = unit, .port = port}] = (tagged & port_bit(port)) != 0;
        }
    }
    return true;
}

bool MacTable::set_internal_multicast(const Vlans &vlans)
{
    const MacKey key = {.vlan = vlans.default_vlan(), .mac = internal_multicast};
    if (!put(key, {.kind = MacKind::multicast, .destination = MulticastMembers{}})) {
        return false;
    }
    const Vlan &vlan = *vlans.find(key.vlan);
    for (uint32_t unit = 1; stack_.has_unit(unit); ++unit) {
        const PortMask members = vlan.members.of_unit(unit);
        set_members(key, unit, members, members & ~vlan.untagged.of_unit(unit));
    }
    return true;
}

bool MacTable::remove(const MacKey &key, MacKind kind)
{
    const auto found = entries_.find(key);
    if (found == entries_.end() || found->second.kind != kind) {
        return false;
    }
    entries_.erase(found);
    return true;
}

bool MacTable::remove(const MacKey &key)
{
    return remove(key, MacKind::learned) || remove(key, MacKind::set);
}

bool MacTable::remove_from_chip(const MacKey &key, uint32_t chip)
{
    const auto found = entries_.find(key);
    if (found == entries_.end() || !is_of_station(found->second.kind) || chip >= stack_.shape().chips ||
        !found->second.chips.test(chip)) {
        return false;
    }
    found->second.chips.reset(chip);
    if (found->second.chips.none()) {
        entries_.erase(found);
    }
    return true;
}

void MacTable::remove_all(const MacSelection &selection)
{
    std::erase_if(entries_, [&](const auto &entry) { return selects(selection, entry.first, entry.second); });
}

std::optional<bool> MacTable::hit(const MacKey &key, uint32_t unit, PortMask ports, const Trunks &trunks, bool clear)
{
    const auto found = entries_.find(key);
    if (found == entries_.end() || !stack_.has_unit(unit) || (ports & ~first_ports(stack_.shape().ports)) != 0) {
        return std::nullopt;
    }
    MacEntry &entry = found->second;
    const bool hit = entry.hit && leads_to(entry.destination, unit, ports, trunks);
    entry.hit = entry.hit && !(hit && clear);
    return hit;
}

bool MacTable::put(const MacKey &key, MacEntry entry, std::optional<uint32_t> chip)
{
    entry.chips = chip ? ChipSet().set(*chip) : all_chips();
    const auto found = entries_.find(key);
    if (found == entries_.end()) {
        return entries_.size() < capacity && entries_.emplace(key, std::move(entry)).second;
    }
    const MacKind there = found->second.kind;
    if (there != MacKind::learned && there != entry.kind && !(is_of_station(there) && is_of_station(entry.kind))) {
        return false;
    }
    entry.chips |= found->second.chips;
    found->second = std::move(entry);
    return true;
}

bool MacTable::exists(const MacDestination &destination, const Trunks &trunks) const
{
    if (const auto *const port = std::get_if<LogicalPort>(&destination)) {
        return stack_.has(*port);
    }
    const auto *const trunk = std::get_if<TrunkId>(&destination);
    return trunk == nullptr ? std::holds_alternative<Cpu>(destination) : trunks.find(trunk->id) != nullptr;
}

ChipSet MacTable::all_chips() const
{
    return ~ChipSet() >> (ChipSet().size() - stack_.shape().chips);
}

MulticastMembers *MacTable::members_of(const MacKey &key)
{
    const auto found = entries_.find(key);
    return found == entries_.end() ? nullptr : std::get_if<MulticastMembers>(&found->second.destination);
}

}  // namespace quillon::driver
