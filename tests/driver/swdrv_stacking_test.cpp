#include <gtest/gtest.h>
#include <stdint.h>

#include <vector>

#include "driver/swdrv_client.h"
#include "host/driver/model/topology.h"

namespace quillon::test {
namespace {

using driver::LogicalPort;
using driver::SpeedDuplex;

struct SwdrvStackingTest : SwdrvClientTest {};

// `upwards` and `downwards` are the units that stacking ports 1 and 2 lead to.
TopologyRecord topology(uint8_t units, uint8_t upwards, uint8_t downwards, uint8_t master)
{
    return {{units, upwards, 0, 0, 0, downwards, 0, 0, 0, master, 0, 0, 0}};
}

TEST_F(SwdrvStackingTest, NamesUnitsAndChips)
{
    EXPECT_EQ(answer(DEV_SWDRV_PMGR_GetUnitId), 1U);
    EXPECT_EQ(answer(DEV_SWDRV_PMGR_GetStackChipDeviceID), 2U);
    EXPECT_EQ(answer(DEV_SWDRV_PMGR_GetLocalCrossBarDeviceId), 2U);
    EXPECT_EQ(answer(DEV_SWDRV_PMGR_GetMasterModuleID), 1U);
    uint32_t module_id = 0;
    expect_checked(DEV_SWDRV_PMGR_GetModuleInfoByUnit, {2, 1, &module_id}, {3, 2, &module_id});
    EXPECT_EQ(module_id, 4U);
    uint32_t unit = 0;
    uint32_t port = 0;
    expect_checked(DEV_SWDRV_PMGR_Physical2LogicalPortByUnitID_DeviceID, {2, 1, 14, &unit, &port},
                   {3, 2, 15, &unit, &port});
    EXPECT_EQ((LogicalPort{unit, port}), (LogicalPort{2, 28}));
}

TEST_F(SwdrvStackingTest, WalksOverTheChipsToTheirEnd)
{
    std::vector<uint32_t> chips;
    uint32_t chip = 0;
    while (DEV_SWDRV_PMGR_GetNextSwitchChipId(&chip) == 1 && chips.size() < 10) {
        chips.push_back(chip);
    }
    EXPECT_EQ(chips, (std::vector<uint32_t>{1, 2, 3, 4}));
    EXPECT_EQ(chip, 4U);
    for (const uint32_t no_chip : {5U, UINT32_MAX}) {
        chip = no_chip;
        EXPECT_EQ(DEV_SWDRV_PMGR_GetNextSwitchChipId(&chip), 0);
        EXPECT_EQ(chip, no_chip);
    }
}

TEST_F(SwdrvStackingTest, FollowsTheTopology)
{
    const auto fabric_port = [](uint32_t unit) {
        uint32_t to_unit = 99;
        uint32_t at_position = 99;
        DEV_SWDRV_PMGR_GetFabricPortToDstUnit(unit, &to_unit);
        DEV_SWDRV_PMGR_GetFabricportByUnitPosition(unit, &at_position);
        EXPECT_EQ(to_unit, at_position);
        return to_unit;
    };
    const auto forwarding = [] {
        uint32_t ports = 99;
        DEV_SWDRV_PMGR_GetForwardingStackingPortBitMap(&ports);
        return ports;
    };
    const auto link_port = [](uint32_t module_id) {
        uint32_t port = 99;
        DEV_SWDRV_PMGR_Get5670linkport(module_id, &port);
        return port;
    };
    uint32_t module_id = 99;
    uint32_t port = 99;
    EXPECT_EQ(fabric_port(1), 0U);
    EXPECT_EQ(fabric_port(2), 1U);
    EXPECT_EQ(fabric_port(3), 0U);
    EXPECT_EQ(forwarding(), 1U);
    EXPECT_EQ(link_port(2), 4U);
    EXPECT_EQ(link_port(3), 1U);

    // Unit 2 is the master now, behind the other port. The fabric chip's table has its own request.
    const TopologyRecord downwards = topology(2, 0, 2, 2);
    EXPECT_EQ(DEV_SWDRV_PMGR_ConfigTopologyInfo(&downwards), 1);
    EXPECT_EQ(fabric_port(2), 2U);
    EXPECT_EQ(forwarding(), 2U);
    EXPECT_EQ(DEV_SWDRV_PMGR_GetMasterModuleID(&module_id), 1);
    EXPECT_EQ(module_id, 3U);
    DEV_SWDRV_PMGR_GetDstUnitInfo(2, 1, &module_id, &port);
    EXPECT_EQ(module_id, 4U);
    EXPECT_EQ(port, 2U);
    EXPECT_EQ(link_port(3), 1U);
    EXPECT_EQ(DEV_SWDRV_PMGR_UpdateHerculesUCTable(&downwards), 1);
    EXPECT_EQ(link_port(3), 2U);

    const TopologyRecord malformed[] = {
        topology(3, 0, 2, 1),  // not so many units
        topology(2, 1, 0, 1),  // the local unit behind a port
        topology(2, 4, 0, 1),  // a unit that does not exist
        topology(3, 2, 2, 1),  // one behind both ports
        topology(1, 0, 0, 2),  // a master that is not reached
        topology(1, 0, 0, 0), topology(0, 0, 0, 1),
    };
    for (const TopologyRecord &record : malformed) {
        EXPECT_EQ(DEV_SWDRV_PMGR_ConfigTopologyInfo(&record), 0);
        EXPECT_EQ(DEV_SWDRV_PMGR_UpdateHerculesUCTable(&record), 0);
    }
    EXPECT_EQ(fabric_port(2), 2U);
    EXPECT_EQ(link_port(3), 2U);

    const TopologyRecord alone = topology(1, 0, 0, 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_ConfigTopologyInfo(&alone), 1);
    EXPECT_EQ(forwarding(), 0U);
    DEV_SWDRV_PMGR_GetDstUnitInfo(2, 1, &module_id, &port);
    EXPECT_EQ(module_id, 0U);
    EXPECT_EQ(DEV_SWDRV_PMGR_Get5670linkport(5, &port), 0);

    const TopologyRecord initial = {};
    EXPECT_EQ(DEV_SWDRV_PMGR_ConfigTopologyInfo(&initial), 1);
    EXPECT_EQ(fabric_port(2), 1U);
}

// The shorter way round, and the largest stack's last bit.
TEST(Topology, BeginsAsARing)
{
    const driver::Stack stack({.units = 32, .ports = 28, .chips = 2});
    const driver::Topology ring(stack);
    for (const auto &[unit, port] :
         std::vector<std::pair<uint32_t, uint32_t>>{{1, 0}, {2, 1}, {17, 1}, {18, 2}, {32, 2}}) {
        EXPECT_EQ(ring.port_towards(unit), port) << unit;
    }
    EXPECT_EQ(ring.port_towards(0), std::nullopt);
    EXPECT_EQ(ring.port_towards(33), std::nullopt);
    EXPECT_EQ(ring.forwarding_ports(), 3U);
    EXPECT_EQ(driver::Topology(driver::Stack({.units = 1})).forwarding_ports(), 0U);
}

TEST_F(SwdrvStackingTest, SetsThePortHardware)
{
    const auto settings = [this](uint32_t port) { return *model.lock()->chips.ports.find({2, port}); };
    expect_checked(DEV_SWDRV_PMGR_SetPortComboForcedMode, {2, 1, 1, 4}, {3, 29, 2, 5});
    EXPECT_EQ(settings(1).speed_duplex(), SpeedDuplex::hundred_full);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortComboForcedMode(2, 1, 1, 8), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortComboForcedMode(2, 1, 0, 0), 1);
    expect_checked(DEV_SWDRV_PMGR_SetFiberPortAutoNeg, {2, 21, 1}, {3, 1, 2});
    EXPECT_EQ(DEV_SWDRV_PMGR_SetFiberPortAutoNeg(2, 21, 0), 1);
    EXPECT_FALSE(settings(21).negotiates());
    EXPECT_EQ(DEV_SWDRV_PMGR_SetFiberPortAutoNeg(2, 28, 1), 0) << "10GBASE-R";
    expect_kept(DEV_SWDRV_PMGR_SetPortIfmode, {2, 28, 3}, {3, 29, 0}, driver::Setting::port_interface, {2, 28}, {3});
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortIfmode(2, 1, 2), 0);

