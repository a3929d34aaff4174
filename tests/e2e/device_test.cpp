// Devices behind the switch that application processes use.
#include <gtest/gtest.h>
#include <stdint.h>
#include <stdlib.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "e2e/support/child.h"
#include "e2e/support/control.h"
#include "e2e/support/driver_process.h"
#include "e2e/support/observe.h"
#include "quillon/swdrv.h"

namespace quillon::test {
namespace {

constexpr uint8_t eeprom = 0x57;

// This process is a client as well. A client looks its run-time folder up once.
const std::string &folder()
{
    static const TestFolder for_this_process;
    static const int set = setenv("QUILLON_RUNTIME_DIR", for_this_process.path().c_str(), 1);
    EXPECT_EQ(set, 0);
    return for_this_process.path();
}

// Asks on the main queue, without a pause.
class MainQueueUser {
  public:
    ~MainQueueUser()
    {
        ended_ = true;
        thread_.join();
        EXPECT_EQ(refused_, 0);
    }
    MainQueueUser() = default;
    MainQueueUser(const MainQueueUser &) = delete;
    MainQueueUser &operator=(const MainQueueUser &) = delete;

    uint64_t answers() const { return answers_; }

  private:
    void run()
    {
        for (uint32_t status = 0; !ended_; ++answers_) {
            refused_ += DEV_SWDRV_PMGR_GetPortLinkStatus(1, 1, &status) != 1 || status != 1;
        }
    }

    std::atomic<bool> ended_ = false;
    std::atomic<uint64_t> answers_ = 0;
    std::atomic<int> refused_ = 0;
    std::thread thread_{[this] { run(); }};
};

struct DeviceTest : testing::Test {
    DeviceTest() { DEV_SWDRV_PMGR_InitiateProcessResource(); }

    DriverProcess driver{folder(), {"--log-level=warning"}};
};

TEST_F(DeviceTest, LetsTwoProcessesUseAnEepromBesideABusyMainQueue)
{
    const std::map<std::string, std::string> environment = {{"QUILLON_RUNTIME_DIR", folder()}};
    Child first({QUILLON_EEPROM_USER, "1", "1024", "1", "20"}, environment);
    Child second({QUILLON_EEPROM_USER, "1", "1279", "101", "20"}, environment);
    {
        const MainQueueUser status;
        wait_until("the main queue is busy", [&] { return status.answers() > 0; });
        first.write_line("");
        second.write_line("");
        // While both are at it the main queue goes on.
        for (Child *const process : {&first, &second}) {
            const uint64_t before = status.answers();
            EXPECT_EQ(process->out().rest(), "done\n");
            EXPECT_EQ(process->wait(), 0);
            EXPECT_TRUE(process == &second || status.answers() > before);
        }
    }

    // What the last round of each has left, each in its own part.
    std::vector<uint8_t> left(255);
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(1, eeprom, 0, 1, 1024 + 254, 1, 3, left.data()), 1);
    EXPECT_EQ(left[0], 20);
    EXPECT_EQ(left[1], 101);
    EXPECT_EQ(left[2], 120);
    EXPECT_EQ(DEV_SWDRV_PMGR_TwsiRead(eeprom, 1024, left.data(), 255), 1);
    EXPECT_EQ(std::ranges::count(left, 0xFF), 255) << "the other bus";
    driver.signal(SIGTERM);
    EXPECT_EQ(driver.err().rest(), "") << "nothing was refused as malformed";
    EXPECT_EQ(driver.wait(), 0);
}

TEST_F(DeviceTest, FindsOutWhereACableIsOpen)
{
    constexpr uint32_t unit = 2;
    constexpr uint32_t port = 3;
    const struct {
        const char *action;
        uint8_t pair_state;
        uint16_t phy_status;
    } rows[] = {{"pull", 2, 0x7949}, {"plug", 1, 0x796D}};
    for (const auto &row : rows) {
        EXPECT_EQ(control(folder(), {"cable", std::to_string(unit), std::to_string(port), row.action}).status, 0);
        CableDiagRecord cable;
        uint16_t phy_status = 0;
        EXPECT_EQ(DEV_SWDRV_PMGR_GetCableDiag(unit, port, &cable), 1);
        EXPECT_EQ(cable.bytes[0], row.pair_state);
        EXPECT_EQ(DEV_SWDRV_PMGR_GetMIIPhyRegByPage(unit, port, 0, 1, 0, 0, 0, &phy_status), 1);
        EXPECT_EQ(phy_status, row.phy_status);
    }
}

}  // namespace
}  // namespace quillon::test
