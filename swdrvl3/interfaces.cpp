// L3 interfaces and router MAC addresses.
#include <stdint.h>
#include <string.h>

#include "ipc/exchange.h"
#include "quillon/swdrvl3.h"
#include "swdrvl3/commands.h"

namespace swdrvl3 = quillon::swdrvl3;
using quillon::ipc::Caller;
using quillon::ipc::Exchange;
using quillon::ipc::into;
using quillon::ipc::NoOutput;

namespace {

void copy(swdrvl3::Mac &to, const uint8_t *from)
{
    memcpy(to.data(), from, to.size());
}

template <class Command>
[[gnu::always_inline]] inline auto call_with_router_mac(uint32_t arg1, const uint8_t *mac,
                                                        Caller caller = Caller::here())
{
    Exchange<Command> exchange;
    exchange.request().arg1 = arg1;
    copy(exchange.request().mac, mac);
    return exchange.run(NoOutput(), caller);
}

}  // namespace

uint32_t DEV_SWDRVL3_PMGR_CreateL3Interface(uint32_t arg1, uint32_t arg2, const uint8_t *mac, uint32_t *interface_id)
{
    Exchange<swdrvl3::CreateL3Interface> exchange;
    exchange.request().arg1 = arg1;
    exchange.request().arg2 = arg2;
    copy(exchange.request().mac, mac);
    return exchange.run(into(interface_id));
}

uint8_t DEV_SWDRVL3_PMGR_DeleteL3Interface(uint32_t arg1, uint32_t arg2, const uint8_t *mac, uint32_t arg4)
{
    Exchange<swdrvl3::DeleteL3Interface> exchange;
    exchange.request().arg1 = arg1;
    exchange.request().arg2 = arg2;
    exchange.request().arg4 = arg4;
    copy(exchange.request().mac, mac);
    return exchange.run();
}

uint32_t DEV_SWDRVL3_PMGR_AddL3Mac(uint32_t arg1, const uint8_t *mac)
{
    return call_with_router_mac<swdrvl3::AddL3Mac>(arg1, mac);
}

uint8_t DEV_SWDRVL3_PMGR_DeleteL3Mac(uint32_t arg1, const uint8_t *mac)
{
    return call_with_router_mac<swdrvl3::DeleteL3Mac>(arg1, mac);
}

uint8_t DEV_SWDRVL3_PMGR_SetL3Bit(uint32_t arg1, const uint8_t *mac)
{
    return call_with_router_mac<swdrvl3::SetL3Bit>(arg1, mac);
}

uint8_t DEV_SWDRVL3_PMGR_UnSetL3Bit(uint32_t arg1, const uint8_t *mac)
{
    return call_with_router_mac<swdrvl3::UnSetL3Bit>(arg1, mac);
}

// Irregular: the driver process has no request for it. Nothing is sent and callers are told that it is done.
uint8_t DEV_SWDRVL3_PMGR_SetL3InterfaceMtu(void)
{
    return 1;
}
