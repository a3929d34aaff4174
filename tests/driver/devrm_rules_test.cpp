#include <gtest/gtest.h>
#include <stdint.h>
#include <string.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <optional>

#include "driver/swdrv_client.h"
#include "host/driver/reception.h"
#include "quillon/devrm.h"

namespace quillon::test {
namespace {

using driver::LogicalPort;
using driver::Treatment;

constexpr uint32_t unit = 2;
constexpr uint32_t list = 7;
constexpr LogicalPort port{unit, 3};

// The bytes of a record, as callers fill them: what is not named is zero.
template <class Record>
Record record_of(std::initializer_list<uint8_t> bytes)
{
    Record record{};
    memcpy(record.bytes, bytes.begin(), bytes.size());
    return record;
}

struct DevrmRulesTest : SwdrvClientTest {
    DevrmRulesTest()
    {
        DEVRM_PMGR_InitiateProcessResource();
        EXPECT_EQ(DEVRM_PMGR_CreatePcl(unit, list, 0, 10, 4), 1);
        EXPECT_EQ(DEVRM_PMGR_BindPclToPort(unit, list, port.port), 1);
    }

    // An Ethernet frame of 60 bytes that counts up behind its type.
    std::optional<Treatment> receive(const LogicalPort &at = port, uint8_t low_type_byte = 6)
    {
        std::array<std::byte, 60> packet{};
        for (size_t i = 0; i < packet.size(); ++i) {
            packet[i] = static_cast<std::byte>(i);
        }
        packet[12] = std::byte{8};
        packet[13] = std::byte{low_type_byte};
        return receive_packet(model, at, packet);
    }

    struct Counts {
        uint32_t green, yellow, red;
        bool operator==(const Counts &) const = default;
    };

