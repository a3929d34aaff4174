// The stack: identities of units and chips, fabric ports, topology, and the port hardware that stacking sets.
#include <string.h>

#include <array>
#include <bit>
#include <optional>

#include "host/driver/handlers.h"
#include "host/driver/kept_request.h"
#include "host/driver/request_values.h"
#include "host/driver/swdrv_encoding.h"
#include "swdrv/commands.h"

namespace quillon::driver {
namespace {

bool answer(uint32_t &output, const std::optional<uint32_t> &value)
{
    output = value.value_or(0);
    return value.has_value();
}

// ---- Identities ----

// The fabric chip's device id follows those of its unit's switch chips. The stacking ports are on it.
uint32_t fabric_device(const Stack &stack)
{
    return stack.shape().chips;
}

void add_identities(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::Physical2LogicalPortByUnitID_DeviceID>(
        [&model](const swdrv::Words<3> &request, swdrv::Port &reply) {
            const auto [unit, device_id, phy_port] = request.values;
            const auto access = model.lock();
            const auto module_id = access->stack.module_of(unit, device_id);
            const auto port = module_id ? access->stack.to_logical({*module_id, device_id, phy_port}) : std::nullopt;
            if (port) {
                reply = {.unit = port->unit, .port = port->port};
            }
            return port.has_value();
        });
    dispatcher.on<swdrv::GetUnitId>([](const ipc::Unused<12> & /*request*/, swdrv::UnitId &reply) {
        reply.value = Stack::local_unit;
        return true;
    });
    const auto get_fabric_device = [&model](swdrv::Word &reply) {
        reply.value = fabric_device(model.lock()->stack);
        return true;
    };
    dispatcher.on<swdrv::GetStackChipDeviceID>(get_fabric_device);
    dispatcher.on<swdrv::GetLocalCrossBarDeviceId>(get_fabric_device);
    dispatcher.on<swdrv::GetModuleInfoByUnit>([&model](const swdrv::WordFlag &request, swdrv::Word &reply) {
        return answer(reply.value, model.lock()->stack.module_of(request.word, request.flag));
    });
    // The end is told by the result alone: the caller's id stays where it is.
    dispatcher.on<swdrv::GetNextSwitchChipId>([&model](const swdrv::Word &request, swdrv::Word &reply) {
        const bool has_next = request.value != UINT32_MAX && model.lock()->stack.has_module(request.value + 1);
        reply.value = has_next ? request.value + 1 : request.value;
        return has_next;
    });
}

// ---- Topology ----

// A number of units, the local one included, and three words without regard to alignment: the sets of units that each
// stacking port leads to, and the master. All zero stands for the topology at the beginning.
bool set_topology(Topology &topology, const Stack &stack, const TopologyRecord &record)
{
    std::array<uint32_t, 3> words;
    memcpy(words.data(), &record.bytes[1], sizeof words);
    const auto [upwards, downwards, master] = words;
    if (record.bytes[0] == 0 && words == decltype(words){}) {
        topology = Topology(stack);
        return true;
    }
    return record.bytes[0] == std::popcount(upwards) + std::popcount(downwards) + 1 &&
           topology.set(stack, {upwards, downwards}, master);
}

// The links to the unit's own chips come behind the stacking ports.
std::optional<uint32_t> link_port(const Switch &model, uint32_t module_id)
{
    if (!model.stack.has_module(module_id)) {
        return std::nullopt;
    }
    const auto local_device = model.stack.device_of(Stack::local_unit, module_id);
    return local_device ? Topology::stacking_ports + 1 + *local_device
                        : model.chips.fabric_table.port_towards(model.stack.unit_of(module_id));
}

void add_topology(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::ConfigTopologyInfo>([&model](const TopologyRecord &request) {
        const auto access = model.lock();
        return set_topology(access->chips.topology, access->stack, request);
    });
    dispatcher.on<swdrv::UpdateHerculesUCTable>([&model](const TopologyRecord &request) {
        const auto access = model.lock();
        return set_topology(access->chips.fabric_table, access->stack, request);
    });
    dispatcher.on<swdrv::Get5670linkport>([&model](const swdrv::Word &request, swdrv::Word &reply) {
        return answer(reply.value, link_port(*model.lock(), request.value));
    });
    // A unit's position in the stack is its number.
    const auto get_fabric_port = [&model](const swdrv::Word &request, swdrv::Word &reply) {
        return answer(reply.value, model.lock()->chips.topology.port_towards(request.value));
    };
    dispatcher.on<swdrv::GetFabricportByUnitPosition>(get_fabric_port);
    dispatcher.on<swdrv::GetFabricPortToDstUnit>(get_fabric_port);
    dispatcher.on<swdrv::GetDstUnitInfo>([&model](const swdrv::Words<2> &request, swdrv::Words<2> &reply) {
        const auto [unit, device_id] = request.values;
        const auto access = model.lock();
        const auto module_id = access->stack.module_of(unit, device_id);
        const auto port = access->chips.topology.port_towards(unit);
        if (!module_id || !port) {
            return false;
        }
        reply.values = {*module_id, *port};
        return true;
    });
    dispatcher.on<swdrv::GetMasterModuleID>([&model](swdrv::Word &reply) {
        const auto access = model.lock();
        return answer(reply.value, access->stack.module_of(access->chips.topology.master(), 0));
    });
    dispatcher.on<swdrv::GetForwardingStackingPortBitMap>([&model](swdrv::Word &reply) {
        reply.value = model.lock()->chips.topology.forwarding_ports();
        return true;
    });
    keep<swdrv::HiGigRemoteLoopbackSet>(
        dispatcher, model, Setting::higig_remote_loopback,
        [](const Stack &stack, const swdrv::Words<3> &request) -> std::optional<KeptRequest> {
            const auto [unit, stacking_port, on] = request.values;
            if (!stack.has_unit(unit) || stacking_port < 1 || stacking_port > Topology::stacking_ports || on > 1) {
                return std::nullopt;
            }
            return KeptRequest{.key = {unit, stacking_port}, .value = {on}};
        });
}

// ---- Port hardware ----

bool can_run_as(PortType type, PortInterface interface)
{
    switch (type) {
        case PortType::copper:
            return interface == PortInterface::sgmii;
        case PortType::sfp:
            return interface == PortInterface::sgmii || interface == PortInterface::base1000_x;
        case PortType::sfp_plus:
            break;
    }
    return interface == PortInterface::base1000_x || interface == PortInterface::base10g_r;
}

void add_port_hardware(Dispatcher &dispatcher, SharedSwitch &model)
{
    // No port has both media: it can be held to the one that it has.
    dispatcher.on<swdrv::SetPortComboForcedMode>([&model](const swdrv::ComboForcedMode &request) {
        constexpr uint32_t not_held = 0;
        const auto access = model.lock();
        PortSettings *const port = access->chips.ports.find(logical(request));
        if (port == nullptr || (request.value1 != not_held && request.value1 != encoded(medium_of(port->type())))) {
            return false;
        }
        const auto speed_duplex = decoded<SpeedDuplex>(request.value2);
        return request.value2 == no_speed_duplex || (speed_duplex && port->set_speed_duplex(*speed_duplex));
    });
    dispatcher.on<swdrv::SetPortIfmode>([&model](const swdrv::PortWord &request) {
        const auto interface = decoded<PortInterface>(request.value);
        const auto access = model.lock();
        const PortSettings *const port = access->chips.ports.find(logical(request));
        if (port == nullptr || !interface || !can_run_as(port->type(), *interface)) {
            return false;
        }
        access->chips.kept.set(Setting::port_interface, {request.unit, request.port}, {request.value});
        return true;
    });
    dispatcher.on<swdrv::SetFiberPortAutoNeg>([&model](const swdrv::PortWord &request) {
        const auto access = model.lock();
        PortSettings *const port = access->chips.ports.find(logical(request));
        return port != nullptr && medium_of(port->type()) == Medium::fibre && request.value <= 1 &&
               port->set_negotiates(request.value == 1);
    });
    dispatcher.on<swdrv::GetCopperEnergyDetect>([&model](const swdrv::Port &request, swdrv::Word &reply) {
        const auto access = model.lock();
        const PortSettings *const port = access->chips.ports.find(logical(request));
        if (port == nullptr || medium_of(port->type()) != Medium::copper) {
            return false;
        }
        reply.value = access->running_port(logical(request))->detects_energy() ? 1 : 0;
        return true;
    });
    dispatcher.on<swdrv::ShutdownSwitch>([&model] {
        model.lock()->chips.shut_all_ports();
        return true;
    });
    // A place for a debugger to stop at.
    dispatcher.on<swdrv::VID_BREAK>([] { return true; });
}

}  // namespace

void add_swdrv_stacking(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_identities(dispatcher, model);
    add_topology(dispatcher, model);
    add_port_hardware(dispatcher, model);
}

}  // namespace quillon::driver
