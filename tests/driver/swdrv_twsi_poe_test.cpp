#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdint.h>

#include <array>
#include <numeric>
#include <vector>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::PoeLed;
using testing::Each;

using Bytes = std::vector<uint8_t>;

constexpr uint8_t sensor = 0x48;
constexpr uint8_t sfp = 0x50;
constexpr uint8_t sfp_diagnostics = 0x51;
constexpr uint8_t eeprom = 0x57;

struct SwdrvTwsiPoeTest : SwdrvClientTest {
    SwdrvTwsiPoeTest()
    {
        *models.twsi.lock() = driver::TwsiBuses();
        model.lock()->poe = {};
    }

    // Without an offset: from where the last access ended.
    static Bytes read_on(uint8_t bus, uint8_t device, uint8_t len)
    {
        Bytes data(len, 0xEE);
        EXPECT_EQ(DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(bus, device, 0, 0, 0, 0, len, data.data()), 1);
        return data;
    }

    static Bytes read(uint8_t bus, uint8_t device, uint32_t offset, uint8_t two_bytes, uint8_t len)
    {
        Bytes data(len, 0xEE);
        EXPECT_EQ(DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(bus, device, 0, 1, offset, two_bytes, len, data.data()), 1);
        return data;
    }
};

TEST_F(SwdrvTwsiPoeTest, ReadsBackWhatWasWritten)
{
    Bytes data(255);
    std::iota(data.begin(), data.end(), uint8_t{1});
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx(1, eeprom, 0, 1, 0x1F01, 1, data.data(), 255), 1);
    EXPECT_EQ(read(1, eeprom, 0x1F01, 1, 255), data);
    EXPECT_THAT(read(1, eeprom, 0x1F00, 1, 1), Each(0xFF)) << "what is in front of it";
    EXPECT_THAT(read(0, eeprom, 0x1F01, 1, 255), Each(0xFF)) << "the other bus";

    // The first bus is the one of the plain requests.
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiDataWrite(eeprom, 0, 1, 16, 1, data.data(), 3), 1);
    Bytes plain(3);
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiDataRead(eeprom, 0, 1, 16, 1, 3, plain.data()), 1);
    EXPECT_EQ(plain, (Bytes{1, 2, 3}));
    EXPECT_EQ(read(0, eeprom, 16, 1, 3), plain);

    Bytes page(256, 0xA5);
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiWrite(eeprom, 0x100, page.data(), 256), 1);
    Bytes begin(255);
    Bytes last(2);
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiRead(eeprom, 0x100, begin.data(), 255), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiRead(eeprom, 0x1FF, last.data(), 2), 1);
    EXPECT_THAT(begin, Each(0xA5));
    EXPECT_EQ(last, (Bytes{0xA5, 0xFF}));
}

TEST_F(SwdrvTwsiPoeTest, GoesOnWhereTheLastAccessEnded)
{
    const Bytes data = {1, 2, 3, 4, 5};
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx(0, eeprom, 0, 1, 0, 1, data.data(), 2), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx(0, eeprom, 0, 0, 0, 0, data.data() + 2, 3), 1);
    EXPECT_EQ(read(0, eeprom, 0, 1, 1), (Bytes{1}));
    EXPECT_EQ(read_on(0, eeprom, 2), (Bytes{2, 3}));
    EXPECT_EQ(read_on(0, eeprom, 3), (Bytes{4, 5, 0xFF}));
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiInit(), 1);
    EXPECT_EQ(read_on(0, eeprom, 5), data);
}

TEST_F(SwdrvTwsiPoeTest, HasRegisters)
{
    uint32_t value = 0;
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiRegisterRead(0x0100 | sensor, 0, &value), 1);
    EXPECT_EQ(value, 0x1F80U) << "31.5 degrees";
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiRegisterWrite(0x0100 | sensor, 3, 0x4640), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiRegisterRead(0x0100 | sensor, 3, &value), 1);
    EXPECT_EQ(value, 0x4640U);
    EXPECT_EQ(read(1, sensor, 3, 0, 2), (Bytes{0x46, 0x40})) << "the highest byte first";

    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiRegisterWrite(eeprom, 0x1234, 0x99), 1);
    EXPECT_EQ(read(0, eeprom, 0x1234, 1, 1), (Bytes{0x99}));
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiRegisterWrite(sfp_diagnostics, 247, 0x42), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiRegisterRead(sfp_diagnostics, 247, &value), 1);
    EXPECT_EQ(value, 0x42U);
}

// As a program that lists modules reads it.
TEST_F(SwdrvTwsiPoeTest, TellsWhichModuleIsPlugged)
{
    for (const uint8_t bus : {uint8_t{0}, uint8_t{1}}) {
        const Bytes page = read(bus, sfp, 0, 0, 128);
        const auto text = [&page](size_t first, size_t last) {
            return std::string(page.begin() + static_cast<ptrdiff_t>(first),
                               page.begin() + static_cast<ptrdiff_t>(last) + 1);
        };
        const auto sum = [&page](size_t first, size_t last) {
            return static_cast<uint8_t>(std::accumulate(page.begin() + static_cast<ptrdiff_t>(first),
                                                        page.begin() + static_cast<ptrdiff_t>(last) + 1, 0U));
        };
        EXPECT_EQ(page[0], 3);
        EXPECT_EQ(text(20, 35), "QUILLON         ");
        EXPECT_EQ(text(68, 83), bus == 0 ? "Q0000001        " : "Q0000002        ");
        EXPECT_EQ(page[63], sum(0, 62));
        EXPECT_EQ(page[95], sum(64, 94));
    }
    EXPECT_EQ(read(0, sfp_diagnostics, 96, 0, 4), (Bytes{35, 0, 0x80, 0xE8}));
}

