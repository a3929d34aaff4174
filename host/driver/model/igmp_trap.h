// Which IGMP packets are taken out of the stream and given to the CPU.
#pragma once

namespace quillon::driver {

struct IgmpTrap {
    bool enabled = false;
    bool reports = true;  // of hosts that join and leave
    bool queries = true;  // of routers

    bool operator==(const IgmpTrap &) const = default;
};

}  // namespace quillon::driver
