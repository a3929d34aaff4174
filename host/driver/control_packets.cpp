// Packets that come in at ports.
#include <fmt/format.h>

#include <charconv>
#include <cstddef>
#include <vector>

#include "host/driver/control_commands.h"
#include "host/driver/reception.h"

namespace quillon::driver {
namespace {

// Two addresses and a type; the same, two tags and the largest MTU.
constexpr size_t shortest_packet = 14;
constexpr size_t longest_packet = 14 + 2 * 4 + 9216;

// Bytes of two digits each, from the destination address on; spaces may stand between them.
std::vector<std::byte> packet_argument(ControlCommands::Arguments words)
{
    std::string text;
    for (const std::string &word : words) {
        text += word;
    }
    std::erase(text, ' ');
    std::vector<std::byte> packet;
    for (size_t at = 0; at < text.size(); at += 2) {
        const std::string digits = text.substr(at, 2);
        const char *const end = digits.data() + digits.size();
        uint8_t byte = 0;
        const auto [parsed, error] = std::from_chars(digits.data(), end, byte, 16);
        if (digits.size() != 2 || error != std::errc() || parsed != end) {
            throw ControlError(fmt::format("a packet is bytes of two hexadecimal digits each, not '{}'", digits));
        }
        packet.push_back(std::byte{byte});
    }
    if (packet.size() < shortest_packet || packet.size() > longest_packet) {
        throw ControlError(fmt::format("a packet has {} to {} bytes, this one has {}", shortest_packet, longest_packet,
                                       packet.size()));
    }
    return packet;
}

std::string text_of(const Treatment &treatment)
{
    std::string text = treatment.drop ? "dropped" : "forwarded";
    if (treatment.copy_to_cpu) {
        text += " copy-to-cpu";
    }
    if (treatment.mirror) {
        text += " mirror";
    }
    if (treatment.priority) {
        text += fmt::format(" priority={}", *treatment.priority);
    }
    if (treatment.dscp) {
        text += fmt::format(" dscp={}", *treatment.dscp);
    }
    if (treatment.redirect) {
        text += fmt::format(" redirect={}/{}", treatment.redirect->unit, treatment.redirect->port);
    }
    return text + '\n';
}

}  // namespace

void add_packet_control(ControlCommands &commands, SharedSwitch &model)
{
    commands.add("inject-packet", "UNIT PORT HEX...", "Lets a port receive a packet, and says what becomes of it",
                 [&model](ControlCommands::Arguments arguments) {
                     const LogicalPort port = port_argument(arguments[0], arguments[1], model.lock()->stack);
                     const auto treatment = receive_packet(model, port, packet_argument(arguments.subspan(2)));
                     if (!treatment) {
                         throw ControlError(fmt::format("the link of port {}/{} is down", port.unit, port.port));
                     }
                     return text_of(*treatment);
                 });
}

}  // namespace quillon::driver
