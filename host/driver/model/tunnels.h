// 802.1Q tunnels: what ports do with the tags of a customer's frames.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <map>

#include "host/driver/model/per_port.h"
#include "host/driver/model/stack.h"
#include "host/driver/model/vlans.h"

namespace quillon::driver {

enum class TunnelMode : uint8_t { off, customer_side, provider_side };

// When a port replaces the VLANs of frames.
struct ReplaceMode {
    bool incoming = false;
    bool outgoing = false;

    bool operator==(const ReplaceMode &) const = default;
};

// Smaller numbers are lengths, not protocols.
constexpr bool is_tpid(uint32_t value)
{
    return value >= 0x0600 && value <= 0xFFFF;
}

struct ServiceTag {
    uint32_t vlan;
    uint32_t priority;

    bool operator==(const ServiceTag &) const = default;
};

// What customer VLANs are mapped to.
using ServiceTags = std::map<uint32_t, ServiceTag>;

struct PortTunnel {
    TunnelMode mode = TunnelMode::off;
    uint32_t tpid = 0x8100;
    ReplaceMode replace_mode;
    ServiceTags double_tags;   // the tag that is put in front
    ServiceTags replacements;  // the tag that is put in place

    bool operator==(const PortTunnel &) const = default;
};

class Tunnels {
  public:
    // Of a port, of each of the two kinds.
    static constexpr size_t most_mappings = 128;

    explicit Tunnels(const Stack &stack) : ports_(stack) {}

    const PortTunnel *find(const LogicalPort &port) const { return ports_.find(port); }

    // What follows returns false, and changes nothing, for ports and service VLANs that do not exist and for values
    // out of range.

    bool set_mode(const LogicalPort &port, TunnelMode mode);
    bool set_tpid(const LogicalPort &port, uint32_t tpid);
    bool set_replace_mode(const LogicalPort &port, ReplaceMode mode);

    // Maps a customer VLAN anew when it is mapped. False also when the port has the most mappings.
    bool map(ServiceTags PortTunnel::*kind, const Vlans &vlans, const LogicalPort &port, uint32_t customer_vlan,
             const ServiceTag &tag);
    // False when it is not mapped.
    bool unmap(ServiceTags PortTunnel::*kind, const LogicalPort &port, uint32_t customer_vlan);

    // Ends the mappings to a service VLAN.
    void forget_vlan(uint32_t vlan);

  private:
    PerPort<PortTunnel> ports_;
};

}  // namespace quillon::driver
