// How a port is configured.
#pragma once

#include <stdint.h>

#include "host/driver/model/negotiation.h"
#include "host/driver/model/port_type.h"

namespace quillon::driver {

// The LED of a port for pluggable optics.
enum class OpticsLed : uint8_t { off, on, blinking };

class PortSettings {
  public:
    explicit PortSettings(PortType type);

    void set_admin_up(bool up) { admin_up_ = up; }
    void set_flow_control(FlowControl flow_control) { flow_control_ = flow_control; }
    void set_advertised_fault(RemoteFault fault) { advertised_fault_ = fault; }

    // What not every type of port can do. False when this one cannot; nothing changes then.
    bool set_speed_duplex(SpeedDuplex speed_duplex);
    bool set_negotiates(bool negotiates);
    bool set_advertised(const Advertisement &advertised);
    bool set_optics_led(OpticsLed led);

    PortType type() const { return type_; }
    bool admin_up() const { return admin_up_; }
    FlowControl flow_control() const { return flow_control_; }
    RemoteFault advertised_fault() const { return advertised_fault_; }
    SpeedDuplex speed_duplex() const { return speed_duplex_; }
    bool negotiates() const { return negotiates_; }
    OpticsLed optics_led() const { return optics_led_; }

    // What the port is set to advertise, and what it does: one that does not want flow control does not offer it.
    const Advertisement &capability() const { return advertised_; }
    Advertisement advertised() const;

  private:
    PortType type_;
    bool admin_up_ = true;
    FlowControl flow_control_;
    RemoteFault advertised_fault_ = RemoteFault::none;
    SpeedDuplex speed_duplex_;  // while the port does not negotiate
    bool negotiates_;
    Advertisement advertised_;
    OpticsLed optics_led_ = OpticsLed::off;
};

}  // namespace quillon::driver
