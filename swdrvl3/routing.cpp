// Routing on and off.
#include <stdint.h>

#include "ipc/exchange.h"
#include "quillon/swdrvl3.h"
#include "swdrvl3/commands.h"

namespace swdrvl3 = quillon::swdrvl3;
using quillon::ipc::call;

uint8_t DEV_SWDRVL3_PMGR_EnableUnicastStormProtect(uint32_t arg1, uint32_t arg2)
{
    return call<swdrvl3::EnableUnicastStormProtect>({.arg1 = arg1, .arg2 = arg2});
}

uint8_t DEV_SWDRVL3_PMGR_DisableUnicastStormProtect(uint32_t arg1, uint32_t arg2)
{
    return call<swdrvl3::DisableUnicastStormProtect>({.arg1 = arg1, .arg2 = arg2});
}

uint8_t DEV_SWDRVL3_PMGR_EnableRouting(uint32_t arg1, uint32_t arg2)
{
    return call<swdrvl3::EnableRouting>({.arg1 = arg1, .arg2 = arg2});
}

uint8_t DEV_SWDRVL3_PMGR_EnableIPv4Routing(uint32_t arg1, uint32_t arg2)
{
    return call<swdrvl3::EnableIPv4Routing>({.arg1 = arg1, .arg2 = arg2});
}

uint8_t DEV_SWDRVL3_PMGR_EnableIPv6Routing(uint32_t arg1, uint32_t arg2)
{
    return call<swdrvl3::EnableIPv6Routing>({.arg1 = arg1, .arg2 = arg2});
}

uint8_t DEV_SWDRVL3_PMGR_DisableRouting(uint32_t arg1, uint32_t arg2)
{
    return call<swdrvl3::DisableRouting>({.arg1 = arg1, .arg2 = arg2});
}

uint8_t DEV_SWDRVL3_PMGR_DisableIPv4Routing(uint32_t arg1, uint32_t arg2)
{
    return call<swdrvl3::DisableIPv4Routing>({.arg1 = arg1, .arg2 = arg2});
}

uint8_t DEV_SWDRVL3_PMGR_DisableIPv6Routing(uint32_t arg1, uint32_t arg2)
{
    return call<swdrvl3::DisableIPv6Routing>({.arg1 = arg1, .arg2 = arg2});
}
