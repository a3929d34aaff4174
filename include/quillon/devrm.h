/*
 * Client of the rule manager: access-control rules, their meters and counters, and the policy control lists (PCL) that
 * bind them to ports.
 *
 * What a rule matches is described by a RulePattern in the caller's memory. The DEVRM_LIB_ functions build and print
 * it: they send nothing, work on the caller's record alone, and may be called from any thread; two threads must not
 * build the same record at once.
 *
 * The DEVRM_PMGR_ functions ask the driver process, wait for its answer without a time-out and return its verdict.
 * Unless a function says otherwise:
 *
 * - It returns 1 when the driver process did what was asked and 0 when it refused.
 * - Outputs are written only when the result is not 0. They are not tested for null.
 * - When the exchange fails (no driver process, or it died), the function prints a failure report on standard output,
 *   runs "cat /proc/<task>/ustack" to dump the calling task's stack, writes no output and returns 0. In this family the
 *   report leaves the function's name out: its first line begins with "() line ".
 * - Arguments are not tested here: the driver process refuses what it does not know.
 * - Any thread may call it once DEVRM_PMGR_InitiateProcessResource has run.
 *
 * Arguments named by their position alone (a1, a2, ...) are devices, rules, groups, PCLs and ports as the driver
 * process numbers them. They are passed to it as they are.
 */
#ifndef QUILLON_DEVRM_H
#define QUILLON_DEVRM_H

#include <stdint.h>

#include "quillon/record.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Records ---- */

#pragma pack(push, 1)

/*
 * Which packets a rule matches: for each field of a packet a value and a mask (a 1 bit is compared, a 0 bit is not),
 * and flags that say which fields take part. The driver process reads the record byte for byte.
 *
 * Numbers are in the byte order of the host; an IPv4 address is a number whose most significant byte is the first
 * octet. MAC and IPv6 addresses are bytes in network order. Reserved bytes stay zero.
 *
 * The record is packed: its numbers may be read and written by name, but no pointer to one of them may be taken.
 */
typedef struct RulePattern {
    uint32_t qualifyFlags; /* RULE_QUALIFY_ bits */
    uint32_t sip;          /* IPv4 source address */
    uint32_t sip_mask;
    uint32_t dip; /* IPv4 destination address */
    uint32_t dip_mask;
    uint32_t encap; /* encapsulation; 1 is printed as "ENCAPS" */
    uint32_t encap_mask;
    struct {
        uint32_t sport; /* TCP or UDP source port in the low 16 bits; the high 16 are zero */
        uint32_t sport_mask;
        uint32_t dport; /* destination port, likewise */
        uint32_t dport_mask;
    } l4;
    uint16_t vid; /* VLAN id */
    uint16_t vid_mask;
    uint16_t vid2; /* the same VLAN id once more */
    uint16_t vid2_mask;
    uint16_t ethType; /* EtherType */
    uint16_t ethType_mask;
    uint8_t isTagged; /* 1: the frame carries a VLAN tag; has no mask */
    uint8_t ip_fragment;
    uint8_t ip_fragment_mask;
    uint8_t ipProtocol; /* IPv4 protocol or IPv6 next header */
    uint8_t ipProtocol_mask;
    uint8_t dscp;
    uint8_t dscp_mask;
    uint8_t precedence; /* IP precedence */
    uint8_t precedence_mask;
    uint8_t reserved_65[2];
    struct {
        uint8_t control; /* TCP control flags */
        uint8_t control_mask;
    } tcp;
    uint8_t reserved_69[2];
    struct {
        uint8_t sip[16]; /* IPv6 source address */
        uint8_t sip_mask[16];
        uint8_t dip[16]; /* IPv6 destination address */
        uint8_t dip_mask[16];
    } ipv6;
    uint8_t reserved_135[4];
    uint8_t sa[6]; /* source MAC address */
    uint8_t sa_mask[6];
    uint8_t da[6]; /* destination MAC address */
    uint8_t da_mask[6];
    uint8_t vtagup; /* user priority (CoS) of the VLAN tag */
    uint8_t vtagup_mask;
    struct {
        uint8_t type; /* ICMP type */
        uint8_t type_mask;
    } icmp;
    uint8_t reserved_167[9];
    uint32_t udbFlags; /* RULE_UDB_ bits */
    uint8_t udb0_5[6]; /* user-defined bytes 0 to 5 */
    uint8_t udb0_5_mask[6];
} RulePattern;

