// Which packets a pattern describes. Packets are typed byte for byte, patterns are built by the client's functions.
#include "host/driver/model/pattern_match.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdint.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "quillon/devrm.h"

namespace quillon::driver {
namespace {

using Bytes = std::vector<std::byte>;
using Names = std::set<std::string>;

// Two digits a byte; spaces are for the reader.
Bytes bytes_of(std::string text)
{
    std::erase(text, ' ');
    Bytes bytes;
    for (size_t at = 0; at < text.size(); at += 2) {
        bytes.push_back(static_cast<std::byte>(std::stoul(text.substr(at, 2), nullptr, 16)));
    }
    return bytes;
}

struct Sample {
    std::string name;
    std::string bytes;
};

const std::string ethernet = "0A0B0C0D0E0F 1A1B1C1D1E1F ";
const std::string address_1 = "20010DB8000000000000000000000001 ";
const std::string address_2 = "20010DB8000000000000000000000002 ";

// clang-format off
const std::vector<Sample> samples = {
    {"arp", "FFFFFFFFFFFF 1A1B1C1D1E1F 0806 0001 0800 06 04 0001"},
    {"tcp", ethernet + "0800 45B8 0028 0000 4000 40 06 0000 0A000001 0A000002 "
                       "1234 0050 00000001 00000002 50 12 2000 0000 0000"},
    {"tcp_vlan_100", ethernet + "8100 A064 0800 4500 0028 0000 4000 40 06 0000 0A000001 0A000002 "
                                "1234 01BB 00000001 00000002 50 11 2000 0000 0000"},
    {"tcp_vlan_101_100", ethernet + "88A8 2065 8100 A064 0800 4500 0028 0000 4000 40 06 0000 0A000001 0A000003 "
                                    "1234 01BB 00000001 00000002 50 02 2000 0000 0000"},
    // With options, and with a checksum that stands where ports would without them.
    {"udp", ethernet + "0800 4620 0024 0000 0000 40 11 0000 0A000101 0A000002 00500050 0035 1234 0010 0000 AABBCCDDEEFF1122"},
    {"icmp", ethernet + "0800 4500 001C 0000 0000 40 01 0000 0A000001 0A000002 0800 0000 1234 0001"},
    {"icmp_first_fragment", ethernet + "0800 4500 001C 0000 2000 40 01 0000 0A000001 0A000002 0800 0000 1234 0001"},
    {"icmp_last_fragment", ethernet + "0800 4500 001C 0000 0001 40 01 0000 0A000001 0A000002 0800 0000 1234 0001"},
    {"tcp6", ethernet + "86DD 6B800000 0014 06 40 " + address_1 + address_2 +
             "1234 0050 00000001 00000002 50 12 2000 0000 0000"},
    {"udp6_hop_by_hop", ethernet + "86DD 60000000 0010 00 40 " + address_1 + "20010DB8000000000000000000000003 "
                        "11 00 0104 00000000 0035 1234 0008 0000"},
    {"tcp6_first_fragment", ethernet + "86DD 60000000 001C 2C 40 " + address_2 + address_1 +
                            "06 00 0001 00000001 1235 0051 00000001 00000002 50 10 2000 0000 0000"},
    {"tcp6_last_fragment", ethernet + "86DD 60000000 0010 2C 40 " + address_2 + address_1 +
                           "06 00 0008 00000001 1234 0050 00000001"},
    {"neighbour_solicitation", ethernet + "86DD 60000000 0018 3A FF " + address_1 + address_2 + "8700 0000 00000000 " + address_2},
    {"udp_snap", ethernet + "0024 AAAA03 000000 0800 4500 001C 0000 0000 40 11 0000 0A000001 0A000002 0035 0035 0008 0000"},
    {"bpdu", "0180C2000000 1A1B1C1D1E1F 0007 424203 0000 00 00"},
};

constexpr uint8_t all_ones[16] = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                                  0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};
constexpr uint8_t ipv6_address_1[16] = {0x20, 0x01, 0x0D, 0xB8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};
constexpr uint8_t ipv6_address_2[16] = {0x20, 0x01, 0x0D, 0xB8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2};
constexpr uint8_t ipv6_last_bit_open[16] = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                                            0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFE};
constexpr uint8_t broadcast[6] = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};
constexpr uint8_t bridge_group[6] = {0x01, 0x80, 0xC2, 0x00, 0x00, 0x0F};
constexpr uint8_t group_mask[6] = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xF0};
constexpr uint8_t source[6] = {0x1A, 0x1B, 0x1C, 0x1D, 0x1E, 0x1F};
constexpr uint8_t near_source[6] = {0x1A, 0x1B, 0x1C, 0x1D, 0x1E, 0x1E};
// clang-format on

