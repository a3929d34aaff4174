// How a port runs. It follows at once from its settings, from what is at the other end, and from whether its link is
// held down.
#pragma once

#include <stdint.h>

#include <optional>

#include "host/driver/model/line.h"
#include "host/driver/model/negotiation.h"
#include "host/driver/model/port_settings.h"

namespace quillon::driver {

struct PortStatus {
    bool admin_up = false;
    std::optional<SpeedDuplex> speed_duplex = {};  // none while the link is down
    FlowControl flow_control = {};

    bool operator==(const PortStatus &) const = default;
    constexpr bool link_up() const { return speed_duplex.has_value(); }
};

enum class NegotiationState : uint8_t { disabled, configuring, complete };

// The port's view of its negotiation and of its partner.
struct NegotiationStatus {
    NegotiationState state = NegotiationState::disabled;
    std::optional<LinkPartner> partner = {};  // none while its signals do not come in
};

enum class JabberState : uint8_t { unknown, none, jabbering };

class RunningPort {
  public:
    // The parts must outlive the object.
    RunningPort(const PortSettings &settings, const Line &line, bool held_down)
        : settings_(settings), line_(line), held_down_(held_down)
    {
    }

    PortType type() const { return settings_.type(); }
    PortStatus status() const;
    NegotiationStatus negotiation() const;
    JabberState jabber() const;
    // Something is at the other end of the cable. A transceiver without power sees nothing.
    bool detects_energy() const { return settings_.admin_up() && line_.plugged; }

  private:
    bool in_contact() const { return settings_.admin_up() && !held_down_ && line_.plugged; }
    std::optional<SpeedDuplex> speed_duplex() const;
    FlowControl flow_control(SpeedDuplex speed_duplex) const;

    const PortSettings &settings_;
    const Line &line_;
    bool held_down_;
};

}  // namespace quillon::driver
