// Mirroring of ports, VLANs, MAC addresses and access-control lists.
#include <stdint.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;

uint8_t DEV_SWDRV_PMGR_SetPortMirroring(uint32_t value1, uint32_t value2, uint32_t value3)
{
    return call<swdrv::SetPortMirroring>({.values = {value1, value2, value3}});
}

uint8_t DEV_SWDRV_PMGR_DeletePortMirroring(uint32_t value1, uint32_t value2)
{
    return call<swdrv::DeletePortMirroring>({.values = {value1, value2}});
}

uint8_t DEV_SWDRV_PMGR_EnablePortMirroring(uint32_t value)
{
    return call<swdrv::EnablePortMirroring>({.value = value});
}

uint8_t DEV_SWDRV_PMGR_DisablePortMirroring(uint32_t value)
{
    return call<swdrv::DisablePortMirroring>({.value = value});
}

uint8_t DEV_SWDRV_PMGR_AddVlanMirror(uint32_t value1, uint32_t value2, uint32_t value3)
{
    return call<swdrv::AddVlanMirror>({.values = {value1, value2, value3}});
}

uint8_t DEV_SWDRV_PMGR_DeleteVlanMirror(uint32_t value1, uint32_t value2, uint32_t value3)
{
    return call<swdrv::DeleteVlanMirror>({.values = {value1, value2, value3}});
}

uint8_t DEV_SWDRV_PMGR_SetDestPortForMacMirror(uint32_t unit, uint32_t port, uint8_t flag)
{
    return call<swdrv::SetDestPortForMacMirror>({.unit = unit, .port = port, .value = flag});
}

uint8_t DEV_SWDRV_PMGR_SetDestPortForAclMirror(uint32_t unit, uint32_t port, uint8_t flag)
{
    return call<swdrv::SetDestPortForAclMirror>({.unit = unit, .port = port, .value = flag});
}
