// Deleting entries of the MAC address table: one, all, and by port, VLAN or device.
#include "amtrdrv/commands.h"
#include "host/driver/amtrdrv_encoding.h"
#include "host/driver/handlers.h"
#include "host/driver/on_switch.h"
#include "host/driver/request_values.h"

namespace quillon::driver {
namespace {

// The trunk that the selector names, or with 0 the port. Nothing when it does not exist.
std::optional<MacDestination> destination(const Switch &chips, const auto &request)
{
    if (request.selector != 0) {
        return request.unit == 0 && request.port == 0 && chips.chips.trunks.find(request.selector) != nullptr
                   ? std::optional(TrunkId{request.selector})
                   : std::nullopt;
    }
    return chips.stack.has(logical(request)) ? std::optional(logical(request)) : std::nullopt;
}

void add_by_destination(Dispatcher &dispatcher, SharedSwitch &model)
{
    const auto by_port = [](bool only_learned) {
        return [only_learned](Switch &chips, const amtrdrv::PortSelector &request) {
            const auto at = destination(chips, request);
            if (at) {
                chips.macs().remove_all({.only_learned = only_learned, .destination = at});
            }
            return at.has_value();
        };
    };
    on_switch<amtrdrv::DeleteAddrByPort>(dispatcher, model, by_port(false));
    on_switch<amtrdrv::DeleteDynamicAddrByPort>(dispatcher, model, by_port(true));
    on_switch<amtrdrv::DeleteDynamicAddrByVlan>(
        dispatcher, model, [](Switch &chips, const amtrdrv::PortSelectorVlan &request) {
            if (!chips.chips.vlans.has(request.vlan)) {
                return false;
            }
            chips.macs().remove_all({.only_learned = true, .vlan = request.vlan});
            return true;
        });
    on_switch<amtrdrv::DeleteDynamicAddrByPortAndVlan>(
        dispatcher, model, [](Switch &chips, const amtrdrv::PortSelectorVlan &request) {
            const auto at = destination(chips, request);
            if (!at || !chips.chips.vlans.has(request.vlan)) {
                return false;
            }
            chips.macs().remove_all({.only_learned = true, .destination = at, .vlan = request.vlan});
            return true;
        });
}

}  // namespace

void add_amtrdrv_deletion(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_switch<amtrdrv::DeleteAddr>(dispatcher, model, [](Switch &chips, const amtrdrv::VlanMac &request) {
        return chips.macs().remove(key_of(request));
    });
    on_switch<amtrdrv::DeleteAddrByDevice>(dispatcher, model, [](Switch &chips, const amtrdrv::DeviceVlanMac &request) {
        return chips.macs().remove_from_chip(key_of(request), request.device);
    });

    const auto all = [](bool only_learned) {
        return [only_learned](Switch &chips) {
            chips.macs().remove_all({.only_learned = only_learned});
            return true;
        };
    };
    on_switch<amtrdrv::DeleteAllDynamicAddr>(dispatcher, model, all(true));
    on_switch<amtrdrv::DeleteAllAddr>(dispatcher, model, all(false));
    add_by_destination(dispatcher, model);
}

}  // namespace quillon::driver
