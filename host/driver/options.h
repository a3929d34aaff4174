// The command line of quillon-driver.
#pragma once

#include <optional>
#include <variant>

#include "host/driver/event_log.h"
#include "host/driver/model/stack.h"

namespace quillon::driver {

struct Options {
    StackShape shape;
    Level log_level = Level::info;
    std::optional<int> ready_descriptor;
};

// The options, or the exit status of a program that has nothing more to do: it has printed its help or its version, or
// one line on standard error that says what is wrong.
std::variant<Options, int> parse_options(int argc, char **argv);

}  // namespace quillon::driver
