// Cables that are pulled and plugged.
#include <fmt/format.h>

#include "host/driver/control_commands.h"

namespace quillon::driver {

void add_cable_control(ControlCommands &commands, SharedSwitch &model)
{
    commands.add("cable", "UNIT PORT pull|plug", "Pulls or plugs the cable of a port",
                 [&model](ControlCommands::Arguments arguments) -> std::string {
                     const std::string &action = arguments[2];
                     if (action != "pull" && action != "plug") {
                         throw ControlError(fmt::format("a cable is to pull or plug, not to '{}'", action));
                     }
                     const auto access = model.lock();
                     const LogicalPort port = port_argument(arguments[0], arguments[1], access->stack);
                     access->lines.find(port)->plugged = action == "plug";
                     return {};
                 });
}

}  // namespace quillon::driver
