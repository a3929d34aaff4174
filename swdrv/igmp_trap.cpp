// The trap of IGMP packets to the CPU.
#include <stdint.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;

uint8_t DEV_SWDRV_PMGR_EnableIgmpTrap(void)
{
    return call<swdrv::EnableIgmpTrap>();
}

uint8_t DEV_SWDRV_PMGR_DisableIgmpTrap(void)
{
    return call<swdrv::DisableIgmpTrap>();
}

uint8_t DEV_SWDRV_PMGR_TrapIGMPToCPU(uint8_t value1, uint8_t value2)
{
    return call<swdrv::TrapIGMPToCPU>({.values = {value1, value2}});
}
