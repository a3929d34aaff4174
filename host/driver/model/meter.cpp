#include "host/driver/model/meter.h"

#include <algorithm>
#include <utility>

namespace quillon::driver {

void Meter::fill(Time now)
{
    const std::chrono::duration<double> elapsed = now - std::exchange(filled_, now).value_or(now);
    const double bytes = elapsed.count() * static_cast<double>(rate_.committed_rate) / 8;
    const double room = static_cast<double>(rate_.committed_burst) - committed_;
    committed_ += std::min(bytes, room);
    excess_ = std::min(excess_ + std::max(bytes - room, 0.0), static_cast<double>(rate_.excess_burst));
}

Colour Meter::colour(size_t bytes, Time now)
{
    fill(now);
    const auto size = static_cast<double>(bytes);
    if (size <= committed_) {
        committed_ -= size;
        return Colour::green;
    }
    if (size <= excess_) {
        excess_ -= size;
        return Colour::yellow;
    }
    return Colour::red;
}

}  // namespace quillon::driver