    static Counts counts(uint32_t rule)
    {
        Counts read{};
        EXPECT_EQ(DEVRM_PMGR_GetCounter(unit, list, rule, &read.green, &read.yellow, &read.red), 1) << rule;
        return read;
    }
};

constexpr RuleActionBlock no_action{};

TEST_F(DevrmRulesTest, AnswersForARuleFromItsAllocationToItsEnd)
{
    RulePattern arp;
    DEVRM_LIB_RulePatternInit(&arp);
    DEVRM_LIB_RulePatternQualifyEtherType(&arp, 0x0806, 0xFFFF);

    EXPECT_EQ(DEVRM_PMGR_AllocateRule(unit, list, 30, 1, 0), 1);
    receive();
    EXPECT_EQ(counts(30), (Counts{0, 0, 0}));
    EXPECT_EQ(DEVRM_PMGR_SetRule(unit, list, 30, &arp, &no_action), 1);
    const auto meter = record_of<RuleMeter>({0, 0, 0, 0, 0, 0, 0, 0, 60, 0, 0, 0, 0, 0, 0, 0, 120});
    EXPECT_EQ(DEVRM_PMGR_UpdateMeter(unit, list, 30, &meter), 1);
    for (int i = 0; i < 6; ++i) {
        receive();
    }
    EXPECT_EQ(DEVRM_PMGR_AllocateRule(unit, list, 31, 1, 0), 1);
    EXPECT_EQ(DEVRM_PMGR_SetRule(unit, list, 31, nullptr, &no_action), 1);
    receive(port, 7);
    receive({unit, 4});
    receive({1, port.port});
    EXPECT_EQ(counts(30), (Counts{1, 2, 3})) << "60 bytes, then 120, at no rate";
    EXPECT_EQ(counts(31), (Counts{1, 0, 0}));
    receive();
    EXPECT_EQ(counts(31), (Counts{2, 0, 0})) << "also behind another rule that matches";
    RulePattern ipv6;
    DEVRM_LIB_RulePatternInit(&ipv6);
    DEVRM_LIB_RulePatternQualifyEtherType(&ipv6, 0x86DD, 0xFFFF);
    EXPECT_EQ(DEVRM_PMGR_SetRule(unit, list, 30, &ipv6, &no_action), 1);
    receive();
    EXPECT_EQ(counts(30), (Counts{1, 2, 4})) << "as it was told anew";
    EXPECT_EQ(DEVRM_PMGR_SetRule(unit, list, 30, &arp, &no_action), 1);

    EXPECT_EQ(DEVRM_PMGR_ClearCounter(unit, list, 30), 1);
    EXPECT_EQ(counts(30), (Counts{0, 0, 0}));
    EXPECT_EQ(DEVRM_PMGR_UnbindPclToPort(unit, list, port.port), 1);
    receive();
    EXPECT_EQ(counts(30), (Counts{0, 0, 0}));
    EXPECT_EQ(DEVRM_PMGR_DestroyRule(unit, list, 30), 1);
    EXPECT_EQ(DEVRM_PMGR_DestroyRule(unit, list, 30), 0);
    uint32_t untouched = 5;
    EXPECT_EQ(DEVRM_PMGR_GetCounter(unit, list, 30, &untouched, &untouched, &untouched), 0);
    EXPECT_EQ(untouched, 5U);
}

TEST_F(DevrmRulesTest, ReadsActions)
{
    const struct {
        const char *what;
        RuleActionBlock block;
        std::optional<Treatment> treatment;
    } rows[] = {
        {"nothing", {}, Treatment{}},
        {"drop", record_of<RuleActionBlock>({1}), Treatment{.drop = true}},
        {"copy to the CPU", record_of<RuleActionBlock>({2}), Treatment{.copy_to_cpu = true}},
        {"mirror", record_of<RuleActionBlock>({4}), Treatment{.mirror = true}},
        {"priority", record_of<RuleActionBlock>({8, 0, 0, 0, 7, 99}), Treatment{.priority = 7}},
        {"DSCP", record_of<RuleActionBlock>({16, 0, 0, 0, 99, 63}), Treatment{.dscp = 63}},
        {"redirection", record_of<RuleActionBlock>({32, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 28}),
         Treatment{.redirect = LogicalPort{1, 28}}},
        {"drop what is red, of which there is none", record_of<RuleActionBlock>({64}), Treatment{}},
        {"values without their flags", record_of<RuleActionBlock>({0, 0, 0, 0, 99, 99, 0, 0, 99}), Treatment{}},
        {"an unknown flag", record_of<RuleActionBlock>({128}), std::nullopt},
        {"the last flag", record_of<RuleActionBlock>({0, 0, 0, 128}), std::nullopt},
        {"priority 8", record_of<RuleActionBlock>({8, 0, 0, 0, 8}), std::nullopt},
        {"DSCP 64", record_of<RuleActionBlock>({16, 0, 0, 0, 0, 64}), std::nullopt},
        {"a port that is not there", record_of<RuleActionBlock>({32, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 29}),
         std::nullopt},
    };
    EXPECT_EQ(DEVRM_PMGR_AllocateRule(unit, list, 30, 1, 0), 1);
    for (const auto &row : rows) {
        // Without a pattern, all packets match.
        EXPECT_EQ(DEVRM_PMGR_SetRule(unit, list, 30, nullptr, &row.block), row.treatment.has_value()) << row.what;
        if (row.treatment) {
            EXPECT_EQ(receive(), row.treatment) << row.what;
        }
    }
}

TEST_F(DevrmRulesTest, FindsUserDefinedBytesWhereTheRuleWasToldThem)
{
    const struct {
        uint32_t place;
        uint8_t first_byte;
    } rows[] = {{0x00000005, 5}, {0x00010000, 14}, {0x00010003, 17}};
    uint32_t number = 0;
    for (const auto &row : rows) {
        RulePattern pattern;
        DEVRM_LIB_RulePatternInit(&pattern);
        DEVRM_LIB_RulePatternQualifyUdb0_5(&pattern, 0, row.first_byte, 0xFF);
        EXPECT_EQ(DEVRM_PMGR_AllocateRule(unit, list, ++number, 0, row.place), 1);
        EXPECT_EQ(DEVRM_PMGR_SetRule(unit, list, number, &pattern, &no_action), 1);
        receive();
        EXPECT_EQ(counts(number).green, 1U) << row.place;
    }
    // Behind an IP header, of which there is none.
    EXPECT_EQ(DEVRM_PMGR_DestroyRule(unit, list, 1), 1);
    EXPECT_EQ(DEVRM_PMGR_AllocateRule(unit, list, 1, 0, 0x00020000), 1);
    EXPECT_EQ(DEVRM_PMGR_AllocateRule(unit, list, 9, 0, 0x00030000), 0);
}

TEST_F(DevrmRulesTest, BindsListsToTrunks)
{
    const uint8_t port_4[32] = {0x08};
    const uint8_t ports_3_and_5[32] = {0x14};
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateTrunk(5), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetTrunkPortMembers(unit, 5, port_4), 1);
    EXPECT_EQ(DEVRM_PMGR_AllocateRule(unit, list, 1, 0, 0), 1);
    EXPECT_EQ(DEVRM_PMGR_AllocateRule(unit, list, 2, 0, 0), 1);
    EXPECT_EQ(DEVRM_PMGR_SetRule(unit, list, 1, nullptr, &no_action), 1);
    const auto meter = record_of<RuleMeter>({0, 0, 0, 0, 0, 0, 0, 0, 255});
    EXPECT_EQ(DEVRM_PMGR_UpdateMeter(unit, list, 2, &meter), 1);
    EXPECT_EQ(DEVRM_PMGR_ShareMeter(unit, 1, 2), 1);
    EXPECT_EQ(DEVRM_PMGR_BindPclToTrunkPort(unit, list, 5), 1);
    EXPECT_EQ(DEVRM_PMGR_BindPclToTrunkPort(unit, list, 5), 0) << "again";
    receive({unit, 5});
    EXPECT_EQ(counts(1), (Counts{0, 0, 0}));
    receive({unit, 4});
    EXPECT_EQ(counts(1), (Counts{1, 0, 0}));
    EXPECT_EQ(DEV_SWDRV_PMGR_SetTrunkPortMembers(unit, 5, ports_3_and_5), 1);
    receive({unit, 5});
    EXPECT_EQ(counts(1), (Counts{2, 0, 0})) << "of a new member";
    receive(port);
    EXPECT_EQ(counts(1), (Counts{3, 0, 0})) << "once, however often the list is bound";
    EXPECT_EQ(DEVRM_PMGR_UnbindPclToTrunkPort(unit, list, 5), 1);
    receive({unit, 5});
    EXPECT_EQ(counts(1), (Counts{3, 0, 0}));

