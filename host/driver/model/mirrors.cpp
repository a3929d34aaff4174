#include "host/driver/model/mirrors.h"

#include <algorithm>

namespace quillon::driver {

const PortMirror *Mirrors::find(const LogicalPort &destination) const
{
    const auto found = mirrors_.find(destination);
    return found == mirrors_.end() ? nullptr : &found->second;
}

bool Mirrors::has_vlan_mirror(uint32_t vlan, const LogicalPort &destination) const
{
    return vlan_mirrors_.contains({vlan, destination});
}

bool Mirrors::is_source(const LogicalPort &port) const
{
    return std::ranges::any_of(mirrors_, [&](const auto &mirror) { return mirror.second.sources.contains(port); });
}

bool Mirrors::set(const LogicalPort &source, const LogicalPort &destination, MirroredFrames frames)
{
    if (!stack_.has(source) || !stack_.has(destination) || frames == MirroredFrames{} || source == destination ||
        mirrors_.contains(source) || is_source(destination)) {
        return false;
    }
    if (mirrors_.size() == most_destinations && !mirrors_.contains(destination)) {
        return false;
    }
    mirrors_[destination].sources[source] = frames;
    return true;
}

bool Mirrors::remove(const LogicalPort &source, const LogicalPort &destination)
{
    const auto found = mirrors_.find(destination);
    if (found == mirrors_.end() || found->second.sources.erase(source) == 0) {
        return false;
    }
    if (found->second.sources.empty()) {
        mirrors_.erase(found);
    }
    return true;
}

bool Mirrors::enable(const LogicalPort &destination, bool enabled)
{
    const auto found = mirrors_.find(destination);
    if (found == mirrors_.end()) {
        return false;
    }
    found->second.enabled = enabled;
    return true;
}

bool Mirrors::add_vlan_mirror(const Vlans &vlans, uint32_t vlan, const LogicalPort &destination)
{
    return vlans.has(vlan) && stack_.has(destination) && vlan_mirrors_.size() < most_vlan_mirrors &&
           vlan_mirrors_.emplace(vlan, destination).second;
}

bool Mirrors::remove_vlan_mirror(uint32_t vlan, const LogicalPort &destination)
{
    return vlan_mirrors_.erase({vlan, destination}) != 0;
}

void Mirrors::forget_vlan(uint32_t vlan)
{
    std::erase_if(vlan_mirrors_, [vlan](const auto &mirror) { return mirror.first == vlan; });
}

bool Mirrors::set_destination(std::optional<LogicalPort> &destination, const LogicalPort &port) const
{
    if (!stack_.has(port)) {
        return false;
    }
    destination = port;
    return true;
}

bool Mirrors::clear_destination(std::optional<LogicalPort> &destination, const LogicalPort &port)
{
    if (destination != port) {
        return false;
    }
    destination.reset();
    return true;
}

}  // namespace quillon::driver
