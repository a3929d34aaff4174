// The routing debug menu on a terminal and on a pipe.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "e2e/support/driver_process.h"
#include "e2e/support/observe.h"
#include "e2e/support/terminal.h"

namespace quillon::test {
namespace {

const std::string console_menu =
    "\r\n-----DEBUG CONSOLE:-----\r\n"
    "[0]:DEVSWDRVL3_PMGR (24)\r\n"
    "[Q]:Quit\r\n"
    "------------------------\r\nSelect:";

const std::string routing_menu =
    "\r\n-----DEV_SWDRVL3_PMGR BACKDOOR MENU:-----\r\n"
    "[0]:Set DEV_SWDRVL3_PMGR_EnableIPv4Routing flag\r\n"
    "[1]:Set DEV_SWDRVL3_PMGR_EnableIPv6Routing flag\r\n"
    "[2]:Set DEV_SWDRVL3_PMGR_DisableIPv4Routing flag\r\n"
    "[3]:Set DEV_SWDRVL3_PMGR_DisableIPv6Routing flag\r\n"
    "[Q]:Quit\r\n"
    "----------------------------\r\nSelect:";

const std::string no_key = "DEV_SWDRVL3_PMGR_Backdoor_Main: BACKDOOR_MGR_GetChar fail\n";

const std::string control_c = "\x03";
const std::string control_d = "\x04";

struct RoutingMenuTest : testing::Test {
    TestFolder folder;
    DriverProcess driver{folder.path()};
    const std::map<std::string, std::string> environment = {{"QUILLON_RUNTIME_DIR", folder.path()}};
};

class RoutingMenuOnTerminal : public RoutingMenuTest {
  protected:
    // Types keys, and returns what the program prints until it waits for the next one.
    std::string answer_to(const std::string &keys)
    {
        program.type(keys);
        return next_menu();
    }

    std::string next_menu() { return as_printed(program.screen().until("Select:")); }

    // Without the returns that the terminal adds.
    static std::string as_printed(std::string shown)
    {
        for (size_t at = 0; (at = shown.find("\r\n", at)) != std::string::npos; ++at) {
            shown.erase(at, 1);
        }
        return shown;
    }

    OnTerminal program{{QUILLON_ROUTING_MENU}, environment};
};

TEST_F(RoutingMenuOnTerminal, SwitchesRoutingByKeys)
{
    EXPECT_EQ(next_menu(), console_menu);
    EXPECT_EQ(answer_to("x"), "Unknown option\r\n" + console_menu);
    EXPECT_EQ(answer_to("0"), routing_menu);
    EXPECT_EQ(answer_to("0"), "DEV_SWDRVL3_PMGR_EnableIPv4Routing() returns TRUE\n" + routing_menu);
    EXPECT_EQ(answer_to("1"), "DEV_SWDRVL3_PMGR_EnableIPv6Routing() returns TRUE\n" + routing_menu);
    EXPECT_EQ(answer_to("2"), "DEV_SWDRVL3_PMGR_DisableIPv4Routing() returns TRUE\n" + routing_menu);
    EXPECT_EQ(answer_to("3"), "DEV_SWDRVL3_PMGR_DisableIPv6Routing() returns TRUE\n" + routing_menu);
    EXPECT_EQ(answer_to("4"), "Unknow option\r\n" + routing_menu);
    EXPECT_EQ(answer_to("q"), console_menu);
    program.type("Q");
    EXPECT_EQ(as_printed(program.screen().rest()), "\r\n");
    EXPECT_EQ(program.wait(), 0);
    EXPECT_TRUE(program.in_line_mode());
}

// Without a driver process, and to the end of the input.
TEST_F(RoutingMenuOnTerminal, ShowsFailuresAndEndsWithTheInput)
{
    next_menu();
    answer_to("0");
    driver.kill_and_wait();
    const std::string answer = answer_to("0");
    EXPECT_NE(answer.find("(msgq_key=24, rc=1)"), std::string::npos) << answer;
    EXPECT_TRUE(answer.ends_with("DEV_SWDRVL3_PMGR_EnableIPv4Routing() returns FALSE\n" + routing_menu)) << answer;
    EXPECT_EQ(answer_to(control_d), no_key + console_menu);
    program.type(control_d);
    EXPECT_EQ(program.wait(), 1);
    EXPECT_TRUE(program.in_line_mode());
}

TEST_F(RoutingMenuOnTerminal, LeavesTheTerminalAsItWasWhenItIsInterrupted)
{
    next_menu();
    EXPECT_FALSE(program.in_line_mode());
    program.type(control_c);
    EXPECT_EQ(program.wait(), 128 + SIGINT);
    EXPECT_TRUE(program.in_line_mode());
}

TEST_F(RoutingMenuTest, TakesItsKeysFromAPipe)
{
    Child program({QUILLON_ROUTING_MENU}, environment);
    program.write_line("00q");
    program.close_input();
    EXPECT_EQ(program.out().rest(), console_menu + routing_menu +
                                        "DEV_SWDRVL3_PMGR_EnableIPv4Routing() returns TRUE\n" + routing_menu +
                                        console_menu + "Unknown option\r\n" + console_menu + "\r\n");
    EXPECT_EQ(program.wait(), 1);
}

}  // namespace
}  // namespace quillon::test
