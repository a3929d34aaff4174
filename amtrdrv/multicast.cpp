// Multicast entries and their ports.
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

uint8_t DEV_AMTRDRV_PMGR_CreateMulticastAddrTblEntry(uint32_t vlan, const uint8_t *mac)
{
    Exchange<amtrdrv::CreateMulticastAddrTblEntry> exchange;
    set_key(exchange.request(), vlan, mac);
    return exchange.run();
}

uint8_t DEV_AMTRDRV_PMGR_DestroyMulticastAddrTblEntry(uint32_t vlan, const uint8_t *mac)
{
    Exchange<amtrdrv::DestroyMulticastAddrTblEntry> exchange;
    set_key(exchange.request(), vlan, mac);
    return exchange.run();
}

uint8_t DEV_AMTRDRV_PMGR_AddMulticastPortMember(uint32_t vlan, const uint8_t *mac, uint32_t unit, uint32_t port,
                                                uint8_t mode)
{
    Exchange<amtrdrv::AddMulticastPortMember> exchange;
    amtrdrv::NewMulticastMember &request = exchange.request();
    set_key(request, vlan, mac);
    request.unit = unit;
    request.port = port;
    request.mode = mode;
    return exchange.run();
}

uint8_t DEV_AMTRDRV_PMGR_DeleteMulticastPortMember(uint32_t vlan, uint32_t unit, uint32_t port, const uint8_t *mac)
{
    Exchange<amtrdrv::DeleteMulticastPortMember> exchange;
    amtrdrv::MulticastMember &request = exchange.request();
    set_key(request, vlan, mac);
    request.unit = unit;
    request.port = port;
    return exchange.run();
}

uint8_t DEV_AMTRDRV_PMGR_SetMulticastPortList(uint32_t vlan, const uint8_t *mac, const uint8_t *first_ports,
                                              const uint8_t *second_ports)
{
    Exchange<amtrdrv::SetMulticastPortList> exchange;
    amtrdrv::MulticastPortLists &request = exchange.request();
    set_key(request, vlan, mac);
    memcpy(request.first_ports.data(), first_ports, sizeof request.first_ports);
    memcpy(request.second_ports.data(), second_ports, sizeof request.second_ports);
    return exchange.run();
}

void DEV_AMTRDRV_PMGR_SetMCastEntryForInternalPacket(void)
{
    call<amtrdrv::SetMCastEntryForInternalPacket>();
}
