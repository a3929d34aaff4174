// The command line of quillon-run.
#pragma once

#include <string>
#include <variant>
#include <vector>

namespace quillon::run {

// Exit statuses of its own, as a shell has them. COMMAND's status is passed on otherwise.
inline constexpr int exit_failed = 1;
inline constexpr int exit_bad_usage = 2;
inline constexpr int exit_cannot_execute = 126;
inline constexpr int exit_not_found = 127;
inline constexpr int exit_signal_base = 128;

struct Options {
    std::vector<std::string> driver;   // the driver process's program and its arguments
    std::vector<std::string> command;  // never empty
};

// The options, or the exit status of a program that has nothing more to do: it has printed its help or its version, or
// one line on standard error that says what is wrong.
std::variant<Options, int> parse_options(int argc, char **argv);

}  // namespace quillon::run
