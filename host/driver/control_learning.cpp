// Addresses that are learned.
#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <string_view>

#include "host/driver/control_commands.h"

namespace quillon::driver {
namespace {

// Six bytes of two digits, with '-' or ':' between them, as one number.
uint64_t mac_argument(std::string_view text)
{
    uint64_t value = 0;
    bool valid = text.size() == 17 && (text[2] == '-' || text[2] == ':');
    for (size_t at = 0; valid && at < text.size(); at += 3) {
        const char *const byte = text.data() + at;
        uint8_t parsed = 0;
        valid = std::from_chars(byte, byte + 2, parsed, 16).ptr == byte + 2 &&
                (at + 2 == text.size() || byte[2] == text[2]);
        value = value << 8 | parsed;
    }
    if (!valid) {
        throw ControlError(fmt::format("MAC is like 02-00-00-00-00-01 or 02:00:00:00:00:01, not '{}'", text));
    }
    return value;
}

MacAddress mac_of(uint64_t value)
{
    MacAddress mac;
    for (size_t at = mac.size(); at-- > 0;) {
        mac.at(at) = static_cast<uint8_t>(value);
        value >>= 8;
    }
    return mac;
}

std::string learn(Switch &chips, ControlCommands::Arguments arguments)
{
    const uint32_t vlan = number_argument(arguments[0], "VLAN", 1, 4094);
    const uint64_t first = mac_argument(arguments[1]);
    const LogicalPort port = port_argument(arguments[2], arguments[3], chips.stack);
    const uint32_t count = arguments.size() > 4 ? number_argument(arguments[4], "COUNT", 1, MacTable::capacity) : 1;
    if (!chips.chips.vlans.has(vlan)) {
        throw ControlError(fmt::format("there is no VLAN {}", vlan));
    }
    if (!chips.chips.learning.find(port)->learns) {
        throw ControlError(fmt::format("port {} of unit {} does not learn", port.port, port.unit));
    }
    require_link(chips, port);
    for (uint32_t i = 0; i < count; ++i) {
        const MacKey key = {.vlan = vlan, .mac = mac_of(first + i)};
        if (!chips.learn(key, port)) {
            const bool never = is_multicast(key.mac) || chips.macs().find(key) != nullptr;
            throw ControlError(
                fmt::format("{:02X} cannot be learned ({} of {} learned): {}", fmt::join(key.mac, "-"), i, count,
                            never ? "it is a multicast address or the switch's own" : "the table is full"));
        }
        chips.chips.traffic.find(port)->receive({.kind = FrameKind::unicast, .size = shortest_frame});
    }
    return {};
}

}  // namespace

void add_learning_control(ControlCommands &commands, SharedSwitch &model)
{
    commands.add("learn-address", "VLAN MAC UNIT PORT [COUNT]",
                 "Lets frames come in at a port from a MAC address, or from COUNT that follow one another",
                 [&model](ControlCommands::Arguments arguments) { return learn(*model.lock(), arguments); });
}

}  // namespace quillon::driver
