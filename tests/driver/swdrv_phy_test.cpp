#include <gtest/gtest.h>
#include <stdint.h>
#include <string.h>

#include <string>
#include <vector>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::LogicalPort;
using enum driver::Setting;

constexpr LogicalPort copper{2, 3};

constexpr uint8_t read = 0;
constexpr uint8_t write = 1;
constexpr uint8_t set_bits = 2;
constexpr uint8_t clear_bits = 3;

// As the documentation lays it out.
struct Operation {
    uint8_t kind;
    uint8_t reg;
    uint16_t page;
    uint16_t value;
};

uint8_t run(const std::vector<Operation> &operations, const LogicalPort &port = copper)
{
    std::vector<uint8_t> bytes;
    for (const Operation &operation : operations) {
        bytes.insert(bytes.end(), {operation.kind, operation.reg, static_cast<uint8_t>(operation.page),
                                   static_cast<uint8_t>(operation.page >> 8), static_cast<uint8_t>(operation.value),
                                   static_cast<uint8_t>(operation.value >> 8)});
    }
    return DEV_SWDRV_PMGR_DoPHYRegsTransactions(port.unit, port.port, bytes.data(), operations.size());
}

struct SwdrvPhyTest : SwdrvClientTest {
    static uint16_t reg(uint32_t number, uint32_t page = 0)
    {
        uint16_t value = 0xEEEE;
        EXPECT_EQ(DEV_SWDRV_PMGR_GetMIIPhyRegByPage(copper.unit, copper.port, page, number, 0, 0, 0, &value), 1)
            << number;
        return value;
    }

    static uint32_t link() { return answer(DEV_SWDRV_PMGR_GetPortLinkStatus, copper.unit, copper.port); }
    static uint32_t speed() { return answer(DEV_SWDRV_PMGR_GetPortOperSpeedDuplex, copper.unit, copper.port); }
};