void set_user_bytes(RulePattern *p, const std::vector<uint8_t> &bytes)
{
    for (uint32_t i = 0; i < bytes.size(); ++i) {
        DEVRM_LIB_RulePatternQualifyUdb0_5(p, i, bytes[i], 0xFF);
    }
}

struct Row {
    const char *what;
    std::function<void(RulePattern *)> qualify;
    Names matched;
    UserBytesPlace user_bytes = {};
};

Names all_samples()
{
    Names names;
    for (const Sample &sample : samples) {
        names.insert(sample.name);
    }
    return names;
}

Names all_but(const Names &others)
{
    Names names = all_samples();
    std::erase_if(names, [&](const std::string &name) { return others.contains(name); });
    return names;
}

// clang-format off
const Names ipv4_names = {"tcp", "tcp_vlan_100", "tcp_vlan_101_100", "udp", "icmp", "icmp_first_fragment",
                          "icmp_last_fragment", "udp_snap"};
const Names ipv6_names = {"tcp6", "tcp6_first_fragment", "udp6_hop_by_hop", "tcp6_last_fragment", "neighbour_solicitation"};
const Names icmp_names = {"icmp", "icmp_first_fragment", "icmp_last_fragment"};
const Names tcp_names = {"tcp", "tcp_vlan_100", "tcp_vlan_101_100", "tcp6", "tcp6_first_fragment", "tcp6_last_fragment"};
const Names tagged_names = {"tcp_vlan_100", "tcp_vlan_101_100"};
using Start = UserBytesPlace::Start;

