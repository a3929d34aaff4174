// Devices behind the switch that application processes use.
#include <stdint.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <thread>

#include "e2e/support/client_test.h"

namespace quillon::test {
namespace {

constexpr uint8_t bus = 1;
constexpr uint8_t eeprom = 0x57;
constexpr uint8_t block_size = 255;

using Block = std::array<uint8_t, block_size>;

Block filled(uint8_t pattern)
{
    Block block;
    block.fill(pattern);
    return block;
}

void write(uint32_t offset, const Block &block)
{
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx(bus, eeprom, 0, 1, offset, 1, block.data(), block_size), 1);
}

Block read(uint32_t offset)
{
    Block block;
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(bus, eeprom, 0, 1, offset, 1, block_size, block.data()), 1);
    return block;
}

// A block at `offset` that is the process's own, and one that all write and that has to be of one of them.
void use_eeprom(uint32_t offset, uint8_t pattern)
{
    for (uint8_t round = 0; round < 20; ++round) {
        Block own = filled(static_cast<uint8_t>(pattern + round));
        own[0] = pattern;
        write(offset, own);
        EXPECT_EQ(read(offset), own) << "not what was written in round " << int{round};
        write(0, filled(pattern));
        const Block shared = read(0);
        EXPECT_EQ(shared, filled(shared[0])) << "a write in pieces in round " << int{round};
    }
}

struct DeviceTest : ClientTest {};

TEST_F(DeviceTest, LetsTwoProcessesUseAnEepromBesideABusyMainQueue)
{
    const Events begin;
    const auto user = [&begin](uint32_t offset, uint8_t pattern) {
        return [=, &begin] {
            begin.told();
            use_eeprom(offset, pattern);
        };
    };
    Application first(user(1024, 1));
    Application second(user(1279, 101));

    // Asks on the main queue, without a pause.
    std::atomic<bool> ended = false;
    std::atomic<uint64_t> answers = 0;
    std::jthread status([&] {
        for (uint32_t link = 0; !ended; ++answers) {
            EXPECT_EQ(DEV_SWDRV_PMGR_GetPortLinkStatus(1, 1, &link), 1);
            EXPECT_EQ(link, 1U);
        }
    });
    wait_until("the main queue is busy", [&] { return answers > 0; });
    const uint64_t before = answers;
    begin.tell('1');
    begin.tell('2');
    first.expect_success();
    EXPECT_GT(answers, before) << "while both are at it the main queue goes on";
    second.expect_success();
    ended = true;
    status.join();

    // What the last round of each has left, each in its own part.
    EXPECT_EQ(read(1024)[254], 20);
    EXPECT_EQ(read(1279)[0], 101);
    EXPECT_EQ(read(1279)[1], 120);
    Block other_bus{};
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiRead(eeprom, 1024, other_bus.data(), block_size), 1);
    EXPECT_EQ(other_bus, filled(0xFF));
    driver.expect_quiet_end();
}

}  // namespace
}  // namespace quillon::test
