// What a port trusts, and its mapping tables of CoS, precedence and DSCP.
#include "host/driver/handlers.h"
#include "host/driver/swdrvl4_values.h"
#include "swdrvl4/commands.h"

namespace quillon::driver {
namespace {

// Nothing, or the CoS, the precedence or the DSCP.
constexpr uint32_t trust_modes = 4;

// With the CoS stands the drop eligible indicator, with the DSCP the drop colour.
bool is_cos_and_dscp(const swdrvl4::CosDscp &request)
{
    return is_priority(request.cos) && request.cos_extra <= 1 && is_dscp(request.dscp) && is_color(request.dscp_extra);
}

}  // namespace

void add_swdrvl4_dscp_mapping(Dispatcher &dispatcher, SharedSwitch &model)
{
    keep<swdrvl4::SetCosTrustMode>(dispatcher, model, Setting::cos_trust,
                                   [](const Stack &stack, const swdrvl4::PortWord &request) {
                                       return of_port(stack, request, request.value < trust_modes, {}, {request.value});
                                   });
    keep<swdrvl4::SetQosIngCos2Dscp>(
        dispatcher, model, Setting::cos_to_dscp, [](const Stack &stack, const swdrvl4::CosDscp &request) {
            return of_port(stack, request, is_cos_and_dscp(request), {request.cos, request.cos_extra},
                           {request.dscp, request.dscp_extra});
        });
    keep<swdrvl4::SetQosIngDscp2Cos>(
        dispatcher, model, Setting::dscp_to_cos, [](const Stack &stack, const swdrvl4::CosDscp &request) {
            return of_port(stack, request, is_cos_and_dscp(request), {request.dscp, request.dscp_extra},
                           {request.cos, request.cos_extra});
        });
    keep<swdrvl4::SetQosIngPre2Dscp>(
        dispatcher, model, Setting::precedence_to_dscp, [](const Stack &stack, const swdrvl4::PrecedenceDscp &request) {
            const bool in_range =
                is_priority(request.precedence) && is_dscp(request.dscp) && is_color(request.dscp_extra);
            return of_port(stack, request, in_range, {request.precedence}, {request.dscp, request.dscp_extra});
        });
    keep<swdrvl4::SetQosIngDscp2Dscp>(
        dispatcher, model, Setting::dscp_to_dscp, [](const Stack &stack, const swdrvl4::DscpDscp &request) {
            const bool in_range =
                is_dscp(request.dscp) && is_dscp(request.new_dscp) && is_color(request.new_dscp_extra);
            return of_port(stack, request, in_range, {request.dscp}, {request.new_dscp, request.new_dscp_extra});
        });
    keep<swdrvl4::SetQosIngDscp2Queue>(
        dispatcher, model, Setting::dscp_to_queue, [](const Stack &stack, const swdrvl4::DscpQueue &request) {
            return of_port(stack, request, is_dscp(request.dscp) && is_queue(request.queue), {request.dscp},
                           {request.queue});
        });
    keep<swdrvl4::SetQosIngDscp2Color>(
        dispatcher, model, Setting::dscp_to_color, [](const Stack &stack, const swdrvl4::DscpColor &request) {
            return of_port(stack, request, is_dscp(request.dscp) && is_color(request.color), {request.dscp},
                           {request.color});
        });
}

}  // namespace quillon::driver
