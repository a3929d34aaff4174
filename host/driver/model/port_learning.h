// What a port does with source addresses that are new to it.
#pragma once

namespace quillon::driver {

struct PortLearning {
    bool learns = true;
    bool tells_cpu = false;
    bool drops_unknown = false;        // frames from addresses that are not learned
    bool learns_from_mirrored = true;  // from frames of remote mirroring (RSPAN)

    bool operator==(const PortLearning &) const = default;
};

}  // namespace quillon::driver
