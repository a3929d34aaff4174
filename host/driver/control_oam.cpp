// OAM events that are raised.
#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <string_view>

#include "host/driver/control_commands.h"

namespace quillon::driver {
namespace {

struct Name {
    std::string_view text;
    OamEvent event;
};

constexpr Name names[] = {
    {"loss-of-continuity", OamEvent::loss_of_continuity},
    {"unexpected-mep", OamEvent::unexpected_mep},
    {"mismerge", OamEvent::mismerge},
    {"unexpected-period", OamEvent::unexpected_period},
    {"unexpected-level", OamEvent::unexpected_level},
    {"remote-defect", OamEvent::remote_defect},
};

OamEvent event_argument(std::string_view text)
{
    const auto *const found = std::ranges::find(names, text, &Name::text);
    if (found == std::end(names)) {
        std::string known;
        for (const Name &name : names) {
            known += fmt::format("{}{}", known.empty() ? "" : ", ", name.text);
        }
        throw ControlError(fmt::format("no event '{}' ({})", text, known));
    }
    return found->event;
}

size_t engine_argument(std::string_view text)
{
    if (text != "ingress" && text != "egress") {
        throw ControlError(fmt::format("an OAM engine is ingress or egress, not '{}'", text));
    }
    return text == "ingress" ? 0 : 1;
}

}  // namespace

void add_oam_control(ControlCommands &commands, SharedSwitch &model, OamDelivery &delivery)
{
    commands.add("raise-event", "EVENT [ENTRY] [ingress|egress]", "Raises an OAM event, found at an entry that is set",
                 [&model, &delivery](ControlCommands::Arguments arguments) {
                     const OamEvent event = event_argument(arguments[0]);
                     if (arguments.size() > 1) {
                         const uint32_t entry = number_argument(arguments[1], "ENTRY", 0, OamEntries::most - 1);
                         const size_t engine = arguments.size() > 2 ? engine_argument(arguments[2]) : 0;
                         if (!model.lock()->chips.oam_entries[engine].detect(entry, event)) {
                             throw ControlError(fmt::format("OAM entry {} is not set", entry));
                         }
                     }
                     return fmt::format("bindings {}\n", delivery.raise(event));
                 });
}

}  // namespace quillon::driver
