// All that the driver process keeps. What is slow or waits stands apart, so that it holds up nobody else.
#pragma once

#include "host/driver/model/switch.h"
#include "host/driver/model/twsi.h"
#include "host/driver/oam_delivery.h"
#include "host/driver/packet_path.h"

namespace quillon::driver {

struct Models {
    explicit Models(const StackShape &shape, const PacketMemory &memory = {}) : chips(shape), packets(chips, memory) {}

    SharedSwitch chips;
    OamDelivery oam_events;
    SharedTwsi twsi;
    PacketPath packets;
};

}  // namespace quillon::driver
