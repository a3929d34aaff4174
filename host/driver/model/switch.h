// The switch that the driver process pretends to own. Each subject has a header of its own in this folder; here they
// are put together.
#pragma once

#include "host/driver/model/guarded.h"
#include "host/driver/model/per_port.h"
#include "host/driver/model/port_overrides.h"
#include "host/driver/model/stack.h"

namespace quillon::driver {

class Switch {
  public:
    explicit Switch(const StackShape &shape) : stack(shape), overrides(stack) {}

    // Puts the chips back in the state that they start in.
    void reset_chips() { overrides.reset(); }

    const Stack stack;
    PerPort<PortOverrides> overrides;
};

using SharedSwitch = Guarded<Switch>;

}  // namespace quillon::driver
