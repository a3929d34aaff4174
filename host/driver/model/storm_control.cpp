#include "host/driver/model/storm_control.h"

#include "host/driver/model/port_type.h"

namespace quillon::driver {
namespace {

size_t index_of(StormKind kind)
{
    return static_cast<size_t>(kind);
}

uint32_t capacity_of(const Stack &stack, const LogicalPort &port)
{
    return capacity_of(port_type_of(port.port, stack.shape().ports));
}

uint32_t most(StormUnit unit, uint32_t capacity)
{
    // The shortest frame with the preamble in front of it and the gap behind it.
    constexpr uint32_t bits_of_shortest_frame = (64 + 8 + 12) * 8;
    switch (unit) {
        case StormUnit::packets_per_second:
            return static_cast<uint32_t>(uint64_t{capacity} * 1000 / bits_of_shortest_frame);
        case StormUnit::kilobits_per_second:
            return capacity;
        case StormUnit::percent:
            break;
    }
    return 100;
}

// The chips count bits in steps of 1/15625 of what a port can carry.
uint32_t step(StormUnit unit, uint32_t capacity)
{
    return unit == StormUnit::kilobits_per_second ? capacity / 15625 : 1;
}

}  // namespace

const StormLimit &StormControl::limit(StormKind kind, const LogicalPort &port) const
{
    return ports_.find(port)->at(index_of(kind));
}

std::optional<uint32_t> StormControl::granularity(const LogicalPort &port, StormUnit unit) const
{
    return stack_.has(port) ? std::optional(step(unit, capacity_of(stack_, port))) : std::nullopt;
}

bool StormControl::enable(StormKind kind, const LogicalPort &port, bool enabled)
{
    Limits *const limits = ports_.find(port);
    if (limits == nullptr) {
        return false;
    }
    limits->at(index_of(kind)).enabled = enabled;
    return true;
}

bool StormControl::set_threshold(StormKind kind, const LogicalPort &port, StormUnit unit, uint32_t threshold)
{
    Limits *const limits = ports_.find(port);
    if (limits == nullptr) {
        return false;
    }
    const uint32_t capacity = capacity_of(stack_, port);
    // NOLINTNEXTLINE(clang-analyzer-core.DivideZero): no port carries less than a step
    if (threshold % step(unit, capacity) != 0 || threshold > most(unit, capacity)) {
        return false;
    }
    StormLimit &limit = limits->at(index_of(kind));
    limit.unit = unit;
    limit.threshold = threshold;
    return true;
}

}  // namespace quillon::driver
