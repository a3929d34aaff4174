// A value for every port of the stack.
#pragma once

#include <stddef.h>

#include <vector>

#include "host/driver/model/stack.h"

namespace quillon::driver {

template <class T>
class PerPort {
  public:
    explicit PerPort(const Stack &stack) : stack_(stack), values_(count(stack)) {}

    // The value of each port is what `make` gives for it.
    template <class Make>
    PerPort(const Stack &stack, Make make) : stack_(stack)
    {
        values_.reserve(count(stack));
        for (LogicalPort port{.unit = 1, .port = 1}; stack.has(port); ++port.unit) {
            for (port.port = 1; stack.has(port); ++port.port) {
                values_.push_back(make(port));
            }
            port.port = 1;
        }
    }

    // Null for a port that does not exist.
    T *find(const LogicalPort &port) { return stack_.has(port) ? &values_[index(port)] : nullptr; }
    const T *find(const LogicalPort &port) const { return stack_.has(port) ? &values_[index(port)] : nullptr; }

    auto begin() { return values_.begin(); }
    auto end() { return values_.end(); }
    auto begin() const { return values_.begin(); }
    auto end() const { return values_.end(); }

  private:
    static size_t count(const Stack &stack) { return size_t{stack.shape().units} * stack.shape().ports; }
    size_t index(const LogicalPort &port) const
    {
        return size_t{port.unit - 1} * stack_.shape().ports + (port.port - 1);
    }

    Stack stack_;
    std::vector<T> values_;
};

}  // namespace quillon::driver
