// Deleting entries: one, all, and by port, VLAN or device.
#include <stdint.h>

#include "amtrdrv/commands.h"
#include "amtrdrv/entry_key.h"
#include "ipc/exchange.h"
#include "quillon/amtrdrv.h"

namespace amtrdrv = quillon::amtrdrv;
using quillon::amtrdrv::set_key;
using quillon::ipc::call;
using quillon::ipc::Exchange;

uint8_t DEV_AMTRDRV_PMGR_DeleteAddr(uint32_t vlan, const uint8_t *mac)
{
    Exchange<amtrdrv::DeleteAddr> exchange;
    set_key(exchange.request(), vlan, mac);
    return exchange.run();
}

uint8_t DEV_AMTRDRV_PMGR_DeleteAllDynamicAddr(void)
{
    return call<amtrdrv::DeleteAllDynamicAddr>();
}

uint8_t DEV_AMTRDRV_PMGR_DeleteAllAddr(void)
{
    return call<amtrdrv::DeleteAllAddr>();
}

uint8_t DEV_AMTRDRV_PMGR_DeleteAddrByPort(uint32_t unit, uint32_t port, uint32_t selector)
{
    return call<amtrdrv::DeleteAddrByPort>({.unit = unit, .port = port, .selector = selector});
}

uint8_t DEV_AMTRDRV_PMGR_DeleteDynamicAddrByPort(uint32_t unit, uint32_t port, uint32_t selector)
{
    return call<amtrdrv::DeleteDynamicAddrByPort>({.unit = unit, .port = port, .selector = selector});
}

// Irregular: the first argument is not sent, and the port's three words are sent as 0.
uint8_t DEV_AMTRDRV_PMGR_DeleteDynamicAddrByVlan(uint32_t /*ignored*/, uint32_t vlan)
{
    return call<amtrdrv::DeleteDynamicAddrByVlan>({.unit = 0, .port = 0, .selector = 0, .vlan = vlan});
}

uint8_t DEV_AMTRDRV_PMGR_DeleteDynamicAddrByPortAndVlan(uint32_t unit, uint32_t port, uint32_t selector, uint32_t vlan)
{
    return call<amtrdrv::DeleteDynamicAddrByPortAndVlan>(
        {.unit = unit, .port = port, .selector = selector, .vlan = vlan});
}

uint8_t DEV_AMTRDRV_PMGR_DeleteAddrByDevice(uint8_t device, uint32_t vlan, const uint8_t *mac)
{
    Exchange<amtrdrv::DeleteAddrByDevice> exchange;
    exchange.request().device = device;
    set_key(exchange.request(), vlan, mac);
    return exchange.run();
}
