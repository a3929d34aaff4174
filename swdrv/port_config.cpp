// Port configuration and auto-negotiation.
#include <stdint.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;
using quillon::ipc::into;

uint8_t DEV_SWDRV_PMGR_EnablePortAdmin(uint32_t unit, uint32_t port)
{
    return call<swdrv::EnablePortAdmin>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_DisablePortAdmin(uint32_t unit, uint32_t port)
{
    return call<swdrv::DisablePortAdmin>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_DisableAllPortAdmin(void)
{
    return call<swdrv::DisableAllPortAdmin>();
}

uint8_t DEV_SWDRV_PMGR_SetPortCfgSpeedDuplex(uint32_t unit, uint32_t port, uint32_t speed_duplex)
{
    return call<swdrv::SetPortCfgSpeedDuplex>({.unit = unit, .port = port, .value = speed_duplex});
}

uint8_t DEV_SWDRV_PMGR_EnablePortAutoNeg(uint32_t unit, uint32_t port)
{
    return call<swdrv::EnablePortAutoNeg>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_DisablePortAutoNeg(uint32_t unit, uint32_t port)
{
    return call<swdrv::DisablePortAutoNeg>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_EnablePortCfgFlowCtrl(uint32_t unit, uint32_t port)
{
    return call<swdrv::EnablePortCfgFlowCtrl>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_DisablePortCfgFlowCtrl(uint32_t unit, uint32_t port)
{
    return call<swdrv::DisablePortCfgFlowCtrl>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_SetPortCfgFlowCtrl(uint32_t unit, uint32_t port, uint32_t flow_control)
{
    return call<swdrv::SetPortCfgFlowCtrl>({.unit = unit, .port = port, .value = flow_control});
}

uint8_t DEV_SWDRV_PMGR_SetPortAutoNegCapability(uint32_t unit, uint32_t port, uint32_t capability)
{
    return call<swdrv::SetPortAutoNegCapability>({.unit = unit, .port = port, .value = capability});
}

uint8_t DEV_SWDRV_PMGR_SetMiniGbicPortLEDStatus(uint32_t unit, uint32_t port, uint8_t led_status)
{
    return call<swdrv::SetMiniGbicPortLEDStatus>({.unit = unit, .port = port, .value = led_status});
}

uint8_t DEV_SWDRV_PMGR_GetPortType(uint32_t unit, uint32_t port, uint32_t *type)
{
    return call<swdrv::GetPortType>({.unit = unit, .port = port}, into(type));
}

uint8_t DEV_SWDRV_PMGR_SetPortRestartAutoNego(uint32_t unit, uint32_t port)
{
    return call<swdrv::SetPortRestartAutoNego>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_SetPortAutoNegoRemoteFaultAdvertisement(uint32_t unit, uint32_t port, uint32_t remote_fault)
{
    return call<swdrv::SetPortAutoNegoRemoteFaultAdvertisement>({.unit = unit, .port = port, .value = remote_fault});
}

uint8_t DEV_SWDRV_PMGR_GetPortAutoNegoRemoteFaultAdvertisement(uint32_t unit, uint32_t port, uint32_t *remote_fault)
{
    return call<swdrv::GetPortAutoNegoRemoteFaultAdvertisement>({.unit = unit, .port = port}, into(remote_fault));
}

uint8_t DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoSignalingState(uint32_t unit, uint32_t port, uint32_t *state)
{
    return call<swdrv::GetPortLinkPartnerAutoNegoSignalingState>({.unit = unit, .port = port}, into(state));
}

uint8_t DEV_SWDRV_PMGR_GetPortAutoNegoProcessState(uint32_t unit, uint32_t port, uint32_t *state)
{
    return call<swdrv::GetPortAutoNegoProcessState>({.unit = unit, .port = port}, into(state));
}

uint8_t DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoCapa(uint32_t unit, uint32_t port, uint32_t *capability)
{
    return call<swdrv::GetPortLinkPartnerAutoNegoCapa>({.unit = unit, .port = port}, into(capability));
}

uint8_t DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoRemoteFault(uint32_t unit, uint32_t port, uint32_t *remote_fault)
{
    return call<swdrv::GetPortLinkPartnerAutoNegoRemoteFault>({.unit = unit, .port = port}, into(remote_fault));
}

uint8_t DEV_SWDRV_PMGR_GetPortJabberState(uint32_t unit, uint32_t port, uint32_t *state)
{
    return call<swdrv::GetPortJabberState>({.unit = unit, .port = port}, into(state));
}

uint8_t DEV_SWDRV_PMGR_GetPortFalseCarrierSenseCounter(uint32_t unit, uint32_t port, uint32_t *count)
{
    return call<swdrv::GetPortFalseCarrierSenseCounter>({.unit = unit, .port = port}, into(count));
}
