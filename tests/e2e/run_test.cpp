// quillon-run: the status that it passes on, the signals that it passes on, and what is left when it ends.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>

#include <fstream>
#include <string>
#include <vector>

#include "e2e/support/driver_process.h"
#include "e2e/support/observe.h"
#include "e2e/support/terminal.h"
#include "host/platform/runtime_path.h"

namespace quillon::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// COMMAND as a script of the shell. It finds the number of its driver process in driver.pid.
std::vector<std::string> script(const std::string &text, std::vector<std::string> options = {})
{
    options.insert(options.end(), {"--", "/bin/sh", "-c", text});
    return run_command(options);
}

// Its run-time folders are made in a folder of the test's.
struct RunTest : testing::Test {
    TestFolder folder;
    std::map<std::string, std::string> environment = {{"XDG_RUNTIME_DIR", folder.path()}};

    Ended run(const std::vector<std::string> &command) { return run_to_end(command, environment); }

    // The end of its output comes when the last process that it has started is gone.
    void expect_nothing_left(Child &run)
    {
        run.close_input();
        run.out().rest();
        run.err().rest();
        EXPECT_THAT(folder.entries(), IsEmpty());
    }
};

TEST_F(RunTest, PassesTheExitStatusOn)
{
    const std::string no_program = folder.path() + "/none";
    const struct {
        std::vector<std::string> command;
        int status;
        std::string err;
    } rows[] = {
        {script("exit 0"), 0, ""},
        {script("exit 7"), 7, ""},
        {script("exit 255"), 255, ""},
        {script("kill -KILL $$"), 128 + SIGKILL, ""},
        {script("kill -TERM $$"), 128 + SIGTERM, ""},
        {run_command({"--", "no-such-command"}), 127,
         "quillon-run: cannot run no-such-command: No such file or directory\n"},
        {run_command({"--", "/etc/passwd"}), 126, "quillon-run: cannot run /etc/passwd: Permission denied\n"},
        {script("true", {"--driver", no_program}), 1,
         "quillon-run: cannot run " + no_program + ": No such file or directory\n"},
        {script("true", {"--driver", "/bin/true"}), 1,
         "quillon-run: the driver process ended with exit status 0 before it was ready\n"},
        {script("true", {"--driver", "/bin/false"}), 1,
         "quillon-run: the driver process ended with exit status 1 before it was ready\n"},
        {script("true", {"--units", "0"}), 2, "quillon-driver: --units: Value 0 not in range 1 to 32 (see --help)\n"},
        {run_command({}), 2, "quillon-run: -- COMMAND is required (see --help)\n"},
        {run_command({"--"}), 2, "quillon-run: -- COMMAND is required (see --help)\n"},
        {run_command({"--chops=3", "--", "true"}), 2,
         "quillon-run: The following argument was not expected: --chops=3 (see --help)\n"},
    };
    for (const auto &row : rows) {
        const Ended ended = run(row.command);
        EXPECT_EQ(ended.status, row.status);
        EXPECT_EQ(ended.err, row.err);
        EXPECT_EQ(ended.out, "");
        EXPECT_THAT(folder.entries(), IsEmpty());
    }
}

TEST_F(RunTest, HasTheDriverProcessReadyInAPrivateFolder)
{
    const Ended ended =
        run(script("cd $QUILLON_RUNTIME_DIR && pwd && stat -c %a . && kill -0 $(cat driver.pid) && ls"));
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(lines_of(ended.out),
                ElementsAre(StartsWith(folder.path() + "/quillon-run."), "700", "control.sock", "driver.pid",
                            "memory.sock", "queue-24", "queue-25", "queue-52", "queue-59"));
    EXPECT_EQ(ended.err, "");
}

TEST_F(RunTest, PassesOptionsOnAndDoesWithoutAUserFolder)
{
    environment["XDG_RUNTIME_DIR"] = folder.path() + "/gone";
    const Ended ended =
        run(script("echo $QUILLON_RUNTIME_DIR; tr '\\0' ' ' </proc/$(cat $QUILLON_RUNTIME_DIR/driver.pid)/cmdline",
                   {"--units=3", "--ports", "9", "--chips=4", "--log-level=error"}));
    EXPECT_THAT(ended.out, StartsWith("/tmp/quillon-run."));
    EXPECT_THAT(ended.out, HasSubstr("quillon-driver --units=3 --ports=9 --chips=4 --log-level=error "));
}

// A socket's address has no room for one.
TEST_F(RunTest, DoesWithoutAUserFolderOfALongPath)
{
    const std::string path = folder.path() + "/" + std::string(host::kLongestRuntimePath, 'x');
    ASSERT_EQ(mkdir(path.c_str(), 0700), 0);
    environment["XDG_RUNTIME_DIR"] = path;
    const Ended ended = run(script("echo $QUILLON_RUNTIME_DIR"));
    EXPECT_THAT(ended.out, StartsWith("/tmp/quillon-run."));
    EXPECT_EQ(ended.err, "");
}

// What COMMAND leaves behind, in its process group or in a session of its own.
TEST_F(RunTest, LeavesNothingBehind)
{
    const Ended ended = run(script("sleep 1000 & setsid sleep 1000 & (trap '' TERM; sleep 1000) & exit 3"));
    EXPECT_EQ(ended.status, 3);
    EXPECT_THAT(folder.entries(), IsEmpty());
}

