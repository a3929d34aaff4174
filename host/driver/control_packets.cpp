// Packets that come in at ports, and a view of the packet path.
#include <fmt/format.h>

#include <algorithm>
#include <charconv>

#include "host/driver/control_commands.h"

namespace quillon::driver {
namespace {

using Arguments = ControlCommands::Arguments;

// Bytes of two digits each, from the destination address on; spaces may stand between them.
PacketBytes packet_argument(Arguments words)
{
    std::string text;
    for (const std::string &word : words) {
        text += word;
    }
    std::erase(text, ' ');
    PacketBytes packet;
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
    if (!is_packet_length(packet.size())) {
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
    return text;
}

struct Injection {
    ReceivedPacket packet;
    uint32_t count = 1;
};

Injection injection_of(Arguments arguments, const Stack &stack)
{
    constexpr uint32_t most_copies = 1'000'000;
    Injection injection;
    injection.packet.port = port_argument(arguments[0], arguments[1], stack);
    const auto bytes = std::ranges::find_if(
        arguments.subspan(2), [](const std::string &argument) { return argument.find('=') == std::string::npos; });
    const auto options = static_cast<size_t>(bytes - arguments.begin());
    for (const std::string &option : arguments.first(options).subspan(2)) {
        const size_t equals = option.find('=');
        const std::string name = option.substr(0, equals);
        const std::string value = option.substr(equals + 1);
        if (name == "cookie") {
            injection.packet.cookie = number_argument(value, name, 0, cookies - 1);
        } else if (name == "cpu-code") {
            injection.packet.cpu_code = number_argument(value, name, 0, UINT32_MAX);
        } else if (name == "count") {
            injection.count = number_argument(value, name, 1, most_copies);
        } else {
            throw ControlError(fmt::format("a packet has a cookie, a cpu-code and a count, but no '{}'", name));
        }
    }
    injection.packet.bytes = packet_argument(arguments.subspan(options));
    return injection;
}

std::string inject(PacketPath &path, SharedSwitch &chips, Arguments arguments)
{
    const Injection injection = injection_of(arguments, chips.lock()->stack);
    const Arrival arrival = path.receive(injection.packet, injection.count);
    if (!arrival.treatment) {
        const LogicalPort &port = injection.packet.port;
        throw ControlError(fmt::format("the link of port {}/{} is down", port.unit, port.port));
    }
    return text_of(*arrival.treatment) + (arrival.queue_full ? " cpu-queue-full\n" : "\n");
}

std::string set_loop_back(PacketPath &path, const std::string &state)
{
    if (state != "on" && state != "off") {
        throw ControlError(fmt::format("loop-back is on or off, not '{}'", state));
    }
    path.transmission.lock()->loop_back = state == "on";
    return {};
}

std::string received_lines(PacketPath &path)
{
    const auto access = path.reception.lock();
    const PacketReceiver &packets = access->packets;
    std::string text = fmt::format("received fetched={} waiting={}\n", packets.taken(), packets.waiting());
    for (uint32_t cookie = 0; cookie < cookies; ++cookie) {
        const auto &[count, bytes, dropped] = packets.counts(cookie);
        text += fmt::format("cookie {} packets={} bytes={} dropped={}\n", cookie, count, bytes, dropped);
    }
    text += fmt::format("buffers all={} filled={} refused-frees={} stopped-pools={:#x} stops={}\n", packets.buffers(),
                        packets.filled_buffers(), packets.refused_frees(), packets.stopped_pools(), packets.stops());
    return text;
}

std::string sent_line(PacketPath &path)
{
    const auto access = path.transmission.lock();
    return fmt::format("sent packets={} bytes={} refused={} loop-back={}\n", access->packets, access->bytes,
                       access->refused, access->loop_back ? "on" : "off");
}

std::string generator_lines(PacketPath &path)
{
    std::string text;
    const auto access = path.generators.lock();
    for (uint32_t number = 0; number < PacketGenerators::count; ++number) {
        const PacketGenerators::Generator &generator = access->generator(number);
        text += fmt::format("generator {} entries={} rate={} sent={} {}\n", number, generator.entries.size(),
                            generator.rate, generator.sent, generator.running ? "running" : "stopped");
    }
    return text;
}

}  // namespace

void add_packet_control(ControlCommands &commands, PacketPath &path, SharedSwitch &chips)
{
    commands.add("inject-packet", "UNIT PORT [cookie=N] [cpu-code=N] [count=N] HEX...",
                 "Lets a port receive a packet, and says what becomes of it",
                 [&](Arguments arguments) { return inject(path, chips, arguments); });
    commands.add("loop-back", "on|off", "Has packets that are sent to a port come in there as well",
                 [&](Arguments arguments) { return set_loop_back(path, arguments[0]); });
    commands.add("packet-path", "", "Shows the counts of the packet path",
                 [&](Arguments /*none*/) { return received_lines(path) + sent_line(path) + generator_lines(path); });
}

}  // namespace quillon::driver
