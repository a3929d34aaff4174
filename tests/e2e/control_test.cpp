// quillon-ctl and the control socket.
#include "e2e/support/control.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdint.h>
#include <stdlib.h>
#include <sys/socket.h>

#include <string>
#include <vector>

#include "e2e/support/observe.h"
#include "host/control_protocol.h"
#include "host/platform/runtime_path.h"
#include "quillon/swdrv.h"

namespace quillon::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// This process is a client as well. A client looks its run-time folder up once.
const std::string &folder()
{
    static const TestFolder for_this_process;
    static const int set = setenv("QUILLON_RUNTIME_DIR", for_this_process.path().c_str(), 1);
    EXPECT_EQ(set, 0);
    return for_this_process.path();
}

struct ControlTest : testing::Test {
    DriverProcess driver{folder(), {"--log-level=warning"}};
};

host::Descriptor connected()
{
    const sockaddr_un address = host::control_address(folder().c_str());
    host::Descriptor socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
    EXPECT_EQ(connect(socket.number(), reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    return socket;
}

TEST_F(ControlTest, SaysWhatIsWrong)
{
    const struct {
        std::vector<std::string> words;
        int status;
        std::string err;
    } rows[] = {
        {{"cable", "1", "3", "pull"}, 0, ""},
        {{"cable", "1", "0x1C", "plug"}, 0, ""},
        {{"cable", "3", "1", "pull"}, 1, "quillon-ctl: cable: UNIT is a number from 1 to 2, not '3'\n"},
        {{"cable", "1", "29", "pull"}, 1, "quillon-ctl: cable: PORT is a number from 1 to 28, not '29'\n"},
        {{"cable", "1", "-1", "pull"}, 1, "quillon-ctl: cable: PORT is a number from 1 to 28, not '-1'\n"},
        {{"cable", "1", "1x", "pull"}, 1, "quillon-ctl: cable: PORT is a number from 1 to 28, not '1x'\n"},
        {{"cable", "1", "", "pull"}, 1, "quillon-ctl: cable: PORT is a number from 1 to 28, not ''\n"},
        {{"cable", "1", "1", "cut"}, 1, "quillon-ctl: cable: a cable is to pull or plug, not to 'cut'\n"},
        {{"cable", "1", "1"}, 2, "quillon-ctl: usage: quillon-ctl cable UNIT PORT pull|plug\n"},
        {{"cable", "1", "1", "pull", "x"}, 2, "quillon-ctl: usage: quillon-ctl cable UNIT PORT pull|plug\n"},
        {{"cables"}, 2, "quillon-ctl: no command 'cables' (see quillon-ctl help)\n"},
        {{std::string(control::longest_packet, 'x')}, 1, "quillon-ctl: the command is too long\n"},
        {{}, 2, "quillon-ctl: COMMAND is required (see --help)\n"},
    };
    for (const auto &row : rows) {
        const Ended ended = control(folder(), row.words);
        EXPECT_EQ(ended.status, row.status) << row.err;
        EXPECT_EQ(ended.out, "");
        EXPECT_EQ(ended.err, row.err);
    }
    const Ended help = control(folder(), {"help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.out, HasSubstr("cable UNIT PORT pull|plug"));

    const TestFolder empty;
    const Ended nobody = control(empty.path(), {"help"});
    EXPECT_EQ(nobody.status, 1);
    EXPECT_THAT(nobody.err, StartsWith("quillon-ctl: no driver process in '" + empty.path() + "': "));
}

TEST_F(ControlTest, TakesALinkDownWithItsCable)
{
    DEV_SWDRV_PMGR_InitiateProcessResource();
    const auto link = [](uint32_t port) {
        uint32_t status = 9;
        EXPECT_EQ(DEV_SWDRV_PMGR_GetPortLinkStatus(2, port, &status), 1);
        return status;
    };
    EXPECT_EQ(link(3), 1U);
    EXPECT_EQ(control(folder(), {"cable", "2", "3", "pull"}).status, 0);
    EXPECT_EQ(link(3), 0U);
    EXPECT_EQ(link(4), 1U);
    EXPECT_EQ(DEV_SWDRV_PMGR_ResetOnDemand(1), 1);
    EXPECT_EQ(link(3), 0U);
    EXPECT_EQ(control(folder(), {"cable", "2", "3", "plug"}).status, 0);
    EXPECT_EQ(link(3), 1U);
}

// Whoever says nothing, nonsense or goes away holds up nobody and stops nothing.
TEST_F(ControlTest, OutlivesItsClients)
{
    std::vector<host::Descriptor> silent;
    for (int i = 0; i < 8; ++i) {
        silent.push_back(connected());
    }
    for (const std::string &packet :
         {std::string("\0\0\0", 3), std::string("cable\0001\0001", 9), std::string("\xFF")}) {
        ASSERT_EQ(send(connected().number(), packet.data(), packet.size(), 0), static_cast<ssize_t>(packet.size()));
    }
    EXPECT_EQ(control(folder(), {"help"}).status, 0);

    driver.signal(SIGTERM);
    EXPECT_EQ(driver.wait(), 0);
    EXPECT_EQ(control(folder(), {"help"}).status, 1);
}

}  // namespace
}  // namespace quillon::test
