// What is at the other end of a port, outside the switch: a reset of the chips does not change it.
#pragma once

#include <stdint.h>

#include "host/driver/model/negotiation.h"
#include "host/driver/model/port_type.h"

namespace quillon::driver {

struct LinkPartner {
    Advertisement advertised;
    RemoteFault remote_fault = RemoteFault::none;
};

struct Line {
    // A plugged cable to a partner that can do all that a port of this type can.
    explicit Line(PortType type)
        : partner{.advertised = {.modes = modes_of(type), .pause = true, .asymmetric_pause = true}}
    {
    }

    bool plugged = true;
    uint32_t cable_metres = 10;
    LinkPartner partner;
    bool jabbers = false;
    uint32_t false_carriers = 0;
};

}  // namespace quillon::driver
