// The lines of the dump: which are printed, in what order, and each to the letter.
#include <gtest/gtest.h>

#include <array>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "quillon/devrm.h"

namespace quillon::test {
namespace {

// One call of the print function.
struct Print {
    std::string format;
    std::string text;

    bool operator==(const Print &) const = default;
};

void PrintTo(const Print &print, std::ostream *out)
{
    *out << testing::PrintToString(print.format) << " as " << testing::PrintToString(print.text);
}

using Prints = std::vector<Print>;

Prints recorded;

// Its result says that printing failed: nobody may care.
[[gnu::format(printf, 1, 2)]] int record(const char *format, ...)
{
    char text[256];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    recorded.push_back({format, text});
    return -1;
}

Prints dump(const RulePattern *pattern, uint32_t indent)
{
    recorded.clear();
    DEVRM_LIB_RulePatternDump(pattern, record, indent);
    return recorded;
}

// The texts of lines that begin without spaces.
std::vector<std::string> field_texts(const RulePattern &pattern)
{
    constexpr uint32_t no_indent = 0;
    constexpr size_t width = 6;
    std::vector<std::string> texts;
    for (const Print &print : dump(&pattern, no_indent)) {
        texts.push_back(print.text);
    }
    EXPECT_GE(texts.size(), 3);
    EXPECT_EQ(texts.front(), "+-o pattern\r\n");
    EXPECT_EQ(texts.back(), "    }\r\n");
    texts = {texts.begin() + 2, texts.end() - 1};
    for (std::string &text : texts) {
        EXPECT_EQ(text.substr(0, width), std::string(width, ' '));
        text.erase(0, width);
    }
    return texts;
}

constexpr size_t flags_at = 0;
constexpr size_t encap_at = 20;
constexpr size_t encap_mask_at = 24;

void put(RulePattern &pattern, size_t at, uint32_t value)
{
    memcpy(reinterpret_cast<uint8_t *>(&pattern) + at, &value, sizeof value);
}

// The byte at offset N holds 255 - N, so that each line shows where its bytes come from.
RulePattern descending_bytes(uint32_t flags)
{
    std::array<uint8_t, 192> bytes;
    for (size_t at = 0; at < bytes.size(); ++at) {
        bytes[at] = static_cast<uint8_t>(255 - at);
    }
    RulePattern pattern;
    static_assert(sizeof pattern == sizeof bytes);
    memcpy(&pattern, bytes.data(), sizeof pattern);
    put(pattern, flags_at, flags);
    return pattern;
}

RulePattern zero_bytes(uint32_t flags)
{
    RulePattern pattern;
    memset(&pattern, 0, sizeof pattern);
    put(pattern, flags_at, flags);
    return pattern;
}

struct Field {
    std::string name;
    // Each of these bits prints the field.
    std::vector<unsigned> bits;
    // Of a record of descending bytes.
    Prints lines;
};

// In the order in which they are printed.
// clang-format off
const Field fields[] = {
    {"sa", {8}, {{"%*spatt.sa = 0x%02X%02X%02X%02X%02X%02X\r\n", "patt.sa = 0x74737271706F\r\n"},
                 {"%*smask.sa = 0x%02X%02X%02X%02X%02X%02X\r\n", "mask.sa = 0x6E6D6C6B6A69\r\n"}}},
    {"da", {7}, {{"%*spatt.da = 0x%02X%02X%02X%02X%02X%02X\r\n", "patt.da = 0x686766656463\r\n"},
                 {"%*smask.da = 0x%02X%02X%02X%02X%02X%02X\r\n", "mask.da = 0x6261605F5E5D\r\n"}}},
    {"vtagup", {3, 27}, {{"%*spatt.vtagup = 0x%02X(%u)\r\n", "patt.vtagup = 0x5C(92)\r\n"},
                         {"%*smask.vtagup = 0x%02X(%u)\r\n", "mask.vtagup = 0x5B(91)\r\n"}}},
    {"isTagged", {1}, {{"%*spatt.isTagged = 0x%02X(%u)\r\n", "patt.isTagged = 0xC7(199)\r\n"}}},
    {"vid", {2}, {{"%*spatt.vid = 0x%04hX(%hu)\r\n", "patt.vid = 0xD2D3(53971)\r\n"},
                  {"%*smask.vid = 0x%04hX(%hu)\r\n", "mask.vid = 0xD0D1(53457)\r\n"}}},
    {"ethType", {5}, {{"%*spatt.ethType = 0x%04hX\r\n", "patt.ethType = 0xCACB\r\n"},
                      {"%*smask.ethType = 0x%04hX\r\n", "mask.ethType = 0xC8C9\r\n"}}},
    {"encap", {6}, {{"%*spatt.encap = 0x%08lX(%s)\r\n", "patt.encap = 0xE8E9EAEB()\r\n"},
                    {"%*smask.encap = 0x%08lX(%s)\r\n", "mask.encap = 0xE4E5E6E7()\r\n"}}},
    {"ip_fragment", {17}, {{"%*spatt.ip_fragment = 0x%02X(%u)\r\n", "patt.ip_fragment = 0xC6(198)\r\n"},
                           {"%*smask.ip_fragment = 0x%02X(%u)\r\n", "mask.ip_fragment = 0xC5(197)\r\n"}}},
    {"ipProtocol", {9}, {{"%*spatt.ipProtocol = 0x%02X(%u)\r\n", "patt.ipProtocol = 0xC4(196)\r\n"},
                         {"%*smask.ipProtocol = 0x%02X(%u)\r\n", "mask.ipProtocol = 0xC3(195)\r\n"}}},
    {"dscp", {10}, {{"%*spatt.dscp = 0x%02X(%u)\r\n", "patt.dscp = 0xC2(194)\r\n"},
                    {"%*smask.dscp = 0x%02X(%u)\r\n", "mask.dscp = 0xC1(193)\r\n"}}},
    {"precedence", {25}, {{"%*spatt.precedence = 0x%02X(%u)\r\n", "patt.precedence = 0xC0(192)\r\n"},
                          {"%*smask.Precedence = 0x%02X(%u)\r\n", "mask.Precedence = 0xBF(191)\r\n"}}},
    {"icmp_type", {28}, {{"%*spatt.icmp.type = 0x%02X(%u)\r\n", "patt.icmp.type = 0x5A(90)\r\n"},
                         {"%*smask.icmp.type = 0x%02X(%u)\r\n", "mask.icmp.type = 0x59(89)\r\n"}}},
    {"sip", {19},
     {{"%*spatt.sip = 0x%02X%02X%02X%02X(%u.%u.%u.%u)\r\n", "patt.sip = 0xF8F9FAFB(248.249.250.251)\r\n"},
      {"%*smask.sip = 0x%02X%02X%02X%02X(%u.%u.%u.%u)\r\n", "mask.sip = 0xF4F5F6F7(244.245.246.247)\r\n"}}},
    {"dip", {20},
     {{"%*spatt.dip = 0x%02X%02X%02X%02X(%u.%u.%u.%u)\r\n", "patt.dip = 0xF0F1F2F3(240.241.242.243)\r\n"},
      {"%*smask.dip = 0x%02X%02X%02X%02X(%u.%u.%u.%u)\r\n", "mask.dip = 0xECEDEEEF(236.237.238.239)\r\n"}}},
    {"l4_sport", {12}, {{"%*spatt.l4.sport = 0x%04hX(%hu)\r\n", "patt.l4.sport = 0xE2E3(58083)\r\n"},
                        {"%*smask.l4.sport = 0x%04hX(%hu)\r\n", "mask.l4.sport = 0xDEDF(57055)\r\n"}}},
    {"l4_dport", {13}, {{"%*spatt.l4.dport = 0x%04hX(%hu)\r\n", "patt.l4.dport = 0xDADB(56027)\r\n"},
                        {"%*smask.l4.dport = 0x%04hX(%hu)\r\n", "mask.l4.dport = 0xD6D7(54999)\r\n"}}},
    {"tcp_control", {11}, {{"%*spatt.tcp.control = 0x%02X(%u)\r\n", "patt.tcp.control = 0xBC(188)\r\n"},
                           {"%*smask.tcp.control = 0x%02X(%u)\r\n", "mask.tcp.control = 0xBB(187)\r\n"}}},
    {"ipv6_hopByHop", {16}, {{"%*spatt.ipv6.hopByHop = 1\r\n", "patt.ipv6.hopByHop = 1\r\n"}}},
    {"ipv6_hdrExist", {15}, {{"%*spatt.ipv6.hdrExist = 1\r\n", "patt.ipv6.hdrExist = 1\r\n"}}},
    {"ipv6_sip", {21},
     {{"%*spatt.ipv6.sip = 0x%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X\r\n",
       "patt.ipv6.sip = 0xB8B7B6B5B4B3B2B1B0AFAEADACABAAA9\r\n"},
      {"%*smask.ipv6.sip = 0x%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X\r\n",
       "mask.ipv6.sip = 0xA8A7A6A5A4A3A2A1A09F9E9D9C9B9A99\r\n"}}},
    {"ipv6_dip", {23}, {{"%*spatt.ipv6.dipUpper = 0x%02X\r\n", "patt.ipv6.dipUpper = 0x98\r\n"},
                        {"%*smask.ipv6.dipUpper = 0x%02X\r\n", "mask.ipv6.dipUpper = 0x88\r\n"}}},
    {"udb0_5", {0}, {{"%*spatt.udb0_5 = 0x%02X%02X%02X%02X%02X%02X\r\n", "patt.udb0_5 = 0x4B4A49484746\r\n"},
                     {"%*smask.udb0_5 = 0x%02X%02X%02X%02X%02X%02X\r\n", "mask.udb0_5 = 0x454443424140\r\n"}}},
};
// clang-format on

void PrintTo(const Field &field, std::ostream *out)
{
    *out << field.name;
}

// The calls for `fields` between those that make their frame, each behind the spaces of its depth.
Prints framed(uint32_t indent, const std::vector<Field> &expected)
{
    Prints prints{{"%*s+-o %s\r\n", "+-o pattern\r\n"}, {"%*s{\r\n", "    {\r\n"}};
    for (const Field &field : expected) {
        for (const Print &line : field.lines) {
            prints.push_back({line.format, "      " + line.text});
        }
    }
    prints.push_back({"%*s}\r\n", "    }\r\n"});
    for (Print &print : prints) {
        print.text.insert(0, indent, ' ');
    }
    return prints;
}

class FieldDumpTest : public testing::TestWithParam<Field> {};

TEST_P(FieldDumpTest, IsPrintedByEachOfItsFlagsAlone)
{
    for (const unsigned bit : GetParam().bits) {
        const RulePattern pattern = descending_bytes(1u << bit);

        EXPECT_EQ(dump(&pattern, 0), framed(0, {GetParam()})) << "bit " << bit;
    }
}

INSTANTIATE_TEST_SUITE_P(RulePattern, FieldDumpTest, testing::ValuesIn(fields),
                         [](const testing::TestParamInfo<Field> &row) { return row.param.name; });

TEST(RulePatternDumpTest, PrintsAllFieldsInOrderAndNoneTwice)
{
    const RulePattern pattern = descending_bytes(0xFFFFFFFF);

    EXPECT_EQ(dump(&pattern, 3), framed(3, {std::begin(fields), std::end(fields)}));
}

TEST(RulePatternDumpTest, PrintsNothingForBitsThatNoFieldHas)
{
    const RulePattern pattern =
        descending_bytes(1u << 4 | 1u << 14 | 1u << 18 | 1u << 22 | 1u << 24 | 1u << 26 | 7u << 29);

    EXPECT_EQ(dump(&pattern, 0), framed(0, {}));
}

TEST(RulePatternDumpTest, PrintsNilForNoRecord)
{
    EXPECT_EQ(dump(nullptr, 1), framed(1, {{"none", {}, {{"%*snil\r\n", "nil\r\n"}}}}));
}

TEST(RulePatternDumpTest, PadsSmallValuesWithZeros)
{
    const RulePattern pattern = zero_bytes(1u << 2 | 1u << 6 | 1u << 12 | 1u << 19);

    EXPECT_EQ(field_texts(pattern),
              (std::vector<std::string>{"patt.vid = 0x0000(0)\r\n", "mask.vid = 0x0000(0)\r\n",
                                        "patt.encap = 0x00000000()\r\n", "mask.encap = 0x00000000()\r\n",
                                        "patt.sip = 0x00000000(0.0.0.0)\r\n", "mask.sip = 0x00000000(0.0.0.0)\r\n",
                                        "patt.l4.sport = 0x0000(0)\r\n", "mask.l4.sport = 0x0000(0)\r\n"}));
}

// The word stands beside the value that equals 1, be it the pattern, the mask or both.
TEST(RulePatternDumpTest, NamesTheEncapsulationThatEquals1)
{
    struct Case {
        uint32_t encap;
        uint32_t mask;
        std::vector<std::string> texts;
    };
    const Case cases[] = {
        {1, 2, {"patt.encap = 0x00000001(ENCAPS)\r\n", "mask.encap = 0x00000002()\r\n"}},
        {2, 1, {"patt.encap = 0x00000002()\r\n", "mask.encap = 0x00000001(ENCAPS)\r\n"}},
        {1, 1, {"patt.encap = 0x00000001(ENCAPS)\r\n", "mask.encap = 0x00000001(ENCAPS)\r\n"}},
        {0x01000001, 0x80000000, {"patt.encap = 0x01000001()\r\n", "mask.encap = 0x80000000()\r\n"}},
    };
    for (const Case &one : cases) {
        RulePattern pattern = zero_bytes(1u << 6);
        put(pattern, encap_at, one.encap);
        put(pattern, encap_mask_at, one.mask);

        EXPECT_EQ(field_texts(pattern), one.texts);
    }
}

TEST(RulePatternDumpTest, PrintsThroughPrintfItself)
{
    RulePattern pattern;
    DEVRM_LIB_RulePatternInit(&pattern);
    DEVRM_LIB_RulePatternQualifyIpSourceAddress(&pattern, 0x0A000001, 0xFFFFFF00);

    testing::internal::CaptureStdout();
    DEVRM_LIB_RulePatternDump(&pattern, printf, 2);

    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "  +-o pattern\r\n"
              "      {\r\n"
              "        patt.ethType = 0x0800\r\n"
              "        mask.ethType = 0xFFFF\r\n"
              "        patt.sip = 0x0A000001(10.0.0.1)\r\n"
              "        mask.sip = 0xFFFFFF00(255.255.255.0)\r\n"
              "      }\r\n");
}

}  // namespace
}  // namespace quillon::test