#pragma pack(pop)

QUILLON_RECORD_SIZE(RulePattern, 192);
QUILLON_FIELD_OFFSET(RulePattern, qualifyFlags, 0);
QUILLON_FIELD_OFFSET(RulePattern, sip, 4);
QUILLON_FIELD_OFFSET(RulePattern, sip_mask, 8);
QUILLON_FIELD_OFFSET(RulePattern, dip, 12);
QUILLON_FIELD_OFFSET(RulePattern, dip_mask, 16);
QUILLON_FIELD_OFFSET(RulePattern, encap, 20);
QUILLON_FIELD_OFFSET(RulePattern, encap_mask, 24);
QUILLON_FIELD_OFFSET(RulePattern, l4.sport, 28);
QUILLON_FIELD_OFFSET(RulePattern, l4.sport_mask, 32);
QUILLON_FIELD_OFFSET(RulePattern, l4.dport, 36);
QUILLON_FIELD_OFFSET(RulePattern, l4.dport_mask, 40);
QUILLON_FIELD_OFFSET(RulePattern, vid, 44);
QUILLON_FIELD_OFFSET(RulePattern, vid_mask, 46);
QUILLON_FIELD_OFFSET(RulePattern, vid2, 48);
QUILLON_FIELD_OFFSET(RulePattern, vid2_mask, 50);
QUILLON_FIELD_OFFSET(RulePattern, ethType, 52);
QUILLON_FIELD_OFFSET(RulePattern, ethType_mask, 54);
QUILLON_FIELD_OFFSET(RulePattern, isTagged, 56);
QUILLON_FIELD_OFFSET(RulePattern, ip_fragment, 57);
QUILLON_FIELD_OFFSET(RulePattern, ip_fragment_mask, 58);
QUILLON_FIELD_OFFSET(RulePattern, ipProtocol, 59);
QUILLON_FIELD_OFFSET(RulePattern, ipProtocol_mask, 60);
QUILLON_FIELD_OFFSET(RulePattern, dscp, 61);
QUILLON_FIELD_OFFSET(RulePattern, dscp_mask, 62);
QUILLON_FIELD_OFFSET(RulePattern, precedence, 63);
QUILLON_FIELD_OFFSET(RulePattern, precedence_mask, 64);
QUILLON_FIELD_OFFSET(RulePattern, reserved_65, 65);
QUILLON_FIELD_OFFSET(RulePattern, tcp.control, 67);
QUILLON_FIELD_OFFSET(RulePattern, tcp.control_mask, 68);
QUILLON_FIELD_OFFSET(RulePattern, reserved_69, 69);
QUILLON_FIELD_OFFSET(RulePattern, ipv6.sip, 71);
QUILLON_FIELD_OFFSET(RulePattern, ipv6.sip_mask, 87);
QUILLON_FIELD_OFFSET(RulePattern, ipv6.dip, 103);
QUILLON_FIELD_OFFSET(RulePattern, ipv6.dip_mask, 119);
QUILLON_FIELD_OFFSET(RulePattern, reserved_135, 135);
QUILLON_FIELD_OFFSET(RulePattern, sa, 139);
QUILLON_FIELD_OFFSET(RulePattern, sa_mask, 145);
QUILLON_FIELD_OFFSET(RulePattern, da, 151);
QUILLON_FIELD_OFFSET(RulePattern, da_mask, 157);
QUILLON_FIELD_OFFSET(RulePattern, vtagup, 163);
QUILLON_FIELD_OFFSET(RulePattern, vtagup_mask, 164);
QUILLON_FIELD_OFFSET(RulePattern, icmp.type, 165);
QUILLON_FIELD_OFFSET(RulePattern, icmp.type_mask, 166);
QUILLON_FIELD_OFFSET(RulePattern, reserved_167, 167);
QUILLON_FIELD_OFFSET(RulePattern, udbFlags, 176);
QUILLON_FIELD_OFFSET(RulePattern, udb0_5, 180);
QUILLON_FIELD_OFFSET(RulePattern, udb0_5_mask, 186);

