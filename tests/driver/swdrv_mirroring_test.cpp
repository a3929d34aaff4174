#include <gtest/gtest.h>
#include <stdint.h>

#include <functional>
#include <optional>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::LogicalPort;
using driver::MirroredFrames;
using driver::Mirrors;
using driver::PortMirror;

constexpr LogicalPort source{1, 7};
constexpr LogicalPort destination{2, 3};
constexpr LogicalPort no_port{2, 29};
constexpr MirroredFrames received{.received = true, .sent = false};
constexpr MirroredFrames sent{.received = false, .sent = true};

uint32_t word(const LogicalPort &port)
{
    return port.unit << 16 | port.port;
}

uint8_t set(const LogicalPort &from, const LogicalPort &to, uint32_t frames = 1)
{
    return DEV_SWDRV_PMGR_SetPortMirroring(word(from), word(to), frames);
}

uint8_t remove(const LogicalPort &from, const LogicalPort &to = destination)
{
    return DEV_SWDRV_PMGR_DeletePortMirroring(word(from), word(to));
}

struct SwdrvMirroringTest : SwdrvClientTest {
    std::optional<PortMirror> mirror()
    {
        const auto access = model.lock();
        const PortMirror *const found = access->chips.mirrors.find(destination);
        return found == nullptr ? std::nullopt : std::optional(*found);
    }

    bool mirrors_vlan(uint32_t vlan, const LogicalPort &to = destination)
    {
        return model.lock()->chips.mirrors.has_vlan_mirror(vlan, to);
    }
};

TEST_F(SwdrvMirroringTest, LeadsFromSourcesToADestination)
{
    const auto enable = [] { return DEV_SWDRV_PMGR_EnablePortMirroring(word(destination)); };
    EXPECT_EQ(enable(), 0);
    EXPECT_EQ(set(source, destination, 1), 1);
    EXPECT_EQ(mirror(), (PortMirror{.sources = {{source, received}}, .enabled = false}));
    EXPECT_EQ(enable(), 1);
    EXPECT_EQ(set(source, destination, 2), 1);
    EXPECT_EQ(set({1, 2}, destination, 1), 1);
    EXPECT_EQ(mirror(), (PortMirror{.sources = {{source, sent}, {{1, 2}, received}}, .enabled = true}));
    EXPECT_EQ(DEV_SWDRV_PMGR_DisablePortMirroring(word(destination)), 1);
    EXPECT_FALSE(mirror()->enabled);

    EXPECT_EQ(remove(source), 1);
    EXPECT_EQ(remove(source), 0);
    EXPECT_EQ(remove({1, 2}), 1);
    EXPECT_EQ(mirror(), std::nullopt);
    EXPECT_EQ(enable(), 0);
}

TEST_F(SwdrvMirroringTest, RefusesWhatCannotBeMirrored)
{
    EXPECT_EQ(set(source, destination), 1);
    EXPECT_EQ(set(source, destination, 0), 0) << "no frames";
    EXPECT_EQ(set(source, destination, 4), 0) << "frames 4";
    EXPECT_EQ(set({0, 7}, destination), 0) << "a source without a unit";
    EXPECT_EQ(set(source, no_port), 0);
    EXPECT_EQ(set({1, 5}, {1, 5}), 0) << "itself";
    EXPECT_EQ(set(destination, {1, 5}), 0) << "the copies would be copied";
    EXPECT_EQ(set({1, 5}, source), 0) << "a source as the destination";
    for (const uint32_t port : {11U, 12U, 13U}) {
        EXPECT_EQ(set(source, {1, port}), 1);
    }
    EXPECT_EQ(set(source, {1, 14}), 0) << "a fifth destination";
    EXPECT_EQ(set({1, 5}, {1, 13}), 1);
    EXPECT_EQ(remove(source), 1);
    EXPECT_EQ(set(source, {1, 14}), 1);
}

TEST_F(SwdrvMirroringTest, CopiesVlans)
{
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(7), 1);
    expect_checked(DEV_SWDRV_PMGR_AddVlanMirror, {7, 2, 3}, {8, 3, 29});
    EXPECT_TRUE(mirrors_vlan(7));
    EXPECT_EQ(DEV_SWDRV_PMGR_AddVlanMirror(7, 2, 3), 0) << "it is there";
    expect_checked(DEV_SWDRV_PMGR_DeleteVlanMirror, {7, 2, 3}, {1, 1, 7});
    EXPECT_FALSE(mirrors_vlan(7));

    EXPECT_EQ(DEV_SWDRV_PMGR_AddVlanMirror(7, 1, 7), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_AddVlanMirror(1, 1, 7), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_DestroyVlan(7), 1);
    EXPECT_FALSE(mirrors_vlan(7, source)) << "gone with its VLAN";
    EXPECT_TRUE(mirrors_vlan(1, source));
    for (uint32_t id = 2; id <= Mirrors::most_vlan_mirrors; ++id) {
        EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(id), 1);
        EXPECT_EQ(DEV_SWDRV_PMGR_AddVlanMirror(id, 1, 7), 1);
    }
    EXPECT_EQ(DEV_SWDRV_PMGR_AddVlanMirror(1, 2, 3), 0) << "full";
}

TEST_F(SwdrvMirroringTest, HasOneDestinationForAddressesAndOneForLists)
{
    const auto destinations = [this] {
        const auto access = model.lock();
        return std::pair(access->chips.mirrors.mac_destination(), access->chips.mirrors.acl_destination());
    };
    expect_checked(DEV_SWDRV_PMGR_SetDestPortForMacMirror, {1, 7, 1}, {3, 29, 2});
    expect_checked(DEV_SWDRV_PMGR_SetDestPortForAclMirror, {2, 3, 1}, {3, 29, 2});
    expect_refused({
        {"another port", [] { return DEV_SWDRV_PMGR_SetDestPortForMacMirror(2, 3, 0); }},
        {"another port of lists", [] { return DEV_SWDRV_PMGR_SetDestPortForAclMirror(1, 7, 0); }},
    });
    EXPECT_EQ(destinations(), std::pair(std::optional(source), std::optional(destination)));
    EXPECT_EQ(DEV_SWDRV_PMGR_SetDestPortForMacMirror(2, 3, 1), 1);
    EXPECT_EQ(destinations().first, destination);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetDestPortForMacMirror(2, 3, 0), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetDestPortForAclMirror(2, 3, 0), 1);
    EXPECT_EQ(destinations().first, std::nullopt);
    EXPECT_EQ(destinations().second, std::nullopt);
}

}  // namespace
}  // namespace quillon::test
