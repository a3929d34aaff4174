#include "host/driver/model/stack.h"

#include <algorithm>

namespace quillon::driver {

bool Stack::has(const LogicalPort &port) const
{
    return has_unit(port.unit) && port.port >= 1 && port.port <= shape_.ports;
}

// How many of a unit's ports are on the chips before this one. The first chips have one more where it does not come out
// even.
uint32_t Stack::ports_before(uint32_t device_id) const
{
    const uint32_t run = shape_.ports / shape_.chips;
    const uint32_t longer_runs = shape_.ports % shape_.chips;
    return device_id * run + std::min(device_id, longer_runs);
}

std::optional<ChipPort> Stack::to_chip(const LogicalPort &port) const
{
    if (!has(port)) {
        return std::nullopt;
    }
    uint32_t device_id = 0;
    while (ports_before(device_id + 1) < port.port) {
        ++device_id;
    }
    return ChipPort{.module_id = *module_of(port.unit, device_id),
                    .device_id = device_id,
                    .phy_port = port.port - ports_before(device_id)};
}

std::optional<LogicalPort> Stack::to_logical(const ChipPort &port) const
{
    if (port.module_id == 0) {
        return std::nullopt;
    }
    const uint32_t unit = unit_of(port.module_id);
    if (device_of(unit, port.module_id) != port.device_id || port.phy_port == 0 ||
        port.phy_port > ports_before(port.device_id + 1) - ports_before(port.device_id)) {
        return std::nullopt;
    }
    return LogicalPort{.unit = unit, .port = ports_before(port.device_id) + port.phy_port};
}

std::optional<uint32_t> Stack::device_of(uint32_t unit, uint32_t module_id) const
{
    if (!has_unit(unit)) {
        return std::nullopt;
    }
    const uint32_t first_module = (unit - 1) * shape_.chips + 1;
    if (module_id < first_module || module_id - first_module >= shape_.chips) {
        return std::nullopt;
    }
    return module_id - first_module;
}

std::optional<uint32_t> Stack::module_of(uint32_t unit, uint32_t device_id) const
{
    if (!has_unit(unit) || device_id >= shape_.chips) {
        return std::nullopt;
    }
    return (unit - 1) * shape_.chips + 1 + device_id;
}

}  // namespace quillon::driver
