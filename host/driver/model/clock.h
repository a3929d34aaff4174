// The time that the model goes by.
#pragma once

#include <chrono>
#include <functional>

namespace quillon::driver {

using Time = std::chrono::steady_clock::time_point;
using Clock = std::function<Time()>;

}  // namespace quillon::driver
