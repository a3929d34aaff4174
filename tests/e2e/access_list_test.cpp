// An access list that one process installs and another one watches, and packets that come in.
#include <gmock/gmock.h>
#include <stdint.h>

#include <array>
#include <map>
#include <set>
#include <string>

#include "e2e/support/client_test.h"

namespace quillon::test {
namespace {

constexpr uint32_t unit = 1;
constexpr uint32_t list = 5;
constexpr uint32_t bound_port = 3;
constexpr uint32_t rules = 100;

// rules 1 to 60     TCP from 10.0.<rule>.0/24 to port 80 or above, up to 95: dropped
// rules 61 to 80    UDP to port 5000 + rule in VLAN <rule>: gets priority <rule> mod 8
// rules 81 to 98    IPv6 from 2001:db8::<rule>
// rule 99           ARP: copied to the CPU
// rule 100          everything
RulePattern pattern_of(uint32_t rule)
{
    RulePattern pattern;
    DEVRM_LIB_RulePatternInit(&pattern);
    if (rule <= 60) {
        DEVRM_LIB_RulePatternQualifyTcp(&pattern);
        DEVRM_LIB_RulePatternQualifyIpSourceAddress(&pattern, 0x0A000000 | rule << 8, 0xFFFFFF00);
        DEVRM_LIB_RulePatternQualifyL4DestPort(&pattern, 80, 0xFFF0);
    } else if (rule <= 80) {
        DEVRM_LIB_RulePatternQualifyIp(&pattern);
        DEVRM_LIB_RulePatternQualifyUdp(&pattern);
        DEVRM_LIB_RulePatternQualifyL4DestPort(&pattern, static_cast<uint16_t>(5000 + rule), 0xFFFF);
        DEVRM_LIB_RulePatternQualifyVlan(&pattern, static_cast<uint16_t>(rule), 0x0FFF);
    } else if (rule <= 98) {
        std::array<uint8_t, 16> mask;
        mask.fill(0xFF);
        std::array<uint8_t, 16> address = {0x20, 0x01, 0x0D, 0xB8};
        address[15] = static_cast<uint8_t>(rule);
        DEVRM_LIB_RulePatternQualifyIpv6SourceAddress(&pattern, address.data(), mask.data());
    } else if (rule == 99) {
        DEVRM_LIB_RulePatternQualifyEtherType(&pattern, 0x0806, 0xFFFF);
    }
    return pattern;
}

RuleActionBlock action_of(uint32_t rule)
{
    constexpr uint8_t drop = 1;
    constexpr uint8_t copy_to_cpu = 2;
    constexpr uint8_t set_priority = 8;
    RuleActionBlock action{};
    if (rule <= 60) {
        action.bytes[0] = drop;
    } else if (rule <= 80) {
        action.bytes[0] = set_priority;
        action.bytes[4] = static_cast<uint8_t>(rule % 8);
    } else if (rule == 99) {
        action.bytes[0] = copy_to_cpu;
    }
    return action;
}

void install()
{
    EXPECT_EQ(DEVRM_PMGR_CreatePcl(unit, list, 0, 0, rules), 1);
    for (uint32_t rule = 1; rule <= rules; ++rule) {
        const RulePattern pattern = pattern_of(rule);
        const RuleActionBlock action = action_of(rule);
        EXPECT_EQ(DEVRM_PMGR_AllocateRule(unit, list, rule, rules - rule, 0), 1) << rule;
        EXPECT_EQ(DEVRM_PMGR_SetRule(unit, list, rule, &pattern, &action), 1) << rule;
    }
    EXPECT_EQ(DEVRM_PMGR_BindPclToPort(unit, list, bound_port), 1);
}

using Counts = std::map<uint32_t, uint32_t>;

// The packets that each rule has counted, 0 left out.
Counts counts()
{
    Counts all;
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

std::string ipv4(const std::string &protocol, const std::string &source, const std::string &payload)
{
    return "0800 4500 0028 0000 4000 40 " + protocol + " 0000 " + source + " C0A80001 " + payload;
}

struct AccessListTest : ClientTest {
    static std::string verdict(uint32_t port, const std::string &packet)
    {
        return told(
            {"inject-packet", std::to_string(unit), std::to_string(port), "0A0B0C0D0E0F 1A1B1C1D1E1F " + packet});
    }
};

TEST_F(AccessListTest, CountsExactlyOnTheRulesThatAPacketMatches)
{
    Application(install).expect_success();
    EXPECT_EQ(counts(), Counts());

    const std::string tcp_to_95 = "1234 005F 00000001 00000000 50 02 2000 0000 0000";
    const std::string udp_to_5070 = ipv4("11", "0A000101", "0035 13CE 0014 0000 000000000000000000000000");
    const struct {
        const char *what;
        uint32_t port;
        std::string packet;
        std::string verdict;
        std::set<uint32_t> matched;
    } packets[] = {
        {"rule 1", 3, ipv4("06", "0A000101", tcp_to_95), "dropped\n", {1, 100}},
        {"rule 60", 3, ipv4("06", "0A003CFE", tcp_to_95), "dropped\n", {60, 100}},
        {"no rule for the network", 3, ipv4("06", "0A003D01", tcp_to_95), "forwarded\n", {100}},
        {"UDP to port 95", 3, ipv4("11", "0A000101", tcp_to_95), "forwarded\n", {100}},
        {"another port of the switch", 4, ipv4("06", "0A000101", tcp_to_95), "forwarded\n", {}},
        {"UDP in VLAN 70", 3, "8100 0046 " + udp_to_5070, "forwarded priority=6\n", {70, 100}},
        {"UDP in VLAN 71", 3, "8100 0047 " + udp_to_5070, "forwarded\n", {100}},
        {"IPv6",
         3,
         "86DD 60000000 0000 3B 40 20010DB8000000000000000000000055 " + std::string(32, '0'),
         "forwarded\n",
         {85, 100}},
        {"ARP", 3, "0806 0001 0800 06 04 0001", "forwarded copy-to-cpu\n", {99, 100}},
    };
    Counts expected;
    for (const auto &row : packets) {
        EXPECT_EQ(verdict(row.port, row.packet), row.verdict) << row.what;
        for (const uint32_t rule : row.matched) {
            ++expected[rule];
        }
        EXPECT_EQ(counts(), expected) << row.what;
    }

    EXPECT_EQ(DEVRM_PMGR_ClearCounter(unit, list, 100), 1);
    EXPECT_EQ(DEVRM_PMGR_DestroyRule(unit, list, 1), 1);
    EXPECT_EQ(verdict(bound_port, packets[0].packet), "forwarded\n");
    EXPECT_EQ(DEVRM_PMGR_AllocateRule(unit, list, 1, 0, 0), 1);
    expected.erase(1);
    expected[100] = 1;
    EXPECT_EQ(counts(), expected);
    driver.expect_quiet_end();
}

}  // namespace
}  // namespace quillon::test
