// How long frames may be.
#pragma once

#include <stdint.h>

#include <optional>

#include "host/driver/model/per_port.h"
#include "host/driver/model/stack.h"

namespace quillon::driver {

// Bytes from the destination address to the check sequence.
struct FrameSize {
    uint32_t untagged;
    uint32_t tagged;

    bool operator==(const FrameSize &) const = default;
};

constexpr bool is_mtu(uint32_t bytes)
{
    return bytes >= 68 && bytes <= 9216;
}

class FrameSizes {
  public:
    explicit FrameSizes(const Stack &stack) : ports_(stack) {}

    void set_jumbo_frames(bool carried) { jumbo_frames_ = carried; }

    // What follows returns false, and changes nothing, for ports that do not exist and MTUs that none can have.

    // The MTU of all ports, without jumbo frames and with them. False also when the second one is smaller.
    bool set_system_mtu(uint32_t standard, uint32_t jumbo);
    // Sets the one of them that holds; without jumbo frames the other one follows where it would be smaller.
    bool set_largest_untagged(uint32_t frame);
    // Takes the place of the system's on tunnel ports, which carry a tag more.
    bool set_tunnel_mtu(uint32_t mtu);
    // Makes a port's MTU smaller than that; it never makes it larger.
    bool set_port_mtu(const LogicalPort &port, uint32_t mtu);

    // Nothing for a port that does not exist.
    std::optional<FrameSize> largest(const LogicalPort &port, bool is_tunnel) const;

  private:
    struct PortMtu {
        uint32_t mtu = 9216;
    };

    bool jumbo_frames_ = false;
    uint32_t standard_mtu_ = 1500;
    uint32_t jumbo_mtu_ = 9216;
    uint32_t tunnel_mtu_ = 1504;
    PerPort<PortMtu> ports_;
};

}  // namespace quillon::driver
