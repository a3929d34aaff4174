// Storm control.
#include "host/driver/handlers.h"
#include "host/driver/request_values.h"
#include "host/driver/swdrv_encoding.h"
#include "swdrv/commands.h"

namespace quillon::driver {
namespace {

// The requests for one kind of frames.
template <class SetThreshold, class Enable, class Disable>
void add_kind(Dispatcher &dispatcher, SharedSwitch &model, StormKind kind)
{
    dispatcher.on<SetThreshold>([&model, kind](const swdrv::Words<4> &request) {
        const auto [unit, port, threshold, threshold_unit] = request.values;
        const auto counted_in = decoded<StormUnit>(threshold_unit);
        return counted_in && model.lock()->chips.storm_control.set_threshold(kind, {.unit = unit, .port = port},
                                                                             *counted_in, threshold);
    });

    const auto enable = [&model, kind](bool on) {
        return [&model, kind, on](const swdrv::Port &request) {
            return model.lock()->chips.storm_control.enable(kind, logical(request), on);
        };
    };
    dispatcher.on<Enable>(enable(true));
    dispatcher.on<Disable>(enable(false));
}

}  // namespace

void add_swdrv_storm_control(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_kind<swdrv::SetBroadcastStormControlThreshold, swdrv::EnableBroadcastStormControl,
             swdrv::DisableBroadcastStormControl>(dispatcher, model, StormKind::broadcast);
    add_kind<swdrv::SetMulticastStormControlThreshold, swdrv::EnableMulticastStormControl,
             swdrv::DisableMulticastStormControl>(dispatcher, model, StormKind::multicast);
    add_kind<swdrv::SetUnknownUnicastStormControlThreshold, swdrv::EnableUnknownUnicastStormControl,
             swdrv::DisableUnknownUnicastStormControl>(dispatcher, model, StormKind::unknown_unicast);

    dispatcher.on<swdrv::GetPortStormGranularity>([&model](const swdrv::PortWord &request, swdrv::Word &reply) {
        const auto counted_in = decoded<StormUnit>(request.value);
        const auto granularity =
            counted_in ? model.lock()->chips.storm_control.granularity(logical(request), *counted_in) : std::nullopt;
        reply.value = granularity.value_or(0);
        return granularity.has_value();
    });
}

}  // namespace quillon::driver
