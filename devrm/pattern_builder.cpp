// Builds a rule pattern in the caller's memory.
#include <assert.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include "quillon/devrm.h"

namespace {

constexpr uint32_t qualified = 1;

enum EtherType : uint16_t { ether_ipv4 = 0x0800, ether_ipv6 = 0x86DD };
enum Protocol : uint8_t { protocol_icmp = 1, protocol_tcp = 6, protocol_udp = 17, protocol_icmpv6 = 58 };

constexpr uint16_t whole_ether_type = 0xFFFF;
constexpr uint8_t whole_protocol = 0xFF;

// The upper byte of a port, where the driver process looks for the ICMPv6 type.
uint16_t upper_byte(uint8_t value)
{
    return static_cast<uint16_t>(value << 8);
}

}  // namespace

void DEVRM_LIB_RulePatternInit(RulePattern *pattern)
{
    memset(pattern, 0, sizeof *pattern);
}

uint32_t DEVRM_LIB_RulePatternQualifyDestMacAddress(RulePattern *pattern, const uint8_t *mac, const uint8_t *mask)
{
    pattern->qualifyFlags |= RULE_QUALIFY_DA;
    memcpy(pattern->da, mac, sizeof pattern->da);
    memcpy(pattern->da_mask, mask, sizeof pattern->da_mask);
    return qualified;
}

uint32_t DEVRM_LIB_RulePatternQualifySourceMacAddress(RulePattern *pattern, const uint8_t *mac, const uint8_t *mask)
{
    pattern->qualifyFlags |= RULE_QUALIFY_SA;
    memcpy(pattern->sa, mac, sizeof pattern->sa);
    memcpy(pattern->sa_mask, mask, sizeof pattern->sa_mask);
    return qualified;
}

uint32_t DEVRM_LIB_RulePatternQualifyEtherType(RulePattern *pattern, uint16_t type, uint16_t mask)
{
    pattern->qualifyFlags |= RULE_QUALIFY_ETH_TYPE;
    pattern->ethType = type;
    pattern->ethType_mask = mask;
    return qualified;
}

uint32_t DEVRM_LIB_RulePatternQualifyIp(RulePattern *pattern)
{
    return DEVRM_LIB_RulePatternQualifyEtherType(pattern, ether_ipv4, whole_ether_type);
}

uint32_t DEVRM_LIB_RulePatternQualifyIpv6(RulePattern *pattern)
{
    return DEVRM_LIB_RulePatternQualifyEtherType(pattern, ether_ipv6, whole_ether_type);
}

uint32_t DEVRM_LIB_RulePatternQualifyVlan(RulePattern *pattern, uint16_t vid, uint16_t mask)
{
    pattern->qualifyFlags |= RULE_QUALIFY_VID;
    pattern->vid = vid;
    pattern->vid_mask = mask;
    pattern->vid2 = vid;
    pattern->vid2_mask = mask;
    return qualified;
}

uint32_t DEVRM_LIB_RulePatternQualifyCos(RulePattern *pattern, uint8_t cos, uint8_t mask)
{
    pattern->qualifyFlags |= RULE_QUALIFY_COS;
    pattern->isTagged = 1;
    pattern->vtagup = cos;
    pattern->vtagup_mask = mask;
    return qualified;
}

uint32_t DEVRM_LIB_RulePatternQualifyIpProtocol(RulePattern *pattern, uint8_t protocol, uint8_t mask)
{
    pattern->qualifyFlags |= RULE_QUALIFY_IP_PROTOCOL;
    pattern->ipProtocol = protocol;
    pattern->ipProtocol_mask = mask;
    return qualified;
}

// The next header of IPv6 shares the field and the flag of the IPv4 protocol.
uint32_t DEVRM_LIB_RulePatternQualifyIpv6NextHeader(RulePattern *pattern, uint8_t next_header, uint8_t mask)
{
    return DEVRM_LIB_RulePatternQualifyIpProtocol(pattern, next_header, mask);
}

uint32_t DEVRM_LIB_RulePatternQualifyIcmp(RulePattern *pattern)
{
    return DEVRM_LIB_RulePatternQualifyIpProtocol(pattern, protocol_icmp, whole_protocol);
}

uint32_t DEVRM_LIB_RulePatternQualifyUdp(RulePattern *pattern)
{
    return DEVRM_LIB_RulePatternQualifyIpProtocol(pattern, protocol_udp, whole_protocol);
}

uint32_t DEVRM_LIB_RulePatternQualifyTcp(RulePattern *pattern)
{
    return DEVRM_LIB_RulePatternQualifyIpProtocol(pattern, protocol_tcp, whole_protocol);
}

uint32_t DEVRM_LIB_RulePatternQualifyIpDscp(RulePattern *pattern, uint8_t dscp, uint8_t mask)
{
    pattern->qualifyFlags |= RULE_QUALIFY_DSCP;
    pattern->dscp = dscp;
    pattern->dscp_mask = mask;
    return qualified;
}

