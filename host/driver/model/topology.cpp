#include "host/driver/model/topology.h"

namespace quillon::driver {
namespace {

constexpr Topology::UnitMask bit_of(uint32_t unit)
{
    return unit >= 1 && unit <= StackShape::most_units ? Topology::UnitMask{1} << (unit - 1) : 0;
}

}  // namespace

Topology::Topology(const Stack &stack)
{
    const uint32_t others = stack.shape().units - 1;
    for (uint32_t distance = 1; distance <= others; ++distance) {
        const bool upwards = distance <= (others + 1) / 2;
        reached_[upwards ? 0 : 1] |= bit_of(Stack::local_unit + distance);
    }
}

bool Topology::set(const Stack &stack, const std::array<UnitMask, stacking_ports> &reached, uint32_t master)
{
    const UnitMask units = ~UnitMask{0} >> (StackShape::most_units - stack.shape().units);
    const UnitMask others = units & ~bit_of(Stack::local_unit);
    const UnitMask all = reached[0] | reached[1];
    if ((all & ~others) != 0 || (reached[0] & reached[1]) != 0 ||
        (bit_of(master) & (all | bit_of(Stack::local_unit))) == 0) {
        return false;
    }
    reached_ = reached;
    master_ = master;
    return true;
}

std::optional<uint32_t> Topology::port_towards(uint32_t unit) const
{
    if (unit == Stack::local_unit) {
        return 0;
    }
    for (uint32_t port = 1; port <= stacking_ports; ++port) {
        if ((reached_[port - 1] & bit_of(unit)) != 0) {
            return port;
        }
    }
    return std::nullopt;
}

uint32_t Topology::forwarding_ports() const
{
    uint32_t forwarding = 0;
    for (uint32_t port = 1; port <= stacking_ports; ++port) {
        forwarding |= (reached_[port - 1] != 0 ? 1U : 0U) << (port - 1);
    }
    return forwarding;
}

}  // namespace quillon::driver
