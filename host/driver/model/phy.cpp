#include "host/driver/model/phy.h"

#include <algorithm>

namespace quillon::driver {
namespace {

enum Number : uint32_t {
    control_register = 0,
    status_register = 1,
    first_identifier = 2,
    second_identifier = 3,
    advertisement_register = 4,
    partner_register = 5,
    expansion_register = 6,
    gigabit_control_register = 9,
    gigabit_status_register = 10,
    extended_status_register = 15,
    first_vendor_register = 16,
};

constexpr uint16_t control_reset = 0x8000;
constexpr uint16_t control_loopback = 0x4000;
constexpr uint16_t control_negotiates = 0x1000;
constexpr uint16_t control_powered_down = 0x0800;
constexpr uint16_t control_isolated = 0x0400;
constexpr uint16_t control_speed_duplex = 0x2140;

struct SpeedBits {
    SpeedDuplex speed_duplex;
    uint16_t bits;
};

constexpr SpeedBits speeds[] = {
    {SpeedDuplex::ten_half, 0x0000},     {SpeedDuplex::ten_full, 0x0100},     {SpeedDuplex::hundred_half, 0x2000},
    {SpeedDuplex::hundred_full, 0x2100}, {SpeedDuplex::gigabit_full, 0x0140},
};

// All that 10/100BASE-T has but half duplex at a gigabit, and register 15.
constexpr uint16_t status_abilities = 0x7949;
constexpr uint16_t status_negotiated = 0x0020;
constexpr uint16_t status_remote_fault = 0x0010;
constexpr uint16_t status_link = 0x0004;
constexpr uint16_t status_jabber = 0x0002;

// Neither all zeros nor all ones, which a scan takes for a PHY that is not there.
constexpr uint16_t identifiers[] = {0x0100, 0x0411};

struct ModeBit {
    LinkMode mode;
    uint16_t bit;
};

constexpr ModeBit advertised_modes[] = {
    {LinkMode::base10_t_half, 0x0020},
    {LinkMode::base10_t_full, 0x0040},
    {LinkMode::base100_tx_half, 0x0080},
    {LinkMode::base100_tx_full, 0x0100},
};
constexpr uint16_t advertised_802_3 = 0x0001;
constexpr uint16_t advertised_pause = 0x0400;
constexpr uint16_t advertised_asymmetric_pause = 0x0800;
constexpr uint16_t advertised_remote_fault = 0x2000;
constexpr uint16_t advertised_acknowledge = 0x4000;

constexpr uint16_t expansion_partner_negotiates = 0x0001;

constexpr int test_mode_shift = 13;
constexpr uint16_t gigabit_clock_bits = 0x1C00;
constexpr uint16_t gigabit_full_duplex = 0x0200;
constexpr uint16_t partner_gigabit_full_duplex = 0x0800;
constexpr uint16_t gigabit_receivers = 0x3000;  // of both ends
constexpr uint16_t extended_gigabit_full_duplex = 0x2000;

constexpr uint16_t bit_if(bool condition, uint16_t bit)
{
    return condition ? bit : uint16_t{0};
}

uint16_t encoded_page(const Advertisement &advertised, RemoteFault fault)
{
    uint32_t page = advertised_802_3 | bit_if(advertised.pause, advertised_pause) |
                    bit_if(advertised.asymmetric_pause, advertised_asymmetric_pause) |
                    bit_if(fault != RemoteFault::none, advertised_remote_fault);
    for (const ModeBit &mode : advertised_modes) {
        page |= bit_if(advertised.modes.contains(mode.mode), mode.bit);
    }
    return static_cast<uint16_t>(page);
}

}  // namespace

uint16_t Phy::read(const PhyRegister &reg) const
{
    if (reg.page != 0 || reg.number >= first_vendor_register) {
        const auto kept = state_.kept.find(reg);
        return kept == state_.kept.end() ? uint16_t{0} : kept->second;
    }
    switch (reg.number) {
        case control_register:
            return control();
        case status_register:
            return status();
        case first_identifier:
        case second_identifier:
            return identifiers[reg.number - first_identifier];
        case advertisement_register:
            return advertisement();
        case partner_register:
            return partner_ability();
        case expansion_register:
            return bit_if(running().negotiation().partner.has_value(), expansion_partner_negotiates);
        case gigabit_control_register:
            return gigabit_control();
        case gigabit_status_register:
            return gigabit_status();
        case extended_status_register:
            return extended_gigabit_full_duplex;
        default:
            return 0;
    }
}

uint16_t Phy::control() const
{
    const auto *const speed = std::ranges::find(speeds, settings_.speed_duplex(), &SpeedBits::speed_duplex);
    return static_cast<uint16_t>(
        speed->bits | bit_if(state_.loopback, control_loopback) | bit_if(settings_.negotiates(), control_negotiates) |
        bit_if(state_.powered_down, control_powered_down) | bit_if(state_.isolated, control_isolated));
}

uint16_t Phy::status() const
{
    const RunningPort port = running();
    const NegotiationStatus negotiation = port.negotiation();
    const bool fault = negotiation.partner && negotiation.partner->remote_fault != RemoteFault::none;
    return static_cast<uint16_t>(status_abilities |
                                 bit_if(negotiation.state == NegotiationState::complete, status_negotiated) |
                                 bit_if(fault, status_remote_fault) | bit_if(port.status().link_up(), status_link) |
                                 bit_if(port.jabber() == JabberState::jabbering, status_jabber));
}

uint16_t Phy::advertisement() const
{
    return encoded_page(settings_.capability(), settings_.advertised_fault());
}

uint16_t Phy::partner_ability() const
{
    const auto partner = running().negotiation().partner;
    return partner ? static_cast<uint16_t>(advertised_acknowledge |
                                           encoded_page(partner->advertised, partner->remote_fault))
                   : uint16_t{0};
}

uint16_t Phy::gigabit_control() const
{
    const bool offered = settings_.capability().modes.contains(LinkMode::base1000_t_full);
    return static_cast<uint16_t>(state_.test_mode << test_mode_shift | state_.clock_bits |
                                 bit_if(offered, gigabit_full_duplex));
}

uint16_t Phy::gigabit_status() const
{
    const RunningPort port = running();
    const auto partner = port.negotiation().partner;
    const bool offered = partner && partner->advertised.modes.contains(LinkMode::base1000_t_full);
    return static_cast<uint16_t>(bit_if(offered, partner_gigabit_full_duplex) |
                                 bit_if(port.status().speed_duplex == SpeedDuplex::gigabit_full, gigabit_receivers));
}

bool Phy::run(const PhyOperation &operation)
{
    if (!operation.reg.exists()) {
        return false;
    }
    switch (operation.kind) {
        case PhyOperation::Kind::read:
            return true;
        case PhyOperation::Kind::write:
            return write(operation.reg, operation.value);
        case PhyOperation::Kind::set_bits:
            return write(operation.reg, static_cast<uint16_t>(read(operation.reg) | operation.value));
        case PhyOperation::Kind::clear_bits:
            break;
    }
    return write(operation.reg, static_cast<uint16_t>(read(operation.reg) & ~operation.value));
}

bool Phy::write(const PhyRegister &reg, uint16_t value)
{
    if (reg.page != 0 || reg.number >= first_vendor_register) {
        state_.kept[reg] = value;
        return true;
    }
    switch (reg.number) {
        case control_register:
            return write_control(value);
        case advertisement_register:
            return write_advertisement(value);
        case gigabit_control_register:
            return write_gigabit_control(value);
        default:
            return true;  // what can only be read takes no notice
    }
}

// While the port negotiates the speed may be one that no port runs at: it does not matter.
bool Phy::write_control(uint16_t value)
{
    if ((value & control_reset) != 0) {
        reset();
        return true;
    }
    const bool negotiates = (value & control_negotiates) != 0;
    const auto *const speed = std::ranges::find(speeds, value & control_speed_duplex, &SpeedBits::bits);
    const bool runs_at_speed = speed != std::end(speeds) && settings_.set_speed_duplex(speed->speed_duplex);
    state_.loopback = (value & control_loopback) != 0;
    state_.powered_down = (value & control_powered_down) != 0;
    state_.isolated = (value & control_isolated) != 0;
    return settings_.set_negotiates(negotiates) && (negotiates || runs_at_speed);
}

bool Phy::write_advertisement(uint16_t value)
{
    Advertisement advertised{.pause = (value & advertised_pause) != 0,
                             .asymmetric_pause = (value & advertised_asymmetric_pause) != 0};
    for (const ModeBit &mode : advertised_modes) {
        if ((value & mode.bit) != 0) {
            advertised.modes.insert(mode.mode);
        }
    }
    if (settings_.capability().modes.contains(LinkMode::base1000_t_full)) {
        advertised.modes.insert(LinkMode::base1000_t_full);
    }
    if ((value & advertised_remote_fault) == 0) {
        settings_.set_advertised_fault(RemoteFault::none);
    } else if (settings_.advertised_fault() == RemoteFault::none) {
        settings_.set_advertised_fault(RemoteFault::link_fault);
    }
    return settings_.set_advertised(advertised);
}

bool Phy::write_gigabit_control(uint16_t value)
{
    Advertisement advertised = settings_.capability();
    advertised.modes = {};
    for (const ModeBit &mode : advertised_modes) {
        if (settings_.capability().modes.contains(mode.mode)) {
            advertised.modes.insert(mode.mode);
        }
    }
    if ((value & gigabit_full_duplex) != 0) {
        advertised.modes.insert(LinkMode::base1000_t_full);
    }
    state_.test_mode = static_cast<uint32_t>(value >> test_mode_shift);
    state_.clock_bits = value & gigabit_clock_bits;
    return state_.test_mode < PhyState::test_modes && settings_.set_advertised(advertised);
}

void Phy::reset()
{
    const PortSettings initial(settings_.type());
    settings_.set_negotiates(initial.negotiates());
    settings_.set_speed_duplex(initial.speed_duplex());
    settings_.set_advertised(initial.capability());
    settings_.set_advertised_fault(initial.advertised_fault());
    const auto last_diagnosis = state_.last_diagnosis;  // no register holds it
    state_ = {};
    state_.last_diagnosis = last_diagnosis;
}

}  // namespace quillon::driver