const std::vector<Row> rows = {
    {"no field", [](auto *) {}, all_samples()},
    {"DA", [](auto *p) { DEVRM_LIB_RulePatternQualifyDestMacAddress(p, broadcast, all_ones); }, {"arp"}},
    {"DA under a mask", [](auto *p) { DEVRM_LIB_RulePatternQualifyDestMacAddress(p, bridge_group, group_mask); }, {"bpdu"}},
    {"SA", [](auto *p) { DEVRM_LIB_RulePatternQualifySourceMacAddress(p, source, all_ones); }, all_samples()},
    {"SA, last bit off", [](auto *p) { DEVRM_LIB_RulePatternQualifySourceMacAddress(p, near_source, all_ones); }, {}},
    {"EtherType ARP", [](auto *p) { DEVRM_LIB_RulePatternQualifyEtherType(p, 0x0806, 0xFFFF); }, {"arp"}},
    {"EtherType of a tag", [](auto *p) { DEVRM_LIB_RulePatternQualifyEtherType(p, 0x8100, 0xFFFF); }, {}},
    {"EtherType that is a length", [](auto *p) { DEVRM_LIB_RulePatternQualifyEtherType(p, 7, 0xFFFF); }, {}},
    {"IPv4", [](auto *p) { DEVRM_LIB_RulePatternQualifyIp(p); }, ipv4_names},
    {"IPv6", [](auto *p) { DEVRM_LIB_RulePatternQualifyIpv6(p); }, ipv6_names},
    {"VLAN 100", [](auto *p) { DEVRM_LIB_RulePatternQualifyVlan(p, 100, 0x0FFF); }, {"tcp_vlan_100"}},
    {"VLANs 100 and 101", [](auto *p) { DEVRM_LIB_RulePatternQualifyVlan(p, 100, 0x0FFE); }, tagged_names},
    {"VLAN 0", [](auto *p) { DEVRM_LIB_RulePatternQualifyVlan(p, 0, 0x0FFF); }, {}},
    {"VLAN of which no bit is compared", [](auto *p) { DEVRM_LIB_RulePatternQualifyVlan(p, 7, 0); }, all_samples()},
    {"CoS 5", [](auto *p) { DEVRM_LIB_RulePatternQualifyCos(p, 5, 7); }, {"tcp_vlan_100"}},
    {"CoS 1, by the other flag", [](auto *p) { p->qualifyFlags = RULE_QUALIFY_VTAGUP; p->vtagup = 1; p->vtagup_mask = 7; },
     {"tcp_vlan_101_100"}},
    {"tagged", [](auto *p) { p->qualifyFlags = RULE_QUALIFY_IS_TAGGED; p->isTagged = 1; }, tagged_names},
    {"untagged", [](auto *p) { p->qualifyFlags = RULE_QUALIFY_IS_TAGGED; }, all_but(tagged_names)},
    {"SNAP", [](auto *p) { p->qualifyFlags = RULE_QUALIFY_ENCAP; p->encap = 1; p->encap_mask = ~0U; }, {"udp_snap"}},
    {"LLC", [](auto *p) { p->qualifyFlags = RULE_QUALIFY_ENCAP; p->encap = 2; p->encap_mask = ~0U; }, {"bpdu"}},
    {"no LLC", [](auto *p) { p->qualifyFlags = RULE_QUALIFY_ENCAP; p->encap_mask = ~0U; }, all_but({"udp_snap", "bpdu"})},
    {"TCP", [](auto *p) { DEVRM_LIB_RulePatternQualifyTcp(p); }, tcp_names},
    {"UDP", [](auto *p) { DEVRM_LIB_RulePatternQualifyUdp(p); }, {"udp", "udp6_hop_by_hop", "udp_snap"}},
    {"ICMP", [](auto *p) { DEVRM_LIB_RulePatternQualifyIcmp(p); }, icmp_names},
    {"TCP of IPv6", [](auto *p) { DEVRM_LIB_RulePatternQualifyIpv6NextHeader(p, 6, 0xFF); DEVRM_LIB_RulePatternQualifyIpv6(p); },
     {"tcp6", "tcp6_first_fragment", "tcp6_last_fragment"}},
    {"hop-by-hop header as the protocol", [](auto *p) { DEVRM_LIB_RulePatternQualifyIpv6NextHeader(p, 0, 0xFF); }, {}},
    {"protocols 1 and 17", [](auto *p) { DEVRM_LIB_RulePatternQualifyIpProtocol(p, 17, 0xEF); },
     {"udp", "udp6_hop_by_hop", "udp_snap", "icmp", "icmp_first_fragment", "icmp_last_fragment"}},
    {"DSCP 46", [](auto *p) { DEVRM_LIB_RulePatternQualifyIpDscp(p, 46, 0x3F); }, {"tcp", "tcp6"}},
    {"precedence 5", [](auto *p) { p->qualifyFlags = RULE_QUALIFY_PRECEDENCE; p->precedence = 5; p->precedence_mask = 7; },
     {"tcp", "tcp6"}},
    {"precedence 1", [](auto *p) { p->qualifyFlags = RULE_QUALIFY_PRECEDENCE; p->precedence = 1; p->precedence_mask = 7; },
     {"udp"}},
    {"SIP", [](auto *p) { DEVRM_LIB_RulePatternQualifyIpSourceAddress(p, 0x0A000101, 0xFFFFFFFF); }, {"udp"}},
    {"SIP 10.0.0.0/24", [](auto *p) { DEVRM_LIB_RulePatternQualifyIpSourceAddress(p, 0x0A000000, 0xFFFFFF00); },
     {"tcp", "tcp_vlan_100", "tcp_vlan_101_100", "icmp", "icmp_first_fragment", "icmp_last_fragment", "udp_snap"}},
    {"DIP", [](auto *p) { DEVRM_LIB_RulePatternQualifyIpDestAddress(p, 0x0A000003, 0xFFFFFFFF); }, {"tcp_vlan_101_100"}},
    {"DIP that is a source", [](auto *p) { DEVRM_LIB_RulePatternQualifyIpDestAddress(p, 0x0A000101, 0xFFFFFFFF); }, {}},
    {"IPv6 source", [](auto *p) { DEVRM_LIB_RulePatternQualifyIpv6SourceAddress(p, ipv6_address_2, all_ones); },
     {"tcp6_first_fragment", "tcp6_last_fragment"}},
    {"IPv6 destination", [](auto *p) { DEVRM_LIB_RulePatternQualifyIpv6DestAddress(p, ipv6_address_1, all_ones); },
     {"tcp6_first_fragment", "tcp6_last_fragment"}},
    {"IPv6 destination under a mask",
     [](auto *p) { DEVRM_LIB_RulePatternQualifyIpv6DestAddress(p, ipv6_address_2, ipv6_last_bit_open); },
     {"tcp6", "udp6_hop_by_hop", "neighbour_solicitation"}},
    {"IPv6 header", [](auto *p) { p->qualifyFlags = RULE_QUALIFY_IPV6_HDR_EXIST; }, ipv6_names},
    {"hop-by-hop header", [](auto *p) { p->qualifyFlags = RULE_QUALIFY_IPV6_HOP_BY_HOP; }, {"udp6_hop_by_hop"}},
    {"source port 0x1234", [](auto *p) { DEVRM_LIB_RulePatternQualifyL4SourcePort(p, 0x1234, 0xFFFF); },
     {"tcp", "tcp_vlan_100", "tcp_vlan_101_100", "tcp6"}},
    {"source ports 52 and 53", [](auto *p) { DEVRM_LIB_RulePatternQualifyL4SourcePort(p, 52, 0xFFFE); },
     {"udp", "udp6_hop_by_hop", "udp_snap"}},
    {"destination port 80", [](auto *p) { DEVRM_LIB_RulePatternQualifyL4DestPort(p, 80, 0xFFFF); }, {"tcp", "tcp6"}},
    {"destination port 443 and VLAN 101",
     [](auto *p) { DEVRM_LIB_RulePatternQualifyL4DestPort(p, 443, 0xFFFF); DEVRM_LIB_RulePatternQualifyVlan(p, 101, 0xFFF); },
     {"tcp_vlan_101_100"}},
    {"SYN and ACK", [](auto *p) { DEVRM_LIB_RulePatternQualifyTcpControlFlags(p, 0x12, 0x12); }, {"tcp", "tcp6"}},
    {"SYN without ACK", [](auto *p) { DEVRM_LIB_RulePatternQualifyTcpControlFlags(p, 0x02, 0x12); }, {"tcp_vlan_101_100"}},
    {"no RST", [](auto *p) { DEVRM_LIB_RulePatternQualifyTcpControlFlags(p, 0, 0x04); },
     {"tcp", "tcp_vlan_100", "tcp_vlan_101_100", "tcp6", "tcp6_first_fragment"}},
    {"echo request", [](auto *p) { DEVRM_LIB_RulePatternQualifyIcmpType(p, 8, 0xFF); }, {"icmp", "icmp_first_fragment"}},
    {"echo reply", [](auto *p) { DEVRM_LIB_RulePatternQualifyIcmpType(p, 0, 0xFF); }, {}},
    {"ICMPv6", [](auto *p) { DEVRM_LIB_RulePatternQualifyIcmpv6(p); }, {"neighbour_solicitation"}},
    {"ICMPv6 type 135", [](auto *p) { DEVRM_LIB_RulePatternQualifyIcmpv6Type(p, 135, 0xFF); }, {"neighbour_solicitation"}},
    {"ICMPv6 type 136", [](auto *p) { DEVRM_LIB_RulePatternQualifyIcmpv6Type(p, 136, 0xFF); }, {}},
    {"fragments of ICMP", [](auto *p) { DEVRM_LIB_RulePatternQualifyIpFragment(p, 1, 1); },
     {"icmp_first_fragment", "icmp_last_fragment"}},
    {"first fragments", [](auto *p) { DEVRM_LIB_RulePatternQualifyIpFragment(p, 1, 3); }, {"icmp_first_fragment"}},
    {"ICMP that is no fragment", [](auto *p) { DEVRM_LIB_RulePatternQualifyIpFragment(p, 0, 1); }, {"icmp"}},
    {"later fragments of TCP",
     [](auto *p) { DEVRM_LIB_RulePatternQualifyIpFragment(p, 2, 2); DEVRM_LIB_RulePatternQualifyTcp(p); },
     {"tcp6_last_fragment"}},
    {"first fragments of TCP",
     [](auto *p) { DEVRM_LIB_RulePatternQualifyIpFragment(p, 1, 3); DEVRM_LIB_RulePatternQualifyTcp(p); },
     {"tcp6_first_fragment"}},
    {"whole TCP",
     [](auto *p) { DEVRM_LIB_RulePatternQualifyIpFragment(p, 0, 0xFF); DEVRM_LIB_RulePatternQualifyTcp(p); },
     {"tcp", "tcp_vlan_100", "tcp_vlan_101_100", "tcp6"}},
    {"first bytes of the packet", [](auto *p) { set_user_bytes(p, {0xFF, 0xFF}); }, {"arp"}},
    {"bytes behind the addresses", [](auto *p) { set_user_bytes(p, {0x81, 0x00, 0xA0, 0x64, 0x08, 0x00}); },
     {"tcp_vlan_100"}, {Start::packet_start, 12}},
    {"bytes of the network header", [](auto *p) { set_user_bytes(p, {0x45, 0xB8}); }, {"tcp"}, {Start::network_header, 0}},
    {"bytes of the transport header", [](auto *p) { set_user_bytes(p, {0x00, 0x50}); }, {"tcp", "tcp6"},
     {Start::transport_header, 2}},
    {"last bytes of the longest packet",
     [](auto *p) { set_user_bytes(p, {0, 0, 0, 0, 0, 2}); }, {"neighbour_solicitation"}, {Start::packet_start, 72}},
    {"bytes behind the end", [](auto *p) { set_user_bytes(p, {0, 0, 0, 0, 2}); DEVRM_LIB_RulePatternQualifyUdb0_5(p, 5, 0, 0); },
     {"neighbour_solicitation"}, {Start::packet_start, 73}},
    {"bytes behind the end that are compared", [](auto *p) { set_user_bytes(p, {0, 0, 0, 0, 2, 0}); }, {},
     {Start::packet_start, 73}},
    {"bytes far behind the end", [](auto *p) { set_user_bytes(p, {0}); }, {}, {Start::transport_header, 0xFFFF}},
    {"user-defined bytes without their flag", [](auto *p) { set_user_bytes(p, {0xFF}); p->udbFlags = 0; p->qualifyFlags = 1; },
     all_samples()},
};
// clang-format on

