#include "host/driver/model/vlans.h"

namespace quillon::driver {
namespace {

PortSet &set_of(Vlan &vlan, VlanPorts which)
{
    switch (which) {
        case VlanPorts::members:
            return vlan.members;
        case VlanPorts::untagged:
            return vlan.untagged;
        case VlanPorts::double_tagged:
            break;
    }
    return vlan.double_tagged;
}

}  // namespace

Vlans::Vlans(const Stack &stack) : stack_(stack), rules_(stack)
{
    Vlan &vlan = vlans_[default_vlan_];
    for (uint32_t unit = 1; stack.has_unit(unit); ++unit) {
        vlan.members.of_unit(unit) = first_ports(stack.shape().ports);
    }
    vlan.untagged = vlan.members;
    vlan.cpu_is_member = true;
}

const Vlan *Vlans::find(uint32_t id) const
{
    const auto found = vlans_.find(id);
    return found == vlans_.end() ? nullptr : &found->second;
}

bool Vlans::create(uint32_t id)
{
    return is_vlan_id(id) && vlans_.try_emplace(id).second;
}

bool Vlans::destroy(uint32_t id)
{
    if (id == default_vlan_ || vlans_.erase(id) == 0) {
        return false;
    }
    for (PortVlanRules &rules : rules_) {
        if (rules.pvid == id) {
            rules.pvid = default_vlan_;
        }
    }
    return true;
}

bool Vlans::set_default(uint32_t id)
{
    if (!has(id)) {
        return false;
    }
    default_vlan_ = id;
    return true;
}

bool Vlans::add(VlanPorts which, uint32_t id, const LogicalPort &port)
{
    return stack_.has(port) && assign(which, id, port.unit, port_bit(port.port), port_bit(port.port));
}

bool Vlans::remove(VlanPorts which, uint32_t id, const LogicalPort &port)
{
    return stack_.has(port) && assign(which, id, port.unit, 0, port_bit(port.port));
}

bool Vlans::assign(VlanPorts which, uint32_t id, uint32_t unit, PortMask ports, PortMask covered)
{
    const auto found = vlans_.find(id);
    const PortMask existing = first_ports(stack_.shape().ports);
    if (found == vlans_.end() || !stack_.has_unit(unit) || (ports & ~(covered & existing)) != 0) {
        return false;
    }
    Vlan &vlan = found->second;
    if (which == VlanPorts::untagged && (ports & ~vlan.members.of_unit(unit)) != 0) {
        return false;
    }
    PortMask &set = set_of(vlan, which).of_unit(unit);
    set = (set & ~covered) | ports;
    vlan.untagged.of_unit(unit) &= vlan.members.of_unit(unit);
    return true;
}

bool Vlans::set_cpu_is_member(uint32_t id, bool member)
{
    const auto found = vlans_.find(id);
    if (found == vlans_.end()) {
        return false;
    }
    found->second.cpu_is_member = member;
    return true;
}

bool Vlans::set_pvid(const LogicalPort &port, uint32_t id)
{
    PortVlanRules *const rules = rules_.find(port);
    if (rules == nullptr || !has(id)) {
        return false;
    }
    rules->pvid = id;
    return true;
}

bool Vlans::set_ingress_filter(const LogicalPort &port, bool on)
{
    PortVlanRules *const rules = rules_.find(port);
    if (rules == nullptr) {
        return false;
    }
    rules->ingress_filter = on;
    return true;
}

bool Vlans::set_admitted(const LogicalPort &port, AdmittedFrames admitted)
{
    PortVlanRules *const rules = rules_.find(port);
    if (rules == nullptr) {
        return false;
    }
    rules->admitted = admitted;
    return true;
}

}  // namespace quillon::driver
