// Port security.
#include "host/driver/handlers.h"
#include "host/driver/swdrvl4_values.h"
#include "swdrvl4/commands.h"

namespace quillon::driver {

void add_swdrvl4_port_security(Dispatcher &dispatcher, SharedSwitch &model)
{
    keep_switched<swdrvl4::EnablePortSecurity, swdrvl4::DisablePortSecurity>(dispatcher, model, Setting::port_security,
                                                                             key_of_port);
    keep<swdrvl4::SetPortSecurityMode>(
        dispatcher, model, Setting::port_security_mode, [](const Stack &stack, const swdrvl4::PortWord &request) {
            constexpr uint32_t modes = 3;  // frames of unknown senders: dropped, for the CPU alone, for it as well
            return of_port(stack, request, request.value >= 1 && request.value <= modes, {}, {request.value});
        });
}

}  // namespace quillon::driver
