// Packets that the switch routes, and what its routing tables hold.
#include <arpa/inet.h>
#include <fmt/format.h>
#include <fmt/ranges.h>

#include "host/driver/control_commands.h"

namespace quillon::driver {
namespace {

IpAddress address_argument(const std::string &text)
{
    IpAddress address{};
    for (const auto &[version, family] : {std::pair(IpVersion::v4, AF_INET), {IpVersion::v6, AF_INET6}}) {
        address.version = version;
        if (inet_pton(family, text.c_str(), address.bytes.data()) == 1) {
            return address;
        }
    }
    throw ControlError(fmt::format("'{}' is no IP address", text));
}

std::string text_of(const IpAddress &address)
{
    char text[INET6_ADDRSTRLEN] = "";
    inet_ntop(address.version == IpVersion::v4 ? AF_INET : AF_INET6, address.bytes.data(), text, sizeof text);
    return text;
}

std::string route_packet(Routes &routes, const IpAddress &destination)
{
    const auto match = routes.route(destination);
    if (!match) {
        return "no route";
    }
    const Neighbour *const neighbour = routes.neighbour(match->next_hop);
    return fmt::format("{}/{} {}", text_of(masked(destination, match->prefix_length)), match->prefix_length,
                       neighbour == nullptr
                           ? "cpu"
                           : fmt::format("next hop {}: {:02x} interface {} unit {} port {}", match->next_hop,
                                         fmt::join(neighbour->mac, ":"), neighbour->interface, neighbour->port.unit,
                                         neighbour->port.port));
}

std::string forward(Switch &model, uint32_t unit, const IpAddress &destination)
{
    const bool on = model.chips.routing.of_unit(unit).routes(destination.version);
    return fmt::format("{}: {}\n", text_of(destination),
                       on ? route_packet(model.chips.routes, destination) : "not routed");
}

}  // namespace

void add_routing_control(ControlCommands &commands, SharedSwitch &model)
{
    commands.add("forward", "UNIT ADDRESS...", "Lets packets to these IP addresses come in at a unit, to be routed",
                 [&model](ControlCommands::Arguments arguments) {
                     const auto access = model.lock();
                     const uint32_t unit = number_argument(arguments[0], "UNIT", 1, access->stack.shape().units);
                     std::string lines;
                     for (const std::string &address : arguments.subspan(1)) {
                         lines += forward(*access, unit, address_argument(address));
                     }
                     return lines;
                 });
    commands.add("routes", "", "Tells how many host and network routes there are",
                 [&model](ControlCommands::Arguments /*arguments*/) {
                     const auto access = model.lock();
                     const Routes &routes = access->chips.routes;
                     return fmt::format("hosts {}\nnetworks {}\n", routes.hosts().size(), routes.networks().size());
                 });
}

}  // namespace quillon::driver
