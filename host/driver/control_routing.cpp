// Packets that the switch routes, and what its routing tables hold.
#include <arpa/inet.h>
#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

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

IpAddress host_argument(const std::string &text)
{
    const IpAddress address = address_argument(text);
    if (!is_unicast(address)) {
        throw ControlError(fmt::format("'{}' is not the address of a host", text));
    }
    return address;
}

std::string text_of(const LogicalPort &port)
{
    return fmt::format("unit {} port {}", port.unit, port.port);
}

std::string route_packet(Routes &routes, const IpAddress &destination)
{
    const auto match = routes.route(destination);
    if (!match) {
        return "no route";
    }
    const Neighbour *const neighbour = routes.neighbour(match->next_hop);
    const std::string where = neighbour == nullptr ? "cpu"
                                                   : fmt::format("next hop {}: {:02x} interface {} {}", match->next_hop,
                                                                 fmt::join(neighbour->mac, ":"), neighbour->interface,
                                                                 text_of(neighbour->port));
    return fmt::format("{}/{} {}", text_of(masked(destination, match->prefix_length)), match->prefix_length, where);
}

std::string forward(Switch &model, uint32_t unit, const IpAddress &destination)
{
    const bool on = model.chips.routing.of_unit(unit).routes(destination.version);
    return fmt::format("{}: {}\n", text_of(destination),
                       on ? route_packet(model.chips.routes, destination) : "not routed");
}

std::string forward_multicast(Switch &model, const LogicalPort &port, const McastFlow &flow)
{
    const auto delivery = model.chips.ip_multicast.forward(port, flow);
    if (!delivery) {
        return "flooded\n";
    }
    std::string lines;
    for (LogicalPort leaving{.unit = 1, .port = 1}; model.stack.has(leaving); ++leaving.unit, leaving.port = 1) {
        for (; model.stack.has(leaving); ++leaving.port) {
            if (delivery->bridged.contains(leaving)) {
                lines += fmt::format("bridged {}\n", text_of(leaving));
            }
        }
    }
    for (const McastCopy &copy : delivery->routed) {
        lines += fmt::format("routed {} interface {}\n", text_of(copy.port), copy.interface);
    }
    return lines + (delivery->to_cpu ? "cpu\n" : "");
}

}  // namespace

void add_routing_control(ControlCommands &commands, SharedSwitch &model)
{
    commands.add("forward", "UNIT ADDRESS...", "Lets packets to these IP addresses come in at a unit, to be routed",
                 [&model](ControlCommands::Arguments arguments) {
                     const auto access = model.lock();
                     const uint32_t unit = number_argument(arguments[0], "UNIT", 1, access->stack.shape().units);
                     std::vector<IpAddress> destinations;
                     std::ranges::transform(arguments.subspan(1), std::back_inserter(destinations), host_argument);
                     std::string lines;
                     for (const IpAddress &destination : destinations) {
                         lines += forward(*access, unit, destination);
                     }
                     return lines;
                 });
    commands.add(
        "forward-multicast", "UNIT PORT VLAN SOURCE GROUP", "Lets an IP multicast packet of a VLAN come in at a port",
        [&model](ControlCommands::Arguments arguments) {
            const auto access = model.lock();
            const LogicalPort port = port_argument(arguments[0], arguments[1], access->stack);
            const McastFlow flow{.vlan = number_argument(arguments[2], "VLAN", 1, 4094),
                                 .group = address_argument(arguments[4]),
                                 .source = address_argument(arguments[3])};
            if (!is_multicast(flow.group) || !is_unicast(flow.source) || flow.source.version != flow.group.version) {
                throw ControlError("SOURCE is a host and GROUP a multicast group of the same IP version");
            }
            return forward_multicast(*access, port, flow);
        });
    commands.add("routes", "", "Tells how many host and network routes there are",
                 [&model](ControlCommands::Arguments /*arguments*/) {
                     const auto access = model.lock();
                     const Routes &routes = access->chips.routes;
                     return fmt::format("hosts {}\nnetworks {}\n", routes.hosts().size(), routes.networks().size());
                 });
}

}  // namespace quillon::driver
