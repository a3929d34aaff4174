// Requests whose whole effect is that a setting is kept.
#pragma once

#include <optional>

#include "host/driver/dispatcher.h"
#include "host/driver/model/kept_settings.h"
#include "host/driver/model/switch.h"
#include "host/driver/request_values.h"

namespace quillon::driver {

struct KeptRequest {
    KeptSettings::Words key = {};
    KeptSettings::Words value;
};

// Keeps what `read` makes of the stack and the request of C, if it has one; refuses those that it makes nothing of.
template <class C, class Read>
void keep(Dispatcher &dispatcher, SharedSwitch &model, Setting setting, Read read)
{
    dispatcher.on<C>([&model, setting, read](const auto &...request) {
        const auto access = model.lock();
        std::optional<KeptRequest> kept = read(access->stack, request...);
        if (kept) {
            access->chips.kept.set(setting, std::move(kept->key), std::move(kept->value));
        }
        return kept.has_value();
    });
}

// A flag of each port.
template <class C>
void keep_port_flag(Dispatcher &dispatcher, SharedSwitch &model, Setting setting)
{
    keep<C>(dispatcher, model, setting, [](const Stack &stack, const auto &request) -> std::optional<KeptRequest> {
        if (!stack.has(logical(request)) || !as_bool(request.value)) {
            return std::nullopt;
        }
        return KeptRequest{.key = {request.unit, request.port}, .value = {request.value}};
    });
}

}  // namespace quillon::driver
