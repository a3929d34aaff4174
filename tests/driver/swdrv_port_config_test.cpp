#include <gtest/gtest.h>
#include <stdint.h>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::ChipState;
using driver::FlowControl;
using driver::LogicalPort;
using driver::OpticsLed;
using driver::PortSettings;
using driver::RemoteFault;
using driver::SpeedDuplex;

constexpr LogicalPort copper{2, 3};
constexpr LogicalPort sfp{1, 24};
constexpr LogicalPort sfp_plus{1, 28};

const PortSettings &settings(const ChipState &chips, const LogicalPort &port)
{
    return *chips.ports.find(port);
}

using Getter = uint8_t (*)(uint32_t, uint32_t, uint32_t *);

struct SwdrvPortConfigTest : SwdrvClientTest {
    static uint32_t get(Getter getter, const LogicalPort &port) { return answer(getter, port.unit, port.port); }
};

TEST_F(SwdrvPortConfigTest, ChangesTheSettings)
{
    expect_changes({
        {"shut", [] { return DEV_SWDRV_PMGR_DisablePortAdmin(2, 3); },
         [](const ChipState &chips) { return !settings(chips, copper).admin_up(); }},
        {"opened", [] { return DEV_SWDRV_PMGR_EnablePortAdmin(2, 3); },
         [](const ChipState &chips) { return settings(chips, copper).admin_up(); }},
        {"all shut", [] { return DEV_SWDRV_PMGR_DisableAllPortAdmin(); },
         [](const ChipState &chips) {
             return !settings(chips, {1, 1}).admin_up() && !settings(chips, {2, 28}).admin_up();
         }},
        {"speed", [] { return DEV_SWDRV_PMGR_SetPortCfgSpeedDuplex(2, 3, 3); },
         [](const ChipState &chips) { return settings(chips, copper).speed_duplex() == SpeedDuplex::hundred_half; }},
        {"no negotiation", [] { return DEV_SWDRV_PMGR_DisablePortAutoNeg(2, 3); },
         [](const ChipState &chips) { return !settings(chips, copper).negotiates(); }},
        {"negotiation", [] { return DEV_SWDRV_PMGR_EnablePortAutoNeg(2, 3); },
         [](const ChipState &chips) { return settings(chips, copper).negotiates(); }},
        {"flow control", [] { return DEV_SWDRV_PMGR_EnablePortCfgFlowCtrl(2, 3); },
         [](const ChipState &chips) {
             return settings(chips, copper).flow_control() == FlowControl{true, true};
         }},
        {"no flow control", [] { return DEV_SWDRV_PMGR_DisablePortCfgFlowCtrl(2, 3); },
         [](const ChipState &chips) { return settings(chips, copper).flow_control().is_off(); }},
        {"flow control one way", [] { return DEV_SWDRV_PMGR_SetPortCfgFlowCtrl(2, 3, 2); },
         [](const ChipState &chips) {
             return settings(chips, copper).flow_control() == FlowControl{false, true};
         }},
        {"capability", [] { return DEV_SWDRV_PMGR_SetPortAutoNegCapability(2, 3, 0x0A10); },
         [](const ChipState &chips) {
             return settings(chips, copper).advertised() ==
                    driver::Advertisement{
                        .modes = {driver::LinkMode::base100_tx_half}, .pause = true, .asymmetric_pause = true};
         }},
        {"LED", [] { return DEV_SWDRV_PMGR_SetMiniGbicPortLEDStatus(1, 28, 2); },
         [](const ChipState &chips) { return settings(chips, sfp_plus).optics_led() == OpticsLed::blinking; }},
        {"remote fault", [] { return DEV_SWDRV_PMGR_SetPortAutoNegoRemoteFaultAdvertisement(2, 3, 3); },
         [](const ChipState &chips) { return settings(chips, copper).advertised_fault() == RemoteFault::link_fault; }},
    });
    EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortAutoNegoRemoteFaultAdvertisement, copper), 3U);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortRestartAutoNego(2, 3), 1);
}