RulePattern pattern_of(const Row &row)
{
    RulePattern pattern;
    DEVRM_LIB_RulePatternInit(&pattern);
    row.qualify(&pattern);
    return pattern;
}

TEST(PatternMatchTest, TakesExactlyThePacketsThatThePatternDescribes)
{
    for (const Row &row : rows) {
        const RulePattern pattern = pattern_of(row);
        Names matched;
        for (const Sample &sample : samples) {
            const Bytes bytes = bytes_of(sample.bytes);
            if (matches(pattern, row.user_bytes, parse_packet(bytes))) {
                matched.insert(sample.name);
            }
        }
        EXPECT_TRUE(is_valid(pattern)) << row.what;
        EXPECT_EQ(matched, row.matched) << row.what;
    }
}

// What is cut off can only be missing: a packet that is cut short shows nothing that the whole one does not show.
TEST(PatternMatchTest, FindsNothingInAShortPacketThatIsNotInTheWholeOne)
{
    for (const Sample &sample : samples) {
        const Bytes whole = bytes_of(sample.bytes);
        for (size_t size = 0; size < whole.size(); ++size) {
            // In room of its own, so that a read behind the end is seen by those who look for it.
            const Bytes cut(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size));
            const ParsedPacket packet = parse_packet(cut);
            for (const Row &row : rows) {
                EXPECT_TRUE(!matches(pattern_of(row), row.user_bytes, packet) || row.matched.contains(sample.name))
                    << row.what << ": the first " << size << " bytes of " << sample.name;
            }
        }
    }
}

