// What requests of all families carry, as the model has it.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <optional>
#include <span>

#include "host/driver/model/port_set.h"
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

// A bit for each port of a unit, bit 0 of the first byte for port 1. Nothing when there are ports that no unit has.
constexpr std::optional<PortMask> decoded_bitmap(std::span<const uint8_t> bitmap)
{
    PortMask ports = 0;
    for (size_t byte = 0; byte < bitmap.size(); ++byte) {
        if (byte < sizeof ports) {
            ports |= PortMask{bitmap[byte]} << 8 * byte;
        } else if (bitmap[byte] != 0) {
            return std::nullopt;
        }
    }
    return ports;
}

}  // namespace quillon::driver
