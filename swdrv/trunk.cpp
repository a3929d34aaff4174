// Trunks: member ports, load balancing, multicast addresses on members.
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

void fill(swdrv::TrunkMulticastAddr &request, const uint8_t *mac, uint32_t value1, uint32_t value2, uint32_t value3)
{
    memcpy(request.mac.data(), mac, sizeof request.mac);
    request.value1 = value1;
    request.value2 = value2;
    request.value3 = value3;
}

}  // namespace

uint8_t DEV_SWDRV_PMGR_CreateTrunk(uint32_t trunk_id)
{
    return call<swdrv::CreateTrunk>({.trunk_id = trunk_id});
}

uint8_t DEV_SWDRV_PMGR_CreateTrunkwithMode(uint32_t trunk_id, uint8_t mode)
{
    return call<swdrv::CreateTrunkwithMode>({.trunk_id = trunk_id, .mode = mode});
}

uint8_t DEV_SWDRV_PMGR_SetTrunkLoadBalanceMode(uint32_t mode)
{
    return call<swdrv::SetTrunkLoadBalanceMode>({.value = mode});
}

uint8_t DEV_SWDRV_PMGR_DestroyTrunk(uint32_t trunk_id)
{
    return call<swdrv::DestroyTrunk>({.trunk_id = trunk_id});
}

uint8_t DEV_SWDRV_PMGR_SetTrunkPortMembers(uint32_t value1, uint32_t value2, const uint8_t *port_bitmap)
{
    Exchange<swdrv::SetTrunkPortMembers> exchange;
    swdrv::TrunkPortMembers &request = exchange.request();
    request.value1 = value1;
    request.value2 = value2;
    memcpy(request.port_bitmap.data(), port_bitmap, sizeof request.port_bitmap);
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGR_SetTrunkBalanceMode(uint32_t selector, uint8_t mode)
{
    return call<swdrv::SetTrunkBalanceMode>({.selector = selector, .mode = mode});
}

uint8_t DEV_SWDRV_PMGR_GetTrunkBalanceModeofLocalUnit(uint32_t selector, uint8_t *mode)
{
    return call<swdrv::GetTrunkBalanceModeofLocalUnit>({.value = selector}, into(mode));
}

uint8_t DEV_SWDRV_PMGR_AddMulticastAddrToTrunkMember(const uint8_t *mac, uint32_t value1, uint32_t value2,
                                                     uint32_t value3)
{
    Exchange<swdrv::AddMulticastAddrToTrunkMember> exchange;
    fill(exchange.request(), mac, value1, value2, value3);
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGR_DeleteMulticastAddrToTrunkMember(const uint8_t *mac, uint32_t value1, uint32_t value2,
                                                        uint32_t value3)
{
    Exchange<swdrv::DeleteMulticastAddrToTrunkMember> exchange;
    fill(exchange.request(), mac, value1, value2, value3);
    return exchange.run();
}
