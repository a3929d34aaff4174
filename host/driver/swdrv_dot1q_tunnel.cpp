// 802.1Q tunnels.
#include "host/driver/handlers.h"
#include "host/driver/request_values.h"
#include "host/driver/swdrv_encoding.h"
#include "swdrv/commands.h"

namespace quillon::driver {
namespace {

// The settings of a port of the unit that asks; null for any other.
const PortTunnel *tunnel_of_local_port(const Switch &model, const swdrv::Port &request)
{
    return request.unit == Stack::local_unit ? model.chips.tunnels.find(logical(request)) : nullptr;
}

void add_modes(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::SetPortDot1qTunnelMode>([&model](const swdrv::PortFlag &request) {
        const auto mode = decoded<TunnelMode>(request.value);
        return mode && model.lock()->chips.tunnels.set_mode(logical(request), *mode);
    });
    dispatcher.on<swdrv::GetPortDot1qTunnelModeofLocalPort>([&model](const swdrv::Port &request, swdrv::Flag &reply) {
        const auto access = model.lock();
        const PortTunnel *const tunnel = tunnel_of_local_port(*access, request);
        reply.value = tunnel == nullptr ? 0 : static_cast<uint8_t>(encoded(tunnel->mode));
        return tunnel != nullptr;
    });
    dispatcher.on<swdrv::SetPortDot1qTunnelTPID>([&model](const swdrv::PortWord &request) {
        return model.lock()->chips.tunnels.set_tpid(logical(request), request.value);
    });
    dispatcher.on<swdrv::GetPortDot1qTunnelTPIDofLocalPort>([&model](const swdrv::Port &request, swdrv::Word &reply) {
        const auto access = model.lock();
        const PortTunnel *const tunnel = tunnel_of_local_port(*access, request);
        reply.value = tunnel == nullptr ? 0 : tunnel->tpid;
        return tunnel != nullptr;
    });
    dispatcher.on<swdrv::SetPortDot1qTunnelModeForReplaceVlan>([&model](const swdrv::PortWord &request) {
        const auto mode = decoded<ReplaceMode>(request.value);
        return mode && model.lock()->chips.tunnels.set_replace_mode(logical(request), *mode);
    });
}

struct Mapping {
    LogicalPort port;
    uint32_t customer_vlan;
    ServiceTag tag;
    std::optional<bool> enabled;
};

bool map_or_unmap(Switch &model, ServiceTags PortTunnel::*kind, const Mapping &mapping)
{
    if (!mapping.enabled) {
        return false;
    }
    ChipState &chips = model.chips;
    return *mapping.enabled ? chips.tunnels.map(kind, chips.vlans, mapping.port, mapping.customer_vlan, mapping.tag)
                            : chips.tunnels.unmap(kind, mapping.port, mapping.customer_vlan);
}

void add_mappings(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::SetPortDot1qTunnelVlanDoubleTag>([&model](const swdrv::TunnelDoubleTag &request) {
        return map_or_unmap(*model.lock(), &PortTunnel::double_tags,
                            {.port = logical(request),
                             .customer_vlan = request.value1,
                             .tag = {.vlan = request.value3, .priority = request.value4},
                             .enabled = as_bool(request.value2)});
    });
    dispatcher.on<swdrv::SetPortDot1qTunnelReplaceVlan>([&model](const swdrv::TunnelReplaceVlan &request) {
        return map_or_unmap(*model.lock(), &PortTunnel::replacements,
                            {.port = logical(request),
                             .customer_vlan = request.value1,
                             .tag = {.vlan = request.value2, .priority = request.value3},
                             .enabled = as_bool(request.value4)});
    });
}

}  // namespace

void add_swdrv_dot1q_tunnel(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_modes(dispatcher, model);
    add_mappings(dispatcher, model);
}

}  // namespace quillon::driver
