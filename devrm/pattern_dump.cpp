// Prints a rule pattern through a print function of the caller's.
#include <stddef.h>
#include <stdint.h>

#include <utility>

#include "quillon/devrm.h"

namespace {

// The lines of one depth; each member prints one by one call. Every format begins with `%*s`, which indents the line,
// and the members differ in what the conversions behind it take.
class Lines {
  public:
    Lines(RulePatternPrintFunc print, uint32_t indent) : print_(print), indent_(static_cast<int>(indent)) {}

    void text(const char *format) const { print_(format, indent_, ""); }

    void word(const char *format, const char *value) const { print_(format, indent_, "", value); }

    void hex(const char *format, uint8_t value) const { print_(format, indent_, "", unsigned{value}); }

    void hex(const char *format, uint16_t value) const { print_(format, indent_, "", value); }

    void hex_and_decimal(const char *format, uint8_t value) const
    {
        print_(format, indent_, "", unsigned{value}, unsigned{value});
    }

    void hex_and_decimal(const char *format, uint16_t value) const { print_(format, indent_, "", value, value); }

    void hex_and_name(const char *format, uint32_t value, const char *name) const
    {
        print_(format, indent_, "", static_cast<unsigned long>(value), name);
    }

    // The octets of a number in host order, the most significant one first, in hexadecimal and again in decimal.
    void ipv4(const char *format, uint32_t address) const
    {
        const unsigned octets[] = {address >> 24, address >> 16 & 0xFF, address >> 8 & 0xFF, address & 0xFF};
        print_(format, indent_, "", octets[0], octets[1], octets[2], octets[3], octets[0], octets[1], octets[2],
               octets[3]);
    }

    template <size_t Size>
    void bytes(const char *format, const uint8_t (&value)[Size]) const
    {
        each(format, value, std::make_index_sequence<Size>());
    }

  private:
    template <size_t Size, size_t... Index>
    void each(const char *format, const uint8_t (&value)[Size], std::index_sequence<Index...>) const
    {
        print_(format, indent_, "", unsigned{value[Index]}...);
    }