TEST_F(SwdrvPhyTest, KeepsSettings)
{
    constexpr uint8_t mac[] = {2, 0, 0, 0, 0, 1};
    constexpr uint8_t group[] = {1, 0, 0x5E, 0, 0, 1};
    constexpr uint8_t nobody[6] = {};
    constexpr uint64_t blocked[] = {0x0800'0001, 0};
    constexpr uint64_t port_29[] = {1 << 28, 0};
    constexpr uint64_t port_65[] = {0, 1};
    expect_kept(DEV_SWDRV_PMGR_SetPortPowerSave, {2, 3, 0, 1}, {3, 29, 2, 2}, power_saving, {2, 3}, {0, 1});
    expect_kept(DEV_SWDRV_PMGR_SetPortAuthMode, {2, 3, 2}, {3, 29, 0}, port_control, {2, 3}, {2});
    expect_kept(DEV_SWDRV_PMGR_SetPortAuthMode, {2, 3, 3}, {3, 29, 4}, port_control, {2, 3}, {3});
    expect_kept(DEV_SWDRV_PMGR_SetPortMacAddr, {2, 3, mac}, {3, 29, group}, port_mac_address, {2, 3},
                {2, 0, 0, 0, 0, 1});
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortMacAddr(2, 3, nobody), 0);
    expect_kept(DEV_SWDRV_PMGR_SetPortEgressBlock, {2, 3, blocked}, {3, 29, port_29}, egress_block, {2, 3},
                {0x0800'0001, 0});
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortEgressBlock(2, 3, port_65), 0);
    expect_kept(DEV_SWDRV_PMGR_SetPortTrafficTxRx, {2, 3, 1}, {3, 29, 2}, port_traffic, {2, 3}, {1});
    expect_kept(DEV_SWDRV_PMGR_SetPortStationMoveAction, {2, 3, 2, 1}, {3, 29, 3, 2}, station_move, {2, 3}, {2, 1});
    expect_kept(DEV_SWDRV_PMGR_SetPortSfpConnector, {1, 21, 0x22}, {3, 1, 0x22}, sfp_connector, {1, 21}, {0x22});
    expect_kept(DEV_SWDRV_PMGR_SetCpuRateLimit, {1000, 50}, {1000, 50}, cpu_rate_limit, {}, {1000, 50});
    expect_kept(DEV_SWDRV_PMGR_SetCpuPortRate, {64, 2}, {64, 3}, cpu_port_rate, {}, {64, 2});
    expect_kept(DEV_SWDRV_PMGR_SocPciWrite, {1, 0xFFFC, 7}, {2, 0x10000, 7}, pci_register, {1, 0xFFFC}, {7});
    EXPECT_EQ(DEV_SWDRV_PMGR_SocPciWrite(1, 2, 1), 0U);
}

TEST_F(SwdrvPhyTest, AnswersWithWhatWasSet)
{
    EXPECT_EQ(answer<uint16_t>(DEV_SWDRV_PMGR_Get1000BaseTTransmitterType, 2, 3), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_Set1000BaseTTransmitterType(2, 3, 1), 1);
    EXPECT_EQ(answer<uint16_t>(DEV_SWDRV_PMGR_Get1000BaseTTransmitterType, 2, 3), 1);

    const auto fec = [](uint32_t port) { return answer(DEV_SWDRV_PMGR_GetPortFecStatus, 1, port); };
    EXPECT_EQ(fec(28), 0U);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortFec(1, 28, 1), 1);
    EXPECT_EQ(fec(28), 1U);
    EXPECT_EQ(fec(27), 0U);

    constexpr uint32_t loopback_of_1_28 = 1 << 16 | 28;
    EXPECT_EQ(DEV_SWDRV_PMGR_IsPortLoopbacking(loopback_of_1_28), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_EnableInternalLoopback(loopback_of_1_28), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_IsPortLoopbacking(loopback_of_1_28), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_IsPortLoopbacking(2 << 16 | 28), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_DisableInternalLoopback(loopback_of_1_28), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_IsPortLoopbacking(loopback_of_1_28), 0);

    EXPECT_EQ(answer(DEV_SWDRV_PMGR_GetAutoMDIXmode, 2, 3), 3U);
    EXPECT_EQ(DEV_SWDRV_PMGR_UpdatePortMapping(2), 1);
    char version[6];
    EXPECT_EQ(DEV_SWDRV_PMGR_GetCPLDSoftwareVersion(1, version), 1);
    EXPECT_STREQ(version, "01.04");
    const struct {
        uint32_t port, ability;
    } rows[] = {{20, 0x8836}, {24, 0x2800}, {28, 0x0801}};
    for (const auto &row : rows) {
        EXPECT_EQ(answer(DEV_SWDRV_PMGR_GetPortAbility, 1, row.port), row.ability) << row.port;
    }
}

TEST_F(SwdrvPhyTest, RefusesWhatMeansNothing)
{
    uint32_t word = 0;
    uint16_t half_word = 0;
    char text[6];
    expect_checked(DEV_SWDRV_PMGR_Set1000BaseTPortTestMode, {2, 3, 4}, {2, 21, 5});
    expect_checked(DEV_SWDRV_PMGR_Get1000BaseTPortTestMode, {2, 3, &half_word}, {2, 21, &half_word});
    expect_checked(DEV_SWDRV_PMGR_Set1000BaseTTransmitterType, {2, 3, 1}, {2, 21, 2});
    expect_checked(DEV_SWDRV_PMGR_Get1000BaseTTransmitterType, {2, 3, &half_word}, {2, 21, &half_word});
    expect_checked(DEV_SWDRV_PMGR_GetAutoMDIXmode, {2, 3, &word}, {2, 21, &word});
    expect_checked(DEV_SWDRV_PMGR_EnableInternalLoopback, {1 << 16 | 28}, {1 << 16 | 29});
    expect_checked(DEV_SWDRV_PMGR_UpdatePortMapping, {2}, {0});
    expect_checked(DEV_SWDRV_PMGR_GetCPLDSoftwareVersion, {2, text}, {3, text});
    expect_checked(DEV_SWDRV_PMGR_SetPortFec, {1, 28, 1}, {3, 24, 2});
    expect_checked(DEV_SWDRV_PMGR_GetPortAbility, {1, 28, &word}, {1, 29, &word});
    expect_checked(DEV_SWDRV_PMGR_GetMIIPhyRegByPage, {2, 3, 31, 31, 0, 0, 0, &half_word},
                   {2, 21, 32, 32, 0, 0, 1, &half_word});
    EXPECT_EQ(run({{read, 0, 0, 0}}), 1);
    EXPECT_EQ(run({{4, 16, 0, 0}}), 0);
    EXPECT_EQ(run({{read, 0, 0, 0}}, {2, 21}), 0);
    EXPECT_EQ(run({{read, 0, 0, 0}}, {2, 29}), 0);
}

