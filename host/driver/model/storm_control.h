// Limits on frames that are flooded.
#pragma once

#include <stdint.h>

#include <array>
#include <optional>

#include "host/driver/model/per_port.h"
#include "host/driver/model/stack.h"

namespace quillon::driver {

enum class StormKind : uint8_t { broadcast, multicast, unknown_unicast };

enum class StormUnit : uint8_t { packets_per_second, kilobits_per_second, percent };

struct StormLimit {
    bool enabled = false;
    StormUnit unit = StormUnit::packets_per_second;
    uint32_t threshold = 500;

    bool operator==(const StormLimit &) const = default;
};

class StormControl {
  public:
    explicit StormControl(const Stack &stack) : stack_(stack), ports_(stack) {}

    // Of a port that exists.
    const StormLimit &limit(StormKind kind, const LogicalPort &port) const;

    // The step in which a port's thresholds can be set. Nothing for a port that does not exist.
    std::optional<uint32_t> granularity(const LogicalPort &port, StormUnit unit) const;

    // False for a port that does not exist; nothing changes then.
    bool enable(StormKind kind, const LogicalPort &port, bool enabled);
    // False also for a threshold that is between two steps, or above what the port can carry.
    bool set_threshold(StormKind kind, const LogicalPort &port, StormUnit unit, uint32_t threshold);

  private:
    using Limits = std::array<StormLimit, 3>;

    Stack stack_;
    PerPort<Limits> ports_;
};

}  // namespace quillon::driver