TEST(PatternMatchTest, GetsAsFarAsAMalformedPacketGoes)
{
    const std::string addresses = "0A000001 0A000002 ";
    const std::string ports = "1234 0050 0008 0000";
    const std::string longest_chain = [] {
        std::string headers;
        for (int i = 0; i < 200; ++i) {
            headers += "3C00 0000 00000000 ";
        }
        return headers + "1100 0000 00000000";
    }();
    // clang-format off
    const struct {
        const char *what;
        std::string bytes;
        bool has_addresses;
        bool has_ports;
    } packets[] = {
        {"well formed", "0800 4500 001C 0000 0000 40 11 0000 " + addresses + ports, true, true},
        {"two tags and then well formed", "8100 0001 8100 0002 0800 4500 001C 0000 0000 40 11 0000 " + addresses + ports, true, true},
        {"three tags", "8100 0001 8100 0002 8100 0003 0800 4500 001C 0000 0000 40 11 0000 " + addresses + ports, false, false},
        {"version 5", "0800 5500 001C 0000 0000 40 11 0000 " + addresses + ports, false, false},
        {"version 6 as IPv4", "0800 6500 001C 0000 0000 40 11 0000 " + addresses + ports, false, false},
        {"a header of 16 bytes", "0800 4400 001C 0000 0000 40 11 0000 " + addresses + ports, false, false},
        {"options that are not there", "0800 4F00 001C 0000 0000 40 11 0000 " + addresses + ports, true, false},
        {"ports in the padding", "0800 4500 0014 0000 0000 40 11 0000 " + addresses + ports, true, false},
        {"half of the ports in the padding", "0800 4500 0016 0000 0000 40 11 0000 " + addresses + ports, true, false},
        {"shorter than its header", "0800 4500 0000 0000 0000 40 11 0000 " + addresses + ports, true, false},
        {"longer than the packet", "0800 4500 FFFF 0000 0000 40 11 0000 " + addresses + ports, true, true},
        {"SNAP of another organisation", "0024 AAAA03 0000F8 0800 4500 001C 0000 0000 40 11 0000 " + addresses + ports, false, false},
        {"SNAP that ends before its addresses", "0010 AAAA03 000000 0800 4500 001C 0000 0000 40 11 0000 " + addresses + ports, false, false},
        {"well formed, IPv6", "86DD 60000000 0008 11 40 " + address_1 + address_2 + ports, true, true},
        {"version 4 as IPv6", "86DD 45000000 0008 11 40 " + address_1 + address_2 + ports, false, false},
        {"no payload", "86DD 60000000 0000 11 40 " + address_1 + address_2 + ports, true, false},
        {"an extension header that is too long", "86DD 60000000 0010 3C 40 " + address_1 + address_2 + "11FF 0000 00000000 " + ports, true, false},
        {"a routing and an authentication header",
         "86DD 60000000 001C 2B 40 " + address_1 + address_2 + "3300 0000 00000000 1101 0000 00000000 00000000 " + ports, true, true},
        {"200 extension headers", "86DD 60000000 0650 3C 40 " + address_1 + address_2 + longest_chain + ports, true, true},
        {"200 extension headers and no end", "86DD 60000000 0648 3C 40 " + address_1 + address_2 + longest_chain, true, false},
    };
    // clang-format on
    for (const auto &row : packets) {
        const Bytes bytes = bytes_of(ethernet + row.bytes);
        const ParsedPacket packet = parse_packet(bytes);
        EXPECT_EQ(packet.ipv4.has_value() || packet.ipv6.has_value(), row.has_addresses) << row.what;
        EXPECT_EQ(packet.destination_port, row.has_ports ? std::optional<uint16_t>(0x0050) : std::nullopt) << row.what;
    }
}

TEST(PatternMatchTest, KnowsWhichFieldsThereAre)
{
    RulePattern pattern;
    DEVRM_LIB_RulePatternInit(&pattern);
    for (unsigned bit = 0; bit < 32; ++bit) {
        const std::set<unsigned> unassigned = {4, 14, 18, 22, 24, 26, 29, 30, 31};
        pattern.qualifyFlags = 1U << bit;
        EXPECT_EQ(is_valid(pattern), !unassigned.contains(bit)) << bit;
    }
    pattern.qualifyFlags = 0;
    pattern.udbFlags = 2;
    EXPECT_FALSE(is_valid(pattern));
}

}  // namespace
}  // namespace quillon::driver
