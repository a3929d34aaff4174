// Spanning tree.
#include "host/driver/handlers.h"
#include "host/driver/swdrv_encoding.h"
#include "swdrv/commands.h"

namespace quillon::driver {

// An instance always comes first, then the port or the VLAN.
void add_swdrv_spanning_tree(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::SetSTAMode>([&model](const swdrv::Word &request) {
        const auto mode = decoded<SpanningTreeMode>(request.value);
        if (mode) {
            model.lock()->chips.spanning_tree.set_mode(*mode);
        }
        return mode.has_value();
    });
    dispatcher.on<swdrv::SetPortSTAState>([&model](const swdrv::PortStaState &request) {
        const auto state = decoded<SpanningTreeState>(request.value4);
        if (!state || request.entry_count > request.entries.size()) {
            return false;
        }
        const LogicalPort port{.unit = request.value2, .port = request.value3};
        const auto access = model.lock();
        return access->chips.spanning_tree.set_state(
            access->chips.vlans, request.value1, std::span(request.entries).first(request.entry_count), port, *state);
    });
    dispatcher.on<swdrv::SetPortSTAStateWithMstidx>([&model](const swdrv::Words<4> &request) {
        const auto [instance, unit, port, state_value] = request.values;
        const auto state = decoded<SpanningTreeState>(state_value);
        return state && model.lock()->chips.spanning_tree.set_state(instance, {.unit = unit, .port = port}, *state);
    });
    dispatcher.on<swdrv::AddVlanToSTAWithMstidx>([&model](const swdrv::Words<2> &request) {
        const auto [instance, vlan] = request.values;
        const auto access = model.lock();
        return access->chips.spanning_tree.add_vlan(access->chips.vlans, instance, vlan);
    });
    dispatcher.on<swdrv::DeleteVlanFromSTAWithMstidx>([&model](const swdrv::Words<2> &request) {
        const auto [instance, vlan] = request.values;
        return model.lock()->chips.spanning_tree.remove_vlan(instance, vlan);
    });
}

}  // namespace quillon::driver
