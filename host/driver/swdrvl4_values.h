// What the QoS requests carry, and in which ranges. docs/driver-encodings.md tells it to their callers.
#pragma once

#include <stdint.h>

#include <optional>
#include <utility>

#include "host/driver/kept_request.h"
#include "host/driver/model/priorities.h"
#include "host/driver/request_values.h"

namespace quillon::driver {

// A queue for each traffic class.
constexpr bool is_queue(uint32_t value)
{
    return value < priority_count;
}

constexpr bool is_dscp(uint32_t value)
{
    return value < 64;
}

// Green, yellow or red.
constexpr bool is_color(uint32_t value)
{
    return value < 3;
}

// A setting of the request's port: `key` says which one of several. Nothing for a port that does not exist, and for
// what is out of range.
std::optional<KeptRequest> of_port(const Stack &stack, const auto &request, bool in_range, KeptSettings::Words key,
                                   KeptSettings::Words value)
{
    if (!stack.has(logical(request)) || !in_range) {
        return std::nullopt;
    }
    key.insert(key.begin(), {request.unit, request.port});
    return KeptRequest{.key = std::move(key), .value = std::move(value)};
}

// The same of the whole switch.
inline std::optional<KeptRequest> of_switch(bool in_range, KeptSettings::Words key, KeptSettings::Words value)
{
    return in_range ? std::optional(KeptRequest{.key = std::move(key), .value = std::move(value)}) : std::nullopt;
}

inline constexpr auto key_of_port = [](const Stack &stack, const auto &request) {
    return stack.has(logical(request)) ? KeptKey(KeptSettings::Words{request.unit, request.port}) : std::nullopt;
};

}  // namespace quillon::driver
