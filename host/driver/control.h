// Commands from outside: what happens to a switch that no request can make happen, such as a cable that is pulled.
#pragma once

#include <stdint.h>

#include <functional>
#include <map>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "host/control_protocol.h"
#include "host/driver/model/stack.h"

namespace quillon::driver {

// Why a command is refused: one clear line for the user.
class ControlError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

class ControlCommands {
  public:
    using Arguments = std::span<const std::string>;

    // Returns what is printed, lines that end with a newline or nothing. Called on the control socket's thread.
    using Run = std::function<std::string(Arguments)>;

    ControlCommands();

    // `usage` names the arguments, as the help shows them, and says how many there are: "UNIT PORT pull|plug",
    // "[COUNT]" for one that can be left out, "HEX..." for one or more at the end.
    void add(std::string name, std::string usage, std::string help, Run run);

    // Never throws for what `words` say.
    control::Answer run(std::span<const std::string> words) const;

  private:
    struct Command {
        std::string usage;
        std::string help;
        Run run;
    };

    std::string help() const;

    std::map<std::string, Command, std::less<>> commands_;
};

// The number that an argument says, decimal or hexadecimal with 0x. Throws ControlError for anything else.
uint32_t number_argument(std::string_view text, std::string_view what, uint32_t least, uint32_t most);

// The port that a UNIT and a PORT argument say. Throws ControlError for one that does not exist.
LogicalPort port_argument(std::string_view unit, std::string_view port, const Stack &stack);

}  // namespace quillon::driver