/*
 * The bits of RulePattern.qualifyFlags. Those marked "by hand" are set by no function: a caller that wants such a field
 * sets the bit and fills the field itself, and the driver process gives it its meaning. All other bits stay zero.
 */
enum {
    RULE_QUALIFY_UDB0_5 = 0x1,    /* by hand; only prints udb0_5: the bytes take part through udbFlags */
    RULE_QUALIFY_IS_TAGGED = 0x2, /* by hand */
    RULE_QUALIFY_VID = 0x4,
    RULE_QUALIFY_VTAGUP = 0x8, /* by hand; the same field as RULE_QUALIFY_COS */
    RULE_QUALIFY_ETH_TYPE = 0x20,
    RULE_QUALIFY_ENCAP = 0x40, /* by hand */
    RULE_QUALIFY_DA = 0x80,
    RULE_QUALIFY_SA = 0x100,
    RULE_QUALIFY_IP_PROTOCOL = 0x200,
    RULE_QUALIFY_DSCP = 0x400,
    RULE_QUALIFY_TCP_CONTROL = 0x800,
    RULE_QUALIFY_L4_SPORT = 0x1000,
    RULE_QUALIFY_L4_DPORT = 0x2000,
    RULE_QUALIFY_IPV6_HDR_EXIST = 0x8000,   /* by hand; has no field */
    RULE_QUALIFY_IPV6_HOP_BY_HOP = 0x10000, /* by hand; has no field */
    RULE_QUALIFY_IP_FRAGMENT = 0x20000,
    RULE_QUALIFY_SIP = 0x80000,
    RULE_QUALIFY_DIP = 0x100000,
    RULE_QUALIFY_IPV6_SIP = 0x200000,
    RULE_QUALIFY_IPV6_DIP = 0x800000,
    RULE_QUALIFY_PRECEDENCE = 0x2000000, /* by hand */
    RULE_QUALIFY_COS = 0x8000000,        /* vtagup */
    RULE_QUALIFY_ICMP_TYPE = 0x10000000
};

/* The bits of RulePattern.udbFlags. */
enum {
    RULE_UDB_UDB0_5 = 0x1 /* udb0_5 takes part */
};

/* What is done with the packets that a rule matches. The library copies it as it is; the driver process reads it. */
typedef struct RuleActionBlock {
    uint8_t bytes[336];
} RuleActionBlock;

QUILLON_RECORD_SIZE(RuleActionBlock, 336);

/* The parameters of a meter. The library copies them as they are; the driver process reads them. */
typedef struct RuleMeter {
    uint8_t bytes[24];
} RuleMeter;

QUILLON_RECORD_SIZE(RuleMeter, 24);

#pragma GCC visibility push(default)

/*
 * Attaches the process to the driver process's queue of key 24. To be called once, before the family's first request
 * and before the process's threads make requests. Calling it again attaches again.
 *
 * When the queue is missing, prints
 * "(): SYSFUN_GetMsgQ fail." (this family prints no function name)
 * on standard output and returns; requests then fail, each with its failure report.
 */
void DEVRM_PMGR_InitiateProcessResource(void);

/*
 * ---- Building a rule pattern ----
 *
 * A record is begun with DEVRM_LIB_RulePatternInit and then qualified field by field, in any order. Each
 * DEVRM_LIB_RulePatternQualify function sets the flag of its field (it clears none), stores a value and a mask, and
 * returns 1; none can fail. Qualifying a field again keeps the last value and mask. `pattern` is not tested for null.
 *
 * Some functions qualify further fields after their own; what was stored there before is then replaced.
 */

/* Sets all 192 bytes to zero: no field takes part. */
void DEVRM_LIB_RulePatternInit(RulePattern *pattern);

