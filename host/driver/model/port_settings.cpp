#include "host/driver/model/port_settings.h"

namespace quillon::driver {

PortSettings::PortSettings(PortType type)
    : type_(type),
      speed_duplex_(fastest_of(type)),
      negotiates_(can_negotiate(type)),
      advertised_{.modes = modes_of(type), .pause = true, .asymmetric_pause = true}
{
}

bool PortSettings::set_speed_duplex(SpeedDuplex speed_duplex)
{
    if (!modes_of(type_).can_run_at(speed_duplex)) {
        return false;
    }
    speed_duplex_ = speed_duplex;
    return true;
}

bool PortSettings::set_negotiates(bool negotiates)
{
    if (negotiates && !can_negotiate(type_)) {
        return false;
    }
    negotiates_ = negotiates;
    return true;
}

bool PortSettings::set_advertised(const Advertisement &advertised)
{
    if (!can_negotiate(type_) || !modes_of(type_).contains_all(advertised.modes)) {
        return false;
    }
    advertised_ = advertised;
    return true;
}

bool PortSettings::set_optics_led(OpticsLed led)
{
    if (!is_pluggable(type_)) {
        return false;
    }
    optics_led_ = led;
    return true;
}

Advertisement PortSettings::advertised() const
{
    const bool wants_pauses = !flow_control_.is_off();
    return {.modes = advertised_.modes,
            .pause = advertised_.pause && wants_pauses,
            .asymmetric_pause = advertised_.asymmetric_pause && wants_pauses};
}

}  // namespace quillon::driver
