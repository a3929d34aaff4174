// Class-of-service mapping, of the whole switch and of one port.
#include <array>

#include "host/driver/handlers.h"
#include "host/driver/swdrvl4_values.h"
#include "swdrvl4/commands.h"

namespace quillon::driver {
namespace {

using Words = KeptSettings::Words;

// How many values each mapping maps: those of the user priority, of the IP precedence, of the DSCP.
constexpr std::array<uint32_t, 4> mapped_values = {0, 8, 8, 64};

bool is_mapping(uint32_t mapping)
{
    return mapping > 0 && mapping < mapped_values.size();
}

bool can_map(const auto &request)
{
    return is_mapping(request.mapping) && request.value < mapped_values[request.mapping] &&
           is_priority(request.priority);
}

}  // namespace

void add_swdrvl4_cos_mapping(Dispatcher &dispatcher, SharedSwitch &model)
{
    keep_switched<swdrvl4::EnableCosMapping, swdrvl4::DisableCosMapping>(
        dispatcher, model, Setting::cos_mapping_enabled, [](const Stack & /*stack*/, const swdrvl4::Word &request) {
            return is_mapping(request.value) ? KeptKey(Words{request.value}) : std::nullopt;
        });
    keep_switched<swdrvl4::EnablePortCosMapping, swdrvl4::DisablePortCosMapping>(
        dispatcher, model, Setting::cos_mapping_enabled, [](const Stack &stack, const swdrvl4::PortWord &request) {
            return stack.has(logical(request)) && is_mapping(request.value)
                       ? KeptKey(Words{request.unit, request.port, request.value})
                       : std::nullopt;
        });

    const auto mapping = [](const Stack & /*stack*/, const swdrvl4::CosMapping &request) {
        return of_switch(can_map(request), {request.mapping, request.value}, {request.priority});
    };
    const auto port_mapping = [](const Stack &stack, const swdrvl4::PortCosMapping &request) {
        return of_port(stack, request, can_map(request), {request.mapping, request.value}, {request.priority});
    };
    keep<swdrvl4::SetCosMapping>(dispatcher, model, Setting::cos_mapping, mapping);
    forget<swdrvl4::DeleteCosMapping>(dispatcher, model, Setting::cos_mapping, mapping);
    keep<swdrvl4::SetPortCosMapping>(dispatcher, model, Setting::cos_mapping, port_mapping);
    forget<swdrvl4::DeletePortCosMapping>(dispatcher, model, Setting::cos_mapping, port_mapping);
}

}  // namespace quillon::driver
