// 802.1Q tunnels of ports.
#include <stdint.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;
using quillon::ipc::into;

uint8_t DEV_SWDRV_PMGR_SetPortDot1qTunnelMTU(uint32_t mtu)
{
    return call<swdrv::SetPortDot1qTunnelMTU>({.value = mtu});
}

uint8_t DEV_SWDRV_PMGR_SetPortDot1qTunnelMode(uint32_t unit, uint32_t port, uint8_t mode)
{
    return call<swdrv::SetPortDot1qTunnelMode>({.unit = unit, .port = port, .value = mode});
}

uint8_t DEV_SWDRV_PMGR_GetPortDot1qTunnelModeofLocalPort(uint32_t unit, uint32_t port, uint8_t *mode)
{
    return call<swdrv::GetPortDot1qTunnelModeofLocalPort>({.unit = unit, .port = port}, into(mode));
}

uint8_t DEV_SWDRV_PMGR_SetPortDot1qTunnelTPID(uint32_t unit, uint32_t port, uint32_t tpid)
{
    return call<swdrv::SetPortDot1qTunnelTPID>({.unit = unit, .port = port, .value = tpid});
}

uint8_t DEV_SWDRV_PMGR_GetPortDot1qTunnelTPIDofLocalPort(uint32_t unit, uint32_t port, uint32_t *tpid)
{
    return call<swdrv::GetPortDot1qTunnelTPIDofLocalPort>({.unit = unit, .port = port}, into(tpid));
}

uint8_t DEV_SWDRV_PMGR_SetPortDot1qTunnelVlanDoubleTag(uint32_t unit, uint32_t port, uint32_t value1, uint8_t value2,
                                                       uint32_t value3, uint32_t value4)
{
    return call<swdrv::SetPortDot1qTunnelVlanDoubleTag>(
        {.unit = unit, .port = port, .value1 = value1, .value2 = value2, .value3 = value3, .value4 = value4});
}

uint8_t DEV_SWDRV_PMGR_SetPortDot1qTunnelModeForReplaceVlan(uint32_t unit, uint32_t port, uint32_t mode)
{
    return call<swdrv::SetPortDot1qTunnelModeForReplaceVlan>({.unit = unit, .port = port, .value = mode});
}

uint8_t DEV_SWDRV_PMGR_SetPortDot1qTunnelReplaceVlan(uint32_t unit, uint32_t port, uint32_t value1, uint32_t value2,
                                                     uint32_t value3, uint8_t value4)
{
    return call<swdrv::SetPortDot1qTunnelReplaceVlan>(
        {.unit = unit, .port = port, .value1 = value1, .value2 = value2, .value3 = value3, .value4 = value4});
}