TEST_F(SwdrvPhyTest, ShowsThePortInItsRegisters)
{
    const struct {
        uint32_t number;
        uint16_t up, pulled;
    } rows[] = {
        {0, 0x1140, 0x1140}, {1, 0x796D, 0x7949}, {4, 0x0DE1, 0x0DE1}, {5, 0x4DE1, 0},
        {6, 0x0001, 0},      {9, 0x0200, 0x0200}, {10, 0x3800, 0},     {15, 0x2000, 0x2000},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(reg(row.number), row.up) << row.number;
    }
    model.lock()->lines.find(copper)->plugged = false;
    for (const auto &row : rows) {
        EXPECT_EQ(reg(row.number), row.pulled) << row.number << " without a cable";
    }

    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortCfgSpeedDuplex(2, 3, 3), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_DisablePortAutoNeg(2, 3), 1);
    EXPECT_EQ(reg(0), 0x2000);
    EXPECT_EQ(DEV_SWDRV_PMGR_EnableInternalLoopback(2 << 16 | 3), 1);
    EXPECT_EQ(reg(0), 0x6000);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortAutoNegCapability(2, 3, 0x0224), 1);
    EXPECT_EQ(reg(4), 0x0941);
    EXPECT_EQ(reg(9), 0);
}

TEST_F(SwdrvPhyTest, SetsThePortByItsRegisters)
{
    EXPECT_EQ(run({{clear_bits, 9, 0, 0x0200}, {write, 4, 0, 0x0141}}), 1);
    EXPECT_EQ(speed(), 4U) << "of 10BASE-T and 100BASE-TX full duplex";
    EXPECT_EQ(run({{write, 0, 0, 0x0100}}), 1);
    EXPECT_EQ(speed(), 2U);

    // Without power, and in a test mode, there is no link.
    EXPECT_EQ(run({{set_bits, 0, 0, 0x0800}}), 1);
    EXPECT_EQ(link(), 0U);
    EXPECT_EQ(run({{clear_bits, 0, 0, 0x0800}}), 1);
    EXPECT_EQ(link(), 1U);
    EXPECT_EQ(DEV_SWDRV_PMGR_Set1000BaseTPortTestMode(2, 3, 4), 1);
    EXPECT_EQ(reg(9), 0x8000);
    EXPECT_EQ(link(), 0U);
    EXPECT_EQ(run({{write, 9, 0, 0x3A00}}), 1);
    EXPECT_EQ(answer<uint16_t>(DEV_SWDRV_PMGR_Get1000BaseTPortTestMode, 2, 3), 1);
    EXPECT_EQ(reg(9), 0x3A00);

    // A reset puts back what there was at the beginning.
    EXPECT_EQ(run({{write, 17, 2, 0xABCD}, {write, 0, 0, 0x8000}}), 1);
    EXPECT_EQ(reg(0), 0x1140);
    EXPECT_EQ(reg(4), 0x0DE1);
    EXPECT_EQ(reg(9), 0x0200);
    EXPECT_EQ(reg(17, 2), 0);
    EXPECT_EQ(link(), 1U);
}