TEST_F(SwdrvTwsiPoeTest, RefusesWhatNoDeviceAcknowledges)
{
    static const uint8_t data[256] = {0xAA, 0xBB};
    static uint8_t out[256];
    static uint32_t value;
    expect_refused({
        {"no device", [] { return DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(0, 0x20, 0, 1, 0, 0, 1, out); }},
        {"no device to write to", [] { return DEV_SWDRV_PMGR_TwsiWrite(0x20, 0, data, 1); }},
        {"no device to read from", [] { return DEV_SWDRV_PMGR_TwsiRead(0x20, 0, out, 0); }},
        {"no bus", [] { return DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(2, eeprom, 0, 1, 0, 1, 1, out); }},
        {"no bus of a register", [] { return DEV_SWDRV_PMGR_TwsiRegisterRead(0x0200 | eeprom, 0, &value); }},
        {"address of 10 bits", [] { return DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(0, eeprom, 1, 1, 0, 1, 1, out); }},
        {"offset or not", [] { return DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(0, eeprom, 0, 2, 0, 1, 1, out); }},
        {"short offset", [] { return DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(0, eeprom, 0, 1, 0, 0, 1, out); }},
        {"long offset", [] { return DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx(0, sensor, 0, 1, 2, 1, data, 2); }},
        {"behind the end", [] { return DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(0, eeprom, 0, 1, 8190, 1, 3, out); }},
        {"far behind it", [] { return DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(0, eeprom, 0, 1, ~0U, 1, 1, out); }},
        {"write over the end", [] { return DEV_SWDRV_PMGR_TwsiWrite(eeprom, 8191, data, 2); }},
        {"write of a measurement", [] { return DEV_SWDRV_PMGR_TwsiRegisterWrite(sensor, 0, 0x2000); }},
        {"write of an identity", [] { return DEV_SWDRV_PMGR_TwsiRegisterWrite(sfp, 20, 'X'); }},
        {"write into a measurement", [] { return DEV_SWDRV_PMGR_TwsiWrite(sfp_diagnostics, 127, data, 2); }},
        {"more than a register has", [] { return DEV_SWDRV_PMGR_TwsiRegisterWrite(eeprom, 8191, 0x100); }},
    });
    EXPECT_EQ(read(0, eeprom, 8191, 1, 1), (Bytes{0xFF}));
    EXPECT_EQ(read(0, sfp_diagnostics, 128, 0, 1), (Bytes{0}));
}

TEST_F(SwdrvTwsiPoeTest, EchoesTheCommandsOfPoe)
{
    const uint8_t command[] = {1, 2, 3};
    Bytes answer(5, 0xEE);
    uint32_t status = UINT32_MAX;
    EXPECT_EQ(DEV_SWDRV_PMGR_MSCC_POE_Write(command, 3, &status), 0);
    EXPECT_EQ(status, 1U);
    EXPECT_EQ(DEV_SWDRV_PMGR_MSCC_POE_Init(), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_MSCC_POE_Read(answer.data(), 5, &status), 0);
    EXPECT_EQ(status, 2U);
    EXPECT_THAT(answer, Each(0));

    EXPECT_EQ(DEV_SWDRV_PMGR_MSCC_POE_Write(command, 3, &status), 1);
    EXPECT_EQ(status, 0U);
    EXPECT_EQ(DEV_SWDRV_PMGR_MSCC_POE_Write(command, 0, &status), 0);
    EXPECT_EQ(status, 2U);
    EXPECT_EQ(DEV_SWDRV_PMGR_MSCC_POE_Read(answer.data(), 5, &status), 1);
    EXPECT_EQ(status, 0U);
    EXPECT_EQ(answer, (Bytes{1, 2, 3, 0, 0}));
    Bytes begin(2);
    EXPECT_EQ(DEV_SWDRV_PMGR_MSCC_POE_Read(begin.data(), 2, &status), 1);
    EXPECT_EQ(begin, (Bytes{1, 2}));

    EXPECT_EQ(DEV_SWDRV_PMGR_MSCC_POE_Exit(), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_MSCC_POE_Read(answer.data(), 5, &status), 0);
    EXPECT_EQ(status, 1U);
}

TEST_F(SwdrvTwsiPoeTest, SetsLeds)
{
    EXPECT_EQ(DEV_SWDRV_PMGR_SetSysPoeLEDStatus(1, 2), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetSysPoeLEDStatus(1, 3), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetSysPoeLEDStatus(3, 0), 0);
    EXPECT_EQ(model.lock()->poe.led, PoeLed::blinking);

    const uint8_t pattern[] = {1};
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortForceLEDStatus(2, 3, pattern, 1, 1), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_PhyLightPortLedNormal(), 1);
    EXPECT_EQ(*model.lock()->chips.overrides.find({2, 3}), driver::PortOverrides{});
}

}  // namespace
}  // namespace quillon::test
