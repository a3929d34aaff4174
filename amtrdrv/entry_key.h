// What requests find an entry by.
#pragma once

#include <stdint.h>
#include <string.h>

namespace quillon::amtrdrv {

// The VLAN and the address stand in different places of the members, under the same names.
inline void set_key(auto &request, uint32_t vlan, const uint8_t *mac)
{
    request.vlan = vlan;
    memcpy(request.mac.data(), mac, sizeof request.mac);
}

}  // namespace quillon::amtrdrv
