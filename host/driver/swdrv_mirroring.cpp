// Mirroring.
#include "host/driver/handlers.h"
#include "host/driver/request_values.h"
#include "host/driver/swdrv_encoding.h"
#include "swdrv/commands.h"

namespace quillon::driver {
namespace {

void add_port_mirrors(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::SetPortMirroring>([&model](const swdrv::Words<3> &request) {
        const auto [source, destination, frames_value] = request.values;
        const auto frames = decoded<MirroredFrames>(frames_value);
        return frames && model.lock()->chips.mirrors.set(decoded_port(source), decoded_port(destination), *frames);
    });
    dispatcher.on<swdrv::DeletePortMirroring>([&model](const swdrv::Words<2> &request) {
        const auto [source, destination] = request.values;
        return model.lock()->chips.mirrors.remove(decoded_port(source), decoded_port(destination));
    });

    const auto enable = [&model](bool on) {
        return [&model, on](const swdrv::Word &destination) {
            return model.lock()->chips.mirrors.enable(decoded_port(destination.value), on);
        };
    };
    dispatcher.on<swdrv::EnablePortMirroring>(enable(true));
    dispatcher.on<swdrv::DisablePortMirroring>(enable(false));
}

void add_vlan_mirrors(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::AddVlanMirror>([&model](const swdrv::Words<3> &request) {
        const auto [vlan, unit, port] = request.values;
        const auto access = model.lock();
        return access->chips.mirrors.add_vlan_mirror(access->chips.vlans, vlan, {.unit = unit, .port = port});
    });
    dispatcher.on<swdrv::DeleteVlanMirror>([&model](const swdrv::Words<3> &request) {
        const auto [vlan, unit, port] = request.values;
        return model.lock()->chips.mirrors.remove_vlan_mirror(vlan, {.unit = unit, .port = port});
    });
}

// A flag of 1 makes the port the destination, 0 ends that.
void add_destinations(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::SetDestPortForMacMirror>([&model](const swdrv::PortFlag &request) {
        const auto is_destination = as_bool(request.value);
        const auto access = model.lock();
        Mirrors &mirrors = access->chips.mirrors;
        return is_destination && (*is_destination ? mirrors.set_mac_destination(logical(request))
                                                  : mirrors.clear_mac_destination(logical(request)));
    });
    dispatcher.on<swdrv::SetDestPortForAclMirror>([&model](const swdrv::PortFlag &request) {
        const auto is_destination = as_bool(request.value);
        const auto access = model.lock();
        Mirrors &mirrors = access->chips.mirrors;
        return is_destination && (*is_destination ? mirrors.set_acl_destination(logical(request))
                                                  : mirrors.clear_acl_destination(logical(request)));
    });
}

}  // namespace

void add_swdrv_mirroring(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_port_mirrors(dispatcher, model);
    add_vlan_mirrors(dispatcher, model);
    add_destinations(dispatcher, model);
}

}  // namespace quillon::driver
