#include "host/driver/model/mirrors.h"

#include <gtest/gtest.h>
#include <stdint.h>

#include <optional>

namespace quillon::driver {
namespace {

constexpr MirroredFrames received = {.received = true, .sent = false};
constexpr MirroredFrames sent = {.received = false, .sent = true};
constexpr LogicalPort source{1, 1};
constexpr LogicalPort destination{2, 28};
constexpr LogicalPort no_port{2, 29};

struct MirrorsTest : testing::Test {
    Stack stack{StackShape{}};
    Vlans vlans{stack};
    Mirrors mirrors{stack};
};

TEST_F(MirrorsTest, LeadFromSourcesToADestination)
{
    EXPECT_FALSE(mirrors.enable(destination, true));
    EXPECT_TRUE(mirrors.set(source, destination, received));
    EXPECT_EQ(*mirrors.find(destination), (PortMirror{.sources = {{source, received}}, .enabled = false}));
    EXPECT_TRUE(mirrors.enable(destination, true));
    EXPECT_TRUE(mirrors.set(source, destination, sent));
    EXPECT_TRUE(mirrors.set({1, 2}, destination, received));
    EXPECT_EQ(*mirrors.find(destination),
              (PortMirror{.sources = {{source, sent}, {{1, 2}, received}}, .enabled = true}));
    EXPECT_TRUE(mirrors.enable(destination, false));
    EXPECT_FALSE(mirrors.find(destination)->enabled);

    EXPECT_TRUE(mirrors.remove(source, destination));
    EXPECT_FALSE(mirrors.remove(source, destination));
    EXPECT_TRUE(mirrors.remove({1, 2}, destination));
    EXPECT_EQ(mirrors.find(destination), nullptr);
    EXPECT_FALSE(mirrors.enable(destination, true));
}

TEST_F(MirrorsTest, RefuseWhatCannotBeMirrored)
{
    EXPECT_FALSE(mirrors.set(source, destination, {}));
    EXPECT_FALSE(mirrors.set(source, source, received));
    EXPECT_FALSE(mirrors.set(no_port, destination, received));
    EXPECT_FALSE(mirrors.set(source, no_port, received));

    EXPECT_TRUE(mirrors.set(source, destination, received));
    EXPECT_FALSE(mirrors.set(destination, {1, 5}, received)) << "the copies would be copied";
    EXPECT_FALSE(mirrors.set({1, 5}, source, received)) << "a source as the destination";

    for (const uint32_t port : {11U, 12U, 13U}) {
        EXPECT_TRUE(mirrors.set(source, {1, port}, received));
    }
    EXPECT_FALSE(mirrors.set(source, {1, 14}, received)) << "a fifth destination";
    EXPECT_TRUE(mirrors.set({1, 5}, {1, 13}, received));
    EXPECT_TRUE(mirrors.remove(source, destination));
    EXPECT_TRUE(mirrors.set(source, {1, 14}, received));
}

TEST_F(MirrorsTest, CopyVlans)
{
    EXPECT_TRUE(vlans.create(7));
    EXPECT_TRUE(mirrors.add_vlan_mirror(vlans, 7, destination));
    EXPECT_TRUE(mirrors.has_vlan_mirror(7, destination));
    EXPECT_FALSE(mirrors.add_vlan_mirror(vlans, 7, destination));
    EXPECT_FALSE(mirrors.add_vlan_mirror(vlans, 8, destination));
    EXPECT_FALSE(mirrors.add_vlan_mirror(vlans, 7, no_port));
    EXPECT_FALSE(mirrors.remove_vlan_mirror(7, source));
    EXPECT_TRUE(mirrors.remove_vlan_mirror(7, destination));
    EXPECT_FALSE(mirrors.has_vlan_mirror(7, destination));

    EXPECT_TRUE(mirrors.add_vlan_mirror(vlans, 7, source));
    EXPECT_TRUE(mirrors.add_vlan_mirror(vlans, 1, source));
    mirrors.forget_vlan(7);
    EXPECT_FALSE(mirrors.has_vlan_mirror(7, source));
    EXPECT_TRUE(mirrors.has_vlan_mirror(1, source));

    for (uint32_t id = 2; id <= Mirrors::most_vlan_mirrors; ++id) {
        vlans.create(id);
        EXPECT_TRUE(mirrors.add_vlan_mirror(vlans, id, source));
    }
    EXPECT_FALSE(mirrors.add_vlan_mirror(vlans, 1, destination)) << "full";
}

TEST_F(MirrorsTest, HaveOneDestinationForAddressesAndOneForLists)
{
    EXPECT_TRUE(mirrors.set_mac_destination(source));
    EXPECT_TRUE(mirrors.set_acl_destination(destination));
    EXPECT_EQ(mirrors.mac_destination(), source);
    EXPECT_EQ(mirrors.acl_destination(), destination);
    EXPECT_FALSE(mirrors.clear_mac_destination(destination));
    EXPECT_FALSE(mirrors.clear_acl_destination(source));
    EXPECT_FALSE(mirrors.set_mac_destination(no_port));
    EXPECT_TRUE(mirrors.set_mac_destination(destination));
    EXPECT_EQ(mirrors.mac_destination(), destination);
    EXPECT_TRUE(mirrors.clear_mac_destination(destination));
    EXPECT_TRUE(mirrors.clear_acl_destination(destination));
    EXPECT_EQ(mirrors.mac_destination(), std::nullopt);
    EXPECT_EQ(mirrors.acl_destination(), std::nullopt);
}

}  // namespace
}  // namespace quillon::driver
