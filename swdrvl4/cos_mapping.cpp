// Class-of-service mapping, of the whole switch and of one port.
#include <stdint.h>

#include "ipc/exchange.h"
#include "quillon/swdrvl4.h"
#include "swdrvl4/commands.h"

namespace swdrvl4 = quillon::swdrvl4;
using quillon::ipc::call;

uint8_t DEV_SWDRVL4_PMGR_EnableCosMapping(uint32_t mapping)
{
    return call<swdrvl4::EnableCosMapping>({.value = mapping});
}

uint8_t DEV_SWDRVL4_PMGR_EnablePortCosMapping(uint32_t unit, uint32_t port, uint32_t mapping)
{
    return call<swdrvl4::EnablePortCosMapping>({.unit = unit, .port = port, .value = mapping});
}

uint8_t DEV_SWDRVL4_PMGR_DisableCosMapping(uint32_t mapping)
{
    return call<swdrvl4::DisableCosMapping>({.value = mapping});
}

uint8_t DEV_SWDRVL4_PMGR_DisablePortCosMapping(uint32_t unit, uint32_t port, uint32_t mapping)
{
    return call<swdrvl4::DisablePortCosMapping>({.unit = unit, .port = port, .value = mapping});
}

uint8_t DEV_SWDRVL4_PMGR_SetCosMapping(uint32_t mapping, uint32_t value, uint32_t priority)
{
    return call<swdrvl4::SetCosMapping>({.mapping = mapping, .value = value, .priority = priority});
}

uint8_t DEV_SWDRVL4_PMGR_SetPortCosMapping(uint32_t unit, uint32_t port, uint32_t mapping, uint32_t value,
                                           uint32_t priority)
{
    return call<swdrvl4::SetPortCosMapping>(
        {.unit = unit, .port = port, .mapping = mapping, .value = value, .priority = priority});
}

uint8_t DEV_SWDRVL4_PMGR_DeleteCosMapping(uint32_t mapping, uint32_t value, uint32_t priority)
{
    return call<swdrvl4::DeleteCosMapping>({.mapping = mapping, .value = value, .priority = priority});
}

uint8_t DEV_SWDRVL4_PMGR_DeletePortCosMapping(uint32_t unit, uint32_t port, uint32_t mapping, uint32_t value,
                                              uint32_t priority)
{
    return call<swdrvl4::DeletePortCosMapping>(
        {.unit = unit, .port = port, .mapping = mapping, .value = value, .priority = priority});
}