/* The destination MAC address: `mac` and `mask` point to 6 bytes each, first byte first. */
uint32_t DEVRM_LIB_RulePatternQualifyDestMacAddress(RulePattern *pattern, const uint8_t *mac, const uint8_t *mask);

/* The source MAC address: `mac` and `mask` point to 6 bytes each, first byte first. */
uint32_t DEVRM_LIB_RulePatternQualifySourceMacAddress(RulePattern *pattern, const uint8_t *mac, const uint8_t *mask);

/* The EtherType. */
uint32_t DEVRM_LIB_RulePatternQualifyEtherType(RulePattern *pattern, uint16_t type, uint16_t mask);

/* EtherType 0x0800 (IPv4) with mask 0xFFFF. */
uint32_t DEVRM_LIB_RulePatternQualifyIp(RulePattern *pattern);

/* EtherType 0x86DD (IPv6) with mask 0xFFFF. */
uint32_t DEVRM_LIB_RulePatternQualifyIpv6(RulePattern *pattern);

/* The VLAN id. Stored twice, in `vid` and in `vid2`; only `vid` has a flag. */
uint32_t DEVRM_LIB_RulePatternQualifyVlan(RulePattern *pattern, uint16_t vid, uint16_t mask);

/*
 * The user priority of the VLAN tag (`vtagup`, by RULE_QUALIFY_COS). Stores 1 in `isTagged` as well, without
 * setting RULE_QUALIFY_IS_TAGGED.
 */
uint32_t DEVRM_LIB_RulePatternQualifyCos(RulePattern *pattern, uint8_t cos, uint8_t mask);

/* The IPv4 protocol. Does not qualify the EtherType. */
uint32_t DEVRM_LIB_RulePatternQualifyIpProtocol(RulePattern *pattern, uint8_t protocol, uint8_t mask);

/*
 * The IPv6 next header. The same field and flag as DEVRM_LIB_RulePatternQualifyIpProtocol; only the EtherType tells
 * the two apart. Does not qualify the EtherType.
 */
uint32_t DEVRM_LIB_RulePatternQualifyIpv6NextHeader(RulePattern *pattern, uint8_t next_header, uint8_t mask);

/* IP protocol 1 (ICMP) with mask 0xFF. Does not qualify the EtherType. */
uint32_t DEVRM_LIB_RulePatternQualifyIcmp(RulePattern *pattern);

/* IP protocol 17 (UDP) with mask 0xFF. Does not qualify the EtherType. */
uint32_t DEVRM_LIB_RulePatternQualifyUdp(RulePattern *pattern);

/* IP protocol 6 (TCP) with mask 0xFF. Does not qualify the EtherType. */
uint32_t DEVRM_LIB_RulePatternQualifyTcp(RulePattern *pattern);

/* The DSCP of the IP header. */
uint32_t DEVRM_LIB_RulePatternQualifyIpDscp(RulePattern *pattern, uint8_t dscp, uint8_t mask);

/*
 * The IPv4 source address, a number in host order: 10.0.0.1 is 0x0A000001. Also qualifies EtherType 0x0800, as
 * DEVRM_LIB_RulePatternQualifyIp.
 */
uint32_t DEVRM_LIB_RulePatternQualifyIpSourceAddress(RulePattern *pattern, uint32_t address, uint32_t mask);

/*
 * The IPv4 destination address, a number in host order: 10.0.0.1 is 0x0A000001. Also qualifies EtherType 0x0800, as
 * DEVRM_LIB_RulePatternQualifyIp.
 */
uint32_t DEVRM_LIB_RulePatternQualifyIpDestAddress(RulePattern *pattern, uint32_t address, uint32_t mask);

/*
 * The IPv6 source address: `address` and `mask` point to 16 bytes each, first byte first. Also qualifies EtherType
 * 0x86DD, as DEVRM_LIB_RulePatternQualifyIpv6.
 */
uint32_t DEVRM_LIB_RulePatternQualifyIpv6SourceAddress(RulePattern *pattern, const uint8_t *address,
                                                       const uint8_t *mask);

