// The example, through both libraries and quillon-run: all that it says has to be right.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "e2e/support/driver_process.h"

namespace quillon::test {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(PortMap, ShowsTheStackAndOutlivesTheDriverProcess)
{
    const Ended ended = run_to_end(run_command({"--units=2", "--ports=5", "--chips=2", "--", QUILLON_PORT_MAP}));
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(
        ended.out,
        HasSubstr("\n     1     1        1       0         1  ok     |     2     1        3       0         1  ok"
                  "\n     1     2        1       0         2  ok     |     2     2        3       0         2  ok"
                  "\n     1     3        1       0         3  ok     |     2     3        3       0         3  ok"
                  "\n     1     4        2       1         1  ok     |     2     4        4       1         1  ok"
                  "\n     1     5        2       1         2  ok     |     2     5        4       1         2  ok"
                  "\n\n"));
    EXPECT_THAT(ended.out, Not(HasSubstr("WRONG")));
    EXPECT_THAT(ended.out, HasSubstr("Switch chips of the local unit: 2\n"));
    EXPECT_THAT(ended.out, HasSubstr("Failed to send/receive IPC message.(msgq_key=24, rc=2)\r\n"));
    EXPECT_THAT(ended.out, HasSubstr("The call returned 0.\n"));
    EXPECT_THAT(ended.out, HasSubstr("the next call of this same process returned 2.\n"));
    EXPECT_THAT(ended.err, HasSubstr("the driver process was killed by signal 9 (Killed); starting it again\n"));
}

}  // namespace
}  // namespace quillon::test
