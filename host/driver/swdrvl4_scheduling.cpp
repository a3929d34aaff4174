// Egress scheduling and queue weights.
#include "host/driver/handlers.h"
#include "host/driver/swdrvl4_values.h"
#include "swdrvl4/commands.h"

namespace quillon::driver {
namespace {

// Strict priority, weighted round robin, or both.
bool is_method(uint32_t method)
{
    return method >= 1 && method <= 3;
}

bool is_weighted(const auto &request)
{
    return is_queue(request.queue) && request.weight >= 1 && request.weight <= 255;
}

}  // namespace

void add_swdrvl4_scheduling(Dispatcher &dispatcher, SharedSwitch &model)
{
    keep<swdrvl4::SetEgressSchedulingMethod>(dispatcher, model, Setting::scheduling_method,
                                             [](const Stack & /*stack*/, const swdrvl4::Scheduling &request) {
                                                 return of_switch(is_method(request.method), {}, {request.method});
                                             });
    keep<swdrvl4::SetPortEgressSchedulingMethod>(
        dispatcher, model, Setting::scheduling_method, [](const Stack &stack, const swdrvl4::Scheduling &request) {
            return of_port(stack, request, is_method(request.method), {}, {request.method});
        });
    keep<swdrvl4::SetEgressSpSchedulingQueues>(
        dispatcher, model, Setting::strict_queue, [](const Stack &stack, const swdrvl4::SpScheduling &request) {
            return of_port(stack, request, is_queue(request.queue) && request.mode <= 1, {request.queue},
                           {request.mode});
        });
    keep<swdrvl4::SetStrictPriorityQueue>(dispatcher, model, Setting::strict_queue,
                                          [](const Stack & /*stack*/, const swdrvl4::Word &request) {
                                              return of_switch(is_queue(request.value), {request.value}, {1});
                                          });
    keep<swdrvl4::SetWrrQueueWeight>(dispatcher, model, Setting::queue_weight,
                                     [](const Stack & /*stack*/, const swdrvl4::QueueWeight &request) {
                                         return of_switch(is_weighted(request), {request.queue}, {request.weight});
                                     });
    keep<swdrvl4::SetPortWrrQueueWeight>(
        dispatcher, model, Setting::queue_weight, [](const Stack &stack, const swdrvl4::PortQueueWeight &request) {
            return of_port(stack, request, is_weighted(request), {request.queue}, {request.weight});
        });
}

}  // namespace quillon::driver
