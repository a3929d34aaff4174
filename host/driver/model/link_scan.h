// The link scan. Link status here follows its causes at once, so that a pass of the scan finds nothing to bring up to
// date; that it was asked for is counted.
#pragma once

#include <stdint.h>

namespace quillon::driver {

struct LinkScan {
    bool registered = false;
    uint64_t passes = 0;
};

}  // namespace quillon::driver
