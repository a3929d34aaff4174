// Host, network and equal-cost multi-path routes.
#include <bit>
#include <concepts>
#include <span>

#include "host/driver/handlers.h"
#include "host/driver/request_values.h"
#include "host/driver/swdrvl3_encoding.h"
#include "swdrvl3/commands.h"

namespace quillon::driver {
namespace {

// What C's caller gets: a status code, or whether it was done.
template <class C>
auto result(TableStatus status)
{
    if constexpr (std::same_as<typename C::Result, uint32_t>) {
        return encoded(status);
    } else {
        return status == TableStatus::done;
    }
}

// `change` tries to do what C asks for to the host that an entry names. The entry that goes back says what the hardware
// then has of that host.
template <class C, class Change>
void on_host(Dispatcher &dispatcher, SharedSwitch &model, Change change)
{
    dispatcher.on<C>([&model, change](const HostRouteEntry &request, auto &...reply) {
        auto record = std::bit_cast<HostRouteRecord>(request);
        const auto address = address_of(record);
        record.hardware = {};
        auto status = TableStatus::invalid;
        if (address) {
            const auto access = model.lock();
            status = change(access->chips, *address, neighbour_of(record));
            record.hardware = hardware_of(access->chips.routes.hosts().find(*address));
        }
        ((reply = std::bit_cast<HostRouteEntry>(record)), ...);
        return result<C>(status);
    });
}

const NetRouteEntry &entry_of(const NetRouteEntry &request)
{
    return request;
}

const NetRouteEntry &entry_of(const auto &request)
{
    return request.entry;
}

// The same for the network that an entry names.
template <class C, class Change>
void on_network(Dispatcher &dispatcher, SharedSwitch &model, Change change)
{
    dispatcher.on<C>([&model, change](const auto &request, auto &...reply) {
        auto record = std::bit_cast<NetRouteRecord>(entry_of(request));
        const auto prefix = prefix_of(record);
        record.hardware = {};
        auto status = TableStatus::invalid;
        if (prefix) {
            const auto access = model.lock();
            status = change(access->chips.routes, *prefix, request);
            record.hardware = hardware_of(access->chips.routes.networks().find(*prefix));
        }
        ((reply = std::bit_cast<NetRouteEntry>(record)), ...);
        return result<C>(status);
    });
}

void add_host_routes(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_host<swdrvl3::SetInetHostRoute>(dispatcher, model,
                                       [](ChipState &chips, const IpAddress &address, const Neighbour &neighbour) {
                                           return chips.routes.set_neighbour(chips.l3_interfaces, address, neighbour);
                                       });
    on_host<swdrvl3::DeleteInetHostRoute>(
        dispatcher, model, [](ChipState &chips, const IpAddress &address, const Neighbour & /*neighbour*/) {
            return chips.routes.remove_neighbour(address);
        });
    on_host<swdrvl3::AddInetMyIpHostRoute>(
        dispatcher, model, [](ChipState &chips, const IpAddress &address, const Neighbour & /*neighbour*/) {
            return chips.routes.add_own(address);
        });
    on_host<swdrvl3::DeleteInetMyIpHostRoute>(
        dispatcher, model, [](ChipState &chips, const IpAddress &address, const Neighbour & /*neighbour*/) {
            return chips.routes.remove_own(address);
        });
    dispatcher.on<swdrvl3::ReadAndClearHostRouteEntryHitBit>(
        [&model](const swdrvl3::HostRouteHit &request, swdrvl3::HostRouteHit &reply) {
            reply = request;
            const auto address = address_of(std::bit_cast<HostRouteRecord>(request.entry));
            const auto hit = address ? model.lock()->chips.routes.take_hit(*address) : std::nullopt;
            reply.hit = hit == true ? 1 : 0;
            return hit.has_value();
        });
}

void add_network_routes(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_network<swdrvl3::AddInetNetRoute>(dispatcher, model,
                                         [](Routes &routes, const IpPrefix &prefix, const swdrvl3::NetRoute &request) {
                                             const uint64_t next_hop = request.arg2;
                                             return routes.add_network(prefix, std::span(&next_hop, 1));
                                         });
    on_network<swdrvl3::DeleteInetNetRoute>(
        dispatcher, model, [](Routes &routes, const IpPrefix &prefix, const swdrvl3::NetRoute &request) {
            const uint64_t next_hop = request.arg2;
            return routes.remove_network(prefix, next_hop);
        });
}

void add_multi_path_routes(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_network<swdrvl3::AddInetECMPRouteMultiPath>(
        dispatcher, model, [](Routes &routes, const IpPrefix &prefix, const swdrvl3::MultiPathRoute &request) {
            return request.next_hop_count > request.next_hops.size()
                       ? TableStatus::invalid
                       : routes.add_network(prefix, std::span(request.next_hops).first(request.next_hop_count));
        });
    on_network<swdrvl3::DeleteInetECMPRoute>(
        dispatcher, model, [](Routes &routes, const IpPrefix &prefix, const NetRouteEntry & /*request*/) {
            return routes.remove_network(prefix);
        });
    // The last argument lets a route begin with this path, and end with it.
    on_network<swdrvl3::AddInetECMPRouteOnePath>(
        dispatcher, model, [](Routes &routes, const IpPrefix &prefix, const swdrvl3::OnePathRoute &request) {
            const auto first = as_bool(request.arg3);
            return first ? routes.add_path(prefix, request.next_hop, *first) : TableStatus::invalid;
        });
    on_network<swdrvl3::DeleteInetECMPRouteOnePath>(
        dispatcher, model, [](Routes &routes, const IpPrefix &prefix, const swdrvl3::OnePathRoute &request) {
            const auto last = as_bool(request.arg3);
            return last ? routes.remove_path(prefix, request.next_hop, *last) : TableStatus::invalid;
        });
}

// The entry as its caller has it: the second argument stands in the place of its address type, which did not travel.
NetRouteRecord special_default(const swdrvl3::SpecialDefaultRoute &request)
{
    return std::bit_cast<NetRouteRecord>(request);
}

void add_special_default_routes(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrvl3::SetSpecialDefaultRoute>([&model](const swdrvl3::SpecialDefaultRoute &request) {
        const NetRouteRecord record = special_default(request);
        const auto prefix = prefix_of(record);
        return prefix && prefix->length == 0 && is_routable(*prefix) &&
               model.lock()->chips.routes.set_special_default(prefix->network.version, record.next_hop) ==
                   TableStatus::done;
    });
    dispatcher.on<swdrvl3::DeleteSpecialDefaultRoute>([&model](const swdrvl3::SpecialDefaultRoute &request) {
        const auto version = decoded<IpVersion>(request.arg2);
        return version && model.lock()->chips.routes.remove_special_default(*version);
    });
}

// The caller's copy forgets what it was told of the hardware; the tables stay as they are.
void add_hardware_information(Dispatcher &dispatcher)
{
    dispatcher.on<swdrvl3::ClearHostRouteHWInfo>([](const HostRouteEntry &request, HostRouteEntry &reply) {
        auto record = std::bit_cast<HostRouteRecord>(request);
        record.hardware = {};
        reply = std::bit_cast<HostRouteEntry>(record);
        return true;
    });
    dispatcher.on<swdrvl3::ClearNetRouteHWInfo>([](const NetRouteEntry &request, NetRouteEntry &reply) {
        auto record = std::bit_cast<NetRouteRecord>(request);
        record.hardware = {};
        reply = std::bit_cast<NetRouteEntry>(record);
        return true;
    });
}

}  // namespace

void add_swdrvl3_routes(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_host_routes(dispatcher, model);
    add_network_routes(dispatcher, model);
    add_multi_path_routes(dispatcher, model);
    add_special_default_routes(dispatcher, model);
    add_hardware_information(dispatcher);
}

}  // namespace quillon::driver
