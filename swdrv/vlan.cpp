// VLANs, their member ports and the frames that ports admit.
#include <stdint.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;

uint8_t DEV_SWDRV_PMGR_SetPortPVID(uint32_t unit, uint32_t port, uint32_t vlan_id)
{
    return call<swdrv::SetPortPVID>({.unit = unit, .port = port, .vlan_id = vlan_id});
}

uint8_t DEV_SWDRV_PMGR_CreateVlan(uint32_t vlan_id)
{
    return call<swdrv::CreateVlan>({.vlan_id = vlan_id});
}

uint8_t DEV_SWDRV_PMGR_DestroyVlan(uint32_t vlan_id)
{
    return call<swdrv::DestroyVlan>({.vlan_id = vlan_id});
}

uint8_t DEV_SWDRV_PMGR_SetGlobalDefaultVlan(uint32_t vlan_id)
{
    return call<swdrv::SetGlobalDefaultVlan>({.vlan_id = vlan_id});
}

uint8_t DEV_SWDRV_PMGR_DeletePortUntaggedVlanSet(uint32_t unit, uint32_t port, uint32_t vlan_id)
{
    return call<swdrv::DeletePortUntaggedVlanSet>({.unit = unit, .port = port, .vlan_id = vlan_id});
}

uint8_t DEV_SWDRV_PMGR_DeletePortDoubleVlanMemberSet(uint32_t unit, uint32_t port, uint32_t vlan_id)
{
    return call<swdrv::DeletePortDoubleVlanMemberSet>({.unit = unit, .port = port, .vlan_id = vlan_id});
}

uint8_t DEV_SWDRV_PMGR_AddPortUntaggedVlanSet(uint32_t unit, uint32_t port, uint32_t vlan_id)
{
    return call<swdrv::AddPortUntaggedVlanSet>({.unit = unit, .port = port, .vlan_id = vlan_id});
}

uint8_t DEV_SWDRV_PMGR_AddPortDoubleVlanMemberSet(uint32_t unit, uint32_t port, uint32_t vlan_id)
{
    return call<swdrv::AddPortDoubleVlanMemberSet>({.unit = unit, .port = port, .vlan_id = vlan_id});
}

uint8_t DEV_SWDRV_PMGR_DeletePortVlanSet(uint32_t unit, uint32_t port, uint32_t vlan_id)
{
    return call<swdrv::DeletePortVlanSet>({.unit = unit, .port = port, .vlan_id = vlan_id});
}

uint8_t DEV_SWDRV_PMGR_AddPortVlanSet(uint32_t unit, uint32_t port, uint32_t vlan_id)
{
    return call<swdrv::AddPortVlanSet>({.unit = unit, .port = port, .vlan_id = vlan_id});
}

// The three port sets are irregular: only the first word of the caller's bitmap is read and sent.
uint8_t DEV_SWDRV_PMGR_SetPortToVlanMemberSet(uint32_t value1, uint32_t value2, const uint32_t *port_bitmap)
{
    return call<swdrv::SetPortToVlanMemberSet>({.value1 = value1, .value2 = value2, .port_bitmap = *port_bitmap});
}

uint8_t DEV_SWDRV_PMGR_SetPortToVlanUntaggedSet(uint32_t value1, uint32_t value2, const uint32_t *port_bitmap)
{
    return call<swdrv::SetPortToVlanUntaggedSet>({.value1 = value1, .value2 = value2, .port_bitmap = *port_bitmap});
}

uint8_t DEV_SWDRV_PMGR_SetPortToDoubleVlanSet(uint32_t value1, uint32_t value2, const uint32_t *port_bitmap)
{
    return call<swdrv::SetPortToDoubleVlanSet>({.value1 = value1, .value2 = value2, .port_bitmap = *port_bitmap});
}

uint8_t DEV_SWDRV_PMGR_EnableIngressFilter(uint32_t unit, uint32_t port)
{
    return call<swdrv::EnableIngressFilter>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_DisableIngressFilter(uint32_t unit, uint32_t port)
{
    return call<swdrv::DisableIngressFilter>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_AdmitOnlyVlanTaggedFrames(uint32_t unit, uint32_t port)
{
    return call<swdrv::AdmitOnlyVlanTaggedFrames>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_AdmitOnlyVlanUntaggedFrames(uint32_t unit, uint32_t port)
{
    return call<swdrv::AdmitOnlyVlanUntaggedFrames>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_AdmitAllFrames(uint32_t unit, uint32_t port)
{
    return call<swdrv::AdmitAllFrames>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_EnableTrapUnspecifiedTagFrame(void)
{
    return call<swdrv::EnableTrapUnspecifiedTagFrame>();
}

uint8_t DEV_SWDRV_PMGR_DisableTrapUnspecifiedTagFrame(void)
{
    return call<swdrv::DisableTrapUnspecifiedTagFrame>();
}

uint8_t DEV_SWDRV_PMGR_AddCpuToVlan(uint32_t vlan_id)
{
    return call<swdrv::AddCpuToVlan>({.vlan_id = vlan_id});
}

uint8_t DEV_SWDRV_PMGR_DeleteCpuFromVlan(uint32_t vlan_id)
{
    return call<swdrv::DeleteCpuFromVlan>({.vlan_id = vlan_id});
}
