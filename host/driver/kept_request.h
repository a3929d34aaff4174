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

using KeptKey = std::optional<KeptSettings::Words>;

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

// Has it no longer kept. Refuses also what is not kept with this value.
template <class C, class Read>
void forget(Dispatcher &dispatcher, SharedSwitch &model, Setting setting, Read read)
{
    dispatcher.on<C>([&model, setting, read](const auto &...request) {
        const auto access = model.lock();
        const std::optional<KeptRequest> kept = read(access->stack, request...);
        return kept && access->chips.kept.erase(setting, kept->key, kept->value);
    });
}

// Keeps whether a setting is on, as On and Off say, behind the key that `key_of` makes of the stack and the request.
template <class On, class Off, class KeyOf>
void keep_switched(Dispatcher &dispatcher, SharedSwitch &model, Setting setting, KeyOf key_of)
{
    const auto keeps = [key_of](uint32_t on) {
        return [key_of, on](const auto &...stack_and_request) -> std::optional<KeptRequest> {
            KeptKey key = key_of(stack_and_request...);
            return key ? std::optional(KeptRequest{.key = *std::move(key), .value = {on}}) : std::nullopt;
        };
    };
    keep<On>(dispatcher, model, setting, keeps(1));
    keep<Off>(dispatcher, model, setting, keeps(0));
}

// Of the whole switch.
template <class On, class Off>
void keep_switched(Dispatcher &dispatcher, SharedSwitch &model, Setting setting)
{
    keep_switched<On, Off>(dispatcher, model, setting,
                           [](const auto &.../*stack_and_request*/) { return KeptKey(KeptSettings::Words{}); });
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
