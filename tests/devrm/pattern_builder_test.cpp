// What each qualifier stores in the 192 bytes that the driver process reads, and what it leaves alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "quillon/devrm.h"
#include "support/byte_text.h"

namespace quillon::test {
namespace {

constexpr size_t record_size = 192;
constexpr size_t udb_flags_at = 176;

// A fresh record and used ones: every bit is set in one and clear in another.
constexpr uint8_t fills[] = {0x00, 0xFF, 0x69};

// A record at an odd address, between bytes that nobody may write.
class GuardedRecord {
  public:
    explicit GuardedRecord(uint8_t fill) : bytes_(1 + record_size + guard_size, fill) {}

    RulePattern *record() { return reinterpret_cast<RulePattern *>(&bytes_[1]); }

    std::vector<uint8_t> bytes() const { return {bytes_.begin() + 1, bytes_.end() - guard_size}; }

    bool guards_hold(uint8_t fill) const
    {
        return bytes_.front() == fill && std::count(bytes_.end() - guard_size, bytes_.end(), fill) == guard_size;
    }

  private:
    static constexpr long guard_size = 16;

    std::vector<uint8_t> bytes_;
};

void set_bits(std::vector<TextByte> &bytes, size_t at, uint32_t bits)
{
    for (size_t byte = 0; byte < sizeof bits; ++byte) {
        bytes[at + byte] = static_cast<uint8_t>(bytes[at + byte].value() | bits >> 8 * byte);
    }
}

struct Qualifier {
    std::string name;
    std::function<uint32_t(RulePattern *)> qualify;
    // The bits that are set in qualifyFlags.
    uint32_t flags;
    // What is stored; all other bytes stay as they were.
    std::string stored;
    // The bits that are set in udbFlags.
    uint32_t udb_flags = 0;
};

void PrintTo(const Qualifier &qualifier, std::ostream *out)
{
    *out << qualifier.name;
}

class QualifierTest : public testing::TestWithParam<Qualifier> {
  protected:
    // All bytes of a record of `fill` after the qualifier.
    static std::vector<TextByte> expected(uint8_t fill)
    {
        std::vector<TextByte> bytes = bytes_of(GetParam().stored, 0, fill);
        bytes.resize(record_size, fill);
        set_bits(bytes, 0, GetParam().flags);
        set_bits(bytes, udb_flags_at, GetParam().udb_flags);
        return bytes;
    }
};

TEST_P(QualifierTest, StoresItsFieldsAndNothingElse)
{
    for (const uint8_t fill : fills) {
        GuardedRecord used(fill);

        EXPECT_EQ(GetParam().qualify(used.record()), 1);

        EXPECT_EQ(differences(expected(fill), used.bytes()), "") << "on a record filled with " << unsigned{fill};
        EXPECT_TRUE(used.guards_hold(fill)) << "on a record filled with " << unsigned{fill};
    }
}

constexpr uint8_t mac[] = {0x11, 0x12, 0x13, 0x14, 0x15, 0x16};
constexpr uint8_t mac_mask[] = {0x21, 0x22, 0x23, 0x24, 0x25, 0x26};
constexpr uint8_t address[] = {0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x17, 0x18,
                               0x19, 0x1A, 0x1B, 0x1C, 0x1D, 0x1E, 0x1F, 0x20};
constexpr uint8_t address_mask[] = {0x31, 0x32, 0x33, 0x34, 0x35, 0x36, 0x37, 0x38,
                                    0x39, 0x3A, 0x3B, 0x3C, 0x3D, 0x3E, 0x3F, 0x40};

// clang-format off
const Qualifier qualifiers[] = {
    {"DestMacAddress",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyDestMacAddress(p, mac, mac_mask); },
     1u << 7, "+151 11..16 +157 21..26"},
    {"SourceMacAddress",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifySourceMacAddress(p, mac, mac_mask); },
     1u << 8, "+139 11..16 +145 21..26"},
    {"EtherType",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyEtherType(p, 0x8281, 0x9291); },
     1u << 5, "+52 8182 +54 9192"},
    {"Ip",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyIp(p); },
     1u << 5, "+52 0008 +54 FFFF"},
    {"Ipv6",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyIpv6(p); },
     1u << 5, "+52 DD86 +54 FFFF"},
    {"Vlan",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyVlan(p, 0x8281, 0x9291); },
     1u << 2, "+44 8182 +46 9192 +48 8182 +50 9192"},
    {"Cos",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyCos(p, 0x81, 0x91); },
     1u << 27, "+56 01 +163 81 +164 91"},
    {"IpProtocol",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyIpProtocol(p, 0x81, 0x91); },
     1u << 9, "+59 81 +60 91"},
    {"Ipv6NextHeader",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyIpv6NextHeader(p, 0x81, 0x91); },
     1u << 9, "+59 81 +60 91"},
    {"Icmp",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyIcmp(p); },
     1u << 9, "+59 01 +60 FF"},
    {"Udp",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyUdp(p); },
     1u << 9, "+59 11 +60 FF"},
    {"Tcp",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyTcp(p); },
     1u << 9, "+59 06 +60 FF"},
    {"IpDscp",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyIpDscp(p, 0x81, 0x91); },
     1u << 10, "+61 81 +62 91"},
    {"IpSourceAddress",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyIpSourceAddress(p, 0x84838281, 0x94939291); },
     1u << 19 | 1u << 5, "+4 81828384 +8 91929394 +52 0008 +54 FFFF"},
    {"IpDestAddress",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyIpDestAddress(p, 0x84838281, 0x94939291); },
     1u << 20 | 1u << 5, "+12 81828384 +16 91929394 +52 0008 +54 FFFF"},
    {"Ipv6SourceAddress",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyIpv6SourceAddress(p, address, address_mask); },
     1u << 21 | 1u << 5, "+52 DD86 +54 FFFF +71 11..20 +87 31..40"},
    {"Ipv6DestAddress",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyIpv6DestAddress(p, address, address_mask); },
     1u << 23 | 1u << 5, "+52 DD86 +54 FFFF +103 11..20 +119 31..40"},
    {"L4SourcePort",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyL4SourcePort(p, 0x8281, 0x9291); },
     1u << 12, "+28 81820000 +32 91920000"},
    {"L4DestPort",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyL4DestPort(p, 0x8281, 0x9291); },
     1u << 13, "+36 81820000 +40 91920000"},
    {"TcpControlFlags",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyTcpControlFlags(p, 0x81, 0x91); },
     1u << 11 | 1u << 9, "+59 06 +60 FF +67 81 +68 91"},
    {"IcmpType",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyIcmpType(p, 0x81, 0x91); },
     1u << 28 | 1u << 9, "+59 01 +60 FF +165 81 +166 91"},
    {"Icmpv6",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyIcmpv6(p); },
     1u << 9 | 1u << 5, "+52 DD86 +54 FFFF +59 3A +60 FF"},
    {"Icmpv6Type",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyIcmpv6Type(p, 0x81, 0x91); },
     1u << 12 | 1u << 9 | 1u << 5, "+28 00810000 +32 00910000 +52 DD86 +54 FFFF +59 3A +60 FF"},
    {"IpFragment",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyIpFragment(p, 0x81, 0x91); },
     1u << 17 | 1u << 9, "+57 81 +58 91 +59 01 +60 FF"},
    {"Udb0_5_first",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyUdb0_5(p, 0, 0x81, 0x91); },
     0, "+180 81 +186 91", 1},
    {"Udb0_5_third",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyUdb0_5(p, 2, 0x81, 0x91); },
     0, "+182 81 +188 91", 1},
    {"Udb0_5_last",
     [](RulePattern *p) { return DEVRM_LIB_RulePatternQualifyUdb0_5(p, 5, 0x81, 0x91); },
     0, "+185 81 +191 91", 1},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(RulePattern, QualifierTest, testing::ValuesIn(qualifiers),
                         [](const testing::TestParamInfo<Qualifier> &row) { return row.param.name; });

