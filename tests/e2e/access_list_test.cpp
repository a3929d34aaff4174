// An access list that one process installs and another one watches, and packets that come in.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdint.h>
#include <stdlib.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "e2e/support/control.h"
#include "e2e/support/driver_process.h"
#include "e2e/support/observe.h"
#include "quillon/devrm.h"
#include "quillon/swdrv.h"

namespace quillon::test {
namespace {

using testing::HasSubstr;

constexpr uint32_t unit = 1;
constexpr uint32_t list = 5;
constexpr uint32_t rules = 100;

// This process is a client as well. A client looks its run-time folder up once.
const std::string &folder()
{
    static const TestFolder for_this_process;
    static const int set = setenv("QUILLON_RUNTIME_DIR", for_this_process.path().c_str(), 1);
    EXPECT_EQ(set, 0);
    return for_this_process.path();
}

struct AccessListTest : testing::Test {
    AccessListTest()
    {
        DEVRM_PMGR_InitiateProcessResource();
        DEV_SWDRV_PMGR_InitiateProcessResource();
    }

    static Ended inject(const std::string &port, const std::string &packet)
    {
        return control(folder(), {"inject-packet", std::to_string(unit), port, packet});
    }

    DriverProcess driver{folder(), {"--log-level=warning"}};
};

// The packets that each rule has counted, 0 left out.
std::map<uint32_t, uint32_t> counts()
{
    std::map<uint32_t, uint32_t> all;
    for (uint32_t rule = 1; rule <= rules; ++rule) {
        uint32_t green = 99;
        uint32_t yellow = 99;
        uint32_t red = 99;
        EXPECT_EQ(DEVRM_PMGR_GetCounter(unit, list, rule, &green, &yellow, &red), 1) << rule;
        EXPECT_EQ(yellow + red, 0U) << rule;
        if (green != 0) {
            all[rule] = green;
        }
    }
    return all;
}

const std::string addresses = "0A0B0C0D0E0F 1A1B1C1D1E1F ";
const std::string tcp_to_80 = "1234 0050 00000001 00000000 50 02 2000 0000 0000";

std::string ipv4(const std::string &protocol, const std::string &source, const std::string &payload)
{
    return "0800 4500 0028 0000 4000 40 " + protocol + " 0000 " + source + " C0A80001 " + payload;
}

TEST_F(AccessListTest, CountsExactlyOnTheRulesThatAPacketMatches)
{
    const std::string own = std::to_string(unit);
    const Ended installed =
        run_to_end({QUILLON_ACCESS_LIST, own, std::to_string(list), "3"}, {{"QUILLON_RUNTIME_DIR", folder()}});
    EXPECT_EQ(installed.status, 0);
    EXPECT_EQ(installed.err, "");
    EXPECT_THAT(installed.out, testing::Not(HasSubstr("refused")));
    EXPECT_EQ(std::ranges::count(lines_of(installed.out), "+-o pattern\r"), rules);
    EXPECT_THAT(installed.out, HasSubstr("      patt.ethType = 0x0800\r\n"
                                         "      mask.ethType = 0xFFFF\r\n"
                                         "      patt.ipProtocol = 0x06(6)\r\n"
                                         "      mask.ipProtocol = 0xFF(255)\r\n"
                                         "      patt.sip = 0x0A003C00(10.0.60.0)\r\n"
                                         "      mask.sip = 0xFFFFFF00(255.255.255.0)\r\n"
                                         "      patt.l4.dport = 0x0050(80)\r\n"
                                         "      mask.l4.dport = 0xFFF0(65520)\r\n"
                                         "    }\r\n"));
    EXPECT_EQ(counts(), (std::map<uint32_t, uint32_t>{}));

    const std::string udp_to_5070 = ipv4("11", "0A000101", "0035 13CE 0014 0000 000000000000000000000000");
    const std::string ipv6_payload = "2001 0DB8 0000 0000 0000 0000 0000 0001 0035 13CE 0008 0000";
    const struct {
        const char *what;
        std::string port;
        std::string packet;
        std::string verdict;
        std::set<uint32_t> matched;
    } packets[] = {
        {"rule 1", "3", ipv4("06", "0A000101", tcp_to_80), "dropped\n", {1, 100}},
        {"rule 60", "3", ipv4("06", "0A003CFE", tcp_to_80), "dropped\n", {60, 100}},
        {"no rule for the network", "3", ipv4("06", "0A003D01", tcp_to_80), "forwarded\n", {100}},
        {"port 95",
         "3",
         ipv4("06", "0A000701", "1234 005F 00000001 00000000 50 02 2000 0000 0000"),
         "dropped\n",
         {7, 100}},
        {"port 96",
         "3",
         ipv4("06", "0A000701", "1234 0060 00000001 00000000 50 02 2000 0000 0000"),
         "forwarded\n",
         {100}},
        {"UDP to port 80", "3", ipv4("11", "0A000101", tcp_to_80), "forwarded\n", {100}},
        {"a TCP header that is cut off", "3", ipv4("06", "0A000101", "12"), "forwarded\n", {100}},
        {"another port of the switch", "4", ipv4("06", "0A000101", tcp_to_80), "forwarded\n", {}},
        {"UDP in VLAN 70", "3", "8100 0046 " + udp_to_5070, "forwarded priority=6\n", {70, 100}},
        {"UDP in VLAN 70 of two", "3", "88A8 E046 8100 0001 " + udp_to_5070, "forwarded priority=6\n", {70, 100}},
        {"UDP in VLAN 71", "3", "8100 0047 " + udp_to_5070, "forwarded\n", {100}},
        {"UDP without a VLAN", "3", udp_to_5070, "forwarded\n", {100}},
        {"IPv6",
         "3",
         "86DD 60000000 0008 11 40 20010DB8000000000000000000000055 " + ipv6_payload,
         "forwarded\n",
         {85, 100}},
        {"IPv6 from next door",
         "3",
         "86DD 60000000 0008 11 40 20010DB8000000000000000000000155 " + ipv6_payload,
         "forwarded\n",
         {100}},
        {"ICMP", "3", ipv4("01", "0A000101", "0800 0000 1234 0001 000000000000000000000000"), "forwarded\n", {98, 100}},
        {"ICMP of another type",
         "3",
         ipv4("01", "0A000101", "0000 0000 1234 0001 000000000000000000000000"),
         "forwarded\n",
         {100}},
        {"ARP", "3", "0806 0001 0800 06 04 0001", "forwarded copy-to-cpu\n", {99, 100}},
    };
    std::map<uint32_t, uint32_t> expected;
    for (const auto &row : packets) {
        const Ended ended = inject(row.port, addresses + row.packet);
        EXPECT_EQ(ended.status, 0) << row.what << ": " << ended.err;
        EXPECT_EQ(ended.out, row.verdict) << row.what;
        for (const uint32_t rule : row.matched) {
            ++expected[rule];
        }
        EXPECT_EQ(counts(), expected) << row.what;
    }

    EXPECT_EQ(DEVRM_PMGR_ClearCounter(unit, list, 100), 1);
    EXPECT_EQ(DEVRM_PMGR_DestroyRule(unit, list, 1), 1);
    EXPECT_EQ(inject("3", addresses + packets[0].packet).out, "forwarded\n");
    EXPECT_EQ(DEVRM_PMGR_AllocateRule(unit, list, 1, 0, 0), 1);
    expected.erase(1);
    expected[100] = 1;
    EXPECT_EQ(counts(), expected);
    driver.signal(SIGTERM);
    EXPECT_EQ(driver.err().rest(), "") << "nothing was refused as malformed";
    EXPECT_EQ(driver.wait(), 0);
}

TEST_F(AccessListTest, RefusesWhatIsNoPacket)
{
    const struct {
        std::string port;
        std::string packet;
        std::string err;
    } rows[] = {
        {"29", "00", "PORT is a number from 1 to 28, not '29'"},
        {"3", "0", "a packet is bytes of two hexadecimal digits each, not '0'"},
        {"3", addresses + "08 0", "a packet is bytes of two hexadecimal digits each, not '0'"},
        {"3", "0A0X", "a packet is bytes of two hexadecimal digits each, not '0X'"},
        {"3", "", "a packet has 14 to 9238 bytes, this one has 0"},
        {"3", addresses + "08", "a packet has 14 to 9238 bytes, this one has 13"},
        {"3", std::string(size_t{2} * 9239, '0'), "a packet has 14 to 9238 bytes, this one has 9239"},
        {"4", addresses + "0800", "the link of port 1/4 is down"},
    };
    EXPECT_EQ(control(folder(), {"cable", "1", "4", "pull"}).status, 0);
    for (const auto &row : rows) {
        const Ended ended = inject(row.port, row.packet);
        EXPECT_EQ(ended.status, 1);
        EXPECT_EQ(ended.err, "quillon-ctl: inject-packet: " + row.err + "\n");
    }
    EXPECT_EQ(inject("3", std::string(size_t{2} * 9238, '0')).out, "forwarded\n");
    EXPECT_EQ(inject("3", addresses + "0800").out, "forwarded\n");
}

}  // namespace
}  // namespace quillon::test
