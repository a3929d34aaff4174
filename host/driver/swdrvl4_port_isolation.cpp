// Traffic segmentation and private VLANs, which keep ports of the local unit from one another.
#include "host/driver/handlers.h"
#include "host/driver/on_switch.h"
#include "host/driver/swdrvl4_values.h"
#include "swdrvl4/commands.h"

namespace quillon::driver {
namespace {

using Words = KeptSettings::Words;

constexpr uint32_t segmentation = 0;
constexpr uint32_t most_sessions = 15;

bool is_private_vlan(uint32_t session)
{
    return session > segmentation && session <= most_sessions;
}

struct IsolatedPorts {
    PortMask uplinks;
    PortMask downlinks;
};

// Nothing for ports that the unit does not have, and when one is in both lists.
std::optional<IsolatedPorts> decoded(const Stack &stack, const swdrvl4::PortLists &request)
{
    const auto uplinks = decoded_bitmap(request.first_ports);
    const auto downlinks = decoded_bitmap(request.second_ports);
    if (!uplinks || !downlinks || ((*uplinks | *downlinks) & ~first_ports(stack.shape().ports)) != 0 ||
        (*uplinks & *downlinks) != 0) {
        return std::nullopt;
    }
    return IsolatedPorts{.uplinks = *uplinks, .downlinks = *downlinks};
}

Words words_of(const IsolatedPorts &ports)
{
    return {static_cast<uint32_t>(ports.uplinks), static_cast<uint32_t>(ports.uplinks >> 32),
            static_cast<uint32_t>(ports.downlinks), static_cast<uint32_t>(ports.downlinks >> 32)};
}

// False when the session has no lists, or not all of the ports are in the list that they are to leave.
bool remove(KeptSettings &kept, uint32_t session, const IsolatedPorts &ports)
{
    Words left = kept.get(Setting::isolated_ports, {session});
    const Words removed = words_of(ports);
    if (left.empty()) {
        return false;
    }
    for (size_t i = 0; i < removed.size(); ++i) {
        if ((removed[i] & ~left[i]) != 0) {
            return false;
        }
        left[i] &= ~removed[i];
    }
    kept.set(Setting::isolated_ports, {session}, std::move(left));
    return true;
}

template <class C>
void keep_ports(Dispatcher &dispatcher, SharedSwitch &model, bool (*has_session)(uint32_t))
{
    keep<C>(dispatcher, model, Setting::isolated_ports,
            [has_session](const Stack &stack, const swdrvl4::PortLists &request) -> std::optional<KeptRequest> {
                const auto ports = decoded(stack, request);
                return ports && has_session(request.session)
                           ? std::optional(KeptRequest{.key = {request.session}, .value = words_of(*ports)})
                           : std::nullopt;
            });
}

}  // namespace

void add_swdrvl4_port_isolation(Dispatcher &dispatcher, SharedSwitch &model)
{
    keep_switched<swdrvl4::EnableTrafficSegmatation, swdrvl4::DisableTrafficSegmatation>(dispatcher, model,
                                                                                         Setting::traffic_segmentation);
    on_switch<swdrvl4::ResetTrafficSegmatation>(dispatcher, model, [](Switch &chips) {
        chips.chips.kept.set(Setting::traffic_segmentation, {}, {0});
        chips.chips.kept.set(Setting::isolated_ports, {segmentation}, words_of({}));
        return true;
    });
    keep_ports<swdrvl4::SetTrafficSegmatationByPortlist>(dispatcher, model,
                                                         [](uint32_t session) { return session == segmentation; });
    keep_ports<swdrvl4::SetPrivateVlanPortlistBySessionId>(dispatcher, model, is_private_vlan);
    on_switch<swdrvl4::DeletePrivateVlanPortlistBySessionId>(
        dispatcher, model, [](Switch &chips, const swdrvl4::PortLists &request) {
            const auto ports = decoded(chips.stack, request);
            return ports && is_private_vlan(request.session) && remove(chips.chips.kept, request.session, *ports);
        });
    keep<swdrvl4::SetPrivateVlanUplinkPortMode>(dispatcher, model, Setting::private_vlan_uplinks_forward,
                                                [](const Stack & /*stack*/, const swdrvl4::Flag &request) {
                                                    return of_switch(request.value <= 1, {}, {request.value});
                                                });
    keep_port_flag<swdrvl4::SetPrivateVlanTrunkMode>(dispatcher, model, Setting::private_vlan_trunk);
}

}  // namespace quillon::driver
