// IP multicast, learning, what is trapped to the CPU, and the frame size.
#include <optional>

#include "host/driver/handlers.h"
#include "host/driver/kept_request.h"
#include "host/driver/request_values.h"
#include "host/driver/swdrv_encoding.h"
#include "host/driver/swdrv_running_port.h"
#include "swdrv/commands.h"

namespace quillon::driver {
namespace {

using Words = KeptSettings::Words;
using Key = KeptKey;

// Of each unit.
template <class On, class Off>
void keep_unit_switched(Dispatcher &dispatcher, SharedSwitch &model, Setting setting)
{
    keep_switched<On, Off>(dispatcher, model, setting, [](const Stack &stack, const swdrv::Word &request) {
        return stack.has_unit(request.value) ? Key(Words{request.value}) : std::nullopt;
    });
}

// Two flags of the whole switch, or one.
template <class C>
void keep_flags(Dispatcher &dispatcher, SharedSwitch &model, Setting setting)
{
    keep<C>(
        dispatcher, model, setting,
        [](const Stack & /*stack*/, const typename C::Request &request) -> std::optional<KeptRequest> {
            if constexpr (requires { request.value; }) {
                return request.value <= 1 ? std::optional(KeptRequest{.value = {request.value}}) : std::nullopt;
            } else {
                const auto [first, second] = request.values;
                return first <= 1 && second <= 1 ? std::optional(KeptRequest{.value = {first, second}}) : std::nullopt;
            }
        });
}

void add_multicast(Dispatcher &dispatcher, SharedSwitch &model)
{
    keep_unit_switched<swdrv::EnableIPMC, swdrv::DisableIPMC>(dispatcher, model, Setting::ip_multicast);
    keep_unit_switched<swdrv::IPMC_EnableSourcePortCheck, swdrv::IPMC_DisableSourcePortCheck>(
        dispatcher, model, Setting::ip_multicast_port_check);
    keep_unit_switched<swdrv::IPMC_EnableSourceIPSearch, swdrv::IPMC_DisableSourceIPSearch>(
        dispatcher, model, Setting::ip_multicast_source_search);

    dispatcher.on<swdrv::AddIPv6MulticastAddress>([&model](const swdrv::MulticastMac &request) {
        const auto access = model.lock();
        ChipState &chips = access->chips;
        auto &table = chips.vlan_rules.ipv6_multicasts;
        return is_ipv6_multicast(request.mac) && table.find({request.mac, request.value}) == nullptr &&
               table.set(chips.vlans, {request.mac, request.value}, {.vlan = request.value, .priority = 0});
    });
    dispatcher.on<swdrv::DelIPv6MulticastAddress>([&model](const swdrv::MulticastMac &request) {
        return model.lock()->chips.vlan_rules.ipv6_multicasts.erase({request.mac, request.value});
    });
}

// Answers C by what `change` returns for the learning of the port and the request.
template <class C, class Change>
void on_learning(Dispatcher &dispatcher, SharedSwitch &model, Change change)
{
    dispatcher.on<C>([&model, change](const typename C::Request &request) {
        const auto access = model.lock();
        PortLearning *const learning = access->chips.learning.find(logical(request));
        return learning != nullptr && change(*learning, request);
    });
}

void add_learning(Dispatcher &dispatcher, SharedSwitch &model)
{
    const auto switched = [](bool PortLearning::*what, bool on) {
        return [what, on](PortLearning &learning, const swdrv::Port & /*request*/) {
            learning.*what = on;
            return true;
        };
    };
    on_learning<swdrv::EnablePortLearning>(dispatcher, model, switched(&PortLearning::learns, true));
    on_learning<swdrv::DisablePortLearning>(dispatcher, model, switched(&PortLearning::learns, false));
    on_learning<swdrv::EnableRspanPortLearning>(dispatcher, model, switched(&PortLearning::learns_from_mirrored, true));
    on_learning<swdrv::DisableRspanPortLearning>(dispatcher, model,
                                                 switched(&PortLearning::learns_from_mirrored, false));
    on_learning<swdrv::SetPortLearningStatus>(dispatcher, model,
                                              [](PortLearning &learning, const swdrv::PortLearning &request) {
                                                  const auto learns = as_bool(request.flags[0]);
                                                  const auto tells_cpu = as_bool(request.flags[1]);
                                                  const auto drops_unknown = as_bool(request.flags[2]);
                                                  if (!learns || !tells_cpu || !drops_unknown) {
                                                      return false;
                                                  }
                                                  learning.learns = *learns;
                                                  learning.tells_cpu = *tells_cpu;
                                                  learning.drops_unknown = *drops_unknown;
                                                  return true;
                                              });
}

void add_traps(Dispatcher &dispatcher, SharedSwitch &model)
{
    keep_switched<swdrv::EnableUMCASTIpTrap, swdrv::DisableUMCASTIpTrap>(dispatcher, model,
                                                                         Setting::trap_unknown_multicast_ip);
    keep_switched<swdrv::EnableUMCASTMacTrap, swdrv::DisableUMCASTMacTrap>(dispatcher, model,
                                                                           Setting::trap_unknown_multicast_mac);
    keep_switched<swdrv::EnableMLDTrap2CPU, swdrv::DisableMLDTrap2CPU>(dispatcher, model, Setting::trap_mld);
    keep_flags<swdrv::TrapMLDToCPU>(dispatcher, model, Setting::trap_mld_kinds);
    keep_switched<swdrv::EnableNDTrap2CPU, swdrv::DisableNDTrap2CPU>(
        dispatcher, model, Setting::trap_neighbour_discovery, [](const Stack & /*stack*/, const swdrv::Flag &request) {
            constexpr uint32_t solicitations = 1;
            constexpr uint32_t advertisements = 2;
            return request.value == solicitations || request.value == advertisements ? Key(Words{request.value})
                                                                                     : std::nullopt;
        });
    keep_flags<swdrv::SetRaAndRrTrap2CPU>(dispatcher, model, Setting::trap_router_advertisements);
    keep_flags<swdrv::SetEapolFramePassThrough>(dispatcher, model, Setting::eapol_pass_through);
    keep_flags<swdrv::TrapUnknownIpv6McastToCPU>(dispatcher, model, Setting::trap_unknown_ipv6_multicast);
    keep<swdrv::TrapUnknownIpMcastToCPU>(
        dispatcher, model, Setting::trap_unknown_ipv4_multicast,
        [](const Stack &stack, const swdrv::IpMulticastTrap &request) -> std::optional<KeptRequest> {
            const auto [trap, forward] = request.flags;
            if (trap > 1 || forward > 1 || !stack.has_unit(request.value)) {
                return std::nullopt;
            }
            return KeptRequest{.key = {request.value}, .value = {trap, forward}};
        });
}

void add_ports(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::ModifyMaxFrameSize>([&model](const swdrv::Flags<2> &request) {
        const uint32_t bytes = uint32_t{request.values[0]} << 8 | request.values[1];
        return model.lock()->chips.frame_sizes.set_largest_untagged(bytes);
    });
    on_running_port<swdrv::GetPortMediaActive>(dispatcher, model, [](const RunningPort &port) {
        return port.status().link_up() ? encoded(medium_of(port.type())) : no_medium;
    });
}

}  // namespace

void add_swdrv_multicast_traps(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_multicast(dispatcher, model);
    add_learning(dispatcher, model);
    add_traps(dispatcher, model);
    add_ports(dispatcher, model);
}

}  // namespace quillon::driver
