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

void expect_status(const char *what, PortType type, const std::function<void(Port &)> &change, const PortStatus &status,
                   NegotiationState negotiation, bool partner_seen)
{
    SCOPED_TRACE(what);
    Port port(type);
    change(port);
    EXPECT_EQ(port.running().status(), status);
    EXPECT_EQ(port.running().negotiation().state, negotiation);
    EXPECT_EQ(port.running().negotiation().partner.has_value(), partner_seen);
}

TEST(PortStatus, FollowsFromSettingsLineAndOverride)
{
    using enum SpeedDuplex;
    using enum NegotiationState;
    using enum PortType;
    const auto as_it_starts = [](Port &) {};
    const auto shut = [](Port &port) { port.settings.set_admin_up(false); };
    const auto held_down = [](Port &port) { port.held_down = true; };
    const auto unplugged = [](Port &port) { port.line.plugged = false; };
    const auto advertise = [](LinkModes own, LinkModes partners) {
        return [=](Port &port) {
            port.settings.set_advertised({.modes = own});
            port.line.partner.advertised.modes = partners;
        };
    };
    const auto force = [](SpeedDuplex speed, FlowControl flow_control) {
        return [=](Port &port) {
            port.settings.set_speed_duplex(speed);
            port.settings.set_negotiates(false);
            port.settings.set_flow_control(flow_control);
        };
    };
    const auto all = modes_of(copper);
    expect_status("copper", copper, as_it_starts, {true, gigabit_full, {}}, complete, true);
    expect_status("1000BASE-X", sfp, as_it_starts, {true, gigabit_full, {}}, complete, true);
    expect_status("10GBASE-R", sfp_plus, as_it_starts, {true, ten_gigabit_full, {}}, disabled, false);
    expect_status("shut", copper, shut, {false, {}, {}}, configuring, false);
    expect_status("held down", copper, held_down, {true, {}, {}}, configuring, false);
    expect_status("unplugged", copper, unplugged, {true, {}, {}}, configuring, false);
    expect_status("unplugged optics", sfp_plus, unplugged, {true, {}, {}}, disabled, false);
    expect_status("the best of what is common", copper,
                  advertise({LinkMode::base10_t_full, LinkMode::base100_tx_half}, all), {true, hundred_half, {}},
                  complete, true);
    expect_status("the partner is the slower one", copper,
                  advertise(all, {LinkMode::base10_t_half, LinkMode::base10_t_full}), {true, ten_full, {}}, complete,
                  true);
    expect_status("nothing in common", copper, advertise({LinkMode::base1000_t_full}, {LinkMode::base100_tx_full}),
                  {true, {}, {}}, configuring, true);
    expect_status("not negotiated", copper, force(hundred_full, transmit), {true, hundred_full, transmit}, disabled,
                  false);
    expect_status("no pauses at half duplex", copper, force(ten_half, both), {true, ten_half, {}}, disabled, false);
    expect_status(
        "configured, but negotiated", copper, [](Port &port) { port.settings.set_speed_duplex(ten_half); },
        {true, gigabit_full, {}}, complete, true);
    expect_status(
        "configured, and the partner cannot", copper,
        [](Port &port) {
            port.settings.set_negotiates(false);
            port.line.partner.advertised.modes = {LinkMode::base100_tx_full};
        },
        {true, {}, {}}, disabled, false);
    expect_status(
        "no pauses on a link that is down", copper,
        [](Port &port) {
            port.settings.set_flow_control(both);
            port.settings.set_admin_up(false);
        },
        {false, {}, {}}, configuring, false);
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