    // Nothing says whether these were taken.
    DEV_SWDRV_PMGR_HiGigRemoteLoopbackSet(2, 2, 1);
    DEV_SWDRV_PMGR_HiGigRemoteLoopbackSet(2, 2, 2);
    DEV_SWDRV_PMGR_HiGigRemoteLoopbackSet(2, 3, 1);
    DEV_SWDRV_PMGR_VID_BREAK();
    EXPECT_TRUE(kept(driver::Setting::higig_remote_loopback, {2, 2}, {1})(model.lock()->chips));
    EXPECT_TRUE(kept(driver::Setting::higig_remote_loopback, {2, 3}, {})(model.lock()->chips));
}

TEST_F(SwdrvStackingTest, DetectsEnergyOnCopper)
{
    const auto energy = [](uint32_t port) { return answer(DEV_SWDRV_PMGR_GetCopperEnergyDetect, 2, port); };
    EXPECT_EQ(energy(1), 1U);
    model.lock()->lines.find({2, 1})->plugged = false;
    EXPECT_EQ(energy(1), 0U);
    EXPECT_EQ(energy(2), 1U);
    DEV_SWDRV_PMGR_ShutdownSwitch();
    EXPECT_EQ(energy(2), 0U);
    uint32_t detected = 0;
    EXPECT_EQ(DEV_SWDRV_PMGR_GetCopperEnergyDetect(2, 21, &detected), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_GetCopperEnergyDetect(2, 29, &detected), 0);
}

}  // namespace
}  // namespace quillon::test
