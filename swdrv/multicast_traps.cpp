// IP multicast, learning, what is trapped to the CPU, and the frame size.
#include <stdint.h>
#include <string.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;
using quillon::ipc::Exchange;
using quillon::ipc::into;

namespace {

void fill(swdrv::MulticastMac &request, const uint8_t *mac, uint32_t value)
{
    memcpy(request.mac.data(), mac, sizeof request.mac);
    request.value = value;
}

}  // namespace

uint8_t DEV_SWDRV_PMGR_EnableIPMC(uint32_t value)
{
    return call<swdrv::EnableIPMC>({.value = value});
}

uint8_t DEV_SWDRV_PMGR_DisableIPMC(uint32_t value)
{
    return call<swdrv::DisableIPMC>({.value = value});
}

uint8_t DEV_SWDRV_PMGR_IPMC_EnableSourcePortCheck(uint32_t value)
{
    return call<swdrv::IPMC_EnableSourcePortCheck>({.value = value});
}

uint8_t DEV_SWDRV_PMGR_IPMC_DisableSourcePortCheck(uint32_t value)
{
    return call<swdrv::IPMC_DisableSourcePortCheck>({.value = value});
}

uint8_t DEV_SWDRV_PMGR_IPMC_EnableSourceIPSearch(uint32_t value)
{
    return call<swdrv::IPMC_EnableSourceIPSearch>({.value = value});
}

uint8_t DEV_SWDRV_PMGR_IPMC_DisableSourceIPSearch(uint32_t value)
{
    return call<swdrv::IPMC_DisableSourceIPSearch>({.value = value});
}

uint8_t DEV_SWDRV_PMGR_EnablePortLearning(uint32_t unit, uint32_t port)
{
    return call<swdrv::EnablePortLearning>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_DisablePortLearning(uint32_t unit, uint32_t port)
{
    return call<swdrv::DisablePortLearning>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_SetPortLearningStatus(uint32_t unit, uint32_t port, uint8_t flag1, uint8_t flag2, uint8_t flag3)
{
    return call<swdrv::SetPortLearningStatus>({.unit = unit, .port = port, .flags = {flag1, flag2, flag3}});
}

uint8_t DEV_SWDRV_PMGR_EnableUMCASTIpTrap(void)
{
    return call<swdrv::EnableUMCASTIpTrap>();
}

uint8_t DEV_SWDRV_PMGR_DisableUMCASTIpTrap(void)
{
    return call<swdrv::DisableUMCASTIpTrap>();
}

uint8_t DEV_SWDRV_PMGR_EnableUMCASTMacTrap(void)
{
    return call<swdrv::EnableUMCASTMacTrap>();
}

uint8_t DEV_SWDRV_PMGR_DisableUMCASTMacTrap(void)
{
    return call<swdrv::DisableUMCASTMacTrap>();
}

uint8_t DEV_SWDRV_PMGR_AddIPv6MulticastAddress(const uint8_t *mac, uint32_t value)
{
    Exchange<swdrv::AddIPv6MulticastAddress> exchange;
    fill(exchange.request(), mac, value);
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGR_DelIPv6MulticastAddress(const uint8_t *mac, uint32_t value)
{
    Exchange<swdrv::DelIPv6MulticastAddress> exchange;
    fill(exchange.request(), mac, value);
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGR_EnableMLDTrap2CPU(void)
{
    return call<swdrv::EnableMLDTrap2CPU>({});
}

uint8_t DEV_SWDRV_PMGR_DisableMLDTrap2CPU(void)
{
    return call<swdrv::DisableMLDTrap2CPU>({});
}

uint8_t DEV_SWDRV_PMGR_TrapMLDToCPU(uint8_t value1, uint8_t value2)
{
    return call<swdrv::TrapMLDToCPU>({.values = {value1, value2}});
}

uint8_t DEV_SWDRV_PMGR_EnableNDTrap2CPU(uint8_t value)
{
    return call<swdrv::EnableNDTrap2CPU>({.value = value});
}

uint8_t DEV_SWDRV_PMGR_DisableNDTrap2CPU(uint8_t value)
{
    return call<swdrv::DisableNDTrap2CPU>({.value = value});
}

uint8_t DEV_SWDRV_PMGR_SetRaAndRrTrap2CPU(uint8_t value)
{
    return call<swdrv::SetRaAndRrTrap2CPU>({.value = value});
}

uint8_t DEV_SWDRV_PMGR_SetEapolFramePassThrough(uint8_t value)
{
    return call<swdrv::SetEapolFramePassThrough>({.value = value});
}

uint8_t DEV_SWDRV_PMGR_ModifyMaxFrameSize(uint8_t value1, uint8_t value2)
{
    return call<swdrv::ModifyMaxFrameSize>({.values = {value1, value2}});
}

uint8_t DEV_SWDRV_PMGR_GetPortMediaActive(uint32_t unit, uint32_t port, uint32_t *media)
{
    return call<swdrv::GetPortMediaActive>({.unit = unit, .port = port}, into(media));
}

uint8_t DEV_SWDRV_PMGR_TrapUnknownIpMcastToCPU(uint8_t value1, uint8_t value2, uint32_t value3)
{
    return call<swdrv::TrapUnknownIpMcastToCPU>({.flags = {value1, value2}, .value = value3});
}

uint8_t DEV_SWDRV_PMGR_TrapUnknownIpv6McastToCPU(uint8_t value1, uint8_t value2)
{
    return call<swdrv::TrapUnknownIpv6McastToCPU>({.values = {value1, value2}});
}