/*
 * The IPv6 destination address: `address` and `mask` point to 16 bytes each, first byte first. Also qualifies
 * EtherType 0x86DD, as DEVRM_LIB_RulePatternQualifyIpv6.
 */
uint32_t DEVRM_LIB_RulePatternQualifyIpv6DestAddress(RulePattern *pattern, const uint8_t *address, const uint8_t *mask);

/* The TCP or UDP source port. Does not qualify the IP protocol. */
uint32_t DEVRM_LIB_RulePatternQualifyL4SourcePort(RulePattern *pattern, uint16_t port, uint16_t mask);

/* The TCP or UDP destination port. Does not qualify the IP protocol. */
uint32_t DEVRM_LIB_RulePatternQualifyL4DestPort(RulePattern *pattern, uint16_t port, uint16_t mask);

/* The TCP control flags. Also qualifies IP protocol 6, as DEVRM_LIB_RulePatternQualifyTcp. */
uint32_t DEVRM_LIB_RulePatternQualifyTcpControlFlags(RulePattern *pattern, uint8_t flags, uint8_t mask);

/* The ICMP type. Also qualifies IP protocol 1, as DEVRM_LIB_RulePatternQualifyIcmp. */
uint32_t DEVRM_LIB_RulePatternQualifyIcmpType(RulePattern *pattern, uint8_t type, uint8_t mask);

/*
 * Next header 58 (ICMPv6) with mask 0xFF, and then EtherType 0x86DD, as DEVRM_LIB_RulePatternQualifyIpv6.
 */
uint32_t DEVRM_LIB_RulePatternQualifyIcmpv6(RulePattern *pattern);

/*
 * The ICMPv6 type. It travels in the upper byte of the L4 source port (`icmp.type` is ICMP's alone): qualifies source
 * port `type` * 256 with mask `mask` * 256, and then ICMPv6, as DEVRM_LIB_RulePatternQualifyIcmpv6.
 */
uint32_t DEVRM_LIB_RulePatternQualifyIcmpv6Type(RulePattern *pattern, uint8_t type, uint8_t mask);

/*
 * The IP fragment field; the driver process gives its values their meaning. Also qualifies IP protocol 1, as
 * DEVRM_LIB_RulePatternQualifyIcmp.
 */
uint32_t DEVRM_LIB_RulePatternQualifyIpFragment(RulePattern *pattern, uint8_t fragment, uint8_t mask);

/*
 * User-defined byte `index`: stores `value` and `mask` in that byte of `udb0_5` and of its mask and sets
 * RULE_UDB_UDB0_5 in `udbFlags`; `qualifyFlags` stays as it is.
 *
 * The caller keeps `index` in 0 to 5. A debug build of the library stops at a larger one; a release build writes behind
 * the user-defined bytes.
 */
uint32_t DEVRM_LIB_RulePatternQualifyUdb0_5(RulePattern *pattern, uint32_t index, uint8_t value, uint8_t mask);

/* ---- Printing a rule pattern ---- */

/* A function that prints as printf does. What it returns is not looked at. */
typedef int (*RulePatternPrintFunc)(const char *format, ...) __attribute__((format(printf, 1, 2)));

/*
 * Prints `pattern`, one line for the value and one for the mask of each field whose flag is set in `qualifyFlags`, in
 * a block of its own, each line ending in CR LF. With `indent` 2:
 *
 *     +-o pattern
 *         {
 *           patt.ethType = 0x0800
 *           mask.ethType = 0xFFFF
 *           patt.sip = 0x0A000001(10.0.0.1)
 *           mask.sip = 0xFFFFFF00(255.255.255.0)
 *         }
 *
 * `pattern` may be null; "nil" then stands in place of the fields. `indent` is the number of spaces before the first
 * line; the others stand 4 and 6 further in. It must leave room for that in an int, the width that printf takes.
 *
 * Every line is one call of `print`, which may be printf itself.
 *
 * The user-defined bytes are printed by RULE_QUALIFY_UDB0_5, not by `udbFlags`, and of the IPv6 destination address
 * only the first byte, as "ipv6.dipUpper".
 */
