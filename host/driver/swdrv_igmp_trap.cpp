// IGMP trap.
#include "host/driver/handlers.h"
#include "host/driver/request_values.h"
#include "swdrv/commands.h"

namespace quillon::driver {

void add_swdrv_igmp_trap(Dispatcher &dispatcher, SharedSwitch &model)
{
    const auto enable = [&model](bool on) {
        return [&model, on] {
            model.lock()->chips.igmp_trap.enabled = on;
            return true;
        };
    };
    dispatcher.on<swdrv::EnableIgmpTrap>(enable(true));
    dispatcher.on<swdrv::DisableIgmpTrap>(enable(false));
    dispatcher.on<swdrv::TrapIGMPToCPU>([&model](const swdrv::Flags<2> &request) {
        const auto reports = as_bool(request.values[0]);
        const auto queries = as_bool(request.values[1]);
        if (!reports || !queries) {
            return false;
        }
        const auto access = model.lock();
        access->chips.igmp_trap.reports = *reports;
        access->chips.igmp_trap.queries = *queries;
        return true;
    });
}

}  // namespace quillon::driver
