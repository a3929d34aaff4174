// The values of docs/driver-encodings.md, typed from there.
#include "host/driver/swdrv_encoding.h"

#include <gtest/gtest.h>
#include <stdint.h>

#include <map>
#include <vector>

namespace quillon::driver {
namespace {

// They stand for this, and no other value stands for anything.
template <class Meaning>
void expect_values(const std::map<uint32_t, Meaning> &values)
{
    for (uint32_t value = 0; value <= UINT8_MAX + 1; ++value) {
        const auto meaning = decoded<Meaning>(value);
        ASSERT_EQ(meaning.has_value(), values.contains(value)) << value;
        if (meaning) {
            EXPECT_EQ(*meaning, values.at(value)) << value;
            EXPECT_EQ(encoded(*meaning), value);
        }
    }
}

TEST(SwdrvEncoding, HasTheDocumentedValues)
{
    expect_values<PortType>({{1, PortType::copper}, {2, PortType::sfp}, {3, PortType::sfp_plus}});
    expect_values<SpeedDuplex>({{1, SpeedDuplex::ten_half},
                                {2, SpeedDuplex::ten_full},
                                {3, SpeedDuplex::hundred_half},
                                {4, SpeedDuplex::hundred_full},
                                {6, SpeedDuplex::gigabit_full},
                                {8, SpeedDuplex::ten_gigabit_full}});
    expect_values<FlowControl>({{0, {false, false}}, {1, {true, false}}, {2, {false, true}}, {3, {true, true}}});
    expect_values<OpticsLed>({{0, OpticsLed::off}, {1, OpticsLed::on}, {2, OpticsLed::blinking}});
    expect_values<RemoteFault>({{1, RemoteFault::none},
                                {2, RemoteFault::offline},
                                {3, RemoteFault::link_fault},
                                {4, RemoteFault::negotiation_error}});
    expect_values<NegotiationState>(
        {{2, NegotiationState::configuring}, {3, NegotiationState::complete}, {4, NegotiationState::disabled}});
    expect_values<JabberState>({{2, JabberState::unknown}, {3, JabberState::none}, {4, JabberState::jabbering}});
    expect_values<SpanningTreeMode>(
        {{0, SpanningTreeMode::stp}, {2, SpanningTreeMode::rstp}, {3, SpanningTreeMode::mstp}});
    expect_values<SpanningTreeState>({{1, SpanningTreeState::disabled},
                                      {2, SpanningTreeState::blocking},
                                      {3, SpanningTreeState::listening},
                                      {4, SpanningTreeState::learning},
                                      {5, SpanningTreeState::forwarding}});
    expect_values<TunnelMode>({{0, TunnelMode::off}, {1, TunnelMode::customer_side}, {2, TunnelMode::provider_side}});
    expect_values<ReplaceMode>({{0, {false, false}}, {1, {true, false}}, {2, {false, true}}, {3, {true, true}}});
    expect_values<MirroredFrames>({{1, {true, false}}, {2, {false, true}}, {3, {true, true}}});
    expect_values<TrunkBalance>({{1, TrunkBalance::source_mac},
                                 {2, TrunkBalance::destination_mac},
                                 {3, TrunkBalance::both_macs},
                                 {4, TrunkBalance::source_ip},
                                 {5, TrunkBalance::destination_ip},
                                 {6, TrunkBalance::both_ips}});
    expect_values<StormUnit>(
        {{1, StormUnit::packets_per_second}, {2, StormUnit::kilobits_per_second}, {3, StormUnit::percent}});
}

TEST(SwdrvEncoding, HasABitForEachCapability)
{
    const std::map<uint32_t, Advertisement> capabilities = {
        {1, {.modes = {LinkMode::base10_t_half}}},
        {2, {.modes = {LinkMode::base10_t_full}}},
        {4, {.modes = {LinkMode::base100_tx_half}}},
        {5, {.modes = {LinkMode::base100_tx_full}}},
        {9, {.asymmetric_pause = true}},
        {10, {.pause = true}},
        {11, {.pause = true, .asymmetric_pause = true}},
        {13, {.modes = {LinkMode::base1000_x_full}}},
        {15, {.modes = {LinkMode::base1000_t_full}}},
    };
    for (uint32_t number = 0; number < 32; ++number) {
        const auto advertised = decoded_capability(1U << number);
        ASSERT_EQ(advertised.has_value(), capabilities.contains(number)) << number;
        if (advertised) {
            EXPECT_EQ(*advertised, capabilities.at(number)) << number;
            EXPECT_EQ(encoded_capability(*advertised), 1U << number);
        }
    }
    EXPECT_EQ(decoded_capability(0), Advertisement{});
    EXPECT_EQ(decoded_capability(0x8036), (Advertisement{.modes = modes_of(PortType::copper)}));
    EXPECT_EQ(encoded_capability({.modes = modes_of(PortType::copper)}), 0x8036U);
}

TEST(SwdrvEncoding, CountsThePortsOfABitmapFromOne)
{
    const struct {
        std::vector<uint8_t> bitmap;
        std::optional<PortMask> ports;
    } rows[] = {
        {{0x01}, port_bit(1)},
        {{0x80, 0x01}, port_bit(8) | port_bit(9)},
        {{0, 0, 0, 0, 0, 0, 0, 0x80}, port_bit(64)},
        {{0, 0, 0, 0, 0, 0, 0, 0x80, 0}, port_bit(64)},
        {{0, 0, 0, 0, 0, 0, 0, 0, 0x01}, std::nullopt},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(decoded_bitmap(row.bitmap), row.ports) << row.bitmap.size();
    }
}

}  // namespace
}  // namespace quillon::driver