    // A trunk takes along what is bound to it.
    EXPECT_EQ(DEVRM_PMGR_BindPclToTrunkPort(unit, list, 5), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_DestroyTrunk(5), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateTrunk(5), 1);
    EXPECT_EQ(DEVRM_PMGR_UnbindPclToTrunkPort(unit, list, 5), 0);
}

TEST_F(DevrmRulesTest, StartsAgainWithFieldInit)
{
    EXPECT_EQ(DEVRM_PMGR_AllocateRule(unit, list, 1, 0, 0), 1);
    DEVRM_PMGR_FieldInit();
    EXPECT_EQ(DEVRM_PMGR_DestroyRule(unit, list, 1), 0);
    EXPECT_EQ(DEVRM_PMGR_CreatePcl(unit, list, 1, 0, 1024), 1);
    EXPECT_EQ(DEVRM_PMGR_BindPclToPort(unit, list, port.port), 1);
    EXPECT_EQ(receive(), (Treatment{.drop = true})) << "there is no rule, and the list denies";
}

TEST_F(DevrmRulesTest, DescribesTheDevice)
{
    EXPECT_EQ(DEVRM_PMGR_GetNumberOfChips(), 2U);
    uint32_t info = 0;
    EXPECT_EQ(DEVRM_PMGR_GetDeviceInfo(&info), 1);
    EXPECT_EQ(info, 0x00'02'1C'02U) << "2 units of 28 ports and 2 chips";
    EXPECT_EQ(DEVRM_PMGR_CheckSoc(0), 1);
    EXPECT_EQ(DEVRM_PMGR_CheckSoc(1), 0);
    EXPECT_EQ(DEVRM_PMGR_GetNumberOfEXCLUDEVLAN(), 0U);
}

// In the wrong place is a unit, a list that does not have the rule, a rule.
TEST_F(DevrmRulesTest, RefusesWhatDoesNotExist)
{
    const auto meter = record_of<RuleMeter>({0, 0, 0, 0, 0, 0, 0, 0, 1});
    const auto empty_meter = record_of<RuleMeter>({8});
    const auto unknown_action = record_of<RuleActionBlock>({128});
    uint32_t word = 0;
    RulePattern pattern;
    DEVRM_LIB_RulePatternInit(&pattern);
    RulePattern unknown_field = pattern;
    unknown_field.qualifyFlags = 0x10;
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateTrunk(5), 1);
    expect_checked(DEVRM_PMGR_CreatePcl, {unit, 8, 0, 0, 1}, {3, list, 2, 0, 1021});
    for (const uint32_t no_unit : {0U, 1U, 3U}) {
        for (const uint32_t no_list : {8U, 9U}) {
            expect_checked(DEVRM_PMGR_AllocateRule, {unit, list, 1, 0, 0}, {3, 9, 1, 0, 0x00030000});
            EXPECT_EQ(DEVRM_PMGR_AllocateRule(unit, list, 1, 0, 0), 0) << "it is there";
            EXPECT_EQ(DEVRM_PMGR_AllocateRule(unit, 8, 1, 0, 0), 0) << "the number is taken, if in another list";
            expect_checked(DEVRM_PMGR_SetRule, {unit, list, 1, &pattern, &no_action},
                           {no_unit, no_list, 2, &unknown_field, &unknown_action});
            expect_checked(DEVRM_PMGR_UpdateMeter, {unit, list, 1, &meter}, {no_unit, no_list, 2, &empty_meter});
            expect_checked(DEVRM_PMGR_GetCounter, {unit, list, 1, &word, &word, &word},
                           {no_unit, no_list, 2, &word, &word, &word});
            expect_checked(DEVRM_PMGR_ClearCounter, {unit, list, 1}, {no_unit, no_list, 2});
            EXPECT_EQ(DEVRM_PMGR_ShareMeter(unit, 1, 2), 0) << "no meter";
            expect_checked(DEVRM_PMGR_DestroyAction, {unit, list, 1}, {no_unit, no_list, 2});
            EXPECT_EQ(DEVRM_PMGR_DestroyAction(unit, list, 1), 0) << "no action";
            expect_checked(DEVRM_PMGR_DestroyRule, {unit, list, 1}, {no_unit, no_list, 2});
        }
    }

    expect_checked(DEVRM_PMGR_BindPclToPort, {unit, list, 4}, {3, 9, 29});
    EXPECT_EQ(DEVRM_PMGR_BindPclToPort(unit, list, 0), 0);
    EXPECT_EQ(DEVRM_PMGR_BindPclToPort(unit, list, 4), 0) << "bound";
    EXPECT_EQ(DEVRM_PMGR_UnbindPclToPort(unit, list, 1), 0) << "not bound";
    expect_checked(DEVRM_PMGR_BindPclToTrunkPort, {unit, list, 5}, {0, 9, 6});
    EXPECT_EQ(DEVRM_PMGR_UnbindPclToTrunkPort(unit, 8, 5), 0) << "not bound";
}

}  // namespace
}  // namespace quillon::test
