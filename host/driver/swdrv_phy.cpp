// PHYs, cables and what else lies below a port.
#include <string.h>

#include <array>
#include <bit>
#include <optional>
#include <vector>

#include "host/driver/handlers.h"
#include "host/driver/kept_request.h"
#include "host/driver/request_values.h"
#include "host/driver/swdrv_encoding.h"
#include "swdrv/commands.h"

namespace quillon::driver {
namespace {

using Words = KeptSettings::Words;

std::optional<PortType> type_of(const Stack &stack, const LogicalPort &port)
{
    return stack.has(port) ? std::optional(port_type_of(port.port, stack.shape().ports)) : std::nullopt;
}

// Keeps what `value` makes of the type of the port and the request, if that is anything.
template <class C, class Value>
void keep_of_port(Dispatcher &dispatcher, SharedSwitch &model, Setting setting, Value value)
{
    keep<C>(dispatcher, model, setting,
            [value](const Stack &stack, const typename C::Request &request) -> std::optional<KeptRequest> {
                const auto type = type_of(stack, logical(request));
                std::optional<Words> words = type ? value(*type, request) : std::nullopt;
                if (!words) {
                    return std::nullopt;
                }
                return KeptRequest{.key = {request.unit, request.port}, .value = *std::move(words)};
            });
}

// Answers C with what is kept of a port of this type, 0 at first.
template <class C>
void on_kept(Dispatcher &dispatcher, SharedSwitch &model, Setting setting, PortType type)
{
    dispatcher.on<C>([&model, setting, type](const swdrv::Port &request, auto &reply) {
        const auto access = model.lock();
        if (type_of(access->stack, logical(request)) != type) {
            return false;
        }
        const Words words = access->chips.kept.get(setting, {request.unit, request.port});
        reply.value = static_cast<decltype(reply.value)>(words.empty() ? 0 : words.front());
        return true;
    });
}

std::optional<Words> value_if(bool condition, uint32_t value)
{
    return condition ? std::optional(Words{value}) : std::nullopt;
}

// ---- Settings of ports ----

void add_port_settings(Dispatcher &dispatcher, SharedSwitch &model)
{
    keep_of_port<swdrv::Set1000BaseTTransmitterType>(
        dispatcher, model, Setting::transmitter_class, [](PortType type, const swdrv::PortHalfWord &request) {
            return value_if(type == PortType::copper && request.value <= last_transmitter_class, request.value);
        });
    on_kept<swdrv::Get1000BaseTTransmitterType>(dispatcher, model, Setting::transmitter_class, PortType::copper);
    keep_of_port<swdrv::SetPortFec>(dispatcher, model, Setting::fec, [](PortType type, const swdrv::PortWord &request) {
        return value_if(type == PortType::sfp_plus && request.value <= last_fec, request.value);
    });
    on_kept<swdrv::GetPortFecStatus>(dispatcher, model, Setting::fec, PortType::sfp_plus);

    keep_of_port<swdrv::SetPortPowerSave>(
        dispatcher, model, Setting::power_saving,
        [](PortType type, const swdrv::PortFlagPair &request) -> std::optional<Words> {
            const auto [idle, by_length] = request.flags;
            if (type != PortType::copper || !as_bool(idle) || !as_bool(by_length)) {
                return std::nullopt;
            }
            return Words{idle, by_length};
        });
    keep_of_port<swdrv::SetPortAuthMode>(
        dispatcher, model, Setting::port_control, [](PortType /*type*/, const swdrv::PortWord &request) {
            return value_if(request.value >= first_port_control && request.value <= last_port_control, request.value);
        });
    keep_of_port<swdrv::SetPortMacAddr>(dispatcher, model, Setting::port_mac_address,
                                        [](PortType /*type*/, const swdrv::PortMac &request) -> std::optional<Words> {
                                            if (!is_station(request.mac)) {
                                                return std::nullopt;
                                            }
                                            return Words(request.mac.begin(), request.mac.end());
                                        });
    keep<swdrv::SetPortEgressBlock>(
        dispatcher, model, Setting::egress_block,
        [](const Stack &stack, const swdrv::EgressBlock &request) -> std::optional<KeptRequest> {
            const auto [ports, others] = request.egress_bitmap;
            if (!stack.has(logical(request)) || (ports & ~first_ports(stack.shape().ports)) != 0 || others != 0) {
                return std::nullopt;
            }
            return KeptRequest{.key = {request.unit, request.port},
                               .value = {static_cast<uint32_t>(ports), static_cast<uint32_t>(ports >> 32)}};
        });
    keep_port_flag<swdrv::SetPortTrafficTxRx>(dispatcher, model, Setting::port_traffic);
    keep_of_port<swdrv::SetPortStationMoveAction>(
        dispatcher, model, Setting::station_move,
        [](PortType /*type*/, const swdrv::PortFlagPair &request) -> std::optional<Words> {
            const auto [action, moves] = request.flags;
            if (action > last_station_move || !as_bool(moves)) {
                return std::nullopt;
            }
            return Words{action, moves};
        });
    keep_of_port<swdrv::SetPortSfpConnector>(
        dispatcher, model, Setting::sfp_connector,
        [](PortType type, const swdrv::PortFlag &request) { return value_if(is_pluggable(type), request.value); });
}

// ---- Chips, CPU and board ----

void add_chips(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::SocPciWrite>([&model](const swdrv::Words<3> &request) -> uint32_t {
        const auto [device_id, offset, value] = request.values;
        const auto access = model.lock();
        if (device_id >= access->stack.shape().chips || offset >= pci_window || offset % sizeof value != 0) {
            return 0;
        }
        access->chips.kept.set(Setting::pci_register, {device_id, offset}, {value});
        return 1;
    });
    keep<swdrv::SetCpuRateLimit>(dispatcher, model, Setting::cpu_rate_limit,
                                 [](const Stack & /*stack*/, const swdrv::Words<2> &request) {
                                     const auto [packets, burst] = request.values;
                                     return std::optional(KeptRequest{.value = {packets, burst}});
                                 });
    keep<swdrv::SetCpuPortRate>(
        dispatcher, model, Setting::cpu_port_rate,
        [](const Stack & /*stack*/, const swdrv::WordFlag &request) -> std::optional<KeptRequest> {
            const auto counted_in = decoded<StormUnit>(request.flag);
            if (!counted_in || counted_in == StormUnit::percent) {
                return std::nullopt;
            }
            return KeptRequest{.value = {request.word, request.flag}};
        });
    // The mapping follows from the size of the stack alone: working it out anew leads to the same.
    dispatcher.on<swdrv::UpdatePortMapping>(
        [&model](const swdrv::Flag &request) { return model.lock()->stack.has_unit(request.value); });
    dispatcher.on<swdrv::GetCPLDSoftwareVersion>([&model](const swdrv::Word &request, swdrv::CpldVersion &reply) {
        if (!model.lock()->stack.has_unit(request.value)) {
            return false;
        }
        reply.first = 1;
        reply.second = 4;
        return true;
    });
    dispatcher.on<swdrv::GetAllPortAverageTemperature>([&model](swdrv::Word &reply) {
        reply.value = model.lock()->average_port_temperature();
        return true;
    });
    dispatcher.on<swdrv::GetDeviceTemperature>([&model](swdrv::Word &reply) {
        reply.value = model.lock()->device_temperature();
        return true;
    });
}

// ---- PHYs ----

void add_test_modes(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::Set1000BaseTPortTestMode>([&model](const swdrv::PortHalfWord &request) {
        const auto access = model.lock();
        PhyState *const phy = access->copper_phy(logical(request));
        if (phy == nullptr || request.value >= PhyState::test_modes) {
            return false;
        }
        phy->test_mode = request.value;
        return true;
    });
    dispatcher.on<swdrv::Get1000BaseTPortTestMode>([&model](const swdrv::Port &request, swdrv::HalfWord &reply) {
        const auto access = model.lock();
        const PhyState *const phy = access->copper_phy(logical(request));
        reply.value = static_cast<uint16_t>(phy == nullptr ? 0 : phy->test_mode);
        return phy != nullptr;
    });
}

void add_loopbacks(Dispatcher &dispatcher, SharedSwitch &model)
{
    const auto set = [&model](bool on) {
        return [&model, on](const swdrv::Word &request) {
            const auto access = model.lock();
            PhyState *const phy = access->chips.phys.find(decoded_port(request.value));
            if (phy == nullptr) {
                return false;
            }
            phy->loopback = on;
            return true;
        };
    };
    dispatcher.on<swdrv::EnableInternalLoopback>(set(true));
    dispatcher.on<swdrv::DisableInternalLoopback>(set(false));
    dispatcher.on<swdrv::IsPortLoopbacking>([&model](const swdrv::Word &request) {
        const auto access = model.lock();
        const PhyState *const phy = access->chips.phys.find(decoded_port(request.value));
        return phy != nullptr && phy->loopback;
    });
}

// Nothing when one of them is not to be understood.
std::optional<std::vector<PhyOperation>> decoded_operations(const swdrv::PhyRegOps &request)
{
    if (request.num_of_ops > swdrv::PhyRegOps::max_ops) {
        return std::nullopt;
    }
    std::vector<PhyOperation> operations;
    for (size_t i = 0; i < request.num_of_ops; ++i) {
        WirePhyOperation operation;
        static_assert(sizeof operation == swdrv::PhyRegOps::op_size);
        memcpy(&operation, &request.ops[i * sizeof operation], sizeof operation);
        const auto kind = decoded<PhyOperation::Kind>(operation.kind);
        if (!kind) {
            return std::nullopt;
        }
        operations.push_back(
            {.kind = *kind, .reg = {.page = operation.page, .number = operation.reg}, .value = operation.value});
    }
    return operations;
}

void add_registers(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::DoPHYRegsTransactions>([&model](const swdrv::PhyRegOps &request) {
        const auto operations = decoded_operations(request);
        return operations && model.lock()->run_phy_operations(logical(request), *operations);
    });
    dispatcher.on<swdrv::GetMIIPhyRegByPage>([&model](const swdrv::Words<7> &request, swdrv::HalfWord &reply) {
        const auto [unit, port, page, reg, unused1, unused2, unused3] = request.values;
        const auto access = model.lock();
        const auto phy = access->phy({.unit = unit, .port = port});
        const PhyRegister place{.page = page, .number = reg};
        if (!phy || !place.exists() || unused1 != 0 || unused2 != 0 || unused3 != 0) {
            return false;
        }
        reply.value = phy->read(place);
        return true;
    });
    dispatcher.on<swdrv::GetAutoMDIXmode>([&model](const swdrv::Port &request, swdrv::Word &reply) {
        if (model.lock()->copper_phy(logical(request)) == nullptr) {
            return false;
        }
        reply.value = mdix_automatic;
        return true;
    });
    dispatcher.on<swdrv::GetPortAbility>([&model](const swdrv::Port &request, swdrv::Word &reply) {
        const auto type = type_of(model.lock()->stack, logical(request));
        reply.value = type ? encoded_ability(*type) : 0;
        return type.has_value();
    });
}

// ---- Cables ----

void add_cables(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::GetCableDiag>([&model](const swdrv::Port &request, CableDiagRecord &reply) {
        const LogicalPort port = logical(request);
        const auto access = model.lock();
        PhyState *const phy = access->copper_phy(port);
        if (phy == nullptr) {
            return false;
        }
        phy->last_diagnosis = diagnose(*access->lines.find(port));
        reply = std::bit_cast<CableDiagRecord>(CableReportAndLink{
            .report = encoded(*phy->last_diagnosis), .link = encoded_link(access->running_port(port)->status())});
        return true;
    });
    dispatcher.on<swdrv::GetCableDiagResult>([&model](const swdrv::Port &request, CableDiagResultRecord &reply) {
        const auto access = model.lock();
        const PhyState *const phy = access->copper_phy(logical(request));
        if (phy == nullptr || !phy->last_diagnosis) {
            return false;
        }
        reply = std::bit_cast<CableDiagResultRecord>(encoded(*phy->last_diagnosis));
        return true;
    });
}

}  // namespace

void add_swdrv_phy(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_port_settings(dispatcher, model);
    add_chips(dispatcher, model);
    add_test_modes(dispatcher, model);
    add_loopbacks(dispatcher, model);
    add_registers(dispatcher, model);
    add_cables(dispatcher, model);
}

}  // namespace quillon::driver
