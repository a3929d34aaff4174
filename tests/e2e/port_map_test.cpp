// The example, through both libraries and quillon-run: all that it says has to be right.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdio.h>
#include <string.h>

#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "e2e/support/driver_process.h"

namespace quillon::test {
namespace {

using testing::HasSubstr;
using testing::Not;

// The rows of the table: unit, port, module, device, physical port. Two of them stand side by side.
std::set<std::tuple<int, int, int, int, int>> ports_in(const std::string &output)
{
    std::set<std::tuple<int, int, int, int, int>> ports;
    for (const std::string &line : lines_of(output)) {
        int unit, port, module, device, physical, length = 0;
        for (const char *at = line.c_str();
             sscanf(at, " %d %d %d %d %d ok%n", &unit, &port, &module, &device, &physical, &length) == 5 && length > 0;
             length = 0) {
            EXPECT_TRUE(ports.emplace(unit, port, module, device, physical).second) << line;
            at += length;
            at += strspn(at, " |");
        }
    }
    return ports;
}

TEST(PortMap, ShowsTheStackAndOutlivesTheDriverProcess)
{
    const Ended ended = run_to_end(run_command({"--units=2", "--ports=5", "--chips=2", "--", QUILLON_PORT_MAP}));
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ports_in(ended.out),
                testing::ElementsAre(std::tuple(1, 1, 1, 0, 1), std::tuple(1, 2, 1, 0, 2), std::tuple(1, 3, 1, 0, 3),
                                     std::tuple(1, 4, 2, 1, 1), std::tuple(1, 5, 2, 1, 2), std::tuple(2, 1, 3, 0, 1),
                                     std::tuple(2, 2, 3, 0, 2), std::tuple(2, 3, 3, 0, 3), std::tuple(2, 4, 4, 1, 1),
                                     std::tuple(2, 5, 4, 1, 2)))
        << ended.out;
    EXPECT_THAT(ended.out, Not(HasSubstr("WRONG")));
    EXPECT_THAT(ended.out, HasSubstr("Switch chips of the local unit: 2\n"));
    EXPECT_THAT(ended.out, HasSubstr("Failed to send/receive IPC message.(msgq_key=24, rc=2)\r\n"));
    EXPECT_THAT(ended.out, HasSubstr("The call returned 0.\n"));
    EXPECT_THAT(ended.out, HasSubstr("the next call of this same process returned 2.\n"));
    EXPECT_THAT(ended.err, HasSubstr("the driver process was killed by signal 9 (Killed); starting it again\n"));
}

}  // namespace
}  // namespace quillon::test