TEST(RulePatternInitTest, ZeroesTheRecordAndNothingElse)
{
    GuardedRecord used(0xFF);

    DEVRM_LIB_RulePatternInit(used.record());

    EXPECT_EQ(differences(bytes_of("00*192"), used.bytes()), "");
    EXPECT_TRUE(used.guards_hold(0xFF));
}

// The last value of a field counts, also one that another qualifier implies; flags accumulate.
TEST(RulePatternTest, IsBuiltByQualifiersOneAfterAnother)
{
    GuardedRecord built(0x00);
    RulePattern *pattern = built.record();

    DEVRM_LIB_RulePatternQualifyIpSourceAddress(pattern, 0x0A000001, 0xFFFFFF00);
    DEVRM_LIB_RulePatternQualifyL4SourcePort(pattern, 0x1234, 0xFFFF);
    DEVRM_LIB_RulePatternQualifyTcpControlFlags(pattern, 0x12, 0x3F);
    DEVRM_LIB_RulePatternQualifyIcmpv6Type(pattern, 135, 0xFF);
    DEVRM_LIB_RulePatternQualifyUdb0_5(pattern, 1, 0xAB, 0xFF);
    DEVRM_LIB_RulePatternQualifyUdb0_5(pattern, 4, 0xCD, 0xF0);
    DEVRM_LIB_RulePatternQualifyUdb0_5(pattern, 1, 0xEF, 0x0F);

    // Bits 19 and 5, 12, 11 and 9.
    EXPECT_EQ(differences(bytes_of("+0 201A0800 +4 0100000A +8 00FFFFFF +28 00870000 +32 00FF0000 +52 DD86 FFFF "
                                   "+59 3AFF +67 123F +176 01 +181 EF +184 CD +187 0F +190 F0 +192"),
                          built.bytes()),
              "");
}

}  // namespace
}  // namespace quillon::test
