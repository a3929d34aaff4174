// A thread that wakes up when a time has come.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace quillon::driver {

class Alarm {
  public:
    using Clock = std::chrono::steady_clock;

    // What is done when the alarm goes off, on the alarm's thread. Returns when it is to go off again, if it is.
    using Ring = std::function<std::optional<Clock::time_point>()>;

    explicit Alarm(Ring ring);
    ~Alarm();
    Alarm(const Alarm &) = delete;
    Alarm &operator=(const Alarm &) = delete;

    // Goes off at `time` at the latest.
    void set(Clock::time_point time);

  private:
    void run();
    void bring_forward(Clock::time_point time);

    const Ring ring_;
    std::mutex mutex_;  // of what follows
    std::condition_variable changed_;
    std::optional<Clock::time_point> next_;
    bool ends_ = false;

    std::thread thread_;
};

}  // namespace quillon::driver
