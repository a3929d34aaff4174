// What the ports of a unit are for: copper at the front, one seventh of them for gigabit optics behind it, and the last
// seventh for ten-gigabit optics.
#pragma once

#include <stdint.h>

#include "host/driver/model/link_mode.h"

namespace quillon::driver {

enum class PortType : uint8_t {
    copper,    // 10/100/1000BASE-T
    sfp,       // 1000BASE-X optics
    sfp_plus,  // 10GBASE-R optics
};

// Of port `port` of a unit with `ports` ports.
constexpr PortType port_type_of(uint32_t port, uint32_t ports)
{
    const uint32_t seventh = ports / 7;
    if (port > ports - seventh) {
        return PortType::sfp_plus;
    }
    return port > ports - 2 * seventh ? PortType::sfp : PortType::copper;
}

constexpr LinkModes modes_of(PortType type)
{
    switch (type) {
        case PortType::copper:
            return {LinkMode::base10_t_half, LinkMode::base10_t_full, LinkMode::base100_tx_half,
                    LinkMode::base100_tx_full, LinkMode::base1000_t_full};
        case PortType::sfp:
            return {LinkMode::base1000_x_full};
        case PortType::sfp_plus:
            break;
    }
    return {LinkMode::base10g_r_full};
}

constexpr SpeedDuplex fastest_of(PortType type)
{
    return speed_duplex_of(modes_of(type).best());
}

// The kilobits that a port can carry in a second.
constexpr uint32_t capacity_of(PortType type)
{
    return 1000 * megabits_per_second(fastest_of(type));
}

// 10GBASE-R has no negotiation.
constexpr bool can_negotiate(PortType type)
{
    return type != PortType::sfp_plus;
}

enum class Medium : uint8_t { copper, fibre };

constexpr Medium medium_of(PortType type)
{
    return type == PortType::copper ? Medium::copper : Medium::fibre;
}

// What runs between a chip and the transceiver of a port.
enum class PortInterface : uint8_t { sgmii, base1000_x, base10g_r };

constexpr bool is_pluggable(PortType type)
{
    return type != PortType::copper;
}

}  // namespace quillon::driver
