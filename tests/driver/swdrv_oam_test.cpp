#include <gtest/gtest.h>
#include <stdint.h>

#include <numeric>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::OamEvent;
using enum driver::Setting;

struct SwdrvOamTest : SwdrvClientTest {
    static constexpr OamEntryRecord record = {{1, 2, 3}};
    static constexpr TrunkHashCrcRecord crc = {{4, 5, 6}};
};

TEST_F(SwdrvOamTest, KeepsWhatIsSet)
{
    Words crc_bytes(52);
    std::iota(crc_bytes.begin(), crc_bytes.begin() + 3, 4U);
    expect_kept(DEV_SWDRV_PMGR_SetOamPduToCpu, {2, 28, 1}, {3, 29, 2}, oam_pdu_to_cpu, {2, 28}, {1});
    expect_kept(DEV_SWDRV_PMGR_SetOamLoopback, {1, 1, 1}, {0, 29, 2}, oam_loopback, {1, 1}, {1});
    expect_kept(DEV_SWDRV_PMGR_SetOamLoopback, {1, 1, 0}, {1, 1, 0}, oam_loopback, {1, 1}, {0});
    expect_kept(DEV_SWDRV_PMGR_SetOamEnable, {1, 1}, {2, 2}, oam_enabled, {1}, {1});
    expect_kept(DEV_SWDRV_PMGR_SetOamAgingDaemonEnable, {0, 1}, {2, 2}, oam_aging_daemon, {0}, {1});
    expect_kept(DEV_SWDRV_PMGRSetOamOpcodeProfilePktCmdEntry, {1, 7, 255, 1, 3}, {2, 8, 256, 2, 4}, oam_opcode_command,
                {1, 7, 255, 1}, {3});
    expect_kept(DEV_SWDRV_PMGR_SetOamAgingPeriodEntry, {1, 7, 0, 999'999'999}, {2, 8, 0, 1'000'000'000},
                oam_aging_period, {1, 7}, {0, 999'999'999});
    EXPECT_EQ(DEV_SWDRV_PMGR_SetOamAgingPeriodEntry(1, 7, 0, 0), 0) << "no time";
    expect_kept(DEV_SWDRV_PMGR_SetOamKeepaliveForPacketCommandEnable, {0, 3, 1}, {2, 4, 2}, oam_keepalive_command,
                {0, 3}, {1});
    expect_kept(DEV_SWDRV_PMGR_SetOamExceptionConfig, {0, 6, 2, 1}, {2, 7, 4, 2}, oam_detection, {0, 6}, {2, 1});
    expect_kept(DEV_SWDRV_PMGR_SetOamExceptionRecoveryConfig, {0, 6, 1}, {2, 0, 4}, oam_recovery, {0, 6}, {1});
    expect_kept(DEV_SWDRV_PMGR_SetTrunkHashGlobalMode, {3}, {4}, trunk_hash_mode, {}, {3});
    expect_kept(DEV_SWDRV_PMGR_SetTrunkHashCrcEntry, {4, 63, &crc}, {5, 64, &crc}, trunk_hash_crc, {4, 63}, crc_bytes);
    DEV_SWDRV_PMGR_Receive_All(1);
    EXPECT_TRUE(kept(receive_all, {}, {1})(model.lock()->chips));
}

TEST_F(SwdrvOamTest, TellsAtWhichEntriesExceptionsWereFound)
{
    constexpr uint8_t egress = 1;
    constexpr uint32_t rdi = 6;
    const auto groups = [](uint32_t module_id, uint8_t engine, uint32_t event) {
        uint64_t status = 99;
        EXPECT_EQ(DEV_SWDRV_PMGR_GetOamExceptionGroupStatus(module_id, engine, event, &status), 1);
        return status;
    };
    const auto entries = [](uint32_t module_id, uint32_t group) {
        uint32_t status = 99;
        EXPECT_EQ(DEV_SWDRV_PMGR_GetOamExceptionStatus(module_id, egress, rdi, group, &status), 1);
        return status;
    };
    const auto detect = [this](uint32_t entry) {
        return model.lock()->chips.oam_entries[egress].detect(entry, OamEvent::remote_defect);
    };
    // The second chip of unit 2 has module id 4.
    for (const uint32_t entry : {0U, 31U, 32U, 2047U}) {
        expect_checked(DEV_SWDRV_PMGR_SetOamEntry, {egress, entry, 2, 1, &record}, {2, 2048, 3, 2, &record});
    }
    EXPECT_EQ(DEV_SWDRV_PMGR_SetOamEntry(egress, 1, 1, 0, &record), 1);
    EXPECT_EQ(model.lock()->chips.oam_entries[egress].find(31)->settings[2], 3);
    EXPECT_EQ(groups(4, egress, rdi), 0U);

    for (const uint32_t entry : {0U, 31U, 2047U, 1U}) {
        EXPECT_TRUE(detect(entry));
    }
    EXPECT_FALSE(detect(2));
    EXPECT_EQ(groups(4, egress, rdi), 1 | uint64_t{1} << 63);
    EXPECT_EQ(entries(4, 0), 0x8000'0001U);
    EXPECT_EQ(entries(4, 1), 0U);
    EXPECT_EQ(entries(4, 63), 0x8000'0000U);
    EXPECT_EQ(entries(1, 0), 2U);
    EXPECT_EQ(groups(4, egress, 1), 0U);
    EXPECT_EQ(groups(4, 0, rdi), 0U);

    uint64_t group_status = 0;
    uint32_t entry_status = 0;
    expect_checked(DEV_SWDRV_PMGR_GetOamExceptionGroupStatus, {4, egress, rdi, &group_status},
                   {0, 2, 0, &group_status});
    expect_checked(DEV_SWDRV_PMGR_GetOamExceptionStatus, {4, egress, rdi, 63, &entry_status},
                   {5, 2, 7, 64, &entry_status});

    // What is set anew has nothing found at it.
    EXPECT_EQ(DEV_SWDRV_PMGR_SetOamEntry(egress, 31, 2, 1, &record), 1);
    EXPECT_EQ(entries(4, 0), 1U);
}

TEST_F(SwdrvOamTest, BindsAndUnbinds)
{
    constexpr uint32_t rdi = 6;
    constexpr uint32_t mismerge = 3;
    constexpr uint32_t no_time = 0;
    uint64_t handle = 0;
    uint64_t every = 0;
    EXPECT_EQ(DEV_SWDRV_PMGR_EventBindUnbindOam(1, rdi, 5, &handle), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_EventBindUnbindOam(1, 0, 5, &every), 1);
    EXPECT_NE(handle, 0U);
    EXPECT_NE(handle, every);

    EXPECT_EQ(models.oam_events.raise(OamEvent::remote_defect), 2U);
    EXPECT_EQ(models.oam_events.raise(OamEvent::mismerge), 1U);
    EXPECT_EQ(DEV_SWDRV_PMGR_WaitAndReceiveOam(rdi, handle, nullptr), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_WaitAndReceiveOam(rdi, handle, &no_time), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_WaitAndReceiveOam(mismerge, every, &no_time), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_WaitAndReceiveOam(0, every, &no_time), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_WaitAndReceiveOam(0, every, &no_time), 0);

    expect_refused({
        {"event", [] { return DEV_SWDRV_PMGR_EventBindUnbindOam(1, 7, 5, nullptr); }},
        {"operation", [] { return DEV_SWDRV_PMGR_EventBindUnbindOam(2, rdi, 5, nullptr); }},
        {"tag", [] { return DEV_SWDRV_PMGR_EventBindUnbindOam(0, rdi, 4, nullptr); }},
        {"event that is not bound", [&] { return DEV_SWDRV_PMGR_WaitAndReceiveOam(mismerge, handle, nullptr); }},
        {"event that there is not", [&] { return DEV_SWDRV_PMGR_WaitAndReceiveOam(7, every, nullptr); }},
        {"handle", [&] { return DEV_SWDRV_PMGR_WaitAndReceiveOam(rdi, every + 1, nullptr); }},
    });

    // Bindings are the driver process's, not the chips'.
    EXPECT_EQ(DEV_SWDRV_PMGR_ResetOnDemand(1), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_EventBindUnbindOam(0, rdi, 5, nullptr), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_EventBindUnbindOam(0, rdi, 5, nullptr), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_WaitAndReceiveOam(rdi, handle, nullptr), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_EventBindUnbindOam(0, 0, 5, nullptr), 1);
}

}  // namespace
}  // namespace quillon::test
