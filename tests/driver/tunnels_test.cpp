#include "host/driver/model/tunnels.h"

#include <gtest/gtest.h>
#include <stdint.h>

namespace quillon::driver {
namespace {

constexpr LogicalPort port{2, 3};

struct TunnelsTest : testing::Test {
    TunnelsTest() { vlans.create(100); }

    Stack stack{StackShape{}};
    Vlans vlans{stack};
    Tunnels tunnels{stack};
};

TEST_F(TunnelsTest, KeepTheSettingsOfAPort)
{
    EXPECT_EQ(*tunnels.find(port), PortTunnel{});
    EXPECT_TRUE(tunnels.set_mode(port, TunnelMode::provider_side));
    EXPECT_TRUE(tunnels.set_tpid(port, 0x88A8));
    EXPECT_TRUE(tunnels.set_replace_mode(port, {.incoming = false, .outgoing = true}));
    EXPECT_EQ(*tunnels.find(port), (PortTunnel{.mode = TunnelMode::provider_side,
                                               .tpid = 0x88A8,
                                               .replace_mode = {.incoming = false, .outgoing = true},
                                               .double_tags = {},
                                               .replacements = {}}));
    EXPECT_EQ(*tunnels.find({1, 3}), PortTunnel{});

    for (const uint32_t tpid : {0U, 0x05FFU, 0x1'0000U, UINT32_MAX}) {
        EXPECT_FALSE(tunnels.set_tpid(port, tpid)) << tpid;
    }
    EXPECT_TRUE(tunnels.set_tpid(port, 0x0600));
    EXPECT_TRUE(tunnels.set_tpid(port, 0xFFFF));
    EXPECT_FALSE(tunnels.set_mode({3, 1}, TunnelMode::off));
    EXPECT_FALSE(tunnels.set_tpid({3, 1}, 0x8100));
    EXPECT_FALSE(tunnels.set_replace_mode({3, 1}, {}));
}

TEST_F(TunnelsTest, MapCustomerVlans)
{
    const auto both = {&PortTunnel::double_tags, &PortTunnel::replacements};
    for (const auto kind : both) {
        const ServiceTags &tags = tunnels.find(port)->*kind;
        EXPECT_TRUE(tunnels.map(kind, vlans, port, 7, {.vlan = 100, .priority = 7}));
        EXPECT_EQ(tags, (ServiceTags{{7, {.vlan = 100, .priority = 7}}}));
        EXPECT_TRUE(tunnels.map(kind, vlans, port, 7, {.vlan = 1, .priority = 0}));
        EXPECT_EQ(tags, (ServiceTags{{7, {.vlan = 1, .priority = 0}}}));

        EXPECT_FALSE(tunnels.map(kind, vlans, port, 0, {.vlan = 100, .priority = 0}));
        EXPECT_FALSE(tunnels.map(kind, vlans, port, 4095, {.vlan = 100, .priority = 0}));
        EXPECT_FALSE(tunnels.map(kind, vlans, port, 7, {.vlan = 101, .priority = 0}));
        EXPECT_FALSE(tunnels.map(kind, vlans, port, 7, {.vlan = 100, .priority = 8}));
        EXPECT_FALSE(tunnels.map(kind, vlans, {2, 29}, 7, {.vlan = 100, .priority = 0}));
        EXPECT_FALSE(tunnels.unmap(kind, port, 8));
        EXPECT_FALSE(tunnels.unmap(kind, {2, 29}, 7));
        EXPECT_EQ(tags, (ServiceTags{{7, {.vlan = 1, .priority = 0}}}));

        for (uint32_t vlan = 1; vlan <= Tunnels::most_mappings; ++vlan) {
            EXPECT_TRUE(tunnels.map(kind, vlans, port, vlan, {.vlan = 100, .priority = 0}));
        }
        EXPECT_FALSE(tunnels.map(kind, vlans, port, 4094, {.vlan = 100, .priority = 0})) << "full";
        EXPECT_TRUE(tunnels.map(kind, vlans, port, 128, {.vlan = 1, .priority = 0}));
        EXPECT_TRUE(tunnels.unmap(kind, port, 1));
        EXPECT_TRUE(tunnels.map(kind, vlans, port, 4094, {.vlan = 100, .priority = 0}));
    }

    tunnels.forget_vlan(100);
    for (const auto kind : both) {
        EXPECT_EQ(tunnels.find(port)->*kind, (ServiceTags{{128, {.vlan = 1, .priority = 0}}}));
    }
}

}  // namespace
}  // namespace quillon::driver