void DEVRM_LIB_RulePatternDump(const RulePattern *pattern, RulePatternPrintFunc print, uint32_t indent);

/* ---- Rules ---- */

/* Initialises the fields that rules match on. Returns nothing: the driver process's result is not looked at. */
void DEVRM_PMGR_FieldInit(void);

/* Allocates a rule. */
uint8_t DEVRM_PMGR_AllocateRule(uint32_t a1, uint32_t a2, uint32_t a3, uint32_t a4, uint32_t a5);

/*
 * Sets what a rule matches and what is done with the packets that it matches.
 *
 * `pattern` is sent as it stands, 192 bytes. It may be null: the driver process then gets 192 zero bytes, a pattern in
 * which no field takes part. `action` is sent as it stands, 336 bytes, and must not be null.
 */
uint8_t DEVRM_PMGR_SetRule(uint32_t a1, uint32_t a2, uint32_t a3, const RulePattern *pattern,
                           const RuleActionBlock *action);

/* Destroys a rule. */
uint8_t DEVRM_PMGR_DestroyRule(uint32_t a1, uint32_t a2, uint32_t a3);

/* ---- Meters and actions ---- */

/* Sets the parameters of a meter. `meter` is sent as it stands, 24 bytes, and must not be null. */
uint8_t DEVRM_PMGR_UpdateMeter(uint32_t a1, uint32_t a2, uint32_t a3, const RuleMeter *meter);

/* Lets rules share a meter. */
uint8_t DEVRM_PMGR_ShareMeter(uint32_t a1, uint32_t a2, uint32_t a3);

/* Destroys the action of a rule. */
uint8_t DEVRM_PMGR_DestroyAction(uint32_t a1, uint32_t a2, uint32_t a3);

/* ---- The device ---- */

/* Returns the number of chips. A failed exchange gives 0 as well; only its report tells. */
uint32_t DEVRM_PMGR_GetNumberOfChips(void);

/* Stores the driver process's description of the device, one word, in `*info`. */
uint8_t DEVRM_PMGR_GetDeviceInfo(uint32_t *info);

/* Asks whether the device is the system on a chip that `a1` stands for: returns 1 when it is and 0 when not. */
uint8_t DEVRM_PMGR_CheckSoc(uint32_t a1);

/* ---- Policy control lists ---- */

/* Creates a PCL. */
uint8_t DEVRM_PMGR_CreatePcl(uint32_t a1, uint32_t a2, uint8_t a3, uint32_t a4, uint32_t a5);

/* Binds a PCL to a port. */
uint8_t DEVRM_PMGR_BindPclToPort(uint32_t a1, uint32_t a2, uint32_t a3);

/* Takes back DEVRM_PMGR_BindPclToPort. */
uint8_t DEVRM_PMGR_UnbindPclToPort(uint32_t a1, uint32_t a2, uint32_t a3);

/* Binds a PCL to a trunk port. */
uint8_t DEVRM_PMGR_BindPclToTrunkPort(uint32_t a1, uint32_t a2, uint32_t a3);

/* Takes back DEVRM_PMGR_BindPclToTrunkPort. */
uint8_t DEVRM_PMGR_UnbindPclToTrunkPort(uint32_t a1, uint32_t a2, uint32_t a3);

/* ---- Counters ---- */

/* Reads a rule's counter: stores its three words in `*a4`, `*a5` and `*a6`. */
uint8_t DEVRM_PMGR_GetCounter(uint32_t a1, uint32_t a2, uint32_t a3, uint32_t *a4, uint32_t *a5, uint32_t *a6);

/* Clears a rule's counter. */
uint8_t DEVRM_PMGR_ClearCounter(uint32_t a1, uint32_t a2, uint32_t a3);

/*
 * Returns the driver process's EXCLUDEVLAN number. A failed exchange gives 0 as well; only its report tells.
 */
uint32_t DEVRM_PMGR_GetNumberOfEXCLUDEVLAN(void);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
