// Frame sizes.
#include "host/driver/handlers.h"
#include "host/driver/request_values.h"
#include "swdrv/commands.h"

namespace quillon::driver {

void add_swdrv_frame_size(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::SetSystemMTU>([&model](const swdrv::Words<2> &request) {
        const auto [standard, jumbo] = request.values;
        return model.lock()->chips.frame_sizes.set_system_mtu(standard, jumbo);
    });
    dispatcher.on<swdrv::SetPortMTU>([&model](const swdrv::PortWord &request) {
        return model.lock()->chips.frame_sizes.set_port_mtu(logical(request), request.value);
    });
    dispatcher.on<swdrv::GetPortMaxFrameSize>([&model](const swdrv::Port &request, swdrv::Words<2> &reply) {
        const auto size = model.lock()->largest_frame(logical(request));
        if (size) {
            reply.values = {size->untagged, size->tagged};
        }
        return size.has_value();
    });
    dispatcher.on<swdrv::SetPortDot1qTunnelMTU>(
        [&model](const swdrv::Word &request) { return model.lock()->chips.frame_sizes.set_tunnel_mtu(request.value); });

    const auto jumbo_frames = [&model](bool on) {
        return [&model, on] {
            model.lock()->chips.frame_sizes.set_jumbo_frames(on);
            return true;
        };
    };
    dispatcher.on<swdrv::EnableJumboFrame>(jumbo_frames(true));
    dispatcher.on<swdrv::DisableJumboFrame>(jumbo_frames(false));
}

}  // namespace quillon::driver
