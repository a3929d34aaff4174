#include "host/driver/model/trunks.h"

#include <algorithm>

namespace quillon::driver {

const Trunk *Trunks::find(uint32_t id) const
{
    const auto found = trunks_.find(id);
    return found == trunks_.end() ? nullptr : &found->second;
}

const Trunk *Trunks::trunk_of(const LogicalPort &port) const
{
    const auto id = id_of_trunk_of(port);
    return id ? find(*id) : nullptr;
}

std::optional<uint32_t> Trunks::id_of_trunk_of(const LogicalPort &port) const
{
    const auto found =
        std::ranges::find_if(trunks_, [&](const auto &trunk) { return trunk.second.members.contains(port); });
    return found == trunks_.end() ? std::nullopt : std::optional(found->first);
}

void Trunks::set_balance_of_all(TrunkBalance balance)
{
    default_balance_ = balance;
    for (auto &[id, trunk] : trunks_) {
        trunk.balance = balance;
    }
}

bool Trunks::create(uint32_t id, TrunkBalance balance)
{
    return id >= 1 && id <= most_trunks && trunks_.try_emplace(id, Trunk{.balance = balance, .members = {}}).second;
}

bool Trunks::destroy(uint32_t id)
{
    if (trunks_.erase(id) == 0) {
        return false;
    }
    forget_multicasts_outside_trunks();
    return true;
}

bool Trunks::set_balance(uint32_t id, TrunkBalance balance)
{
    const auto found = trunks_.find(id);
    if (found == trunks_.end()) {
        return false;
    }
    found->second.balance = balance;
    return true;
}

bool Trunks::set_members(uint32_t id, uint32_t unit, PortMask ports)
{
    const auto found = trunks_.find(id);
    if (found == trunks_.end() || !stack_.has_unit(unit) || (ports & ~first_ports(stack_.shape().ports)) != 0) {
        return false;
    }
    const auto takes_one = [&](const auto &trunk) {
        return trunk.first != id && (trunk.second.members.of_unit(unit) & ports) != 0;
    };
    PortSet members = found->second.members;
    members.of_unit(unit) = ports;
    if (members.size() > most_members || std::ranges::any_of(trunks_, takes_one)) {
        return false;
    }
    found->second.members = members;
    forget_multicasts_outside_trunks();
    return true;
}

bool Trunks::add(const Vlans &vlans, const TrunkMulticast &multicast)
{
    return is_multicast(multicast.mac) && vlans.has(multicast.vlan) && stack_.has(multicast.port) &&
           trunk_of(multicast.port) != nullptr && multicasts_.size() < most_multicasts &&
           multicasts_.insert(multicast).second;
}

void Trunks::forget_vlan(uint32_t vlan)
{
    std::erase_if(multicasts_, [vlan](const TrunkMulticast &multicast) { return multicast.vlan == vlan; });
}

void Trunks::forget_multicasts_outside_trunks()
{
    std::erase_if(multicasts_, [this](const TrunkMulticast &multicast) { return trunk_of(multicast.port) == nullptr; });
}

}  // namespace quillon::driver
