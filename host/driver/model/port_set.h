// A set of ports of the stack.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <array>
#include <bit>
#include <initializer_list>

#include "host/driver/model/stack.h"

namespace quillon::driver {

// Ports of one unit: bit 0 stands for port 1.
using PortMask = uint64_t;
static_assert(StackShape::most_ports <= 64);

constexpr PortMask port_bit(uint32_t port)
{
    return PortMask{1} << (port - 1);
}

// The ports from 1 to `count`.
constexpr PortMask first_ports(uint32_t count)
{
    return count == 0 ? 0 : ~PortMask{0} >> (64 - count);
}

// Holds ports that exist in some stack; that they do is its user's to see to.
class PortSet {
  public:
    PortSet() = default;
    PortSet(std::initializer_list<LogicalPort> ports)
    {
        for (const LogicalPort &port : ports) {
            insert(port);
        }
    }

    bool operator==(const PortSet &) const = default;
    bool contains(const LogicalPort &port) const { return (of_unit(port.unit) & port_bit(port.port)) != 0; }
    void insert(const LogicalPort &port) { of_unit(port.unit) |= port_bit(port.port); }
    void erase(const LogicalPort &port) { of_unit(port.unit) &= ~port_bit(port.port); }

    PortMask &of_unit(uint32_t unit) { return units_.at(unit - 1); }
    PortMask of_unit(uint32_t unit) const { return units_.at(unit - 1); }

    uint32_t size() const
    {
        uint32_t count = 0;
        for (const PortMask mask : units_) {
            count += static_cast<uint32_t>(std::popcount(mask));
        }
        return count;
    }

  private:
    std::array<PortMask, StackShape::most_units> units_{};
};

}  // namespace quillon::driver
