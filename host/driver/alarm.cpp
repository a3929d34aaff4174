#include "host/driver/alarm.h"

#include <algorithm>
#include <utility>

namespace quillon::driver {

Alarm::Alarm(Ring ring) : ring_(std::move(ring)), thread_([this] { run(); }) {}

Alarm::~Alarm()
{
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    changed_.notify_one();
    thread_.join();
}

void Alarm::set(Clock::time_point time)
{
    {
        const std::lock_guard lock(mutex_);
        bring_forward(time);
    }
    changed_.notify_one();
}

void Alarm::bring_forward(Clock::time_point time)
{
    next_ = next_ ? std::min(*next_, time) : time;
}

void Alarm::run()
{
    std::unique_lock lock(mutex_);
    while (!ends_) {
        if (!next_) {
            changed_.wait(lock);
        } else if (Clock::now() < *next_) {
            changed_.wait_until(lock, Clock::time_point(*next_));
        } else {
            next_.reset();
            lock.unlock();
            const auto again = ring_();
            lock.lock();
            if (again) {
                bring_forward(*again);
            }
        }
    }
}

}  // namespace quillon::driver
