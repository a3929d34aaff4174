// An application process for the tests: `switch_setup UNIT FIRST_VLAN TRUNK INSTANCE ROUNDS` sets a switch up as an
// operator's commands would, reads back what can be read, and takes it down again, as often as it is told. It begins
// when it has read a line, prints a line for everything that is not as it should be, and at the end how many times
// it was the one to create the VLAN that all such processes want.
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#include <array>
#include <numeric>
#include <vector>

#include "quillon/swdrv.h"

namespace {

constexpr uint32_t contended_vlan = 4000;

constexpr uint32_t access_port = 1;     // untagged in the first VLAN
constexpr uint32_t tagged_port = 2;     // a member of all VLANs
constexpr uint32_t outside_port = 3;    // a member of none
constexpr uint32_t trunk_port = 5;      // and the next one
constexpr uint32_t trunk_ports = 0x30;  // the two as bits
constexpr uint32_t vlan_count = 8;
constexpr uint8_t group[6] = {0x01, 0x00, 0x5E, 0x00, 0x00, 0x01};

void report(bool as_expected, const char *what, int line)
{
    if (!as_expected) {
        printf("line %d: %s\n", line, what);
    }
}

#define EXPECT(condition) report(condition, #condition, __LINE__)

struct Setup {
    uint32_t unit;
    uint32_t first_vlan;
    uint32_t trunk;
    uint32_t instance;

