#include "host/run/options.h"

#include <fmt/format.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <string_view>

namespace quillon::run {
namespace {

// What is passed on to the driver process, which knows what it accepts.
struct DriverOption {
    const char *name;
    const char *help;
    std::string value = {};
};

// COMMAND is no option of CLI11's.
class HelpFormatter : public CLI::Formatter {
    std::string make_usage(const CLI::App * /*app*/, std::string name) const override
    {
        return "Usage: " + name + " [OPTIONS] -- COMMAND [ARGUMENT]...\n";
    }
};

// Programs of one build or one installation stand side by side.
std::string driver_beside_this_program()
{
    std::error_code error;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? "quillon-driver" : self.parent_path() / "quillon-driver";
}

}  // namespace

std::variant<Options, int> parse_options(int argc, char **argv)
{
    Options options;
    std::string driver = driver_beside_this_program();
    DriverOption driver_options[] = {{"--units", "Units in the stack"},
                                     {"--ports", "Ports of each unit"},
                                     {"--chips", "Switch chips of each unit"},
                                     {"--log-level", "What the driver process logs", "warning"}};

    CLI::App app("Runs COMMAND with a software driver process of its own.", "quillon-run");
    app.formatter(std::make_shared<HelpFormatter>());
    app.footer(
        "COMMAND finds the driver process through QUILLON_RUNTIME_DIR, a private folder that is removed afterwards.\n"
        "Should the driver process die while COMMAND runs, it is started again.\n"
        "Exit status: COMMAND's, 128 and its number when a signal killed COMMAND, 127 when there is no COMMAND,\n"
        "126 when it cannot be executed, 1 when the driver process does not start, 2 for bad options.");
    app.set_version_flag("--version", "quillon-run " QUILLON_VERSION);
    for (DriverOption &option : driver_options) {
        app.add_option(option.name, option.value, option.help)->capture_default_str();
    }
    app.add_option("--driver", driver, "The driver process's program")->capture_default_str();

    // Only what stands before `--` is quillon-run's own.
    char **const end = argv + argc;
    char **const separator = std::find(argv, end, std::string_view("--"));
    try {
        app.parse(static_cast<int>(separator - argv), argv);
        if (separator == end || separator + 1 == end) {
            throw CLI::RequiredError("-- COMMAND");
        }
    } catch (const CLI::Success &help_or_version) {
        return app.exit(help_or_version);
    } catch (const CLI::ParseError &error) {
        fmt::print(stderr, "quillon-run: {} (see --help)\n", error.what());
        return exit_bad_usage;
    }
    options.command.assign(separator + 1, end);
    options.driver = {driver};
    for (const DriverOption &option : driver_options) {
        if (!option.value.empty()) {
            options.driver.push_back(fmt::format("{}={}", option.name, option.value));
        }
    }
    return options;
}

}  // namespace quillon::run
