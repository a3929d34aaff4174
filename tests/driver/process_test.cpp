// quillon-driver as its users meet it: options, start, end, log.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <filesystem>
#include <string>
#include <vector>

#include "e2e/support/driver_process.h"
#include "e2e/support/observe.h"
#include "e2e/support/raw_queue.h"
#include "support/byte_text.h"

namespace quillon::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::SizeIs;
using testing::StartsWith;

TEST(DriverOptions, BadOnesGetOneClearLine)
{
    const struct {
        std::vector<std::string> options;
        const char *line;
    } rows[] = {
        {{"--units", "0"}, "--units: Value 0 not in range"},
        {{"--units", "33"}, "--units: Value 33 not in range"},
        {{"--ports", "65"}, "--ports: Value 65 not in range"},
        {{"--chips", "256"}, "--chips: Value 256 not in range"},
        {{"--chips", "-1"}, "--chips: "},
        {{"--ports", "many"}, "--ports: "},
        {{"--ports"}, "--ports"},
        {{"--log-level", "loud"}, "--log-level: loud not in {debug,info,warning,error}"},
        {{"--ready-fd", "99"}, "--ready-fd: '99' is not an open descriptor"},
        {{"--ready-fd", "2"}, "--ready-fd: '2' is the log's descriptor"},
        {{"--prots", "28"}, "--prots"},
        {{"28"}, "28"},
    };
    for (const auto &row : rows) {
        const TestFolder folder;
        const Ended ended = run_to_end(driver_command(row.options), {{"QUILLON_RUNTIME_DIR", folder.path()}});
        EXPECT_EQ(ended.status, 2) << row.line;
        EXPECT_EQ(ended.out, "");
        EXPECT_THAT(lines_of(ended.err), ElementsAre(testing::AllOf(StartsWith("quillon-driver: "), HasSubstr(row.line),
                                                                    HasSubstr("(see --help)"))));
        EXPECT_THAT(folder.entries(), IsEmpty());
    }
}

TEST(DriverOptions, HelpAndVersionGoToStandardOutput)
{
    const Ended help = run_to_end(driver_command({"--help"}));
    EXPECT_EQ(help.status, 0);
    for (const char *option : {"--units", "--ports", "--chips", "--log-level", "--ready-fd", "--version"}) {
        EXPECT_THAT(help.out, HasSubstr(option));
    }
    const Ended version = run_to_end(driver_command({"--version"}));
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, "quillon-driver " QUILLON_VERSION "\n");
    EXPECT_EQ(help.err + version.err, "");
}

// Nothing is left behind, and the next run begins.
TEST(DriverProcess, EndsCleanlyOnASignal)
{
    const TestFolder folder;
    for (const int signal : {SIGTERM, SIGINT}) {
        DriverProcess driver(folder.path(), {"--units=1", "--ports=4"});
        EXPECT_THAT(folder.entries(), ElementsAre("control.sock", "driver.pid", "memory.sock", "queue-24", "queue-25",
                                                  "queue-52", "queue-59"));
        EXPECT_EQ(contents_of(folder.path() + "/driver.pid"), std::to_string(driver.pid()) + "\n");
        driver.signal(signal);
        EXPECT_EQ(driver.wait(), 0);
        EXPECT_THAT(folder.entries(), IsEmpty());
        EXPECT_THAT(lines_of(driver.err().rest()),
                    ElementsAre(MatchesRegex(".* info driver-ready folder=.* units=1 ports=4 chips=2"),
                                MatchesRegex(".* info driver-ends signal=" + std::to_string(signal))));
    }
}

// Also a call that waits for ever: it fails.
TEST(DriverProcess, EndsWithClientsOnItsQueues)
{
    const TestFolder folder;
    DriverProcess driver(folder.path());
    RawQueue client(folder.path(), 25);
    driver.stop();
    client.send(closed_bytes_of("+8 2500 0400 +16 00*8"), 24);
    driver.signal(SIGTERM);
    driver.resume();
    EXPECT_EQ(driver.wait(), 0);
    client.receive();  // a refusal or the end, but no hang
    EXPECT_EQ(client.receive(), std::nullopt);
}

