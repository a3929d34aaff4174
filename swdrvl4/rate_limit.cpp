// Ingress and egress rate limits of a port.
#include <stdint.h>

#include "ipc/exchange.h"
#include "quillon/swdrvl4.h"
#include "swdrvl4/commands.h"

namespace swdrvl4 = quillon::swdrvl4;
using quillon::ipc::call;

uint8_t DEV_SWDRVL4_PMGR_EnablePortIngressRateLimit(uint32_t unit, uint32_t port)
{
    return call<swdrvl4::EnablePortIngressRateLimit>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRVL4_PMGR_DisablePortIngressRateLimit(uint32_t unit, uint32_t port)
{
    return call<swdrvl4::DisablePortIngressRateLimit>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRVL4_PMGR_SetPortIngressRateLimit(uint32_t unit, uint32_t port, uint32_t rate)
{
    return call<swdrvl4::SetPortIngressRateLimit>({.unit = unit, .port = port, .value = rate});
}

uint8_t DEV_SWDRVL4_PMGR_EnablePortEgressRateLimit(uint32_t unit, uint32_t port)
{
    return call<swdrvl4::EnablePortEgressRateLimit>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRVL4_PMGR_DisablePortEgressRateLimit(uint32_t unit, uint32_t port)
{
    return call<swdrvl4::DisablePortEgressRateLimit>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRVL4_PMGR_SetPortEgressRateLimit(uint32_t unit, uint32_t port, uint32_t rate)
{
    return call<swdrvl4::SetPortEgressRateLimit>({.unit = unit, .port = port, .value = rate});
}
