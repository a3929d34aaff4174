// User priorities of frames, and the traffic classes that they go to.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <array>

#include "host/driver/model/per_port.h"
#include "host/driver/model/stack.h"

namespace quillon::driver {

inline constexpr uint32_t priority_count = 8;

constexpr bool is_priority(uint32_t value)
{
    return value < priority_count;
}

// The traffic class of each priority.
using PriorityMapping = std::array<uint8_t, priority_count>;

// What 802.1Q recommends for a number of traffic classes from 1 to 8.
const PriorityMapping &recommended_mapping(uint32_t classes);

struct PortPriorities {
    uint32_t default_priority = 0;  // of frames that bring none
    uint32_t classes = priority_count;
    PriorityMapping mapping = recommended_mapping(priority_count);
    PriorityMapping stacking_mapping = recommended_mapping(priority_count);  // while the port is a stacking port

    bool operator==(const PortPriorities &) const = default;
};

// What its functions set for the system they set for each port. They return false, and change nothing, for ports that
// do not exist and values out of range.
class Priorities {
  public:
    explicit Priorities(const Stack &stack) : ports_(stack) {}

    const PortPriorities *find(const LogicalPort &port) const { return ports_.find(port); }

    bool set_default_priority(const LogicalPort &port, uint32_t priority);

    // The mapping becomes the recommended one.
    bool set_classes(const LogicalPort &port, uint32_t classes);
    bool set_system_classes(uint32_t classes);

    // False also when a priority would go to a class that the port, or one of all ports, does not have.
    bool set_mapping(const LogicalPort &port, const PriorityMapping &mapping);
    bool set_system_mapping(const PriorityMapping &mapping);

    // Stacking ports have all classes.
    bool set_stacking_mapping(const LogicalPort &port, const PriorityMapping &mapping);

  private:
    PerPort<PortPriorities> ports_;
};

}  // namespace quillon::driver
