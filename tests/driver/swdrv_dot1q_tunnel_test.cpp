#include <gtest/gtest.h>
#include <stdint.h>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::PortTunnel;
using driver::ServiceTags;
using driver::TunnelMode;
using driver::Tunnels;

struct SwdrvDot1qTunnelTest : SwdrvClientTest {
    PortTunnel tunnel(uint32_t unit = 2) { return *model.lock()->chips.tunnels.find({unit, 3}); }
};

TEST_F(SwdrvDot1qTunnelTest, KeepsTheSettingsOfAPort)
{
    expect_checked(DEV_SWDRV_PMGR_SetPortDot1qTunnelMode, {2, 3, 2}, {3, 29, 3});
    expect_checked(DEV_SWDRV_PMGR_SetPortDot1qTunnelTPID, {2, 3, 0x88A8}, {3, 29, 0x05FF});
    expect_checked(DEV_SWDRV_PMGR_SetPortDot1qTunnelModeForReplaceVlan, {2, 3, 2}, {3, 29, 4});
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortDot1qTunnelTPID(2, 3, 0x1'0000), 0);
    const PortTunnel expected{.mode = TunnelMode::provider_side,
                              .tpid = 0x88A8,
                              .replace_mode = {.incoming = false, .outgoing = true},
                              .double_tags = {},
                              .replacements = {}};
    EXPECT_EQ(tunnel(), expected);
    EXPECT_EQ(tunnel(1), PortTunnel{});

    // Ports of the local unit alone can be read.
    uint8_t mode = 0xEE;
    uint32_t tpid = 0xEEEE'EEEE;
    for (const uint8_t taken : std::initializer_list<uint8_t>{1, 2, 0}) {
        EXPECT_EQ(DEV_SWDRV_PMGR_SetPortDot1qTunnelMode(1, 3, taken), 1);
        EXPECT_EQ(DEV_SWDRV_PMGR_GetPortDot1qTunnelModeofLocalPort(1, 3, &mode), 1);
        EXPECT_EQ(mode, taken);
    }
    for (const uint32_t taken : {0x0600U, 0xFFFFU}) {
        EXPECT_EQ(DEV_SWDRV_PMGR_SetPortDot1qTunnelTPID(1, 3, taken), 1);
        EXPECT_EQ(DEV_SWDRV_PMGR_GetPortDot1qTunnelTPIDofLocalPort(1, 3, &tpid), 1);
        EXPECT_EQ(tpid, taken);
    }
    EXPECT_EQ(DEV_SWDRV_PMGR_GetPortDot1qTunnelModeofLocalPort(2, 3, &mode), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_GetPortDot1qTunnelTPIDofLocalPort(2, 3, &tpid), 0);
}

// Both kinds of mapping, whose requests name the flag and the tag in different places.
TEST_F(SwdrvDot1qTunnelTest, MapsCustomerVlans)
{
    const struct {
        ServiceTags PortTunnel::*tags;
        uint8_t (*change)(uint32_t port, uint32_t customer_vlan, uint8_t flag, uint32_t vlan, uint8_t priority);
    } rows[] = {
        {&PortTunnel::double_tags,
         [](uint32_t port, uint32_t customer_vlan, uint8_t flag, uint32_t vlan, uint8_t priority) {
             return DEV_SWDRV_PMGR_SetPortDot1qTunnelVlanDoubleTag(2, port, customer_vlan, flag, vlan, priority);
         }},
        {&PortTunnel::replacements,
         [](uint32_t port, uint32_t customer_vlan, uint8_t flag, uint32_t vlan, uint8_t priority) {
             return DEV_SWDRV_PMGR_SetPortDot1qTunnelReplaceVlan(2, port, customer_vlan, vlan, priority, flag);
         }},
    };
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(100), 1);
    for (const auto &row : rows) {
        const auto change = row.change;
        EXPECT_EQ(change(3, 7, 1, 100, 7), 1);
        EXPECT_EQ(tunnel().*row.tags, (ServiceTags{{7, {.vlan = 100, .priority = 7}}}));
        EXPECT_EQ(change(3, 7, 1, 1, 0), 1);
        const ServiceTags mapped{{7, {.vlan = 1, .priority = 0}}};
        EXPECT_EQ(tunnel().*row.tags, mapped);
        expect_refused({
            {"customer VLAN 0", [=] { return change(3, 0, 1, 100, 0); }},
            {"customer VLAN 4095", [=] { return change(3, 4095, 1, 100, 0); }},
            {"no VLAN", [=] { return change(3, 7, 1, 101, 0); }},
            {"priority 8", [=] { return change(3, 7, 1, 100, 8); }},
            {"flag 2", [=] { return change(3, 7, 2, 100, 5); }},
            {"no port", [=] { return change(29, 7, 1, 100, 0); }},
            {"not mapped", [=] { return change(3, 8, 0, 0, 0); }},
            {"no port to map at", [=] { return change(29, 7, 0, 0, 0); }},
        });
        EXPECT_EQ(tunnel().*row.tags, mapped);

        for (uint32_t vlan = 1; vlan <= Tunnels::most_mappings; ++vlan) {
            EXPECT_EQ(change(3, vlan, 1, 100, 0), 1);
        }
        EXPECT_EQ(change(3, 4094, 1, 100, 0), 0) << "full";
        EXPECT_EQ(change(3, 128, 1, 1, 0), 1) << "a change needs no room";
        EXPECT_EQ(change(3, 1, 0, 0, 0), 1);
        EXPECT_EQ(change(3, 4094, 1, 100, 0), 1);
    }
    EXPECT_EQ(DEV_SWDRV_PMGR_DestroyVlan(100), 1);
    for (const auto &row : rows) {
        EXPECT_EQ(tunnel().*row.tags, (ServiceTags{{128, {.vlan = 1, .priority = 0}}}));
    }
}

}  // namespace
}  // namespace quillon::test
