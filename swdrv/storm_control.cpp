// Storm control of ports.
#include <stdint.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;
using quillon::ipc::into;

uint8_t DEV_SWDRV_PMGR_SetBroadcastStormControlThreshold(uint32_t value1, uint32_t value2, uint32_t value3,
                                                         uint32_t value4)
{
    return call<swdrv::SetBroadcastStormControlThreshold>({.values = {value1, value2, value3, value4}});
}

uint8_t DEV_SWDRV_PMGR_SetMulticastStormControlThreshold(uint32_t value1, uint32_t value2, uint32_t value3,
                                                         uint32_t value4)
{
    return call<swdrv::SetMulticastStormControlThreshold>({.values = {value1, value2, value3, value4}});
}

uint8_t DEV_SWDRV_PMGR_SetUnknownUnicastStormControlThreshold(uint32_t value1, uint32_t value2, uint32_t value3,
                                                              uint32_t value4)
{
    return call<swdrv::SetUnknownUnicastStormControlThreshold>({.values = {value1, value2, value3, value4}});
}

uint8_t DEV_SWDRV_PMGR_EnableBroadcastStormControl(uint32_t unit, uint32_t port)
{
    return call<swdrv::EnableBroadcastStormControl>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_DisableBroadcastStormControl(uint32_t unit, uint32_t port)
{
    return call<swdrv::DisableBroadcastStormControl>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_EnableMulticastStormControl(uint32_t unit, uint32_t port)
{
    return call<swdrv::EnableMulticastStormControl>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_DisableMulticastStormControl(uint32_t unit, uint32_t port)
{
    return call<swdrv::DisableMulticastStormControl>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_EnableUnknownUnicastStormControl(uint32_t unit, uint32_t port)
{
    return call<swdrv::EnableUnknownUnicastStormControl>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_DisableUnknownUnicastStormControl(uint32_t unit, uint32_t port)
{
    return call<swdrv::DisableUnknownUnicastStormControl>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_GetPortStormGranularity(uint32_t unit, uint32_t port, uint32_t value, uint32_t *granularity)
{
    return call<swdrv::GetPortStormGranularity>({.unit = unit, .port = port, .value = value}, into(granularity));
}
