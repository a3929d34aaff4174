// Requests that read one value of how a port runs.
#pragma once

#include "host/driver/dispatcher.h"
#include "host/driver/model/switch.h"
#include "host/driver/request_values.h"
#include "swdrv/commands.h"

namespace quillon::driver {

// Answers C with what `read` makes of the port.
template <class C, class Read>
void on_running_port(Dispatcher &dispatcher, SharedSwitch &model, Read read)
{
    dispatcher.on<C>([&model, read](const swdrv::Port &request, swdrv::Word &reply) {
        const auto access = model.lock();
        const auto port = access->running_port(logical(request));
        reply.value = port ? read(*port) : 0;
        return port.has_value();
    });
}

}  // namespace quillon::driver
