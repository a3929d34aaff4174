// How the other units of the stack are reached. Every unit has a fabric chip with two stacking ports, and on it a link
// to each of the unit's own chips.
#pragma once

#include <stdint.h>

#include <array>
#include <optional>

#include "host/driver/model/stack.h"

namespace quillon::driver {

class Topology {
  public:
    static constexpr uint32_t stacking_ports = 2;

    // Units as a set: bit 0 stands for unit 1.
    using UnitMask = uint32_t;
    static_assert(StackShape::most_units <= 32);

    // A ring in the order of the units' numbers, each reached by the shorter way. Unit 1 is the master.
    explicit Topology(const Stack &stack);

    // False, and nothing changes, when there are units that do not exist, the local one or one in both sets, and when
    // the master is not reached.
    bool set(const Stack &stack, const std::array<UnitMask, stacking_ports> &reached, uint32_t master);

    uint32_t master() const { return master_; }

    // The stacking ports from 1 on, 0 for the local unit. Nothing for a unit that is not reached.
    std::optional<uint32_t> port_towards(uint32_t unit) const;

    // Those by which units are reached: bit 0 stands for stacking port 1.
    uint32_t forwarding_ports() const;

  private:
    std::array<UnitMask, stacking_ports> reached_{};
    uint32_t master_ = 1;
};

}  // namespace quillon::driver
