// The debug console of a program, without the program: a child process of the test's has one of its own.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <signal.h>
#include <unistd.h>

#include <string>

#include "quillon/platform.h"
#include "quillon/workstation.h"
#include "support.h"

namespace quillon::test {
namespace {

void entered() {}
void entered_as_well() {}

uint32_t offer(uint32_t number, void (*entry)(void) = entered)
{
    return BACKDOOR_MGR_Register_SubsysBackdoorFunc_CallBack("a subsystem", number, entry);
}

TEST(Console, TakesEachNumberOnceAndSixteenOfThem)
{
    EXPECT_EQ(in_child([] {
                  int wrong = 0;
                  wrong += BACKDOOR_MGR_Register_SubsysBackdoorFunc_CallBack(nullptr, 1, entered) !=
                           QUILLON_STATUS_BAD_ARGUMENT;
                  wrong += offer(1, nullptr) != QUILLON_STATUS_BAD_ARGUMENT;
                  for (uint32_t number = 1; number <= 16; ++number) {
                      wrong += offer(number) != QUILLON_STATUS_OK;
                      wrong += offer(number) != QUILLON_STATUS_OK;
                      wrong += offer(number, entered_as_well) != QUILLON_STATUS_BAD_ARGUMENT;
                  }
                  wrong += offer(17) != QUILLON_STATUS_TOO_MANY_SUBSYSTEMS;
                  return wrong;
              }),
              0);
}

// The keys of standard input, up to the one that says that there are no more.
std::string keys_of(int input)
{
    dup2(input, STDIN_FILENO);
    std::string keys;
    for (uint32_t key; (key = BACKDOOR_MGR_GetChar() & 0xFF) != 0xFF;) {
        keys += static_cast<char>(key);
    }
    return keys;
}

// Fault: a byte 0xFF in the input ends the console, or an input that others made non-blocking does.
TEST(Console, ReadsAPipeByteByByte)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(fcntl(ends[0], F_SETFL, O_NONBLOCK), 0);
    Process program([&](const auto &ready) {
        close(ends[1]);
        ready();
        return keys_of(ends[0]) == "0\n1" ? 0 : 1;
    });
    EXPECT_TRUE(program.comes_to_wait());
    EXPECT_EQ(write(ends[1], "0\n\3771", 4), 4);
    close(ends[0]);
    close(ends[1]);
    EXPECT_EQ(program.wait(), 0);
}

TEST(Console, HasNoKeysWithoutAnInput)
{
    EXPECT_EQ(in_child([] {
                  close(STDIN_FILENO);
                  return (BACKDOOR_MGR_GetChar() & 0xFF) == 0xFF && quillon_console_run() == 0 ? 0 : 1;
              }),
              0);
}

// Fault: an endless menu on a terminal that is not there any more.
TEST(Console, HasNoKeysOnceTheTerminalIsLost)
{
    int operator_end;
    int program_end;
    ASSERT_EQ(openpty(&operator_end, &program_end, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(write(operator_end, "1", 1), 1);
    Process program([&](const auto &ready) {
        close(operator_end);
        dup2(program_end, STDIN_FILENO);
        const uint32_t first = BACKDOOR_MGR_GetChar() & 0xFF;
        ready();
        return first == '1' && (BACKDOOR_MGR_GetChar() & 0xFF) == 0xFF ? 0 : 1;
    });
    EXPECT_TRUE(program.comes_to_wait());
    close(operator_end);
    EXPECT_EQ(program.wait(), 0);
    close(program_end);
}

}  // namespace
}  // namespace quillon::test
