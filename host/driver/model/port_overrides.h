// What overrides the hardware's own view of a port: a link held down, a LED pattern shown instead of the port's own.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <vector>

namespace quillon::driver {

struct ForcedLeds {
    static constexpr size_t longest_pattern = 30;

    std::vector<uint8_t> pattern;  // empty while the port shows its own
    uint32_t mode = 0;

    bool operator==(const ForcedLeds &) const = default;
};

struct PortOverrides {
    bool link_down = false;
    ForcedLeds leds;

    bool operator==(const PortOverrides &) const = default;
};

}  // namespace quillon::driver
