// What the two ends of a link tell each other.
#pragma once

#include <stdint.h>

#include "host/driver/model/link_mode.h"

namespace quillon::driver {

// Pauses of the sender that a port obeys, and such that it asks for.
struct FlowControl {
    bool receive = false;
    bool transmit = false;

    bool operator==(const FlowControl &) const = default;
    constexpr bool is_off() const { return !receive && !transmit; }
};

struct Advertisement {
    LinkModes modes = {};
    bool pause = false;             // can both obey and ask
    bool asymmetric_pause = false;  // can do one of them without the other

    bool operator==(const Advertisement &) const = default;
};

enum class RemoteFault : uint8_t { none, offline, link_fault, negotiation_error };

// The flow control that two advertisements lead to, as the end with the first one has it.
constexpr FlowControl resolve_flow_control(const Advertisement &own, const Advertisement &partner)
{
    if (own.pause && partner.pause) {
        return {.receive = true, .transmit = true};
    }
    if (own.asymmetric_pause && partner.asymmetric_pause) {
        return {.receive = own.pause, .transmit = partner.pause};
    }
    return {};
}

}  // namespace quillon::driver
