#include "host/driver/event_log.h"

#include <fmt/chrono.h>
#include <fmt/format.h>
#include <limits.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <iterator>
#include <system_error>

namespace quillon::driver {
namespace {

bool needs_quotes(std::string_view text)
{
    constexpr std::string_view plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_.,:;/+@%()";
    return text.find_first_not_of(plain) != std::string_view::npos;
}

std::string text_of(LogFields fields)
{
    std::string line;
    for (const LogField &field : fields) {
        if (const auto *text = std::get_if<std::string_view>(&field.value); text == nullptr) {
            fmt::format_to(std::back_inserter(line), " {}={}", field.key, std::get<int64_t>(field.value));
        } else if (text->empty()) {
            continue;
        } else if (needs_quotes(*text)) {
            fmt::format_to(std::back_inserter(line), " {}={:?}", field.key, *text);
        } else {
            fmt::format_to(std::back_inserter(line), " {}={}", field.key, *text);
        }
    }
    return line;
}

}  // namespace

std::optional<Level> level_named(std::string_view name)
{
    const auto *found = std::find(std::begin(level_names), std::end(level_names), name);
    if (found == std::end(level_names)) {
        return std::nullopt;
    }
    return static_cast<Level>(found - std::begin(level_names));
}

EventLog::EventLog(int descriptor, Level least, Clock clock)
    : descriptor_(descriptor),
      least_(least),
      clock_(std::move(clock)),
      suppression_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (!suppression_) {
        throw std::system_error(errno, std::generic_category(), "eventfd");
    }
}

void EventLog::write(Level level, std::string_view event, LogFields fields)
{
    if (!writes(level)) {
        return;
    }
    const std::string text = text_of(fields);
    const std::lock_guard lock(mutex_);
    write_line(level, event, text);
}

void EventLog::write_limited(Level level, std::string_view event, LogFields distinct, LogFields fields)
{
    if (!writes(level)) {
        return;
    }
    const std::string identity = text_of(distinct);
    const std::string text = identity + text_of(fields);
    const std::lock_guard lock(mutex_);
    if (admit(std::string(event) + identity)) {
        write_line(level, event, text);
    } else {
        suppress();
    }
}

bool EventLog::admit(const std::string &event)
{
    if (seen_.size() < most_distinct && seen_.insert(event).second) {
        return true;
    }
    const auto now = clock_();
    if (now - second_began_ >= std::chrono::seconds(1)) {
        second_began_ = now;
        repeats_ = 0;
    }
    return repeats_++ < most_repeats_a_second;
}

void EventLog::report_suppressed()
{
    const std::lock_guard lock(mutex_);
    write_suppressed();
}

void EventLog::suppress()
{
    if (suppressed_++ == 0) {
        eventfd_write(suppression_.number(), 1);
    }
}

void EventLog::write_suppressed()
{
    if (suppressed_ == 0 || !print(Level::warning, "log-suppressed", fmt::format(" lines={}", suppressed_))) {
        return;
    }
    eventfd_t unused;
    eventfd_read(suppression_.number(), &unused);
    suppressed_ = 0;
}

void EventLog::write_line(Level level, std::string_view event, std::string_view fields)
{
    write_suppressed();
    if (suppressed_ != 0 || !print(level, event, fields)) {
        suppress();
    }
}

// One write a line, so that lines of several processes on one terminal do not mix. A log that cannot be written is no
// reason to stop serving: a pipe that nobody reads takes no line, and one of PIPE_BUF bytes as a whole or not at all.
bool EventLog::print(Level level, std::string_view event, std::string_view fields) const
{
    const auto now = std::chrono::system_clock::now();
    const auto milliseconds =
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
    std::string line =
        fmt::format("{:%Y-%m-%dT%H:%M:%S}.{:03}Z {} {}{}\n", fmt::gmtime(std::chrono::system_clock::to_time_t(now)),
                    milliseconds, level_names[static_cast<size_t>(level)], event, fields);
    constexpr std::string_view cut = "...\n";
    if (line.size() > PIPE_BUF) {
        line.replace(PIPE_BUF - cut.size(), std::string::npos, cut);
    }
    pollfd log = {.fd = descriptor_, .events = POLLOUT, .revents = 0};
    return poll(&log, 1, 0) == 1 && (log.revents & POLLOUT) != 0 && ::write(descriptor_, line.data(), line.size()) >= 0;
}

}  // namespace quillon::driver
