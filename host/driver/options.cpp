#include "host/driver/options.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <stdio.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace quillon::driver {
namespace {

constexpr int bad_usage = 2;

std::string open_descriptor(const std::string &text)
{
    int descriptor;
    if (!CLI::detail::lexical_cast(text, descriptor) || fcntl(descriptor, F_GETFD) < 0) {
        return "'" + text + "' is not an open descriptor";
    }
    return descriptor == STDERR_FILENO ? "'" + text + "' is the log's descriptor" : std::string();
}

}  // namespace

std::variant<Options, int> parse_options(int argc, char **argv)
{
    Options options;
    std::string level(level_names[static_cast<size_t>(options.log_level)]);
    const std::vector<std::string> levels(std::begin(level_names), std::end(level_names));

    CLI::App app("A software driver process: answers the requests of libquillon from a model of a stack of switches.",
                 "quillon-driver");
    app.footer(
        "It serves the message queues in the folder $QUILLON_RUNTIME_DIR, else $XDG_RUNTIME_DIR/quillon, else\n"
        "/tmp/quillon-<uid>, until it gets SIGTERM or SIGINT. Its log is on standard error.\n"
        "Exit status: 0 ended by a signal, 1 could not serve, 2 bad options.");
    app.set_version_flag("--version", "quillon-driver " QUILLON_VERSION);
    app.add_option("--units", options.shape.units, "Units in the stack")
        ->check(CLI::Range(1U, StackShape::most_units))
        ->capture_default_str();
    app.add_option("--ports", options.shape.ports, "Ports of each unit")
        ->check(CLI::Range(1U, StackShape::most_ports))
        ->capture_default_str();
    app.add_option("--chips", options.shape.chips, "Switch chips of each unit")
        ->check(CLI::Range(1U, StackShape::most_chips))
        ->capture_default_str();
    app.add_option("--log-level", level, "What is logged: this level and those more severe")
        ->check(CLI::IsMember(levels))
        ->capture_default_str();
    app.add_option("--ready-fd", options.ready_descriptor,
                   "Descriptor to write a byte to, and to close, once all queues are served")
        ->check(CLI::Validator(open_descriptor, "FD"));
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success &help_or_version) {
        return app.exit(help_or_version);
    } catch (const CLI::ParseError &error) {
        fmt::print(stderr, "quillon-driver: {} (see --help)\n", error.what());
        return bad_usage;
    }
    options.log_level = *level_named(level);
    return options;
}

}  // namespace quillon::driver
