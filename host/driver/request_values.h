// What requests of all families carry, as the model has it.
#pragma once

#include <stdint.h>

#include <optional>

#include "host/driver/model/stack.h"

namespace quillon::driver {

LogicalPort logical(const auto &request)
{
    return {.unit = request.unit, .port = request.port};
}

// A flag is a byte on the wire; only two of its values mean something.
constexpr std::optional<bool> as_bool(uint8_t value)
{
    return value <= 1 ? std::optional(value == 1) : std::nullopt;
}

}  // namespace quillon::driver
