#include "host/driver/model/port_status.h"

#include <gtest/gtest.h>
#include <stdint.h>

#include <functional>
#include <optional>
#include <ostream>

namespace quillon::driver {

void PrintTo(const PortStatus &status, std::ostream *out)
{
    *out << "admin " << status.admin_up << " speed "
         << (status.speed_duplex ? static_cast<int>(*status.speed_duplex) : -1) << " pauses obeyed "
         << status.flow_control.receive << " sent " << status.flow_control.transmit;
}

namespace {

constexpr FlowControl both = {.receive = true, .transmit = true};
constexpr FlowControl receive = {.receive = true, .transmit = false};
constexpr FlowControl transmit = {.receive = false, .transmit = true};

struct Port {
    explicit Port(PortType type) : settings(type), line(type) {}

    RunningPort running() const { return {settings, line, held_down}; }

    PortSettings settings;
    Line line;
    bool held_down = false;
};

struct StatusRow {
    const char *what;
    PortType type;
    std::function<void(Port &)> change;
    PortStatus status;
    NegotiationState negotiation;
    bool partner_seen;
};

TEST(PortStatus, FollowsFromSettingsLineAndOverride)
{
    using enum SpeedDuplex;
    using enum NegotiationState;
    const StatusRow rows[] = {
        {"copper as it starts", PortType::copper, [](Port &) {}, {true, gigabit_full, {}}, complete, true},
        {"1000BASE-X as it starts", PortType::sfp, [](Port &) {}, {true, gigabit_full, {}}, complete, true},
        {"10GBASE-R as it starts", PortType::sfp_plus, [](Port &) {}, {true, ten_gigabit_full, {}}, disabled, false},
        {"shut",
         PortType::copper,
         [](Port &port) { port.settings.set_admin_up(false); },
         {false, {}, {}},
         configuring,
         false},
        {"held down", PortType::copper, [](Port &port) { port.held_down = true; }, {true, {}, {}}, configuring, false},
        {"unplugged",
         PortType::copper,
         [](Port &port) { port.line.plugged = false; },
         {true, {}, {}},
         configuring,
         false},
        {"unplugged optics",
         PortType::sfp_plus,
         [](Port &port) { port.line.plugged = false; },
         {true, {}, {}},
         disabled,
         false},
        {"the best of what is common",
         PortType::copper,
         [](Port &port) {
             port.settings.set_advertised({.modes = {LinkMode::base10_t_full, LinkMode::base100_tx_half}});
         },
         {true, hundred_half, {}},
         complete,
         true},
        {"the partner is the slower one",
         PortType::copper,
         [](Port &port) {
             port.line.partner.advertised.modes = {LinkMode::base10_t_half, LinkMode::base10_t_full};
         },
         {true, ten_full, {}},
         complete,
         true},
        {"nothing in common",
         PortType::copper,
         [](Port &port) {
             port.settings.set_advertised({.modes = {LinkMode::base1000_t_full}});
             port.line.partner.advertised.modes = {LinkMode::base100_tx_full};
         },
         {true, {}, {}},
         configuring,
         true},
        {"configured, not negotiated",
         PortType::copper,
         [](Port &port) {
             port.settings.set_speed_duplex(hundred_full);
             port.settings.set_negotiates(false);
             port.settings.set_flow_control(transmit);
         },
         {true, hundred_full, transmit},
         disabled,
         false},
        {"configured, but negotiated",
         PortType::copper,
         [](Port &port) { port.settings.set_speed_duplex(ten_half); },
         {true, gigabit_full, {}},
         complete,
         true},
        {"configured, and the partner cannot",
         PortType::copper,
         [](Port &port) {
             port.settings.set_negotiates(false);
             port.line.partner.advertised.modes = {LinkMode::base100_tx_full};
         },
         {true, {}, {}},
         disabled,
         false},
        {"no pauses at half duplex",
         PortType::copper,
         [](Port &port) {
             port.settings.set_speed_duplex(ten_half);
             port.settings.set_negotiates(false);
             port.settings.set_flow_control(both);
         },
         {true, ten_half, {}},
         disabled,
         false},
        {"no pauses on a link that is down",
         PortType::copper,
         [](Port &port) {
             port.settings.set_flow_control(both);
             port.settings.set_admin_up(false);
         },
         {false, {}, {}},
         configuring,
         false},
    };
    for (const StatusRow &row : rows) {
        SCOPED_TRACE(row.what);
        Port port(row.type);
        row.change(port);
        EXPECT_EQ(port.running().status(), row.status);
        EXPECT_EQ(port.running().negotiation().state, row.negotiation);
        EXPECT_EQ(port.running().negotiation().partner.has_value(), row.partner_seen);
    }
}

// The resolution of pauses of 802.3, Annex 28B, and what the configuration leaves of it.
TEST(PortStatus, NegotiatesFlowControl)
{
    const struct {
        const char *what;
        FlowControl configured;
        bool pause, asymmetric;
        bool partners_pause, partners_asymmetric;
        FlowControl running;
    } rows[] = {
        {"both can do it all", both, true, true, true, true, both},
        {"not wanted", {}, true, true, true, true, {}},
        {"one way wanted", receive, true, true, true, true, receive},
        {"the other way wanted", transmit, true, true, true, true, transmit},
        {"partner symmetric", both, true, true, true, false, both},
        {"partner only sends", both, true, true, false, true, receive},
        {"partner cannot", both, true, true, false, false, {}},
        {"symmetric, partner asymmetric", both, true, false, false, true, {}},
        {"only sends", both, false, true, true, true, transmit},
        {"only sends, to a symmetric partner", both, false, true, true, false, {}},
        {"both only send", both, false, true, false, true, {}},
        {"offers none", both, false, false, true, true, {}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.what);
        Port port(PortType::copper);
        port.settings.set_flow_control(row.configured);
        EXPECT_TRUE(port.settings.set_advertised(
            {.modes = {LinkMode::base1000_t_full}, .pause = row.pause, .asymmetric_pause = row.asymmetric}));
        port.line.partner.advertised.pause = row.partners_pause;
        port.line.partner.advertised.asymmetric_pause = row.partners_asymmetric;
        EXPECT_EQ(port.running().status().flow_control, row.running);
    }
}

TEST(PortStatus, TellsJabberWhileTheTransceiverIsOn)
{
    Port port(PortType::copper);
    EXPECT_EQ(port.running().jabber(), JabberState::none);
    port.line.jabbers = true;
    EXPECT_EQ(port.running().jabber(), JabberState::jabbering);
    port.settings.set_admin_up(false);
    EXPECT_EQ(port.running().jabber(), JabberState::unknown);
}

TEST(PortSettings, RefuseWhatTheTypeOfPortCannotDo)
{
    const Advertisement gigabit_optics = {.modes = {LinkMode::base1000_x_full}};
    const Advertisement mixed = {.modes = {LinkMode::base1000_x_full, LinkMode::base1000_t_full}};
    const struct {
        PortType type;
        bool ten_half, gigabit, ten_gigabit, negotiates, gigabit_optics, led;
    } rows[] = {
        {PortType::copper, true, true, false, true, false, false},
        {PortType::sfp, false, true, false, true, true, true},
        {PortType::sfp_plus, false, false, true, false, false, true},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(static_cast<int>(row.type));
        PortSettings settings(row.type);
        EXPECT_EQ(settings.set_speed_duplex(SpeedDuplex::ten_half), row.ten_half);
        EXPECT_EQ(settings.set_speed_duplex(SpeedDuplex::gigabit_full), row.gigabit);
        EXPECT_EQ(settings.set_speed_duplex(SpeedDuplex::ten_gigabit_full), row.ten_gigabit);
        EXPECT_EQ(settings.set_negotiates(true), row.negotiates);
        EXPECT_EQ(settings.set_advertised(gigabit_optics), row.gigabit_optics);
        EXPECT_FALSE(settings.set_advertised(mixed));
        EXPECT_EQ(settings.set_optics_led(OpticsLed::blinking), row.led);
        EXPECT_TRUE(settings.set_negotiates(false));

        // What was refused has changed nothing.
        EXPECT_EQ(settings.speed_duplex(), row.gigabit ? SpeedDuplex::gigabit_full : SpeedDuplex::ten_gigabit_full);
        EXPECT_EQ(settings.advertised().modes, modes_of(row.type));
        EXPECT_EQ(settings.optics_led(), row.led ? OpticsLed::blinking : OpticsLed::off);
    }
}

TEST(PortType, MixesCopperAndOptics)
{
    const struct {
        uint32_t ports, last_copper, last_sfp;
    } rows[] = {{1, 1, 1}, {6, 6, 6}, {7, 5, 6}, {28, 20, 24}, {52, 38, 45}, {64, 46, 55}};
    for (const auto &row : rows) {
        for (uint32_t port = 1; port <= row.ports; ++port) {
            const PortType expected = port <= row.last_copper ? PortType::copper
                                      : port <= row.last_sfp  ? PortType::sfp
                                                              : PortType::sfp_plus;
            EXPECT_EQ(port_type_of(port, row.ports), expected) << port << " of " << row.ports;
        }
    }
}

}  // namespace
}  // namespace quillon::driver
