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

    // Null for a port that does not exist.
    T *find(const LogicalPort &port) { return stack_.has(port) ? &values_[index(port)] : nullptr; }
    const T *find(const LogicalPort &port) const { return stack_.has(port) ? &values_[index(port)] : nullptr; }

    void reset() { values_.assign(values_.size(), T()); }

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
