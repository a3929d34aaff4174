// Meters: whether packets come at the rate that they may, as the single-rate three-colour marker of RFC 2697 tells
// (colour-blind).
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <optional>

#include "host/driver/model/clock.h"

namespace quillon::driver {

enum class Colour : uint8_t { green, yellow, red };

struct MeterRate {
    uint64_t committed_rate;   // bits a second
    uint64_t committed_burst;  // bytes
    uint64_t excess_burst;     // bytes
};

class Meter {
  public:
    // Both bursts can be had at once.
    explicit Meter(const MeterRate &rate)
        : rate_(rate),
          committed_(static_cast<double>(rate.committed_burst)),
          excess_(static_cast<double>(rate.excess_burst))
    {
    }

    // Of a packet that comes now. Time does not go back.
    Colour colour(size_t bytes, Time now);

  private:
    void fill(Time now);

    MeterRate rate_;
    double committed_;  // bytes
    double excess_;
    std::optional<Time> filled_;
};

}  // namespace quillon::driver
