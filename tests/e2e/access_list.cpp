// An application process for the tests: `access_list UNIT PCL PORT` builds an access list of 100 rules, prints their
// patterns, installs them, binds the list to the port, and ends. What is refused is a line of its own.
//
//     rules 1 to 60     TCP from 10.0.<rule>.0/24 to port 80 or above, up to 95: dropped
//     rules 61 to 80    UDP to port 5000 + rule in VLAN <rule>: gets priority <rule> mod 8
//     rules 81 to 90    IPv6 from 2001:db8::<rule>
//     rules 91 to 98    ICMP of type <rule> - 90
//     rule 99           ARP: copied to the CPU
//     rule 100          everything
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#include "quillon/devrm.h"

namespace {

constexpr uint32_t rules = 100;
constexpr uint8_t drop = 1;
constexpr uint8_t copy_to_cpu = 2;
constexpr uint8_t set_priority = 8;

void report(uint8_t result, const char *what, uint32_t rule)
{
    if (result != 1) {
        printf("%s refused, rule %u\n", what, rule);
    }
}

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
    } else if (rule <= 90) {
        const uint8_t address[16] = {0x20, 0x01, 0x0D, 0xB8, 0, 0, 0, 0,
                                     0,    0,    0,    0,    0, 0, 0, static_cast<uint8_t>(rule)};
        uint8_t mask[16];
        for (uint8_t &byte : mask) {
            byte = 0xFF;
        }
        DEVRM_LIB_RulePatternQualifyIpv6SourceAddress(&pattern, address, mask);
    } else if (rule <= 98) {
        DEVRM_LIB_RulePatternQualifyIp(&pattern);
        DEVRM_LIB_RulePatternQualifyIcmpType(&pattern, static_cast<uint8_t>(rule - 90), 0xFF);
    } else if (rule == 99) {
        DEVRM_LIB_RulePatternQualifyEtherType(&pattern, 0x0806, 0xFFFF);
    }
    return pattern;
}

RuleActionBlock action_of(uint32_t rule)
{
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

}  // namespace

int main(int argc, char **argv)
{
    if (argc != 4) {
        fputs("usage: access_list UNIT PCL PORT\n", stderr);
        return 2;
    }
    const auto number = [argv](int i) { return static_cast<uint32_t>(atoi(argv[i])); };
    const uint32_t unit = number(1);
    const uint32_t pcl = number(2);
    const uint32_t port = number(3);

    DEVRM_PMGR_InitiateProcessResource();
    report(DEVRM_PMGR_CreatePcl(unit, pcl, 0, 0, rules), "CreatePcl", 0);
    for (uint32_t rule = 1; rule <= rules; ++rule) {
        const RulePattern pattern = pattern_of(rule);
        const RuleActionBlock action = action_of(rule);
        DEVRM_LIB_RulePatternDump(&pattern, printf, 0);
        report(DEVRM_PMGR_AllocateRule(unit, pcl, rule, rules - rule, 0), "AllocateRule", rule);
        report(DEVRM_PMGR_SetRule(unit, pcl, rule, &pattern, &action), "SetRule", rule);
    }
    report(DEVRM_PMGR_BindPclToPort(unit, pcl, port), "BindPclToPort", 0);
    return 0;
}
