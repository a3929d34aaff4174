// IP multicast.
#include <array>
#include <bit>
#include <optional>
#include <span>

#include "host/driver/handlers.h"
#include "host/driver/request_values.h"
#include "host/driver/swdrvl3_encoding.h"
#include "swdrvl3/commands.h"

namespace quillon::driver {
namespace {

// Nothing but the status goes back.
template <class C, class Answer>
void on_status(Dispatcher &dispatcher, Answer answer)
{
    dispatcher.on<C>([answer](const typename C::Request &request, typename C::Reply & /*reply*/) -> uint32_t {
        return encoded(answer(request));
    });
}

// `change` tries to do what C asks for to the flow that its key names.
template <class C, class Change>
void on_flow(Dispatcher &dispatcher, SharedSwitch &model, Change change)
{
    on_status<C>(dispatcher, [&model, change](const typename C::Request &request) {
        const auto flow = flow_of(request.key);
        if (!flow) {
            return TableStatus::invalid;
        }
        if (request.key.arg2 != virtual_router) {
            return TableStatus::unresolved;
        }
        return change(model.lock()->chips, *flow, request);
    });
}

void add_forwarding(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_status<swdrvl3::ipmc_enable>(dispatcher, [&model](const swdrvl3::IpmcSwitch &request) {
        const bool ipv4 = request.arg1 == 1;
        const bool ipv6 = request.arg2 == 1;
        if (request.arg1 > 1 || request.arg2 > 1 || (!ipv4 && !ipv6)) {
            return TableStatus::invalid;
        }
        if (request.arg3 != virtual_router) {
            return TableStatus::unresolved;
        }
        const auto access = model.lock();
        access->chips.ip_multicast.routes_ipv4 = ipv4;
        access->chips.ip_multicast.routes_ipv6 = ipv6;
        return TableStatus::done;
    });
    on_status<swdrvl3::ipmc_disable>(dispatcher, [&model](const auto & /*request*/) {
        const auto access = model.lock();
        access->chips.ip_multicast.routes_ipv4 = access->chips.ip_multicast.routes_ipv6 = false;
        return TableStatus::done;
    });
    const auto debug = [&model](bool on) {
        return [&model, on](const auto & /*request*/) {
            model.lock()->chips.ip_multicast.debugged = on;
            return TableStatus::done;
        };
    };
    on_status<swdrvl3::ipmc_debug_enable>(dispatcher, debug(true));
    on_status<swdrvl3::ipmc_debug_disable>(dispatcher, debug(false));
}

void add_layer_2(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_flow<swdrvl3::l2mc_entry_add>(
        dispatcher, model, [](ChipState &chips, const McastFlow &flow, const swdrvl3::L2mcEntry &request) {
            return chips.ip_multicast.add_l2_port(chips.vlans, flow, decoded_port(request.arg5));
        });
    on_flow<swdrvl3::l2mc_entry_del>(dispatcher, model,
                                     [](ChipState &chips, const McastFlow &flow, const swdrvl3::L2mcEntry &request) {
                                         return chips.ip_multicast.remove_l2_port(flow, decoded_port(request.arg5));
                                     });
}

void add_layer_3_entries(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_flow<swdrvl3::l3mc_entry_add>(
        dispatcher, model, [](ChipState &chips, const McastFlow &flow, const swdrvl3::L3mcNewEntry &request) {
            const LogicalPort upstream = decoded_port(request.arg5);
            const auto copies = decoded_copies(request.block);
            const uint8_t count = request.arg6;
            if (count > copies.size()) {
                return TableStatus::invalid;
            }
            return chips.ip_multicast.add(chips.vlans, chips.l3_interfaces, flow,
                                          upstream == any_port ? std::nullopt : std::optional(upstream),
                                          std::span(copies).first(count));
        });
    on_flow<swdrvl3::l3mc_entry_del>(dispatcher, model,
                                     [](ChipState &chips, const McastFlow &flow, const auto & /*request*/) {
                                         return chips.ip_multicast.remove(flow);
                                     });
    dispatcher.on<swdrvl3::l3mc_entry_stat>(
        [&model](const swdrvl3::L3mcEntryStat &request, swdrvl3::L3mcEntryStat & /*reply*/) -> uint32_t {
            const auto flow = flow_of(request.key);
            if (!flow || request.key.arg2 != virtual_router) {
                return no_entry_status;
            }
            const auto access = model.lock();
            const L3McastEntry *const entry = access->chips.ip_multicast.l3_entry(*flow);
            const uint32_t status = entry == nullptr ? no_entry_status : entry_status(*entry);
            if (request.value == clear_hit_after_reading) {
                access->chips.ip_multicast.clear_hit(*flow);
            }
            return status;
        });
}

void add_layer_3_ports(Dispatcher &dispatcher, SharedSwitch &model)
{
    const auto port_of = [](const swdrvl3::L3mcPort &request) {
        return LogicalPort{.unit = request.arg5, .port = request.arg6};
    };
    on_flow<swdrvl3::l3mc_port_add>(
        dispatcher, model, [port_of](ChipState &chips, const McastFlow &flow, const swdrvl3::L3mcPort &request) {
            return chips.ip_multicast.add_port(flow, port_of(request));
        });
    on_flow<swdrvl3::l3mc_port_del>(
        dispatcher, model, [port_of](ChipState &chips, const McastFlow &flow, const swdrvl3::L3mcPort &request) {
            return chips.ip_multicast.remove_port(flow, port_of(request));
        });
    const auto set_to_cpu = [](bool on) {
        return [on](ChipState &chips, const McastFlow &flow, const auto & /*request*/) {
            return chips.ip_multicast.set_to_cpu(flow, on);
        };
    };
    on_flow<swdrvl3::l3mc_cpu_port_add>(dispatcher, model, set_to_cpu(true));
    on_flow<swdrvl3::l3mc_cpu_port_del>(dispatcher, model, set_to_cpu(false));
}

template <class Add, class Delete>
void add_copies(Dispatcher &dispatcher, SharedSwitch &model, IpMulticast::Copies which)
{
    on_flow<Add>(
        dispatcher, model, [which](ChipState &chips, const McastFlow &flow, const swdrvl3::L3mcInterface &request) {
            return chips.ip_multicast.add_copy(chips.l3_interfaces, flow, which, decoded_copy(request.interface));
        });
    on_flow<Delete>(dispatcher, model,
                    [which](ChipState &chips, const McastFlow &flow, const swdrvl3::L3mcInterface &request) {
                        return chips.ip_multicast.remove_copy(flow, which, decoded_copy(request.interface));
                    });
}

}  // namespace

void add_swdrvl3_multicast(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_forwarding(dispatcher, model);
    add_layer_2(dispatcher, model);
    add_layer_3_entries(dispatcher, model);
    add_layer_3_ports(dispatcher, model);
    add_copies<swdrvl3::l3mc_dnintf_add, swdrvl3::l3mc_dnintf_del>(dispatcher, model, &L3McastEntry::downstream);
    add_copies<swdrvl3::l3mc_repl_add, swdrvl3::l3mc_repl_del>(dispatcher, model, &L3McastEntry::replications);
}

}  // namespace quillon::driver
