// VLANs, their member ports and what ports admit.
#include "host/driver/handlers.h"
#include "host/driver/request_values.h"
#include "host/driver/swdrv_encoding.h"
#include "swdrv/commands.h"

namespace quillon::driver {
namespace {

void add_table(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::CreateVlan>(
        [&model](const swdrv::Vlan &request) { return model.lock()->chips.vlans.create(request.vlan_id); });
    dispatcher.on<swdrv::DestroyVlan>(
        [&model](const swdrv::Vlan &request) { return model.lock()->chips.destroy_vlan(request.vlan_id); });
    dispatcher.on<swdrv::SetGlobalDefaultVlan>(
        [&model](const swdrv::Vlan &request) { return model.lock()->chips.vlans.set_default(request.vlan_id); });
    dispatcher.on<swdrv::AddCpuToVlan>([&model](const swdrv::Vlan &request) {
        return model.lock()->chips.vlans.set_cpu_is_member(request.vlan_id, true);
    });
    dispatcher.on<swdrv::DeleteCpuFromVlan>([&model](const swdrv::Vlan &request) {
        return model.lock()->chips.vlans.set_cpu_is_member(request.vlan_id, false);
    });
}

// The requests for one of a VLAN's sets of ports.
template <class Add, class Delete, class SetPorts>
void add_port_set(Dispatcher &dispatcher, SharedSwitch &model, VlanPorts which)
{
    dispatcher.on<Add>([&model, which](const swdrv::PortVlan &request) {
        return model.lock()->chips.vlans.add(which, request.vlan_id, logical(request));
    });
    dispatcher.on<Delete>([&model, which](const swdrv::PortVlan &request) {
        return model.lock()->chips.vlans.remove(which, request.vlan_id, logical(request));
    });
    dispatcher.on<SetPorts>([&model, which](const typename SetPorts::Request &request) {
        const uint32_t unit = request.value1;
        const uint32_t vlan = request.value2;
        return model.lock()->chips.vlans.assign(which, vlan, unit, request.port_bitmap, ports_of_word);
    });
}

void add_port_rules(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::SetPortPVID>([&model](const swdrv::PortVlan &request) {
        return model.lock()->chips.vlans.set_pvid(logical(request), request.vlan_id);
    });

    const auto filter = [&model](bool on) {
        return [&model, on](const swdrv::Port &request) {
            return model.lock()->chips.vlans.set_ingress_filter(logical(request), on);
        };
    };
    dispatcher.on<swdrv::EnableIngressFilter>(filter(true));
    dispatcher.on<swdrv::DisableIngressFilter>(filter(false));

    const auto admit = [&model](AdmittedFrames frames) {
        return [&model, frames](const swdrv::Port &request) {
            return model.lock()->chips.vlans.set_admitted(logical(request), frames);
        };
    };
    dispatcher.on<swdrv::AdmitOnlyVlanTaggedFrames>(admit(AdmittedFrames::tagged));
    dispatcher.on<swdrv::AdmitOnlyVlanUntaggedFrames>(admit(AdmittedFrames::untagged));
    dispatcher.on<swdrv::AdmitAllFrames>(admit(AdmittedFrames::all));
}

void add_trap(Dispatcher &dispatcher, SharedSwitch &model)
{
    const auto trap = [&model](bool on) {
        return [&model, on] {
            model.lock()->chips.vlans.set_traps_unspecified_tags(on);
            return true;
        };
    };
    dispatcher.on<swdrv::EnableTrapUnspecifiedTagFrame>(trap(true));
    dispatcher.on<swdrv::DisableTrapUnspecifiedTagFrame>(trap(false));
}

}  // namespace

void add_swdrv_vlan(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_table(dispatcher, model);
    add_port_set<swdrv::AddPortVlanSet, swdrv::DeletePortVlanSet, swdrv::SetPortToVlanMemberSet>(dispatcher, model,
                                                                                                 VlanPorts::members);
    add_port_set<swdrv::AddPortUntaggedVlanSet, swdrv::DeletePortUntaggedVlanSet, swdrv::SetPortToVlanUntaggedSet>(
        dispatcher, model, VlanPorts::untagged);
    add_port_set<swdrv::AddPortDoubleVlanMemberSet, swdrv::DeletePortDoubleVlanMemberSet,
                 swdrv::SetPortToDoubleVlanSet>(dispatcher, model, VlanPorts::double_tagged);
    add_port_rules(dispatcher, model);
    add_trap(dispatcher, model);
}

}  // namespace quillon::driver