TEST_F(SwdrvPhyTest, KeepsTheOtherRegistersByPage)
{
    EXPECT_EQ(run({{write, 17, 0, 0x1234},
                   {write, 17, 31, 0x00F0},
                   {set_bits, 17, 31, 0x000F},
                   {clear_bits, 17, 31, 0x0018},
                   {write, 1, 31, 0x5678},
                   {write, 1, 0, 0xFFFF}}),
              1);
    EXPECT_EQ(reg(17), 0x1234);
    EXPECT_EQ(reg(17, 31), 0x00E7);
    EXPECT_EQ(reg(1, 31), 0x5678);
    EXPECT_EQ(reg(1), 0x796D) << "can only be read";

    // All operations of a request or none.
    for (const Operation &refused : std::initializer_list<Operation>{
             {write, 32, 0, 0}, {write, 0, 32, 0}, {4, 17, 0, 0}, {write, 9, 0, 0xA000}, {write, 0, 0, 0x2040}}) {
        EXPECT_EQ(run({{write, 17, 0, 0}, {write, 0, 0, 0x0800}, refused}), 0);
    }
    EXPECT_EQ(reg(17), 0x1234);
    EXPECT_EQ(link(), 1U);
}

TEST_F(SwdrvPhyTest, DiagnosesCables)
{
    // Four pairs' states, four lengths, accuracy, link.
    const auto words = [](const auto &record) {
        std::vector<uint32_t> all(sizeof record / sizeof(uint32_t));
        memcpy(all.data(), &record, sizeof record);
        return all;
    };
    CableDiagRecord record;
    CableDiagResultRecord result;
    EXPECT_EQ(DEV_SWDRV_PMGR_GetCableDiagResult(2, 3, &result), 0) << "before the first one";
    EXPECT_EQ(words(result), Words(6));
    EXPECT_EQ(DEV_SWDRV_PMGR_GetCableDiag(2, 3, &record), 1);
    EXPECT_EQ(words(record), (Words{0x01010101, 1000, 1000, 1000, 1000, 50, 1}));

    model.lock()->lines.find(copper)->plugged = false;
    EXPECT_EQ(DEV_SWDRV_PMGR_GetCableDiagResult(2, 3, &result), 1);
    EXPECT_EQ(words(result), (Words{0x01010101, 1000, 1000, 1000, 1000, 50})) << "as it was found";
    EXPECT_EQ(DEV_SWDRV_PMGR_GetCableDiag(2, 3, &record), 1);
    EXPECT_EQ(words(record), (Words{0x02020202, 0, 0, 0, 0, 50, 0}));
    EXPECT_EQ(DEV_SWDRV_PMGR_GetCableDiagResult(2, 3, &result), 1);
    EXPECT_EQ(words(result), (Words{0x02020202, 0, 0, 0, 0, 50}));
    EXPECT_EQ(run({{write, 0, 0, 0x8000}}), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_GetCableDiagResult(2, 3, &result), 1) << "also after a reset of the PHY";
    EXPECT_EQ(DEV_SWDRV_PMGR_GetCableDiag(2, 21, &record), 0) << "of a fibre";
    EXPECT_EQ(words(record), Words(7));
}

TEST_F(SwdrvPhyTest, MeasuresTemperatures)
{
    EXPECT_EQ(answer(DEV_SWDRV_PMGR_GetAllPortAverageTemperature), 45U);
    EXPECT_EQ(answer(DEV_SWDRV_PMGR_GetDeviceTemperature), 55U);
    EXPECT_EQ(DEV_SWDRV_PMGR_DisableAllPortAdmin(), 1);
    EXPECT_EQ(answer(DEV_SWDRV_PMGR_GetAllPortAverageTemperature), 35U);
    EXPECT_EQ(answer(DEV_SWDRV_PMGR_GetDeviceTemperature), 45U);
}

}  // namespace
}  // namespace quillon::test
