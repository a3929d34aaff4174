#include "host/driver/control.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <utility>

namespace quillon::driver {
namespace {

using control::Answer;
using control::Outcome;

struct Count {
    size_t least = 0;
    size_t most = 0;
};

Count count_of_arguments(std::string_view usage)
{
    Count count;
    while (!usage.empty()) {
        const size_t end = std::min(usage.find(' '), usage.size());
        const std::string_view argument = usage.substr(0, end);
        usage.remove_prefix(std::min(end + 1, usage.size()));
        count.least += argument.starts_with('[') ? 0 : 1;
        ++count.most;
        if (argument.ends_with("...") || argument.ends_with("...]")) {
            count.most = SIZE_MAX;
        }
    }
    return count;
}

std::string line_of(std::string_view name, std::string_view usage)
{
    return usage.empty() ? std::string(name) : fmt::format("{} {}", name, usage);
}

}  // namespace

ControlCommands::ControlCommands()
{
    add("help", "", "Lists the commands", [this](Arguments /*none*/) { return help(); });
}

void ControlCommands::add(std::string name, std::string usage, std::string help, Run run)
{
    const auto [entry, added] =
        commands_.try_emplace(std::move(name), Command{std::move(usage), std::move(help), std::move(run)});
    if (!added) {
        throw std::logic_error("control command " + entry->first + " is added twice");
    }
}

Answer ControlCommands::run(std::span<const std::string> words) const
{
    const auto command = words.empty() ? commands_.end() : commands_.find(words.front());
    if (command == commands_.end()) {
        return {Outcome::bad_usage, words.empty() ? "no command (see quillon-ctl help)"
                                                  : fmt::format("no command '{}' (see quillon-ctl help)", words[0])};
    }
    const auto &[name, entry] = *command;
    const Arguments arguments = words.subspan(1);
    const Count count = count_of_arguments(entry.usage);
    if (arguments.size() < count.least || arguments.size() > count.most) {
        return {Outcome::bad_usage, fmt::format("usage: quillon-ctl {}", line_of(name, entry.usage))};
    }
    try {
        return {Outcome::done, entry.run(arguments)};
    } catch (const std::exception &error) {
        return {Outcome::refused, fmt::format("{}: {}", name, error.what())};
    }
}

std::string ControlCommands::help() const
{
    size_t width = 0;
    for (const auto &[name, command] : commands_) {
        width = std::max(width, line_of(name, command.usage).size());
    }
    std::string text;
    for (const auto &[name, command] : commands_) {
        text += fmt::format("{:<{}}  {}\n", line_of(name, command.usage), width, command.help);
    }
    return text;
}

uint32_t number_argument(std::string_view text, std::string_view what, uint32_t least, uint32_t most)
{
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    const std::string_view digits = hexadecimal ? text.substr(2) : text;
    uint32_t value = 0;
    const char *const end = digits.data() + digits.size();
    const auto [parsed, error] = std::from_chars(digits.data(), end, value, hexadecimal ? 16 : 10);
    if (error != std::errc() || parsed != end || value < least || value > most) {
        throw ControlError(fmt::format("{} is a number from {} to {}, not '{}'", what, least, most, text));
    }
    return value;
}

LogicalPort port_argument(std::string_view unit, std::string_view port, const Stack &stack)
{
    return {.unit = number_argument(unit, "UNIT", 1, stack.shape().units),
            .port = number_argument(port, "PORT", 1, stack.shape().ports)};
}

}  // namespace quillon::driver