    std::array<uint16_t, vlan_count> vlans() const
    {
        std::array<uint16_t, vlan_count> ids;
        std::iota(ids.begin(), ids.end(), static_cast<uint16_t>(first_vlan));
        return ids;
    }
};

void set_up(const Setup &setup)
{
    const uint32_t unit = setup.unit;
    for (const uint32_t vlan : setup.vlans()) {
        const uint32_t members[] = {trunk_ports, 0};
        EXPECT(DEV_SWDRV_PMGR_CreateVlan(vlan));
        EXPECT(DEV_SWDRV_PMGR_SetPortToVlanMemberSet(unit, vlan, members));
        EXPECT(DEV_SWDRV_PMGR_AddPortVlanSet(unit, tagged_port, vlan));
        EXPECT(DEV_SWDRV_PMGR_AddVlanToSTAWithMstidx(setup.instance, vlan));
    }
    EXPECT(DEV_SWDRV_PMGR_AddPortVlanSet(unit, access_port, setup.first_vlan));
    EXPECT(DEV_SWDRV_PMGR_AddPortUntaggedVlanSet(unit, access_port, setup.first_vlan));
    EXPECT(DEV_SWDRV_PMGR_SetPortPVID(unit, access_port, setup.first_vlan));
    EXPECT(DEV_SWDRV_PMGR_SetPortMTU(unit, access_port, 1000 + setup.trunk));

    const uint8_t bitmap[32] = {trunk_ports};
    EXPECT(DEV_SWDRV_PMGR_CreateTrunk(setup.trunk));
    EXPECT(DEV_SWDRV_PMGR_SetTrunkPortMembers(unit, setup.trunk, bitmap));
    EXPECT(DEV_SWDRV_PMGR_SetTrunkBalanceMode(setup.trunk, 6));
    EXPECT(DEV_SWDRV_PMGR_AddMulticastAddrToTrunkMember(group, setup.first_vlan, unit, trunk_port));
    EXPECT(DEV_SWDRV_PMGR_SetPortSTAState(setup.instance, vlan_count, setup.vlans().data(), unit, trunk_port, 5));
}

// Where there is no getter, a request that is refused, or not, tells what is there.
void read_back(const Setup &setup)
{
    const uint32_t unit = setup.unit;
    const auto vlans = setup.vlans();
    for (const uint32_t vlan : vlans) {
        EXPECT(!DEV_SWDRV_PMGR_CreateVlan(vlan));
        EXPECT(DEV_SWDRV_PMGR_AddPortUntaggedVlanSet(unit, tagged_port, vlan));
        EXPECT(DEV_SWDRV_PMGR_AddPortUntaggedVlanSet(unit, trunk_port + 1, vlan));
        EXPECT(!DEV_SWDRV_PMGR_AddPortUntaggedVlanSet(unit, outside_port, vlan));
        EXPECT(DEV_SWDRV_PMGR_DeletePortUntaggedVlanSet(unit, tagged_port, vlan));
    }
    EXPECT(DEV_SWDRV_PMGR_SetPortSTAState(setup.instance, vlan_count, vlans.data(), unit, trunk_port, 2));
    EXPECT(!DEV_SWDRV_PMGR_SetPortSTAState(0, vlan_count, vlans.data(), unit, trunk_port, 2));

    uint8_t mode = 0;
    EXPECT(!DEV_SWDRV_PMGR_CreateTrunk(setup.trunk));
    EXPECT(DEV_SWDRV_PMGR_GetTrunkBalanceModeofLocalUnit(setup.trunk, &mode) && mode == 6);
    EXPECT(!DEV_SWDRV_PMGR_AddMulticastAddrToTrunkMember(group, setup.first_vlan, unit, trunk_port));
    EXPECT(DEV_SWDRV_PMGR_AddMulticastAddrToTrunkMember(group, setup.first_vlan, unit, trunk_port + 1));
    EXPECT(!DEV_SWDRV_PMGR_AddMulticastAddrToTrunkMember(group, setup.first_vlan, unit, outside_port));

    uint32_t untagged = 0;
    uint32_t tagged = 0;
    EXPECT(DEV_SWDRV_PMGR_GetPortMaxFrameSize(unit, access_port, &untagged, &tagged));
    EXPECT(untagged == 1018 + setup.trunk && tagged == 1022 + setup.trunk);
}

void take_down(const Setup &setup)
{
    const uint32_t unit = setup.unit;
    const auto vlans = setup.vlans();
    uint8_t mode = 0;
    EXPECT(DEV_SWDRV_PMGR_DestroyTrunk(setup.trunk));
    EXPECT(!DEV_SWDRV_PMGR_GetTrunkBalanceModeofLocalUnit(setup.trunk, &mode));
    EXPECT(!DEV_SWDRV_PMGR_DeleteMulticastAddrToTrunkMember(group, setup.first_vlan, unit, trunk_port));
    EXPECT(DEV_SWDRV_PMGR_SetPortMTU(unit, access_port, 9216));
    EXPECT(DEV_SWDRV_PMGR_DeletePortVlanSet(unit, access_port, setup.first_vlan));
    EXPECT(!DEV_SWDRV_PMGR_AddPortUntaggedVlanSet(unit, access_port, setup.first_vlan));
    for (const uint32_t vlan : vlans) {
        EXPECT(DEV_SWDRV_PMGR_DeleteVlanFromSTAWithMstidx(setup.instance, vlan));
        EXPECT(DEV_SWDRV_PMGR_DestroyVlan(vlan));
        EXPECT(!DEV_SWDRV_PMGR_AddPortVlanSet(unit, tagged_port, vlan));
    }
    EXPECT(!DEV_SWDRV_PMGR_SetPortSTAState(0, vlan_count, vlans.data(), unit, trunk_port, 5));
}

// Whoever creates it is the one to destroy it.
bool create_and_destroy_contended_vlan()
{
    if (!DEV_SWDRV_PMGR_CreateVlan(contended_vlan)) {
        return false;
    }
    EXPECT(DEV_SWDRV_PMGR_DestroyVlan(contended_vlan));
    return true;
}

}  // namespace

int main(int argc, char **argv)
{
    if (argc != 6) {
        fputs("usage: switch_setup UNIT FIRST_VLAN TRUNK INSTANCE ROUNDS\n", stderr);
        return 2;
    }
    std::vector<uint32_t> numbers;
    for (int i = 1; i < argc; ++i) {
        numbers.push_back(static_cast<uint32_t>(atoi(argv[i])));
    }
    const Setup setup{.unit = numbers[0], .first_vlan = numbers[1], .trunk = numbers[2], .instance = numbers[3]};

    DEV_SWDRV_PMGR_InitiateProcessResource();
    if (getchar() == EOF) {
        return 2;
    }
    unsigned created = 0;
    for (uint32_t round = 0; round < numbers[4]; ++round) {
        set_up(setup);
        created += create_and_destroy_contended_vlan();
        read_back(setup);
        take_down(setup);
    }
    printf("created %u\n", created);
    return 0;
}
