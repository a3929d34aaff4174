#include "host/driver/event_log.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits.h>
#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <vector>

#include "e2e/support/child.h"

namespace quillon::driver {
namespace {

using std::chrono::milliseconds;
using test::lines_of;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::MatchesRegex;
using testing::StartsWith;

// A log with a clock that stands still until it is moved.
class EventLogTest : public testing::Test {
  protected:
    EventLog &log(Level least = Level::info)
    {
        int ends[2];
        EXPECT_EQ(pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
        reading_ = host::Descriptor(ends[0]);
        writing_ = host::Descriptor(ends[1]);
        return log_.emplace(writing_.number(), least, [this] { return now_; });
    }

    void pass(milliseconds time) { now_ += time; }

    // What was written since the last call, without the times.
    std::vector<std::string> lines()
    {
        std::string text(65536, '\0');
        const ssize_t size = read(reading_.number(), text.data(), text.size());
        text.resize(size < 0 ? 0 : static_cast<size_t>(size));
        auto written = lines_of(text);
        for (std::string &line : written) {
            EXPECT_THAT(line, MatchesRegex("....-..-..T..:..:..\\....Z .*"));
            line.erase(0, line.find(' ') + 1);
        }
        return written;
    }

    // Whoever writes blocks from here on.
    void fill_pipe() const
    {
        while (write(writing_.number(), "x", 1) == 1) {
        }
        EXPECT_EQ(fcntl(writing_.number(), F_SETFL, 0), 0);
    }

    void drain_pipe() const
    {
        for (std::string text(65536, '\0'); read(reading_.number(), text.data(), text.size()) > 0;) {
        }
    }

    bool has_something_to_report()
    {
        pollfd source = {.fd = log_->suppression_descriptor(), .events = POLLIN, .revents = 0};
        return poll(&source, 1, 0) == 1;
    }

  private:
    host::Descriptor reading_;
    host::Descriptor writing_;
    std::chrono::steady_clock::time_point now_{std::chrono::hours(1)};
    std::optional<EventLog> log_;
};

TEST_F(EventLogTest, WritesOneLineAnEvent)
{
    EventLog &log = this->log();
    log.write(Level::info, "driver-ready", {{"folder", "/run/user/0/quillon"}, {"units", 2}, {"none", ""}});
    log.write(Level::error, "odd", {{"text", "two words\nand \"more\" \x1b[0m"}, {"number", -1}, {"equals", "a=b"}});
    log.write(Level::debug, "too-much", {});
    EXPECT_THAT(lines(), ElementsAre("info driver-ready folder=/run/user/0/quillon units=2",
                                     R"(error odd text="two words\nand \"more\" \x1b[0m" number=-1 equals="a=b")"));
}

TEST_F(EventLogTest, LeavesOutRepeatsAndCountsThem)
{
    EventLog &log = this->log();
    const auto refuse = [&log](int times, std::string_view reason) {
        for (int i = 0; i < times; ++i) {
            log.write_limited(Level::warning, "refused", {{"reason", reason}}, {{"client", i}});
        }
    };
    refuse(1 + EventLog::most_repeats_a_second, "a");
    EXPECT_EQ(lines().size(), 1U + EventLog::most_repeats_a_second);
    EXPECT_FALSE(has_something_to_report());

    refuse(1000, "a");
    EXPECT_THAT(lines(), ElementsAre());
    EXPECT_TRUE(has_something_to_report());

    // What is new is seen all the same.
    refuse(1, "b");
    EXPECT_THAT(lines(), ElementsAre("warning log-suppressed lines=1000", "warning refused reason=b client=0"));
    EXPECT_FALSE(has_something_to_report());

    refuse(3, "b");
    EXPECT_THAT(lines(), ElementsAre());
    log.report_suppressed();
    EXPECT_THAT(lines(), ElementsAre("warning log-suppressed lines=3"));
    log.report_suppressed();
    EXPECT_THAT(lines(), ElementsAre());

    refuse(1, "a");
    pass(milliseconds(999));
    refuse(1, "a");
    EXPECT_THAT(lines(), ElementsAre());
    pass(milliseconds(1));
    refuse(1, "a");
    EXPECT_THAT(lines(), ElementsAre("warning log-suppressed lines=2", "warning refused reason=a client=0"));
}

// Nobody serves while a line waits for whoever reads the log.
TEST_F(EventLogTest, CountsWhatNobodyTakes)
{
    EventLog &log = this->log();
    fill_pipe();
    log.write(Level::info, "lost", {});
    log.write_limited(Level::warning, "lost", {}, {});
    log.report_suppressed();
    EXPECT_TRUE(has_something_to_report());

    drain_pipe();
    log.write(Level::info, "long", {{"text", std::string(2 * PIPE_BUF, 'x')}});
    EXPECT_THAT(lines(), ElementsAre("warning log-suppressed lines=2",
                                     AllOf(StartsWith("info long text=xxx"), EndsWith("xxx..."))));
    EXPECT_FALSE(has_something_to_report());
}

// Whoever makes up a new event each time fills neither the log nor the memory.
TEST_F(EventLogTest, KnowsABoundedNumberOfDistinctEvents)
{
    EventLog &log = this->log();
    size_t written = 0;
    for (int code = 0; code < 10'000; ++code) {
        log.write_limited(Level::warning, "refused", {{"code", code}}, {});
        written += lines().size();
    }
    EXPECT_EQ(written, EventLog::most_distinct + EventLog::most_repeats_a_second);
}

}  // namespace
}  // namespace quillon::driver
