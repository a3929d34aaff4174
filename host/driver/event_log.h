// The driver process's log: one line an event, of time, level, event and key=value fields.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <chrono>
#include <functional>
#include <initializer_list>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <variant>

#include "host/platform/descriptor.h"

namespace quillon::driver {

enum class Level { debug, info, warning, error };

inline constexpr std::string_view level_names[] = {"debug", "info", "warning", "error"};

std::optional<Level> level_named(std::string_view name);

struct LogField {
    std::string_view key;
    std::variant<int64_t, std::string_view> value;  // an empty text leaves the field out
};

using LogFields = std::initializer_list<LogField>;

// Safe to use from several threads at once.
class EventLog {
  public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    // Writes to `descriptor` what is at least as severe as `least`. `clock` measures the limit below.
    EventLog(int descriptor, Level least, Clock clock = std::chrono::steady_clock::now);

    bool writes(Level level) const { return level >= least_; }

    void write(Level level, std::string_view event, LogFields fields);

    // For events that clients cause, as often as they like. An event whose `distinct` fields were not seen before is
    // always written, up to a number of different ones; of the others, a number a second. What is left out is counted,
    // as is any line that the descriptor does not take at once, and the number written before the next line or by
    // report_suppressed().
    void write_limited(Level level, std::string_view event, LogFields distinct, LogFields fields);

    static constexpr size_t most_distinct = 256;
    static constexpr int most_repeats_a_second = 10;

    // Readable as soon as something was left out that nobody was told of.
    int suppression_descriptor() const { return suppression_.number(); }
    void report_suppressed();

  private:
    bool admit(const std::string &event);
    bool print(Level level, std::string_view event, std::string_view fields) const;
    void write_line(Level level, std::string_view event, std::string_view fields);
    void write_suppressed();
    void suppress();

    const int descriptor_;
    const Level least_;
    const Clock clock_;
    const host::Descriptor suppression_;

    std::mutex mutex_;  // of all below, and of the order of lines
    std::unordered_set<std::string> seen_;
    std::chrono::steady_clock::time_point second_began_{};
    int repeats_ = 0;
    uint64_t suppressed_ = 0;
};

}  // namespace quillon::driver
