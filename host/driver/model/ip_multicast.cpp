#include "host/driver/model/ip_multicast.h"

#include <algorithm>
#include <utility>

namespace quillon::driver {
namespace {

bool is_flow(const McastFlow &flow)
{
    return is_multicast(flow.group) && flow.source.version == flow.group.version &&
           (is_unspecified(flow.source) || is_unicast(flow.source));
}

// Null when there is none.
auto *find(auto &entries, const McastFlow &flow)
{
    const auto found = entries.find(flow);
    return found == entries.end() ? nullptr : &found->second;
}

// The entry for this very source, else the one for any.
auto *best_match(auto &entries, McastFlow flow)
{
    auto *const entry = find(entries, flow);
    flow.source.bytes = {};
    return entry == nullptr ? find(entries, flow) : entry;
}

bool goes_through(const std::set<McastCopy> &copies, uint32_t interface)
{
    return std::ranges::any_of(copies, [interface](const McastCopy &copy) { return copy.interface == interface; });
}

}  // namespace

const PortSet *IpMulticast::l2_entry(const McastFlow &flow) const
{
    return find(l2_, flow);
}

const L3McastEntry *IpMulticast::l3_entry(const McastFlow &flow) const
{
    return find(l3_, flow);
}

bool IpMulticast::uses_interface(uint32_t id) const
{
    return std::ranges::any_of(l3_, [id](const auto &entry) {
        return goes_through(entry.second.downstream, id) || goes_through(entry.second.replications, id);
    });
}

TableStatus IpMulticast::add_l2_port(const Vlans &vlans, const McastFlow &flow, const LogicalPort &port)
{
    if (!is_flow(flow)) {
        return TableStatus::invalid;
    }
    if (!vlans.has(flow.vlan) || !stack_.has(port)) {
        return TableStatus::unresolved;
    }
    if (PortSet *const ports = find(l2_, flow)) {
        if (ports->contains(port)) {
            return TableStatus::exists;
        }
        ports->insert(port);
        return TableStatus::done;
    }
    if (l2_.size() == most_entries) {
        return TableStatus::full;
    }
    l2_.emplace(flow, PortSet{port});
    return TableStatus::done;
}

TableStatus IpMulticast::remove_l2_port(const McastFlow &flow, const LogicalPort &port)
{
    PortSet *const ports = find(l2_, flow);
    if (ports == nullptr || !stack_.has(port) || !ports->contains(port)) {
        return TableStatus::absent;
    }
    ports->erase(port);
    if (ports->size() == 0) {
        l2_.erase(flow);
    }
    return TableStatus::done;
}

TableStatus IpMulticast::add(const Vlans &vlans, const L3Interfaces &interfaces, const McastFlow &flow,
                             const std::optional<LogicalPort> &upstream, std::span<const McastCopy> downstream)
{
    L3McastEntry entry;
    entry.upstream = upstream;
    entry.downstream = {downstream.begin(), downstream.end()};
    if (!is_flow(flow) || downstream.size() > most_copies || entry.downstream.size() != downstream.size()) {
        return TableStatus::invalid;
    }
    if (!vlans.has(flow.vlan) || (upstream && !stack_.has(*upstream)) ||
        !std::ranges::all_of(downstream, [&](const McastCopy &copy) { return resolves(interfaces, copy); })) {
        return TableStatus::unresolved;
    }
    if (l3_.contains(flow)) {
        return TableStatus::exists;
    }
    if (l3_.size() == most_entries) {
        return TableStatus::full;
    }
    l3_.emplace(flow, std::move(entry));
    return TableStatus::done;
}

TableStatus IpMulticast::remove(const McastFlow &flow)
{
    return l3_.erase(flow) == 0 ? TableStatus::absent : TableStatus::done;
}

TableStatus IpMulticast::add_port(const McastFlow &flow, const LogicalPort &port)
{
    L3McastEntry *const entry = find(l3_, flow);
    if (entry == nullptr) {
        return TableStatus::absent;
    }
    if (!stack_.has(port)) {
        return TableStatus::unresolved;
    }
    if (entry->ports.contains(port)) {
        return TableStatus::exists;
    }
    entry->ports.insert(port);
    return TableStatus::done;
}

TableStatus IpMulticast::remove_port(const McastFlow &flow, const LogicalPort &port)
{
    L3McastEntry *const entry = find(l3_, flow);
    if (entry == nullptr || !stack_.has(port) || !entry->ports.contains(port)) {
        return TableStatus::absent;
    }
    entry->ports.erase(port);
    return TableStatus::done;
}

TableStatus IpMulticast::add_copy(const L3Interfaces &interfaces, const McastFlow &flow, Copies which,
                                  const McastCopy &copy)
{
    L3McastEntry *const entry = find(l3_, flow);
    if (entry == nullptr) {
        return TableStatus::absent;
    }
    if (!resolves(interfaces, copy)) {
        return TableStatus::unresolved;
    }
    std::set<McastCopy> &copies = entry->*which;
    if (copies.contains(copy)) {
        return TableStatus::exists;
    }
    if (copies.size() == most_copies) {
        return TableStatus::full;
    }
    copies.insert(copy);
    return TableStatus::done;
}

TableStatus IpMulticast::remove_copy(const McastFlow &flow, Copies which, const McastCopy &copy)
{
    L3McastEntry *const entry = find(l3_, flow);
    return entry == nullptr || (entry->*which).erase(copy) == 0 ? TableStatus::absent : TableStatus::done;
}

TableStatus IpMulticast::set_to_cpu(const McastFlow &flow, bool on)
{
    L3McastEntry *const entry = find(l3_, flow);
    if (entry == nullptr) {
        return TableStatus::absent;
    }
    if (std::exchange(entry->to_cpu, on) == on) {
        return on ? TableStatus::exists : TableStatus::absent;
    }
    return TableStatus::done;
}

void IpMulticast::clear_hit(const McastFlow &flow)
{
    if (L3McastEntry *const entry = find(l3_, flow)) {
        entry->hit = false;
    }
}

void IpMulticast::forget_vlan(uint32_t vlan)
{
    const auto is_in_it = [vlan](const auto &entry) { return entry.first.vlan == vlan; };
    std::erase_if(l2_, is_in_it);
    std::erase_if(l3_, is_in_it);
}

void IpMulticast::forget_interface(uint32_t id)
{
    const auto is_through_it = [id](const McastCopy &copy) { return copy.interface == id; };
    for (auto &[flow, entry] : l3_) {
        std::erase_if(entry.downstream, is_through_it);
        std::erase_if(entry.replications, is_through_it);
    }
}

std::optional<IpMulticast::Delivery> IpMulticast::forward(const LogicalPort &port, const McastFlow &flow)
{
    std::optional<Delivery> delivery;
    L3McastEntry *const entry = best_match(l3_, flow);
    if (entry != nullptr && is_routed(port, flow.group, *entry)) {
        entry->hit = true;
        delivery = {.bridged = entry->ports, .routed = entry->downstream, .to_cpu = entry->to_cpu};
        delivery->routed.insert(entry->replications.begin(), entry->replications.end());
    } else if (const PortSet *const ports = best_match(l2_, flow)) {
        delivery = {.bridged = *ports, .routed = {}, .to_cpu = false};
    }
    if (delivery) {
        delivery->bridged.erase(port);
    }
    return delivery;
}

bool IpMulticast::is_routed(const LogicalPort &port, const IpAddress &group, const L3McastEntry &entry) const
{
    const bool on = group.version == IpVersion::v4 ? routes_ipv4 : routes_ipv6;
    return on && (!entry.upstream || *entry.upstream == port);
}

bool IpMulticast::resolves(const L3Interfaces &interfaces, const McastCopy &copy) const
{
    return stack_.has(copy.port) && interfaces.has(copy.interface);
}

}  // namespace quillon::driver