    RulePatternPrintFunc print_;
    int indent_;
};

const char *encapsulation_name(uint32_t encap)
{
    return encap == 1 ? "ENCAPS" : "";
}

// The port stands in a word of which it fills the lower half.
uint16_t port(uint32_t word)
{
    return static_cast<uint16_t>(word);
}

void dump_fields(const RulePattern &pattern, const Lines &lines)
{
    const auto qualifies = [flags = pattern.qualifyFlags](uint32_t bits) { return (flags & bits) != 0; };

    if (qualifies(RULE_QUALIFY_SA)) {
        lines.bytes("%*spatt.sa = 0x%02X%02X%02X%02X%02X%02X\r\n", pattern.sa);
        lines.bytes("%*smask.sa = 0x%02X%02X%02X%02X%02X%02X\r\n", pattern.sa_mask);
    }
    if (qualifies(RULE_QUALIFY_DA)) {
        lines.bytes("%*spatt.da = 0x%02X%02X%02X%02X%02X%02X\r\n", pattern.da);
        lines.bytes("%*smask.da = 0x%02X%02X%02X%02X%02X%02X\r\n", pattern.da_mask);
    }
    if (qualifies(RULE_QUALIFY_VTAGUP | RULE_QUALIFY_COS)) {
        lines.hex_and_decimal("%*spatt.vtagup = 0x%02X(%u)\r\n", pattern.vtagup);
        lines.hex_and_decimal("%*smask.vtagup = 0x%02X(%u)\r\n", pattern.vtagup_mask);
    }
    if (qualifies(RULE_QUALIFY_IS_TAGGED)) {
        lines.hex_and_decimal("%*spatt.isTagged = 0x%02X(%u)\r\n", pattern.isTagged);
    }
    if (qualifies(RULE_QUALIFY_VID)) {
        lines.hex_and_decimal("%*spatt.vid = 0x%04hX(%hu)\r\n", pattern.vid);
        lines.hex_and_decimal("%*smask.vid = 0x%04hX(%hu)\r\n", pattern.vid_mask);
    }
    if (qualifies(RULE_QUALIFY_ETH_TYPE)) {
        lines.hex("%*spatt.ethType = 0x%04hX\r\n", pattern.ethType);
        lines.hex("%*smask.ethType = 0x%04hX\r\n", pattern.ethType_mask);
    }
    if (qualifies(RULE_QUALIFY_ENCAP)) {
        lines.hex_and_name("%*spatt.encap = 0x%08lX(%s)\r\n", pattern.encap, encapsulation_name(pattern.encap));
        lines.hex_and_name("%*smask.encap = 0x%08lX(%s)\r\n", pattern.encap_mask,
                           encapsulation_name(pattern.encap_mask));
    }
    if (qualifies(RULE_QUALIFY_IP_FRAGMENT)) {
        lines.hex_and_decimal("%*spatt.ip_fragment = 0x%02X(%u)\r\n", pattern.ip_fragment);
        lines.hex_and_decimal("%*smask.ip_fragment = 0x%02X(%u)\r\n", pattern.ip_fragment_mask);
    }
    if (qualifies(RULE_QUALIFY_IP_PROTOCOL)) {
        lines.hex_and_decimal("%*spatt.ipProtocol = 0x%02X(%u)\r\n", pattern.ipProtocol);
        lines.hex_and_decimal("%*smask.ipProtocol = 0x%02X(%u)\r\n", pattern.ipProtocol_mask);
    }
    if (qualifies(RULE_QUALIFY_DSCP)) {
        lines.hex_and_decimal("%*spatt.dscp = 0x%02X(%u)\r\n", pattern.dscp);
        lines.hex_and_decimal("%*smask.dscp = 0x%02X(%u)\r\n", pattern.dscp_mask);
    }
    if (qualifies(RULE_QUALIFY_PRECEDENCE)) {
        lines.hex_and_decimal("%*spatt.precedence = 0x%02X(%u)\r\n", pattern.precedence);
        // Readers of the text know the mask by its capital letter.
        lines.hex_and_decimal("%*smask.Precedence = 0x%02X(%u)\r\n", pattern.precedence_mask);
    }
    if (qualifies(RULE_QUALIFY_ICMP_TYPE)) {
        lines.hex_and_decimal("%*spatt.icmp.type = 0x%02X(%u)\r\n", pattern.icmp.type);
        lines.hex_and_decimal("%*smask.icmp.type = 0x%02X(%u)\r\n", pattern.icmp.type_mask);
    }
    if (qualifies(RULE_QUALIFY_SIP)) {
        lines.ipv4("%*spatt.sip = 0x%02X%02X%02X%02X(%u.%u.%u.%u)\r\n", pattern.sip);
        lines.ipv4("%*smask.sip = 0x%02X%02X%02X%02X(%u.%u.%u.%u)\r\n", pattern.sip_mask);
    }
    if (qualifies(RULE_QUALIFY_DIP)) {
        lines.ipv4("%*spatt.dip = 0x%02X%02X%02X%02X(%u.%u.%u.%u)\r\n", pattern.dip);
        lines.ipv4("%*smask.dip = 0x%02X%02X%02X%02X(%u.%u.%u.%u)\r\n", pattern.dip_mask);
    }
    if (qualifies(RULE_QUALIFY_L4_SPORT)) {
        lines.hex_and_decimal("%*spatt.l4.sport = 0x%04hX(%hu)\r\n", port(pattern.l4.sport));
        lines.hex_and_decimal("%*smask.l4.sport = 0x%04hX(%hu)\r\n", port(pattern.l4.sport_mask));
    }
    if (qualifies(RULE_QUALIFY_L4_DPORT)) {
        lines.hex_and_decimal("%*spatt.l4.dport = 0x%04hX(%hu)\r\n", port(pattern.l4.dport));
        lines.hex_and_decimal("%*smask.l4.dport = 0x%04hX(%hu)\r\n", port(pattern.l4.dport_mask));
    }
    if (qualifies(RULE_QUALIFY_TCP_CONTROL)) {
        lines.hex_and_decimal("%*spatt.tcp.control = 0x%02X(%u)\r\n", pattern.tcp.control);
        lines.hex_and_decimal("%*smask.tcp.control = 0x%02X(%u)\r\n", pattern.tcp.control_mask);
    }
    if (qualifies(RULE_QUALIFY_IPV6_HOP_BY_HOP)) {
        lines.text("%*spatt.ipv6.hopByHop = 1\r\n");
    }
    if (qualifies(RULE_QUALIFY_IPV6_HDR_EXIST)) {
        lines.text("%*spatt.ipv6.hdrExist = 1\r\n");
    }
    if (qualifies(RULE_QUALIFY_IPV6_SIP)) {
        lines.bytes("%*spatt.ipv6.sip = 0x%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X\r\n",
                    pattern.ipv6.sip);
        lines.bytes("%*smask.ipv6.sip = 0x%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X%02X\r\n",
                    pattern.ipv6.sip_mask);
    }
    if (qualifies(RULE_QUALIFY_IPV6_DIP)) {
        lines.hex("%*spatt.ipv6.dipUpper = 0x%02X\r\n", pattern.ipv6.dip[0]);
        lines.hex("%*smask.ipv6.dipUpper = 0x%02X\r\n", pattern.ipv6.dip_mask[0]);
    }
    // Not by udbFlags: user-defined bytes that the builder alone has set are not printed.
    if (qualifies(RULE_QUALIFY_UDB0_5)) {
        lines.bytes("%*spatt.udb0_5 = 0x%02X%02X%02X%02X%02X%02X\r\n", pattern.udb0_5);
        lines.bytes("%*smask.udb0_5 = 0x%02X%02X%02X%02X%02X%02X\r\n", pattern.udb0_5_mask);
    }
}

}  // namespace

void DEVRM_LIB_RulePatternDump(const RulePattern *pattern, RulePatternPrintFunc print, uint32_t indent)
{
    const Lines braces(print, indent + 4);
    const Lines fields(print, indent + 6);

    Lines(print, indent).word("%*s+-o %s\r\n", "pattern");
    braces.text("%*s{\r\n");
    if (pattern == nullptr) {
        fields.text("%*snil\r\n");
    } else {
        dump_fields(*pattern, fields);
    }
    braces.text("%*s}\r\n");
}
