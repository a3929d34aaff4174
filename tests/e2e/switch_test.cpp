// A switch that application processes configure and watch, and what happens to it from outside.
#include <gmock/gmock.h>
#include <stdint.h>
#include <sys/resource.h>
#include <sys/socket.h>

#include <array>
#include <numeric>
#include <string>
#include <vector>

#include "e2e/support/client_test.h"
#include "host/control_protocol.h"
#include "host/platform/runtime_path.h"

namespace quillon::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr uint32_t access_port = 1;     // untagged in the first VLAN
constexpr uint32_t tagged_port = 2;     // a member of all VLANs
constexpr uint32_t outside_port = 3;    // a member of none
constexpr uint32_t trunk_port = 5;      // and the next one
constexpr uint32_t trunk_ports = 0x30;  // the two as bits
constexpr uint32_t vlan_count = 8;
constexpr uint8_t group[6] = {0x01, 0x00, 0x5E, 0x00, 0x00, 0x01};

struct Plan {
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

void set_up(const Plan &plan)
{
    const uint32_t unit = plan.unit;
    for (const uint32_t vlan : plan.vlans()) {
        const uint32_t members[] = {trunk_ports, 0};
        EXPECT_TRUE(DEV_SWDRV_PMGR_CreateVlan(vlan));
        EXPECT_TRUE(DEV_SWDRV_PMGR_SetPortToVlanMemberSet(unit, vlan, members));
        EXPECT_TRUE(DEV_SWDRV_PMGR_AddPortVlanSet(unit, tagged_port, vlan));
        EXPECT_TRUE(DEV_SWDRV_PMGR_AddVlanToSTAWithMstidx(plan.instance, vlan));
    }
    EXPECT_TRUE(DEV_SWDRV_PMGR_AddPortVlanSet(unit, access_port, plan.first_vlan));
    EXPECT_TRUE(DEV_SWDRV_PMGR_AddPortUntaggedVlanSet(unit, access_port, plan.first_vlan));
    EXPECT_TRUE(DEV_SWDRV_PMGR_SetPortMTU(unit, access_port, 1000 + plan.trunk));
    const uint8_t bitmap[32] = {trunk_ports};
    EXPECT_TRUE(DEV_SWDRV_PMGR_CreateTrunk(plan.trunk));
    EXPECT_TRUE(DEV_SWDRV_PMGR_SetTrunkPortMembers(unit, plan.trunk, bitmap));
    EXPECT_TRUE(DEV_SWDRV_PMGR_AddMulticastAddrToTrunkMember(group, plan.first_vlan, unit, trunk_port));
}

// Where there is no getter, a request that is refused, or not, tells what is there.
void read_back(const Plan &plan)
{
    const uint32_t unit = plan.unit;
    const auto vlans = plan.vlans();
    for (const uint32_t vlan : vlans) {
        EXPECT_FALSE(DEV_SWDRV_PMGR_CreateVlan(vlan));
        EXPECT_TRUE(DEV_SWDRV_PMGR_AddPortUntaggedVlanSet(unit, tagged_port, vlan));
        EXPECT_FALSE(DEV_SWDRV_PMGR_AddPortUntaggedVlanSet(unit, outside_port, vlan));
    }
    EXPECT_TRUE(DEV_SWDRV_PMGR_SetPortSTAState(plan.instance, vlan_count, vlans.data(), unit, trunk_port, 2));
    EXPECT_FALSE(DEV_SWDRV_PMGR_CreateTrunk(plan.trunk));
    EXPECT_FALSE(DEV_SWDRV_PMGR_AddMulticastAddrToTrunkMember(group, plan.first_vlan, unit, trunk_port));
    EXPECT_FALSE(DEV_SWDRV_PMGR_AddMulticastAddrToTrunkMember(group, plan.first_vlan, unit, outside_port));
    uint32_t untagged = 0;
    uint32_t tagged = 0;
    EXPECT_TRUE(DEV_SWDRV_PMGR_GetPortMaxFrameSize(unit, access_port, &untagged, &tagged));
    EXPECT_EQ(untagged, 1018 + plan.trunk);
}

void take_down(const Plan &plan)
{
    EXPECT_TRUE(DEV_SWDRV_PMGR_DestroyTrunk(plan.trunk));
    EXPECT_FALSE(DEV_SWDRV_PMGR_DeleteMulticastAddrToTrunkMember(group, plan.first_vlan, plan.unit, trunk_port));
    for (const uint32_t vlan : plan.vlans()) {
        EXPECT_TRUE(DEV_SWDRV_PMGR_DeleteVlanFromSTAWithMstidx(plan.instance, vlan));
        EXPECT_TRUE(DEV_SWDRV_PMGR_DestroyVlan(vlan));
        EXPECT_FALSE(DEV_SWDRV_PMGR_AddPortVlanSet(plan.unit, tagged_port, vlan));
    }
}

// Whoever creates it is the one to destroy it.
void contend_for_vlan()
{
    constexpr uint32_t vlan = 4000;
    if (DEV_SWDRV_PMGR_CreateVlan(vlan)) {
        EXPECT_TRUE(DEV_SWDRV_PMGR_DestroyVlan(vlan));
    }
}

struct SwitchTest : ClientTest {};

TEST_F(SwitchTest, IsSetUpAndTakenDownByTwoProcessesAtOnce)
{
    const auto set_up_and_take_down = [](const Plan &plan) {
        return [plan] {
            for (int round = 0; round < 40; ++round) {
                set_up(plan);
                contend_for_vlan();
                read_back(plan);
                take_down(plan);
            }
        };
    };
    Application first(set_up_and_take_down({.unit = 1, .first_vlan = 100, .trunk = 1, .instance = 1}));
    Application second(set_up_and_take_down({.unit = 2, .first_vlan = 200, .trunk = 2, .instance = 64}));
    first.expect_success();
    second.expect_success();

    // Nothing is left.
    for (const uint32_t vlan : {100U, 207U, 4000U}) {
        EXPECT_EQ(DEV_SWDRV_PMGR_DestroyVlan(vlan), 0) << vlan;
    }
    for (const uint32_t trunk : {1U, 2U}) {
        EXPECT_EQ(DEV_SWDRV_PMGR_DestroyTrunk(trunk), 0) << trunk;
    }
    driver.expect_quiet_end();
}

TEST_F(SwitchTest, LosesALinkWithItsCableAndItsAdministration)
{
    constexpr uint32_t unit = 2;
    constexpr uint32_t port = 3;
    const auto expect_link = [](uint32_t expected) {
        uint32_t link = 9;
        EXPECT_EQ(DEV_SWDRV_PMGR_GetPortLinkStatus(unit, port, &link), 1);
        EXPECT_EQ(link, expected);
        std::array<uint32_t, 90> links{};
        EXPECT_EQ(DEV_SWDRV_PMGR_GetAllPortLinkStatus(unit, 1, 28, links.data()), 1);
        EXPECT_EQ(links[port], expected);
        EXPECT_EQ(links[port + 1], 1U);
    };
    expect_link(1);
    told({"cable", "2", "3", "pull"});
    expect_link(0);
    EXPECT_EQ(DEV_SWDRV_PMGR_ResetOnDemand(1), 1);
    expect_link(0);
    told({"cable", "2", "3", "plug"});
    expect_link(1);
    EXPECT_EQ(DEV_SWDRV_PMGR_DisablePortAdmin(unit, port), 1);
    expect_link(0);
    EXPECT_EQ(DEV_SWDRV_PMGR_EnablePortAdmin(unit, port), 1);
    expect_link(1);
}

struct ControlTest : ClientTest {};

TEST_F(ControlTest, SaysWhatIsWrong)
{
    const std::string hex(28, '0');
    const std::string addresses = "0A0B0C0D0E0F 1A1B1C1D1E1F ";
    const std::string mac = "02-00-00-00-00-01";
    const std::string no_flow = "SOURCE is a host and GROUP a multicast group of the same IP version";
    const struct {
        std::vector<std::string> words;
        std::string err;
    } rows[] = {
        {{"cable", "1", "0x1C", "plug"}, ""},
        {{"cable", "1", "4", "pull"}, ""},
        {{"cable", "3", "1", "pull"}, "UNIT is a number from 1 to 2, not '3'"},
        {{"cable", "1", "29", "pull"}, "PORT is a number from 1 to 28, not '29'"},
        {{"cable", "1", "-1", "pull"}, "PORT is a number from 1 to 28, not '-1'"},
        {{"cable", "1", "1x", "pull"}, "PORT is a number from 1 to 28, not '1x'"},
        {{"cable", "1", "", "pull"}, "PORT is a number from 1 to 28, not ''"},
        {{"cable", "1", "1", "cut"}, "a cable is to pull or plug, not to 'cut'"},

        {{"learn-address", "1", "02:00:00:00:00:01", "1", "1"}, ""},
        {{"learn-address", "1", mac, "2", "28", "16384"}, ""},
        {{"learn-address", "1", "02-00-00-00-40-01", "1", "1"},
         "02-00-00-00-40-01 cannot be learned (0 of 1 learned): the table is full"},
        {{"learn-address", "2", mac, "1", "1"}, "there is no VLAN 2"},
        {{"learn-address", "1", mac, "1", "4"}, "the link of port 1/4 is down"},
        {{"learn-address", "1", "01-00-00-00-00-01", "1", "1"},
         "01-00-00-00-00-01 cannot be learned (0 of 1 learned): it is a multicast address or the switch's own"},
        {{"learn-address", "1", "02-00:00-00-00-01", "1", "1"},
         "MAC is like 02-00-00-00-00-01 or 02:00:00:00:00:01, not '02-00:00-00-00-01'"},
        {{"learn-address", "1", "02-00-00-00-00-0g", "1", "1"},
         "MAC is like 02-00-00-00-00-01 or 02:00:00:00:00:01, not '02-00-00-00-00-0g'"},

        {{"inject-packet", "1", "3", addresses + "0800"}, ""},
        {{"inject-packet", "1", "3", std::string(size_t{2} * 9238, '0')}, ""},
        {{"inject-packet", "1", "3", "0"}, "a packet is bytes of two hexadecimal digits each, not '0'"},
        {{"inject-packet", "1", "3", addresses + "08 0"}, "a packet is bytes of two hexadecimal digits each, not '0'"},
        {{"inject-packet", "1", "3", "0A0X"}, "a packet is bytes of two hexadecimal digits each, not '0X'"},
        {{"inject-packet", "1", "3", addresses + "08"}, "a packet has 14 to 9238 bytes, this one has 13"},
        {{"inject-packet", "1", "3", std::string(size_t{2} * 9239, '0')},
         "a packet has 14 to 9238 bytes, this one has 9239"},
        {{"inject-packet", "1", "4", hex}, "the link of port 1/4 is down"},
        {{"inject-packet", "1", "1", "cookie=0"}, "a packet has 14 to 9238 bytes, this one has 0"},
        {{"inject-packet", "1", "1", hex, "cookie=1"}, "a packet is bytes of two hexadecimal digits each, not 'co'"},
        {{"inject-packet", "1", "1", "cookie=11", hex}, "cookie is a number from 0 to 10, not '11'"},
        {{"inject-packet", "1", "1", "cpu-code=x", hex}, "cpu-code is a number from 0 to 4294967295, not 'x'"},
        {{"inject-packet", "1", "1", "count=0", hex}, "count is a number from 1 to 1000000, not '0'"},
        {{"inject-packet", "1", "1", "color=1", hex}, "a packet has a cookie, a cpu-code and a count, but no 'color'"},
        {{"loop-back", "maybe"}, "loop-back is on or off, not 'maybe'"},

        {{"traffic", "1", "1", "lost", "unicast", "64", "1"}, "frames are received or sent, not 'lost'"},
        {{"traffic", "1", "1", "sent", "anycast", "64", "1"}, "there are no 'anycast' frames"},
        {{"traffic", "1", "1", "sent", "fcs-error", "64", "1"}, "ports do not send fcs-error frames"},
        {{"traffic", "1", "1", "sent", "unicast", "63", "1"}, "SIZE is a number from 64 to 9242, not '63'"},
        {{"traffic", "1", "1", "received", "unicast", "65536", "1"}, "SIZE is a number from 1 to 65535, not '65536'"},
        {{"traffic", "1", "1", "received", "unicast", "64", "0"}, "COUNT is a number from 1 to 4294967295, not '0'"},
        {{"traffic", "1", "4", "received", "unicast", "64", "1"}, "the link of port 1/4 is down"},

        {{"raise-event", "mismerge", "33"}, "OAM entry 33 is not set"},
        {{"raise-event", "mismerge", "2048"}, "ENTRY is a number from 0 to 2047, not '2048'"},
        {{"raise-event", "mismerge", "33", "both"}, "an OAM engine is ingress or egress, not 'both'"},
        {{"raise-event", "loss"},
         "no event 'loss' (loss-of-continuity, unexpected-mep, mismerge, unexpected-period, unexpected-level, "
         "remote-defect)"},

        {{"forward", "3", "10.0.0.1"}, "UNIT is a number from 1 to 2, not '3'"},
        {{"forward", "1", "10.0.0"}, "'10.0.0' is no IP address"},
        {{"forward", "1", "10.0.0.1", "224.0.0.5"}, "'224.0.0.5' is not the address of a host"},
        {{"forward-multicast", "1", "1", "1", "10.0.0.9", "10.0.0.1"}, no_flow},
        {{"forward-multicast", "1", "1", "1", "::1", "239.0.0.1"}, no_flow},
        {{"forward-multicast", "1", "1", "4095", "10.0.0.9", "239.0.0.1"},
         "VLAN is a number from 1 to 4094, not '4095'"},
    };
    for (const auto &row : rows) {
        const Ended ended = control(row.words);
        EXPECT_EQ(ended.status, row.err.empty() ? 0 : 1) << row.err;
        EXPECT_EQ(ended.err, row.err.empty() ? "" : "quillon-ctl: " + row.words[0] + ": " + row.err + "\n");
    }
    // What was refused has done nothing, and the address has moved.
    EXPECT_THAT(told({"packet-path"}), HasSubstr(" refused=0 loop-back=off\n"));
    const uint8_t moved[6] = {0x02, 0, 0, 0, 0, 1};
    uint32_t unit = 0;
    uint32_t port = 0;
    uint8_t found = 0;
    EXPECT_EQ(DEV_AMTRDRV_PMGR_ARLLookUp(1, moved, &unit, &port, &found), 1);
    EXPECT_EQ(std::pair(unit, port), std::pair(2U, 28U));
    EXPECT_EQ(DEV_AMTRDRV_PMGR_DisableHardwareLearning(), 1);
    EXPECT_THAT(control({"learn-address", "1", mac, "1", "1"}).err, HasSubstr("port 1 of unit 1 does not learn\n"));
}

TEST_F(ControlTest, SaysWhatIsNoCommand)
{
    std::vector<std::string> long_answer(8000, "1.1.1.1");
    long_answer.insert(long_answer.begin(), {"forward", "1"});
    const TestFolder empty;
    const struct {
        std::string folder;
        std::vector<std::string> words;
        int status;
        std::string err;
    } rows[] = {
        {runtime_folder(), {"cable", "1", "1"}, 2, "usage: quillon-ctl cable UNIT PORT pull|plug\n"},
        {runtime_folder(), {"cable", "1", "1", "pull", "x"}, 2, "usage: quillon-ctl cable UNIT PORT pull|plug\n"},
        {runtime_folder(), {"cables"}, 2, "no command 'cables' (see quillon-ctl help)\n"},
        {runtime_folder(), {std::string(control::longest_packet, 'x')}, 1, "the command is too long\n"},
        {runtime_folder(), long_answer, 1, "forward: was done, but its answer is too long\n"},
        {runtime_folder(), {}, 2, "COMMAND is required (see --help)\n"},
        {empty.path(), {"help"}, 1, "no driver process in '" + empty.path() + "': "},
    };
    for (const auto &row : rows) {
        const Ended ended = test::control(row.folder, row.words);
        EXPECT_EQ(ended.status, row.status) << row.err;
        EXPECT_EQ(ended.out, "");
        EXPECT_THAT(ended.err, StartsWith("quillon-ctl: " + row.err));
    }
    EXPECT_THAT(told({"help"}), HasSubstr("cable UNIT PORT pull|plug"));
}

// Whoever says nothing, nonsense or goes away holds up nobody and stops nothing.
TEST_F(ControlTest, OutlivesItsClients)
{
    const auto connected = [] {
        const sockaddr_un address = host::control_address(runtime_folder().c_str());
        host::Descriptor socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
        EXPECT_EQ(connect(socket.number(), reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
        return socket;
    };
    std::vector<host::Descriptor> silent;
    for (int i = 0; i < 17; ++i) {
        silent.push_back(connected());
    }
    // It takes what the hard limit allows, when more is watched than the soft one allows and when nothing can be
    // accepted.
    const auto leave_no_room = [this] {
        rlimit limit;
        ASSERT_EQ(prlimit(driver.pid(), RLIMIT_NOFILE, nullptr, &limit), 0);
        limit.rlim_cur = 3;
        ASSERT_EQ(prlimit(driver.pid(), RLIMIT_NOFILE, &limit, nullptr), 0);
    };
    told({"help"});  // all before it are in
    leave_no_room();
    char answer;
    ASSERT_EQ(send(silent.back().number(), "help", 4, 0), 4);
    ASSERT_EQ(recv(silent.back().number(), &answer, 1, 0), 1);
    told({"help"});
    leave_no_room();
    for (const std::string &packet :
         {std::string("\0\0\0", 3), std::string("cable\0001\0001", 9), std::string("\xFF")}) {
        ASSERT_EQ(send(connected().number(), packet.data(), packet.size(), 0), static_cast<ssize_t>(packet.size()));
    }
    told({"help"});

    driver.expect_quiet_end();
    EXPECT_EQ(control({"help"}).status, 1);
}

}  // namespace
}  // namespace quillon::test
