// The locking rule of the driver process.
//
// The queues are served by a thread each, and what they share stands in one Guarded object a subject: the switch, and
// whatever is slow enough to be kept apart from it. A handler
//
// - reads and writes shared state only through lock(), and holds one lock at a time. What a range-based for goes over
// is
//   held by an Access with a name: one without is gone before the first round;
// - does not wait, send, answer a parked request or write the log while it holds it;
// - makes all changes of one request under one lock, so that other requests see all of them or none.
//
// Classes of the model know nothing of locks.
#pragma once

#include <mutex>
#include <utility>

namespace quillon::driver {

template <class T>
class Guarded {
  public:
    template <class... Arguments>
    explicit Guarded(Arguments &&...arguments) : value_(std::forward<Arguments>(arguments)...)
    {
    }

    // The right to use the value, for as long as the object lives.
    class Access {
      public:
        T *operator->() const { return value_; }
        T &operator*() const { return *value_; }

      private:
        friend class Guarded;
        Access(std::mutex &mutex, T &value) : lock_(mutex), value_(&value) {}

        std::unique_lock<std::mutex> lock_;
        T *value_;
    };

    [[nodiscard]] Access lock() { return Access(mutex_, value_); }

  private:
    std::mutex mutex_;
    T value_;
};

}  // namespace quillon::driver
