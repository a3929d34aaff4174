#include "host/driver/model/routes.h"

#include <algorithm>
#include <numeric>

namespace quillon::driver {

const Neighbour *Routes::neighbour(NextHop next_hop) const
{
    const IpAddress *const address = hosts_.key_of(next_hop);
    const HostRoute *const route = address == nullptr ? nullptr : &hosts_.find(*address)->value;
    return route != nullptr && route->neighbour ? &*route->neighbour : nullptr;
}

bool Routes::uses_interface(uint32_t id) const
{
    return std::ranges::any_of(hosts_.entries(), [id](const auto &host) {
        const auto &neighbour = host.second.value.neighbour;
        return neighbour && neighbour->interface == id;
    });
}

TableStatus Routes::set_neighbour(const L3Interfaces &interfaces, const IpAddress &address, const Neighbour &neighbour)
{
    if (!is_unicast(address) || !is_station(neighbour.mac)) {
        return TableStatus::invalid;
    }
    if (!interfaces.has(neighbour.interface) || !stack_.has(neighbour.port)) {
        return TableStatus::unresolved;
    }
    if (Hosts::Entry *const found = hosts_.find(address)) {
        if (!found->value.neighbour) {
            return TableStatus::exists;
        }
        found->value.neighbour = neighbour;
        return TableStatus::done;
    }
    return hosts_.add(address, {.neighbour = neighbour}) == nullptr ? TableStatus::full : TableStatus::done;
}

TableStatus Routes::remove_neighbour(const IpAddress &address)
{
    const Hosts::Entry *const found = hosts_.find(address);
    if (found == nullptr || !found->value.neighbour) {
        return TableStatus::absent;
    }
    if (leads_to(found->number)) {
        return TableStatus::in_use;
    }
    hosts_.erase(address);
    return TableStatus::done;
}

TableStatus Routes::add_own(const IpAddress &address)
{
    if (!is_unicast(address)) {
        return TableStatus::invalid;
    }
    if (hosts_.find(address) != nullptr) {
        return TableStatus::exists;
    }
    return hosts_.add(address, {}) == nullptr ? TableStatus::full : TableStatus::done;
}

TableStatus Routes::remove_own(const IpAddress &address)
{
    const Hosts::Entry *const found = hosts_.find(address);
    if (found == nullptr || found->value.neighbour) {
        return TableStatus::absent;
    }
    hosts_.erase(address);
    return TableStatus::done;
}

std::optional<bool> Routes::take_hit(const IpAddress &address)
{
    Hosts::Entry *const found = hosts_.find(address);
    return found == nullptr ? std::nullopt : std::optional(std::exchange(found->value.hit, false));
}

TableStatus Routes::add_network(const IpPrefix &prefix, std::span<const uint64_t> next_hops)
{
    if (!is_routable(prefix) || next_hops.empty() || next_hops.size() > most_paths) {
        return TableStatus::invalid;
    }
    NetRoute route;
    for (const uint64_t next_hop : next_hops) {
        const auto path = resolved(next_hop);
        if (!path) {
            return TableStatus::unresolved;
        }
        if (std::ranges::count(next_hops, next_hop) > 1 || (*path == cpu_next_hop && next_hops.size() > 1)) {
            return TableStatus::invalid;
        }
        route.paths.push_back(*path);
    }
    if (networks_.find(prefix) != nullptr) {
        return TableStatus::exists;
    }
    return networks_.add(prefix, std::move(route)) == nullptr ? TableStatus::full : TableStatus::done;
}

TableStatus Routes::remove_network(const IpPrefix &prefix)
{
    return networks_.erase(prefix) ? TableStatus::done : TableStatus::absent;
}

TableStatus Routes::remove_network(const IpPrefix &prefix, uint64_t only_next_hop)
{
    const Networks::Entry *const found = networks_.find(prefix);
    if (found == nullptr || found->value.paths.size() != 1 || found->value.paths.front() != only_next_hop) {
        return TableStatus::absent;
    }
    return remove_network(prefix);
}

TableStatus Routes::add_path(const IpPrefix &prefix, uint64_t next_hop, bool first)
{
    Networks::Entry *const found = networks_.find(prefix);
    if (found == nullptr) {
        return first ? add_network(prefix, std::span(&next_hop, 1)) : TableStatus::absent;
    }
    std::vector<NextHop> &paths = found->value.paths;
    const auto path = resolved(next_hop);
    if (!path) {
        return TableStatus::unresolved;
    }
    if (std::ranges::find(paths, *path) != paths.end()) {
        return TableStatus::exists;
    }
    if (*path == cpu_next_hop || paths.front() == cpu_next_hop) {
        return TableStatus::invalid;
    }
    if (paths.size() == most_paths) {
        return TableStatus::full;
    }
    paths.push_back(*path);
    return TableStatus::done;
}

TableStatus Routes::remove_path(const IpPrefix &prefix, uint64_t next_hop, bool last)
{
    Networks::Entry *const found = networks_.find(prefix);
    if (found == nullptr) {
        return TableStatus::absent;
    }
    std::vector<NextHop> &paths = found->value.paths;
    const auto path = std::ranges::find(paths, next_hop);
    if (path == paths.end()) {
        return TableStatus::absent;
    }
    if (paths.size() == 1) {
        return last ? remove_network(prefix) : TableStatus::in_use;
    }
    paths.erase(path);
    return TableStatus::done;
}

TableStatus Routes::set_special_default(IpVersion version, uint64_t next_hop)
{
    const auto path = resolved(next_hop);
    if (!path) {
        return TableStatus::unresolved;
    }
    special_default(version) = path;
    return TableStatus::done;
}

bool Routes::remove_special_default(IpVersion version)
{
    return std::exchange(special_default(version), std::nullopt).has_value();
}

void Routes::forget_interface(uint32_t id)
{
    std::vector<NextHop> gone;
    hosts_.erase_if([&](const IpAddress & /*address*/, const Hosts::Entry &host) {
        const bool through_it = host.value.neighbour && host.value.neighbour->interface == id;
        if (through_it) {
            gone.push_back(host.number);
        }
        return through_it;
    });
    const auto is_gone = [&](NextHop next_hop) { return std::ranges::find(gone, next_hop) != gone.end(); };
    networks_.erase_if([&](const IpPrefix & /*prefix*/, Networks::Entry &network) {
        std::erase_if(network.value.paths, is_gone);
        return network.value.paths.empty();
    });
    for (auto &next_hop : special_defaults_) {
        if (next_hop && is_gone(*next_hop)) {
            next_hop.reset();
        }
    }
}

std::optional<Routes::Match> Routes::route(const IpAddress &destination)
{
    const uint32_t whole_address = bits_of(destination.version);
    if (Hosts::Entry *const host = hosts_.find(destination)) {
        host->value.hit = true;
        return Match{.prefix_length = whole_address, .next_hop = host->value.neighbour ? host->number : cpu_next_hop};
    }
    // Packets of one flow keep to one path.
    const auto flow = std::accumulate(destination.bytes.begin(), destination.bytes.end(), size_t{0});
    for (uint32_t shorter = 0; shorter <= whole_address; ++shorter) {
        const uint32_t length = whole_address - shorter;
        if (const auto *const network = networks_.find({.network = masked(destination, length), .length = length})) {
            const std::vector<NextHop> &paths = network->value.paths;
            return Match{.prefix_length = length, .next_hop = paths[flow % paths.size()]};
        }
    }
    if (const auto next_hop = special_default(destination.version)) {
        return Match{.prefix_length = 0, .next_hop = *next_hop};
    }
    return std::nullopt;
}

std::optional<NextHop> Routes::resolved(uint64_t next_hop) const
{
    const auto number = static_cast<NextHop>(next_hop);
    const bool is_there = number == next_hop && (number == cpu_next_hop || neighbour(number) != nullptr);
    return is_there ? std::optional(number) : std::nullopt;
}

bool Routes::leads_to(NextHop next_hop) const
{
    const auto has_path = [next_hop](const auto &network) {
        const std::vector<NextHop> &paths = network.second.value.paths;
        return std::ranges::find(paths, next_hop) != paths.end();
    };
    return std::ranges::find(special_defaults_, std::optional(next_hop)) != special_defaults_.end() ||
           std::ranges::any_of(networks_.entries(), has_path);
}

}  // namespace quillon::driver
