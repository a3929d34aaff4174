// How the switch driver's requests encode what they set and ask for. docs/driver-encodings.md tells it to their
// callers.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <array>
#include <bit>
#include <optional>

#include "host/driver/encoding.h"
#include "host/driver/model/mirrors.h"
#include "host/driver/model/negotiation.h"
#include "host/driver/model/oam_events.h"
#include "host/driver/model/phy.h"
#include "host/driver/model/poe_controller.h"
#include "host/driver/model/port_set.h"
#include "host/driver/model/port_settings.h"
#include "host/driver/model/port_status.h"
#include "host/driver/model/port_type.h"
#include "host/driver/model/spanning_tree.h"
#include "host/driver/model/stack.h"
#include "host/driver/model/storm_control.h"
#include "host/driver/model/trunks.h"
#include "host/driver/model/tunnels.h"
#include "host/driver/request_values.h"
#include "quillon/swdrv.h"

namespace quillon::driver {

// ---- Ports ----

template <>
inline constexpr auto codes<PortType> = std::to_array<Code<PortType>>({
    {1, PortType::copper},
    {2, PortType::sfp},
    {3, PortType::sfp_plus},
});

template <>
inline constexpr auto codes<Medium> = std::to_array<Code<Medium>>({
    {1, Medium::copper},
    {2, Medium::fibre},
});

// While the link is down.
inline constexpr uint32_t no_medium = 0;

template <>
inline constexpr auto codes<PortInterface> = std::to_array<Code<PortInterface>>({
    {1, PortInterface::sgmii},
    {2, PortInterface::base1000_x},
    {3, PortInterface::base10g_r},
});

// Odd is half duplex, even is full duplex. No port runs at 5, a gigabit at half duplex, or at 7.
template <>
inline constexpr auto codes<SpeedDuplex> = std::to_array<Code<SpeedDuplex>>({
    {1, SpeedDuplex::ten_half},
    {2, SpeedDuplex::ten_full},
    {3, SpeedDuplex::hundred_half},
    {4, SpeedDuplex::hundred_full},
    {6, SpeedDuplex::gigabit_full},
    {8, SpeedDuplex::ten_gigabit_full},
});

// A link that is down runs at none.
inline constexpr uint32_t no_speed_duplex = 0;

constexpr uint32_t encoded(const std::optional<SpeedDuplex> &speed_duplex)
{
    return speed_duplex ? encoded(*speed_duplex) : no_speed_duplex;
}

inline constexpr uint32_t link_down = 0;
inline constexpr uint32_t link_up = 1;

constexpr uint32_t encoded_link(const PortStatus &status)
{
    return status.link_up() ? link_up : link_down;
}

template <>
inline constexpr auto codes<FlowControl> = std::to_array<Code<FlowControl>>({
    {0, {.receive = false, .transmit = false}},
    {1, {.receive = true, .transmit = false}},
    {2, {.receive = false, .transmit = true}},
    {3, {.receive = true, .transmit = true}},
});

template <>
inline constexpr auto codes<OpticsLed> = std::to_array<Code<OpticsLed>>({
    {0, OpticsLed::off},
    {1, OpticsLed::on},
    {2, OpticsLed::blinking},
});

// ---- Negotiation: the numbers of MAU-MIB (RFC 4836) ----

template <>
inline constexpr auto codes<LinkMode> = std::to_array<Code<LinkMode>>({
    {1U << 1, LinkMode::base10_t_half},
    {1U << 2, LinkMode::base10_t_full},
    {1U << 4, LinkMode::base100_tx_half},
    {1U << 5, LinkMode::base100_tx_full},
    {1U << 13, LinkMode::base1000_x_full},
    {1U << 15, LinkMode::base1000_t_full},
});

inline constexpr uint32_t capability_asymmetric_pause = 1U << 9;
inline constexpr uint32_t capability_symmetric_pause = 1U << 10;
inline constexpr uint32_t capability_both_pauses = 1U << 11;

// Nothing when a bit means nothing.
constexpr std::optional<Advertisement> decoded_capability(uint32_t bits)
{
    Advertisement advertised;
    for (; bits != 0; bits &= bits - 1) {
        const uint32_t bit = 1U << std::countr_zero(bits);
        if (bit == capability_asymmetric_pause) {
            advertised.asymmetric_pause = true;
        } else if (bit == capability_symmetric_pause) {
            advertised.pause = true;
        } else if (bit == capability_both_pauses) {
            advertised.pause = advertised.asymmetric_pause = true;
        } else if (const auto mode = decoded<LinkMode>(bit)) {
            advertised.modes.insert(*mode);
        } else {
            return std::nullopt;
        }
    }
    return advertised;
}

constexpr uint32_t encoded_capability(const Advertisement &advertised)
{
    uint32_t bits = 0;
    for (const Code<LinkMode> &mode : codes<LinkMode>) {
        bits |= advertised.modes.contains(mode.meaning) ? mode.value : 0;
    }
    if (advertised.pause && advertised.asymmetric_pause) {
        bits |= capability_both_pauses;
    } else if (advertised.pause) {
        bits |= capability_symmetric_pause;
    } else if (advertised.asymmetric_pause) {
        bits |= capability_asymmetric_pause;
    }
    return bits;
}

template <>
inline constexpr auto codes<RemoteFault> = std::to_array<Code<RemoteFault>>({
    {1, RemoteFault::none},
    {2, RemoteFault::offline},
    {3, RemoteFault::link_fault},
    {4, RemoteFault::negotiation_error},
});

template <>
inline constexpr auto codes<NegotiationState> = std::to_array<Code<NegotiationState>>({
    {2, NegotiationState::configuring},
    {3, NegotiationState::complete},
    {4, NegotiationState::disabled},
});

inline constexpr uint32_t signalling_detected = 1;
inline constexpr uint32_t signalling_not_detected = 2;

template <>
inline constexpr auto codes<JabberState> = std::to_array<Code<JabberState>>({
    {2, JabberState::unknown},
    {3, JabberState::none},
    {4, JabberState::jabbering},
});

// ---- Blocks of ports ----

// A block is asked for by unit, first port and number of ports. The entry of a port is what its own request answers.
struct PortBlock {
    static constexpr size_t most_entries = 89;