// A driver process that COMMAND has left stopped is not killed, either: it still says what it has to say.
TEST_F(RunTest, LetsTheDriverProcessEndByItself)
{
    const Ended ended = run(script("kill -STOP $(cat $QUILLON_RUNTIME_DIR/driver.pid)", {"--log-level=info"}));
    EXPECT_THAT(ended.err, HasSubstr("info driver-ends signal=15\n"));
}

constexpr const char *wait_with_company = "setsid sleep 1000 & sleep 1000 & echo $$; wait";

TEST_F(RunTest, CleansUpWhoeverIsKilled)
{
    for (const std::string killed : {"COMMAND", "the supervisor", "quillon-run"}) {
        SCOPED_TRACE(killed);
        Child run(script("echo $PPID; " + std::string(wait_with_company)), environment);
        const pid_t supervisor = std::stoi(run.out().line());
        const pid_t command = std::stoi(run.out().line());
        ASSERT_NE(supervisor, run.pid());
        kill(killed == "COMMAND" ? command : killed == "the supervisor" ? supervisor : run.pid(), SIGKILL);
        if (killed == "the supervisor") {
            EXPECT_THAT(run.err().line(), StartsWith("quillon-run: the supervisor was killed by signal 9"));
        }
        expect_nothing_left(run);
        EXPECT_EQ(run.wait(), 128 + SIGKILL);
    }
}

// Ends with status 9 by that signal, and says whether the driver process is still there.
std::vector<std::string> trap_and_wait(const std::string &signal)
{
    return script("trap 'kill -0 $(cat $QUILLON_RUNTIME_DIR/driver.pid) && echo served; exit 9' " + signal +
                  "; echo waits; sleep 1000 & wait");
}

TEST_F(RunTest, PassesSignalsOn)
{
    for (const auto &[signal, name] : {std::pair(SIGTERM, "TERM"), {SIGINT, "INT"}, {SIGHUP, "HUP"}}) {
        Child run(trap_and_wait(name), environment);
        ASSERT_EQ(run.out().line(), "waits");
        run.signal(signal);
        EXPECT_EQ(run.out().line(), "served") << name;
        expect_nothing_left(run);
        EXPECT_EQ(run.wait(), 9);
    }
}

// Those who pass signals on get it as well.
TEST_F(RunTest, LeavesASignalToTheProcessGroupToCommand)
{
    auto command = script(
        "trap 'echo hangup' HUP; trap 'echo end; exit 9' TERM; kill -HUP 0; echo sent;"
        "sleep 1000 & while :; do wait; done");
    command.insert(command.begin(), "setsid");  // in a process group without the test
    Child run(command, environment);
    EXPECT_EQ(run.out().line(), "hangup");
    EXPECT_EQ(run.out().line(), "sent");
    run.signal(SIGTERM);  // passed on behind all that was before
    EXPECT_EQ(run.out().line(), "end");
    EXPECT_EQ(run.wait(), 9);
}

// A terminal interrupts all of its foreground processes: COMMAND decides, and has its driver process until it ends.
TEST_F(RunTest, LeavesAnInterruptFromTheTerminalToCommand)
{
    OnTerminal run(trap_and_wait("INT"), environment);
    ASSERT_EQ(run.screen().line(), "waits\r");
    run.type("\x03");
    EXPECT_THAT(run.screen().line(), HasSubstr("served"));
    run.screen().rest();
    EXPECT_EQ(run.wait(), 9);
    EXPECT_THAT(folder.entries(), IsEmpty());
}

TEST_F(RunTest, StartsTheDriverProcessAgain)
{
    Child run(script("cd $QUILLON_RUNTIME_DIR; for i in 1 2 3; do old=$(cat driver.pid); kill -KILL $old;"
                     "  while new=$(cat driver.pid); [ $new = $old ]; do :; done;"
                     "  kill -0 $new && echo back;"
                     "done"),
              environment);
    EXPECT_EQ(lines_of(run.out().rest()), std::vector<std::string>(3, "back"));
    EXPECT_EQ(lines_of(run.err().rest()),
              std::vector<std::string>(
                  3, "quillon-run: the driver process was killed by signal 9 (Killed); starting it again"));
    EXPECT_EQ(run.wait(), 0);
    EXPECT_THAT(folder.entries(), IsEmpty());
}

// One that fails each time is not started for ever.
TEST_F(RunTest, GivesUpOnADriverProcessThatDoesNotStartAgain)
{
    const TestFolder elsewhere;
    const std::string fragile = elsewhere.path() + "/fragile-driver";
    std::ofstream(fragile) << "#!/bin/sh\n[ -e " << elsewhere.path() << "/ran ] && exit 5\ntouch " << elsewhere.path()
                           << "/ran\nexec " << driver_command({})[0] << " \"$@\"\n";
    ASSERT_EQ(chmod(fragile.c_str(), 0700), 0);

    Child run(script("kill $(cat $QUILLON_RUNTIME_DIR/driver.pid); read line; exit 4", {"--driver", fragile}),
              environment);
    EXPECT_EQ(run.err().line(), "quillon-run: the driver process ended with exit status 0; starting it again");
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(run.err().line(), "quillon-run: the driver process ended with exit status 5; starting it again");
    }
    EXPECT_EQ(run.err().line(), "quillon-run: the driver process does not start again; requests fail from here on");
    run.write_line("");
    EXPECT_EQ(run.wait(), 4);
    expect_nothing_left(run);
}

}  // namespace
}  // namespace quillon::test
