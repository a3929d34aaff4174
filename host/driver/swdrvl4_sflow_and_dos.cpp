// sFlow sampling and the DoS protection filters.
#include "host/driver/handlers.h"
#include "host/driver/swdrvl4_values.h"
#include "swdrvl4/commands.h"

namespace quillon::driver {

void add_swdrvl4_sflow_and_dos(Dispatcher &dispatcher, SharedSwitch &model)
{
    keep<swdrvl4::EnablePortSflow>(dispatcher, model, Setting::sflow_direction,
                                   [](const Stack &stack, const swdrvl4::PortFlag &request) {
                                       constexpr uint8_t both = 3;  // received and sent packets have a bit each
                                       return of_port(stack, request, request.value <= both, {}, {request.value});
                                   });
    keep<swdrvl4::SetPortSflowRate>(dispatcher, model, Setting::sflow_rate,
                                    [](const Stack &stack, const swdrvl4::PortWord &request) {
                                        constexpr uint32_t most = (1U << 24) - 1;
                                        return of_port(stack, request, request.value <= most, {}, {request.value});
                                    });
    keep<swdrvl4::SetDosProtectionFilter>(
        dispatcher, model, Setting::dos_filter, [](const Stack & /*stack*/, const swdrvl4::DosFilter &request) {
            constexpr uint32_t filters = 8;
            return of_switch(request.filter >= 1 && request.filter <= filters && request.mode <= 1, {request.filter},
                             {request.mode});
        });
}

}  // namespace quillon::driver
