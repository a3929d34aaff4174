// The stack of units: which ports there are, and on which chip each one is.
#pragma once

#include <stdint.h>

#include <compare>
#include <optional>

namespace quillon::driver {

// How large the stack is.
struct StackShape {
    static constexpr uint32_t most_units = 32;
    static constexpr uint32_t most_ports = 64;   // a list of ports is 64 bits on the wire
    static constexpr uint32_t most_chips = 255;  // their number is asked for as one byte

    uint32_t units = 2;
    uint32_t ports = 28;  // of each unit
    uint32_t chips = 2;   // of each unit
};

// A port as its users number it: both numbers begin with 1.
struct LogicalPort {
    uint32_t unit;
    uint32_t port;

    // NOLINTNEXTLINE(modernize-use-nullptr): takes the comparison for one of pointers
    auto operator<=>(const LogicalPort &) const = default;
};

// A port as the chips number it. Every chip of the stack has a module id of its own, beginning with 1; `device_id`
// counts the chips of one unit, beginning with 0; `phy_port` counts the ports of one chip, beginning with 1, for port 0
// of a chip is the one towards its CPU.
struct ChipPort {
    uint32_t module_id;
    uint32_t device_id;
    uint32_t phy_port;

    bool operator==(const ChipPort &) const = default;
};

// The ports of a unit are dealt out to its chips in order, in runs whose lengths differ by 1 at most.
class Stack {
  public:
    // The unit whose driver process this is.
    static constexpr uint32_t local_unit = 1;

    explicit Stack(const StackShape &shape) : shape_(shape) {}

    const StackShape &shape() const { return shape_; }
    bool has_unit(uint32_t unit) const { return unit >= 1 && unit <= shape_.units; }
    bool has(const LogicalPort &port) const;
    bool has_module(uint32_t module_id) const { return module_id >= 1 && module_id <= shape_.units * shape_.chips; }

    // Nothing for a unit, port, module or device that does not exist, or for numbers that do not belong together.
    std::optional<ChipPort> to_chip(const LogicalPort &port) const;
    std::optional<LogicalPort> to_logical(const ChipPort &port) const;
    std::optional<uint32_t> device_of(uint32_t unit, uint32_t module_id) const;
    std::optional<uint32_t> module_of(uint32_t unit, uint32_t device_id) const;

    // Of a module that exists.
    uint32_t unit_of(uint32_t module_id) const { return (module_id - 1) / shape_.chips + 1; }

  private:
    uint32_t ports_before(uint32_t device_id) const;

    StackShape shape_;
};

}  // namespace quillon::driver
