// What becomes of a change to one of the routing tables.
#pragma once

#include <stdint.h>

namespace quillon::driver {

enum class TableStatus : uint8_t {
    done,
    exists,      // it is there already
    absent,      // it is not there
    full,        // no room for it
    invalid,     // there can be no such thing
    unresolved,  // what it leads to is not there
    in_use,      // something leads to it
};

}  // namespace quillon::driver
