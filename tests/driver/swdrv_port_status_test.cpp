#include <gtest/gtest.h>
#include <stdint.h>

#include <array>
#include <vector>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using BlockWords = std::array<uint32_t, 90>;

struct SwdrvPortStatusTest : SwdrvClientTest {
    using Getter = uint8_t (*)(uint32_t, uint32_t, uint32_t *);
    using BlockGetter = uint8_t (*)(uint32_t, uint32_t, uint32_t, void *);

    static BlockWords block(BlockGetter getter, uint32_t unit, uint32_t first, uint32_t count, uint8_t result = 1)
    {
        BlockWords words;
        words.fill(UINT32_MAX);
        EXPECT_EQ(getter(unit, first, count, words.data()), result) << unit << '/' << first << '+' << count;
        return words;
    }

    // Ports that are all different.
    void unsettle()
    {
        EXPECT_EQ(DEV_SWDRV_PMGR_DisablePortAdmin(1, 2), 1);
        EXPECT_EQ(DEV_SWDRV_PMGR_SetPortForceLinkDownStatus(1, 3, 1), 1);
        EXPECT_EQ(DEV_SWDRV_PMGR_EnablePortCfgFlowCtrl(1, 4), 1);
        EXPECT_EQ(DEV_SWDRV_PMGR_SetPortCfgSpeedDuplex(1, 5, 4), 1);
        EXPECT_EQ(DEV_SWDRV_PMGR_SetPortCfgFlowCtrl(1, 5, 2), 1);
        EXPECT_EQ(DEV_SWDRV_PMGR_DisablePortAutoNeg(1, 5), 1);
        EXPECT_EQ(DEV_SWDRV_PMGR_SetPortAutoNegCapability(1, 6, 0x2), 1);
        model.lock()->lines.find({1, 7})->plugged = false;
    }
};

TEST_F(SwdrvPortStatusTest, AnswersTheSameSinglyAndInBlocks)
{
    unsettle();
    const struct {
        Getter one;
        BlockGetter block;
        std::vector<uint32_t> of_first_ports;  // from port 1 on
    } rows[] = {
        {DEV_SWDRV_PMGR_GetPortLinkStatus, DEV_SWDRV_PMGR_GetAllPortLinkStatus, {1, 0, 0, 1, 1, 1, 0, 1}},
        {DEV_SWDRV_PMGR_GetPortOperSpeedDuplex, DEV_SWDRV_PMGR_GetAllPortOperSpeedDuplex, {6, 0, 0, 6, 4, 1, 0, 6}},
        {DEV_SWDRV_PMGR_GetPortFlowCtrl, DEV_SWDRV_PMGR_GetAllPortFlowCtrl, {0, 0, 0, 3, 2, 0, 0, 0}},
    };
    for (const auto &row : rows) {
        const BlockWords words = block(row.block, 1, 1, 28);
        EXPECT_EQ(words[0], 28U);
        for (uint32_t port = 1; port <= 28; ++port) {
            EXPECT_EQ(words[port], answer(row.one, 1, port)) << port;
        }
        for (uint32_t port = 1; port <= row.of_first_ports.size(); ++port) {
            EXPECT_EQ(words[port], row.of_first_ports[port - 1]) << port;
        }
        for (size_t i = 29; i < words.size(); ++i) {
            EXPECT_EQ(words[i], 0U) << i;
        }
    }
    EXPECT_EQ(answer(DEV_SWDRV_PMGR_GetPortOperSpeedDuplex, 1, 28), 8U);
}

TEST_F(SwdrvPortStatusTest, PutsAllOfItInOneEntry)
{
    unsettle();
    const BlockWords words = block(DEV_SWDRV_PMGR_GetAllPortStatus, 1, 1, 0);
    EXPECT_EQ(words[1], 0x01'00'06'01U);
    EXPECT_EQ(words[2], 0x00'00'00'00U);
    EXPECT_EQ(words[3], 0x01'00'00'00U);
    EXPECT_EQ(words[4], 0x01'03'06'01U);
    EXPECT_EQ(words[5], 0x01'02'04'01U);
    EXPECT_EQ(words[6], 0x01'00'01'01U);
    EXPECT_EQ(words[7], 0x01'00'00'00U);
    EXPECT_EQ(words[28], 0x01'00'08'01U);
}

TEST_F(SwdrvPortStatusTest, TakesThePortsThatAreAskedFor)
{
    unsettle();
    const struct {
        uint32_t unit, first, count;
        std::vector<uint32_t> words;  // the first ones; none where it is refused
    } rows[] = {
        {1, 2, 3, {3, 0, 0, 1, 0}},
        {1, 28, 1, {1, 1, 0}},
        {1, 27, 0, {2, 1, 1, 0}},
        {2, 2, 3, {3, 1, 1, 1, 0}},
        {1, 27, 3, {}},
        {1, 1, 29, {}},
        {1, 0, 1, {}},
        {1, 29, 0, {}},
        {0, 1, 1, {}},
        {3, 1, 0, {}},
        {1, 2, UINT32_MAX, {}},
    };
    for (const auto &row : rows) {
        const BlockWords words =
            block(DEV_SWDRV_PMGR_GetAllPortLinkStatus, row.unit, row.first, row.count, row.words.empty() ? 0 : 1);
        BlockWords expected{};
        std::copy(row.words.begin(), row.words.end(), expected.begin());
        EXPECT_EQ(words, expected) << row.unit << '/' << row.first << '+' << row.count;
    }
}

// Ports as the chips of the local unit number them.
TEST_F(SwdrvPortStatusTest, FindsPortsByDevice)
{
    unsettle();
    const struct {
        uint32_t device, port, result, link;
    } rows[] = {{0, 1, 1, 1}, {0, 2, 1, 0},  {0, 14, 1, 1}, {1, 2, 1, 1}, {1, 14, 1, 1},
                {0, 0, 0, 0}, {0, 15, 0, 0}, {1, 15, 0, 0}, {2, 1, 0, 0}};
    for (const auto &row : rows) {
        uint32_t link = UINT32_MAX;
        EXPECT_EQ(DEV_SWDRV_PMGR_GetPortLinkStatusByDeviceId(row.device, row.port, &link), row.result);
        EXPECT_EQ(link, row.link) << row.device << '/' << row.port;
    }
    EXPECT_EQ(DEV_SWDRV_PMGR_DisablePortAdmin(1, 16), 1);
    uint32_t link = UINT32_MAX;
    EXPECT_EQ(DEV_SWDRV_PMGR_GetPortLinkStatusByDeviceId(1, 2, &link), 1);
    EXPECT_EQ(link, 0U);
}

TEST_F(SwdrvPortStatusTest, KeepsWhatOfTheLinkScanNobodyReads)
{
    const std::string before = served.logged();
    expect_changes({
        {"HiGig ports", [] { return DEV_SWDRV_PMGR_EnableHgPortAdmin(); },
         [](const driver::ChipState &chips) { return chips.hg_ports_admin_up; }},
        {"registered", [] { return DEV_SWDRV_PMGR_LINKSCAN_Register(); },
         [](const driver::ChipState &chips) { return chips.link_scan.registered; }},
    });
    DEV_SWDRV_PMGR_LinkScan_Update();
    EXPECT_EQ(model.lock()->chips.link_scan.passes, 1U);
    EXPECT_EQ(served.logged(), before);
}

}  // namespace
}  // namespace quillon::test
