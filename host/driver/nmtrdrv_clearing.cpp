// Clearing counters.
#include "host/driver/handlers.h"
#include "host/driver/on_switch.h"
#include "host/driver/request_values.h"
#include "nmtrdrv/commands.h"

namespace quillon::driver {

void add_nmtrdrv_clearing(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_switch<nmtrdrv::ClearPortCounter>(
        dispatcher, model, [](Switch &chips, const nmtrdrv::Port &request, nmtrdrv::NoFields & /*reply*/) {
            PortTraffic *const traffic = chips.chips.traffic.find(logical(request));
            if (traffic != nullptr) {
                traffic->counters = {};
            }
            return traffic != nullptr;
        });
    on_switch<nmtrdrv::ClearAllCounters>(
        dispatcher, model, [](Switch &chips, const nmtrdrv::NoFields & /*request*/, nmtrdrv::NoFields & /*reply*/) {
            for (PortTraffic &traffic : chips.chips.traffic) {
                traffic.counters = {};
            }
            return true;
        });
}

}  // namespace quillon::driver