// Ports 1/24 and 1/28 have optics, of 1000BASE-X and 10GBASE-R.
TEST_F(SwdrvPortConfigTest, RefusesWhatMeansNothing)
{
    expect_checked(DEV_SWDRV_PMGR_EnablePortAdmin, {2, 3}, {3, 29});
    expect_checked(DEV_SWDRV_PMGR_DisablePortAdmin, {2, 1}, {0, 0});
    for (const uint32_t no_speed : {0U, 5U, 8U}) {
        expect_checked(DEV_SWDRV_PMGR_SetPortCfgSpeedDuplex, {2, 3, 6}, {3, 29, no_speed});
    }
    expect_checked(DEV_SWDRV_PMGR_SetPortCfgSpeedDuplex, {1, 24, 6}, {0, 0, 1});
    expect_checked(DEV_SWDRV_PMGR_SetPortCfgSpeedDuplex, {1, 28, 8}, {3, 29, 6});
    expect_checked(DEV_SWDRV_PMGR_EnablePortAutoNeg, {1, 24}, {0, 28});
    expect_checked(DEV_SWDRV_PMGR_SetPortRestartAutoNego, {1, 24}, {0, 28});
    expect_checked(DEV_SWDRV_PMGR_SetPortCfgFlowCtrl, {2, 3, 0}, {3, 29, 4});
    // No such bit, of optics, of both.
    for (const uint32_t no_capability : {0x21U, 0x8000'0020U, 0x2000U, 0xA000U}) {
        expect_checked(DEV_SWDRV_PMGR_SetPortAutoNegCapability, {2, 3, 0x8036}, {3, 29, no_capability});
    }
    expect_checked(DEV_SWDRV_PMGR_SetPortAutoNegCapability, {1, 24, 0x2000}, {3, 28, 0x8000});
    expect_checked(DEV_SWDRV_PMGR_SetMiniGbicPortLEDStatus, {1, 24, 0}, {3, 3, 3});
    expect_checked(DEV_SWDRV_PMGR_SetMiniGbicPortLEDStatus, {1, 28, 0}, {3, 29, 3});
    expect_checked(DEV_SWDRV_PMGR_SetPortAutoNegoRemoteFaultAdvertisement, {2, 3, 1}, {3, 29, 0});
    expect_checked(DEV_SWDRV_PMGR_SetPortAutoNegoRemoteFaultAdvertisement, {2, 3, 1}, {3, 29, 5});
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortCfgSpeedDuplex(2, 3, 8), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortAutoNegCapability(2, 3, 0xA000), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetMiniGbicPortLEDStatus(2, 3, 1), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortAutoNegoRemoteFaultAdvertisement(2, 3, 5), 0);
    for (const LogicalPort &port : {copper, sfp, sfp_plus}) {
        const PortSettings after = settings(model.lock()->chips, port);
        const PortSettings before(driver::port_type_of(port.port, 28));
        EXPECT_EQ(after.speed_duplex(), before.speed_duplex());
        EXPECT_EQ(after.advertised().modes, before.advertised().modes);
        EXPECT_EQ(after.optics_led(), before.optics_led());
        EXPECT_EQ(after.advertised_fault(), before.advertised_fault());
    }

    for (const Getter getter :
         {DEV_SWDRV_PMGR_GetPortType, DEV_SWDRV_PMGR_GetPortAutoNegoRemoteFaultAdvertisement,
          DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoSignalingState, DEV_SWDRV_PMGR_GetPortAutoNegoProcessState,
          DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoCapa, DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoRemoteFault,
          DEV_SWDRV_PMGR_GetPortJabberState, DEV_SWDRV_PMGR_GetPortFalseCarrierSenseCounter,
          DEV_SWDRV_PMGR_GetPortOperSpeedDuplex, DEV_SWDRV_PMGR_GetPortLinkStatus, DEV_SWDRV_PMGR_GetPortFlowCtrl}) {
        uint32_t value = UINT32_MAX;
        EXPECT_EQ(getter(2, 29, &value), 0);
        EXPECT_EQ(value, 0U);
    }
}

TEST_F(SwdrvPortConfigTest, ShowsThePartnersView)
{
    const struct {
        LogicalPort port;
        uint32_t type, signalling, process, capability;
    } rows[] = {
        {copper, 1, 1, 3, 0x8836},
        {sfp, 2, 1, 3, 0x2800},
        {sfp_plus, 3, 2, 4, 0},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortType, row.port), row.type);
        EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoSignalingState, row.port), row.signalling);
        EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortAutoNegoProcessState, row.port), row.process);
        EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoCapa, row.port), row.capability);
        EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoRemoteFault, row.port), 1U);
        EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortJabberState, row.port), 3U);
        EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortFalseCarrierSenseCounter, row.port), 0U);
    }

    // Another partner, on a bad line.
    {
        const auto access = model.lock();
        driver::Line &line = *access->lines.find(copper);
        line.partner = {.advertised = {.modes = {driver::LinkMode::base10_t_full}, .asymmetric_pause = true},
                        .remote_fault = RemoteFault::offline};
        line.jabbers = true;
        line.false_carriers = 0x0102'0304;
    }
    EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoCapa, copper), 0x0204U);
    EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoRemoteFault, copper), 2U);
    EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortJabberState, copper), 4U);
    EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortFalseCarrierSenseCounter, copper), 0x0102'0304U);

    // A cable that is pulled takes the partner with it.
    model.lock()->lines.find(copper)->plugged = false;
    EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoSignalingState, copper), 2U);
    EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortAutoNegoProcessState, copper), 2U);
    EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoCapa, copper), 0U);
    EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoRemoteFault, copper), 1U);
    EXPECT_EQ(DEV_SWDRV_PMGR_DisablePortAdmin(copper.unit, copper.port), 1);
    EXPECT_EQ(get(DEV_SWDRV_PMGR_GetPortJabberState, copper), 2U);
}

}  // namespace
}  // namespace quillon::test