uint32_t DEVRM_LIB_RulePatternQualifyIpSourceAddress(RulePattern *pattern, uint32_t address, uint32_t mask)
{
    pattern->qualifyFlags |= RULE_QUALIFY_SIP;
    pattern->sip = address;
    pattern->sip_mask = mask;
    return DEVRM_LIB_RulePatternQualifyIp(pattern);
}

uint32_t DEVRM_LIB_RulePatternQualifyIpDestAddress(RulePattern *pattern, uint32_t address, uint32_t mask)
{
    pattern->qualifyFlags |= RULE_QUALIFY_DIP;
    pattern->dip = address;
    pattern->dip_mask = mask;
    return DEVRM_LIB_RulePatternQualifyIp(pattern);
}

uint32_t DEVRM_LIB_RulePatternQualifyIpv6SourceAddress(RulePattern *pattern, const uint8_t *address,
                                                       const uint8_t *mask)
{
    pattern->qualifyFlags |= RULE_QUALIFY_IPV6_SIP;
    memcpy(pattern->ipv6.sip, address, sizeof pattern->ipv6.sip);
    memcpy(pattern->ipv6.sip_mask, mask, sizeof pattern->ipv6.sip_mask);
    return DEVRM_LIB_RulePatternQualifyIpv6(pattern);
}

uint32_t DEVRM_LIB_RulePatternQualifyIpv6DestAddress(RulePattern *pattern, const uint8_t *address, const uint8_t *mask)
{
    pattern->qualifyFlags |= RULE_QUALIFY_IPV6_DIP;
    memcpy(pattern->ipv6.dip, address, sizeof pattern->ipv6.dip);
    memcpy(pattern->ipv6.dip_mask, mask, sizeof pattern->ipv6.dip_mask);
    return DEVRM_LIB_RulePatternQualifyIpv6(pattern);
}

uint32_t DEVRM_LIB_RulePatternQualifyL4SourcePort(RulePattern *pattern, uint16_t port, uint16_t mask)
{
    pattern->qualifyFlags |= RULE_QUALIFY_L4_SPORT;
    pattern->l4.sport = port;
    pattern->l4.sport_mask = mask;
    return qualified;
}

uint32_t DEVRM_LIB_RulePatternQualifyL4DestPort(RulePattern *pattern, uint16_t port, uint16_t mask)
{
    pattern->qualifyFlags |= RULE_QUALIFY_L4_DPORT;
    pattern->l4.dport = port;
    pattern->l4.dport_mask = mask;
    return qualified;
}

uint32_t DEVRM_LIB_RulePatternQualifyTcpControlFlags(RulePattern *pattern, uint8_t flags, uint8_t mask)
{
    pattern->qualifyFlags |= RULE_QUALIFY_TCP_CONTROL;
    pattern->tcp.control = flags;
    pattern->tcp.control_mask = mask;
    return DEVRM_LIB_RulePatternQualifyTcp(pattern);
}

uint32_t DEVRM_LIB_RulePatternQualifyIcmpType(RulePattern *pattern, uint8_t type, uint8_t mask)
{
    pattern->qualifyFlags |= RULE_QUALIFY_ICMP_TYPE;
    pattern->icmp.type = type;
    pattern->icmp.type_mask = mask;
    return DEVRM_LIB_RulePatternQualifyIcmp(pattern);
}

uint32_t DEVRM_LIB_RulePatternQualifyIcmpv6(RulePattern *pattern)
{
    DEVRM_LIB_RulePatternQualifyIpv6NextHeader(pattern, protocol_icmpv6, whole_protocol);
    return DEVRM_LIB_RulePatternQualifyIpv6(pattern);
}

uint32_t DEVRM_LIB_RulePatternQualifyIcmpv6Type(RulePattern *pattern, uint8_t type, uint8_t mask)
{
    DEVRM_LIB_RulePatternQualifyL4SourcePort(pattern, upper_byte(type), upper_byte(mask));
    return DEVRM_LIB_RulePatternQualifyIcmpv6(pattern);
}

// Every pattern on fragments carries protocol 1: the driver process relies on it.
uint32_t DEVRM_LIB_RulePatternQualifyIpFragment(RulePattern *pattern, uint8_t fragment, uint8_t mask)
{
    pattern->qualifyFlags |= RULE_QUALIFY_IP_FRAGMENT;
    pattern->ip_fragment = fragment;
    pattern->ip_fragment_mask = mask;
    return DEVRM_LIB_RulePatternQualifyIcmp(pattern);
}

uint32_t DEVRM_LIB_RulePatternQualifyUdb0_5(RulePattern *pattern, uint32_t index, uint8_t value, uint8_t mask)
{
    assert(index < sizeof pattern->udb0_5);
    pattern->udbFlags |= RULE_UDB_UDB0_5;
    pattern->udb0_5[index] = value;
    pattern->udb0_5_mask[index] = mask;
    return qualified;
}
