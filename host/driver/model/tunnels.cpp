#include "host/driver/model/tunnels.h"

#include "host/driver/model/priorities.h"

namespace quillon::driver {
bool Tunnels::set_mode(const LogicalPort &port, TunnelMode mode)
{
    PortTunnel *const tunnel = ports_.find(port);
    if (tunnel == nullptr) {
        return false;
    }
    tunnel->mode = mode;
    return true;
}

bool Tunnels::set_tpid(const LogicalPort &port, uint32_t tpid)
{
    PortTunnel *const tunnel = ports_.find(port);
    if (tunnel == nullptr || !is_tpid(tpid)) {
        return false;
    }
    tunnel->tpid = tpid;
    return true;
}

bool Tunnels::set_replace_mode(const LogicalPort &port, ReplaceMode mode)
{
    PortTunnel *const tunnel = ports_.find(port);
    if (tunnel == nullptr) {
        return false;
    }
    tunnel->replace_mode = mode;
    return true;
}

bool Tunnels::map(ServiceTags PortTunnel::*kind, const Vlans &vlans, const LogicalPort &port, uint32_t customer_vlan,
                  const ServiceTag &tag)
{
    PortTunnel *const tunnel = ports_.find(port);
    if (tunnel == nullptr || !is_vlan_id(customer_vlan) || !vlans.has(tag.vlan) || !is_priority(tag.priority)) {
        return false;
    }
    ServiceTags &tags = tunnel->*kind;
    if (tags.size() == most_mappings && !tags.contains(customer_vlan)) {
        return false;
    }
    tags.insert_or_assign(customer_vlan, tag);
    return true;
}

bool Tunnels::unmap(ServiceTags PortTunnel::*kind, const LogicalPort &port, uint32_t customer_vlan)
{
    PortTunnel *const tunnel = ports_.find(port);
    return tunnel != nullptr && (tunnel->*kind).erase(customer_vlan) != 0;
}

void Tunnels::forget_vlan(uint32_t vlan)
{
    const auto leads_to_it = [vlan](const auto &mapping) { return mapping.second.vlan == vlan; };
    for (PortTunnel &tunnel : ports_) {
        std::erase_if(tunnel.double_tags, leads_to_it);
        std::erase_if(tunnel.replacements, leads_to_it);
    }
}

}  // namespace quillon::driver
