// Routing on and off.
#include "host/driver/handlers.h"
#include "swdrvl3/commands.h"

namespace quillon::driver {
namespace {

template <class Enable, class Disable, class Set>
void add_switch(Dispatcher &dispatcher, SharedSwitch &model, Set set)
{
    const auto handler = [&model, set](bool on) {
        return [&model, set, on](const swdrvl3::RoutingSwitch &request) {
            const uint32_t unit = request.arg1;
            const uint32_t reserved = request.arg2;
            return reserved == 0 &&
                   model.lock()->chips.routing.change(unit, [&](UnitRouting &routing) { set(routing, on); });
        };
    };
    dispatcher.on<Enable>(handler(true));
    dispatcher.on<Disable>(handler(false));
}

}  // namespace

void add_swdrvl3_routing(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_switch<swdrvl3::EnableUnicastStormProtect, swdrvl3::DisableUnicastStormProtect>(
        dispatcher, model, [](UnitRouting &routing, bool on) { routing.unicast_storm_protection = on; });
    add_switch<swdrvl3::EnableRouting, swdrvl3::DisableRouting>(
        dispatcher, model, [](UnitRouting &routing, bool on) { routing.ipv4 = routing.ipv6 = on; });
    add_switch<swdrvl3::EnableIPv4Routing, swdrvl3::DisableIPv4Routing>(
        dispatcher, model, [](UnitRouting &routing, bool on) { routing.ipv4 = on; });
    add_switch<swdrvl3::EnableIPv6Routing, swdrvl3::DisableIPv6Routing>(
        dispatcher, model, [](UnitRouting &routing, bool on) { routing.ipv6 = on; });
}

}  // namespace quillon::driver
