// Traffic that ports receive and send.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "host/driver/control_commands.h"

namespace quillon::driver {
namespace {

constexpr uint32_t longest_jabber = 65535;

struct NamedKind {
    std::string_view name;
    FrameKind kind;
    bool can_be_sent;
};

constexpr auto kinds = std::to_array<NamedKind>({
    {"unicast", FrameKind::unicast, true},
    {"multicast", FrameKind::multicast, true},
    {"broadcast", FrameKind::broadcast, true},
    {"pause", FrameKind::pause, true},
    {"fcs-error", FrameKind::fcs_error, false},
    {"alignment-error", FrameKind::alignment_error, false},
});

FrameKind kind_argument(std::string_view text, bool sent)
{
    const auto *const kind = std::ranges::find(kinds, text, &NamedKind::name);
    if (kind == kinds.end()) {
        throw ControlError(fmt::format("there are no '{}' frames", text));
    }
    if (sent && !kind->can_be_sent) {
        throw ControlError(fmt::format("ports do not send {} frames", text));
    }
    return kind->kind;
}

std::string count_traffic(Switch &chips, ControlCommands::Arguments arguments)
{
    const LogicalPort port = port_argument(arguments[0], arguments[1], chips.stack);
    const bool sent = arguments[2] == "sent";
    if (!sent && arguments[2] != "received") {
        throw ControlError(fmt::format("frames are received or sent, not '{}'", arguments[2]));
    }
    const Frames frames{.kind = kind_argument(arguments[3], sent),
                        .size = sent ? number_argument(arguments[4], "SIZE", shortest_frame, longest_frame)
                                     : number_argument(arguments[4], "SIZE", 1, longest_jabber),
                        .count = number_argument(arguments[5], "COUNT", 1, UINT32_MAX)};
    require_link(chips, port);
    PortTraffic &traffic = *chips.chips.traffic.find(port);
    sent ? traffic.send(frames) : traffic.receive(frames);
    return {};
}

}  // namespace

void add_traffic_control(ControlCommands &commands, SharedSwitch &model)
{
    commands.add("traffic", "UNIT PORT received|sent KIND SIZE COUNT",
                 "Counts frames of a kind and of SIZE bytes as received or sent by a port",
                 [&model](ControlCommands::Arguments arguments) { return count_traffic(*model.lock(), arguments); });
}

}  // namespace quillon::driver
