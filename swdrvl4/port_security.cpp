// Port security.
#include <stdint.h>

#include "ipc/exchange.h"
#include "quillon/swdrvl4.h"
#include "swdrvl4/commands.h"

namespace swdrvl4 = quillon::swdrvl4;
using quillon::ipc::call;

uint8_t DEV_SWDRVL4_PMGR_EnablePortSecurity(uint32_t unit, uint32_t port)
{
    return call<swdrvl4::EnablePortSecurity>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRVL4_PMGR_DisablePortSecurity(uint32_t unit, uint32_t port)
{
    return call<swdrvl4::DisablePortSecurity>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRVL4_PMGR_SetPortSecurityMode(uint32_t unit, uint32_t port, uint32_t mode)
{
    return call<swdrvl4::SetPortSecurityMode>({.unit = unit, .port = port, .value = mode});
}
