// Looking addresses up in the chips.
#include <stdint.h>
#include <string.h>

#include "amtrdrv/commands.h"
#include "amtrdrv/entry_key.h"
#include "ipc/exchange.h"
#include "quillon/amtrdrv.h"

namespace amtrdrv = quillon::amtrdrv;
using quillon::amtrdrv::set_key;
using quillon::ipc::call;
using quillon::ipc::Exchange;
using quillon::ipc::into;

uint8_t DEV_AMTRDRV_PMGR_ARLLookUp(uint32_t vlan, const uint8_t *mac, uint32_t *first_value, uint32_t *second_value,
                                   uint8_t *flag)
{
    Exchange<amtrdrv::ARLLookUp> exchange;
    set_key(exchange.request(), vlan, mac);
    return exchange.run([=](const amtrdrv::Lookup &reply) {
        *first_value = reply.first_value;
        *second_value = reply.second_value;
        *flag = reply.flag;
    });
}

void DEV_AMTRDRV_PMGR_ShowValidNullMac(void)
{
    call<amtrdrv::ShowValidNullMac>();
}

uint8_t DEV_AMTRDRV_PMGR_ARLFirstChipLookUp(uint32_t vlan, const uint8_t *mac, uint32_t *first_value,
                                            uint32_t *second_value, uint32_t *third_value, uint8_t *flag)
{
    Exchange<amtrdrv::ARLFirstChipLookUp> exchange;
    set_key(exchange.request(), vlan, mac);
    return exchange.run([=](const amtrdrv::FirstChipLookup &reply) {
        *first_value = reply.first_value;
        *second_value = reply.second_value;
        *third_value = reply.third_value;
        *flag = reply.flag;
    });
}

uint8_t DEV_AMTRDRV_PMGR_ReadAndClearLocalHitBit(uint8_t *hit, const uint8_t *mac, uint32_t vlan, uint32_t selector,
                                                 const uint8_t *block, uint32_t mode)
{
    Exchange<amtrdrv::ReadAndClearLocalHitBit> exchange;
    amtrdrv::HitBitKey &request = exchange.request();
    set_key(request, vlan, mac);
    request.selector = selector;
    memcpy(request.block.data(), block, sizeof request.block);
    request.mode = mode;
    return exchange.run(into(hit));
}

uint8_t DEV_AMTRDRV_PMGR_GetHashLookupDepth(uint32_t *depth)
{
    return call<amtrdrv::GetHashLookupDepth>(into(depth));
}
