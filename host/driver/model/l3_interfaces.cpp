#include "host/driver/model/l3_interfaces.h"

namespace quillon::driver {

bool L3Interfaces::is(uint32_t id, const VlanMac &where) const
{
    const VlanMac *const found = interfaces_.key_of(id);
    return found != nullptr && *found == where;
}

std::vector<uint32_t> L3Interfaces::in_vlan(uint32_t vlan) const
{
    std::vector<uint32_t> ids;
    for (const auto &[where, entry] : interfaces_.entries()) {
        if (where.vlan == vlan) {
            ids.push_back(entry.number);
        }
    }
    return ids;
}

std::optional<bool> L3Interfaces::l3_bit(const VlanMac &mac) const
{
    const auto found = l3_bits_.find(mac);
    return found == l3_bits_.end() ? std::nullopt : std::optional(found->second);
}

L3Interfaces::Created L3Interfaces::create(const Vlans &vlans, const VlanMac &where)
{
    if (!is_station(where.mac)) {
        return {.status = TableStatus::invalid, .id = 0};
    }
    if (!vlans.has(where.vlan)) {
        return {.status = TableStatus::unresolved, .id = 0};
    }
    if (const auto *const found = interfaces_.find(where)) {
        return {.status = TableStatus::exists, .id = found->number};
    }
    const auto *const added = interfaces_.add(where, {});
    return added == nullptr ? Created{.status = TableStatus::full, .id = 0}
                            : Created{.status = TableStatus::done, .id = added->number};
}

void L3Interfaces::remove(uint32_t id)
{
    if (const VlanMac *const where = interfaces_.key_of(id)) {
        interfaces_.erase(*where);
    }
}

TableStatus L3Interfaces::add_mac(const Vlans &vlans, const VlanMac &mac)
{
    if (!is_station(mac.mac)) {
        return TableStatus::invalid;
    }
    if (!vlans.has(mac.vlan)) {
        return TableStatus::unresolved;
    }
    if (l3_bits_.contains(mac)) {
        return TableStatus::exists;
    }
    if (l3_bits_.size() == most_macs) {
        return TableStatus::full;
    }
    l3_bits_.emplace(mac, true);
    return TableStatus::done;
}

bool L3Interfaces::set_l3_bit(const VlanMac &mac, bool on)
{
    const auto found = l3_bits_.find(mac);
    if (found == l3_bits_.end()) {
        return false;
    }
    found->second = on;
    return true;
}

void L3Interfaces::forget_vlan(uint32_t vlan)
{
    interfaces_.erase_if([vlan](const VlanMac &where, const auto & /*entry*/) { return where.vlan == vlan; });
    std::erase_if(l3_bits_, [vlan](const auto &mac) { return mac.first.vlan == vlan; });
}

}  // namespace quillon::driver
