// Ingress and egress rate limits of a port.
#include "host/driver/handlers.h"
#include "host/driver/model/port_type.h"
#include "host/driver/swdrvl4_values.h"
#include "swdrvl4/commands.h"

namespace quillon::driver {
namespace {

std::optional<KeptRequest> rate(const Stack &stack, const swdrvl4::PortWord &request)
{
    constexpr uint32_t step = 64;
    const bool in_range = request.value != 0 && request.value % step == 0 &&
                          request.value <= capacity_of(port_type_of(request.port, stack.shape().ports));
    return of_port(stack, request, in_range, {}, {request.value});
}

}  // namespace

void add_swdrvl4_rate_limit(Dispatcher &dispatcher, SharedSwitch &model)
{
    keep_switched<swdrvl4::EnablePortIngressRateLimit, swdrvl4::DisablePortIngressRateLimit>(
        dispatcher, model, Setting::ingress_rate_limited, key_of_port);
    keep_switched<swdrvl4::EnablePortEgressRateLimit, swdrvl4::DisablePortEgressRateLimit>(
        dispatcher, model, Setting::egress_rate_limited, key_of_port);
    keep<swdrvl4::SetPortIngressRateLimit>(dispatcher, model, Setting::ingress_rate, rate);
    keep<swdrvl4::SetPortEgressRateLimit>(dispatcher, model, Setting::egress_rate, rate);
}

}  // namespace quillon::driver