    uint32_t count;
    std::array<uint32_t, most_entries> entries;
};
static_assert(sizeof(PortBlock) == sizeof(port_state_block));
static_assert(PortBlock::most_entries >= StackShape::most_ports, "a block holds a whole unit");

// All of it in one entry, a byte each.
constexpr uint32_t encoded_status(const PortStatus &status)
{
    const uint32_t admin_up = status.admin_up ? 1 : 0;
    return encoded_link(status) | encoded(status.speed_duplex) << 8 | encoded(status.flow_control) << 16 |
           admin_up << 24;
}

// ---- Sets of ports ----

// The ports that a bitmap of one word can name.
inline constexpr PortMask ports_of_word = UINT32_MAX;

// A port in one word.
constexpr LogicalPort decoded_port(uint32_t word)
{
    return {.unit = word >> 16, .port = word & 0xFFFF};
}

// ---- Spanning tree: the numbers of 802.1Q and of BRIDGE-MIB (RFC 4188) ----

template <>
inline constexpr auto codes<SpanningTreeMode> = std::to_array<Code<SpanningTreeMode>>({
    {0, SpanningTreeMode::stp},
    {2, SpanningTreeMode::rstp},
    {3, SpanningTreeMode::mstp},
});

template <>
inline constexpr auto codes<SpanningTreeState> = std::to_array<Code<SpanningTreeState>>({
    {1, SpanningTreeState::disabled},
    {2, SpanningTreeState::blocking},
    {3, SpanningTreeState::listening},
    {4, SpanningTreeState::learning},
    {5, SpanningTreeState::forwarding},
});

// ---- 802.1Q tunnels ----

template <>
inline constexpr auto codes<TunnelMode> = std::to_array<Code<TunnelMode>>({
    {0, TunnelMode::off},
    {1, TunnelMode::customer_side},
    {2, TunnelMode::provider_side},
});

template <>
inline constexpr auto codes<ReplaceMode> = std::to_array<Code<ReplaceMode>>({
    {0, {.incoming = false, .outgoing = false}},
    {1, {.incoming = true, .outgoing = false}},
    {2, {.incoming = false, .outgoing = true}},
    {3, {.incoming = true, .outgoing = true}},
});

// ---- Mirroring, trunks, storm control ----

template <>
inline constexpr auto codes<MirroredFrames> = std::to_array<Code<MirroredFrames>>({
    {1, {.received = true, .sent = false}},
    {2, {.received = false, .sent = true}},
    {3, {.received = true, .sent = true}},
});

template <>
inline constexpr auto codes<TrunkBalance> = std::to_array<Code<TrunkBalance>>({
    {1, TrunkBalance::source_mac},
    {2, TrunkBalance::destination_mac},
    {3, TrunkBalance::both_macs},
    {4, TrunkBalance::source_ip},
    {5, TrunkBalance::destination_ip},
    {6, TrunkBalance::both_ips},
});

template <>
inline constexpr auto codes<StormUnit> = std::to_array<Code<StormUnit>>({
    {1, StormUnit::packets_per_second},
    {2, StormUnit::kilobits_per_second},
    {3, StormUnit::percent},
});

// ---- OAM ----

template <>
inline constexpr auto codes<OamEvent> = std::to_array<Code<OamEvent>>({
    {1, OamEvent::loss_of_continuity},
    {2, OamEvent::unexpected_mep},
    {3, OamEvent::mismerge},
    {4, OamEvent::unexpected_period},
    {5, OamEvent::unexpected_level},
    {6, OamEvent::remote_defect},
});

// ---- PHYs, cables and what else lies below a port ----

inline constexpr uint32_t last_transmitter_class = 1;  // 0 class B; 1 class A
inline constexpr uint32_t last_fec = 1;                // 0 none; 1 that of 10GBASE-R (IEEE 802.3, clause 74)
inline constexpr uint32_t first_port_control = 1;      // as dot1xAuthAuthControlledPortControl
inline constexpr uint32_t last_port_control = 3;
inline constexpr uint32_t last_station_move = 2;  // 0 forward; 1 discard; 2 trap
inline constexpr uint32_t mdix_automatic = 3;
inline constexpr uint32_t pci_window = 0x10000;  // bytes

inline constexpr uint32_t capability_other = 1U << 0;

// What ports of the type can advertise, and the modes without a number there.
constexpr uint32_t encoded_ability(PortType type)
{
    const LinkModes modes = modes_of(type);
    return encoded_capability({.modes = modes, .pause = true, .asymmetric_pause = true}) |
           (modes.contains(LinkMode::base10g_r_full) ? capability_other : 0);
}

struct WirePhyOperation {
    uint8_t kind;
    uint8_t reg;
    uint16_t page;
    uint16_t value;
};

template <>
inline constexpr auto codes<PhyOperation::Kind> = std::to_array<Code<PhyOperation::Kind>>({
    {0, PhyOperation::Kind::read},
    {1, PhyOperation::Kind::write},
    {2, PhyOperation::Kind::set_bits},
    {3, PhyOperation::Kind::clear_bits},
});

template <>
inline constexpr auto codes<PairState> = std::to_array<Code<PairState>>({
    {1, PairState::sound},
    {2, PairState::open},
});

// Pairs in the order A to D.
struct CableReport {
    std::array<uint8_t, 4> states;
    std::array<uint32_t, 4> centimetres;
    uint32_t accuracy = 50;  // in centimetres
};
static_assert(sizeof(CableReport) == sizeof(CableDiagResultRecord));

struct CableReportAndLink {
    CableReport report;
    uint32_t link;
};
static_assert(sizeof(CableReportAndLink) == sizeof(CableDiagRecord));

constexpr CableReport encoded(const CableDiagnosis &pairs)
{
    CableReport report{};
    for (size_t i = 0; i < pairs.size(); ++i) {
        report.states[i] = static_cast<uint8_t>(encoded(pairs[i].state));
        report.centimetres[i] = pairs[i].metres * 100;
    }
    return report;
}

// ---- TWSI buses and PoE controller ----

// A device in one word.
struct TwsiAddress {
    uint32_t bus;
    uint32_t device;
};

constexpr TwsiAddress decoded_twsi_address(uint32_t word)
{
    return {.bus = word >> 8, .device = word & 0xFF};
}

// The one kind of addresses that devices here have.
inline constexpr uint8_t twsi_address_of_7_bits = 0;

template <>
inline constexpr auto codes<PoeStatus> = std::to_array<Code<PoeStatus>>({
    {0, PoeStatus::ready},
    {1, PoeStatus::not_started},
    {2, PoeStatus::no_command},
});

template <>
inline constexpr auto codes<PoeLed> = std::to_array<Code<PoeLed>>({
    {0, PoeLed::off},
    {1, PoeLed::on},
    {2, PoeLed::blinking},
});

}  // namespace quillon::driver
