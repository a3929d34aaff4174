// What a 1000BASE-SX module says of itself, as SFF-8472 lays it out.
#pragma once

#include <stdint.h>

#include <vector>

namespace quillon::driver {

// The 256 bytes at address A0h.
std::vector<uint8_t> sfp_identity_of(uint32_t serial_number);

// The 256 bytes at address A2h.
std::vector<uint8_t> sfp_diagnostics_page();

}  // namespace quillon::driver
