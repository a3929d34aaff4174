// All that the driver process keeps. What is slow or waits stands apart, so that it holds up nobody else.
#pragma once

#include "host/driver/model/switch.h"

namespace quillon::driver {

struct Models {
    explicit Models(const StackShape &shape) : chips(shape) {}

    SharedSwitch chips;
};

}  // namespace quillon::driver
