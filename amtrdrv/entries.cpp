// Setting entries, and what is deleted as it was set.
#include <stdint.h>

#include "amtrdrv/commands.h"
#include "amtrdrv/entry_key.h"
#include "ipc/exchange.h"
#include "quillon/amtrdrv.h"

namespace amtrdrv = quillon::amtrdrv;
using quillon::amtrdrv::set_key;
using quillon::ipc::call;
using quillon::ipc::Exchange;

uint8_t DEV_AMTRDRV_PMGR_SetAddrTblEntry(const AddrTblEntry *entry)
{
    return call<amtrdrv::SetAddrTblEntry>({.value = *entry});
}

uint32_t DEV_AMTRDRV_PMGR_SetInterventionEntry(uint32_t vlan, const uint8_t *mac, uint8_t mode, uint32_t value)
{
    Exchange<amtrdrv::SetInterventionEntry> exchange;
    amtrdrv::Intervention &request = exchange.request();
    set_key(request, vlan, mac);
    request.mode = mode;
    request.value = value;
    return exchange.run();
}

uint8_t DEV_AMTRDRV_PMGR_DeleteInterventionEntry(uint32_t vlan, const uint8_t *mac)
{
    Exchange<amtrdrv::DeleteInterventionEntry> exchange;
    set_key(exchange.request(), vlan, mac);
    return exchange.run();
}

uint8_t DEV_AMTRDRV_PMGR_AddVlanMac(uint32_t vlan, const uint8_t *mac)
{
    Exchange<amtrdrv::AddVlanMac> exchange;
    set_key(exchange.request(), vlan, mac);
    return exchange.run();
}

uint8_t DEV_AMTRDRV_PMGR_DeleteVlanMac(uint32_t vlan, const uint8_t *mac)
{
    Exchange<amtrdrv::DeleteVlanMac> exchange;
    set_key(exchange.request(), vlan, mac);
    return exchange.run();
}

uint8_t DEV_AMTRDRV_PMGR_SetMacEntryWithAttribute(const AddrTblEntry *entry, uint32_t attribute, uint8_t mode)
{
    Exchange<amtrdrv::SetMacEntryWithAttribute> exchange;
    amtrdrv::EntryAttribute &request = exchange.request();
    request.entry = *entry;
    request.attribute = attribute;
    request.mode = mode;
    return exchange.run();
}

uint32_t DEV_AMTRDRV_PMGR_SetAddrTblEntryByDevice(uint8_t device, const AddrTblEntry *entry)
{
    Exchange<amtrdrv::SetAddrTblEntryByDevice> exchange;
    amtrdrv::DeviceEntry &request = exchange.request();
    request.device = device;
    request.entry = *entry;
    return exchange.run();
}