TEST(DriverProcess, IsAloneInItsFolder)
{
    const TestFolder folder;
    DriverProcess first(folder.path());
    const Ended second = run_to_end(driver_command({}), {{"QUILLON_RUNTIME_DIR", folder.path()}});
    EXPECT_EQ(second.status, 1);
    EXPECT_THAT(lines_of(second.err),
                ElementsAre(testing::AllOf(StartsWith("quillon-driver: "), HasSubstr(folder.path()),
                                           HasSubstr("in use by another driver process"))));
    // The first one has lost nothing.
    EXPECT_EQ(contents_of(folder.path() + "/driver.pid"), std::to_string(first.pid()) + "\n");
    EXPECT_TRUE(RawQueue(folder.path(), 24).exchange(closed_bytes_of("+8 7800 0400 +16 04000000 00*4"), 24));
}

TEST(DriverProcess, TakesOverFromOneThatWasKilled)
{
    const TestFolder folder;
    DriverProcess(folder.path()).kill_and_wait();
    ASSERT_THAT(folder.entries(), SizeIs(7));
    const DriverProcess next(folder.path(), {"--chips=7"});
    EXPECT_EQ(contents_of(folder.path() + "/driver.pid"), std::to_string(next.pid()) + "\n");
    const auto reply = RawQueue(folder.path(), 24).exchange(closed_bytes_of("+8 7800 0400 +16 04000000 00*4"), 24);
    EXPECT_EQ(reply.value().at(16), 7);
}

TEST(DriverProcess, SaysWhyAFolderIsOfNoUse)
{
    const TestFolder folder;
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    const Ended ended = run_to_end(driver_command({}), {{"QUILLON_RUNTIME_DIR", folder.path()}});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(lines_of(ended.err),
                ElementsAre(testing::AllOf(StartsWith("quillon-driver: "), HasSubstr(folder.path()))));
}

// The log is what an engineer debugs with: each request, when asked for.
TEST(DriverProcess, LogsEachRequestOnDemand)
{
    const TestFolder folder;
    DriverProcess driver(folder.path(), {"--log-level=debug"});
    driver.err().line();
    RawQueue(folder.path(), 24).exchange(closed_bytes_of("+8 7800 0400 +16 04000000 00*4"), 24);
    EXPECT_THAT(driver.err().line(), MatchesRegex(".* debug request-answered queue=24 module=120 code=4 client=" +
                                                  std::to_string(getpid()) + " result=2"));
}

// What is left out of a flood is told although nothing else happens afterwards.
TEST(DriverProcess, ReportsWhatItDidNotLog)
{
    const TestFolder folder;
    DriverProcess driver(folder.path(), {"--log-level=warning"});
    RawQueue client(folder.path(), 24);
    constexpr int refusals = 100;
    for (int i = 0; i < refusals; ++i) {
        client.exchange(closed_bytes_of("+8 7800 0400 +16 FF000000 00*4"), 24);
    }
    int told = 0;
    while (told < refusals) {
        const std::string line = driver.err().line();
        constexpr std::string_view count = "log-suppressed lines=";
        const size_t at = line.find(count);
        told += at == std::string::npos ? 1 : std::stoi(line.substr(at + count.size()));
    }
    EXPECT_EQ(told, refusals);
}

// Whoever read the log has gone.
TEST(DriverProcess, OutlivesTheReaderOfItsLog)
{
    const TestFolder folder;
    DriverProcess driver(folder.path());
    driver.err() = Output();
    RawQueue client(folder.path(), 24);
    EXPECT_TRUE(client.exchange(closed_bytes_of("+8 7800 0400 +16 FF000000 00*4"), 24));
    EXPECT_TRUE(client.exchange(closed_bytes_of("+8 7800 0400 +16 04000000 00*4"), 24));
    driver.signal(SIGTERM);
    EXPECT_EQ(driver.wait(), 0);
}

}  // namespace
}  // namespace quillon::test
