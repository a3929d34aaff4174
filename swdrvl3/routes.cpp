// Host, network and equal-cost multi-path routes.
#include <assert.h>
#include <stdint.h>
#include <string.h>

#include "ipc/exchange.h"
#include "quillon/swdrvl3.h"
#include "swdrvl3/commands.h"

namespace swdrvl3 = quillon::swdrvl3;
using quillon::ipc::call;
using quillon::ipc::Caller;
using quillon::ipc::Exchange;
using quillon::ipc::NoOutput;

namespace {

// The driver process fills in hardware information: the caller's entry becomes the one that came back.
template <class Entry>
auto back_into(Entry *entry)
{
    return [entry](const Entry &reply) { *entry = reply; };
}

template <class Command>
[[gnu::always_inline]] inline auto call_with_net_route(NetRouteEntry *entry, uint64_t arg2,
                                                       Caller caller = Caller::here())
{
    Exchange<Command> exchange;
    exchange.request().entry = *entry;
    exchange.request().arg2 = arg2;
    return exchange.run(back_into(entry), caller);
}

template <class Command, class Output>
[[gnu::always_inline]] inline auto call_with_one_path(const NetRouteEntry *entry, uint64_t next_hop, uint8_t arg3,
                                                      Output output, Caller caller = Caller::here())
{
    Exchange<Command> exchange;
    exchange.request().entry = *entry;
    exchange.request().next_hop = next_hop;
    exchange.request().arg3 = arg3;
    return exchange.run(output, caller);
}

// Irregular: the second argument goes first, in the place of the first four bytes of the entry.
template <class Command>
[[gnu::always_inline]] inline auto call_with_special_default_route(const NetRouteEntry *entry, uint32_t arg2,
                                                                   Caller caller = Caller::here())
{
    Exchange<Command> exchange;
    swdrvl3::SpecialDefaultRoute &request = exchange.request();
    request.arg2 = arg2;
    memcpy(request.entry_tail.data(), reinterpret_cast<const uint8_t *>(entry) + sizeof request.arg2,
           request.entry_tail.size());
    return exchange.run(NoOutput(), caller);
}

}  // namespace

uint32_t DEV_SWDRVL3_PMGR_SetInetHostRoute(HostRouteEntry *entry)
{
    return call<swdrvl3::SetInetHostRoute>(*entry, back_into(entry));
}

uint8_t DEV_SWDRVL3_PMGR_DeleteInetHostRoute(HostRouteEntry *entry)
{
    return call<swdrvl3::DeleteInetHostRoute>(*entry, back_into(entry));
}

uint32_t DEV_SWDRVL3_PMGR_AddInetNetRoute(NetRouteEntry *entry, uint64_t arg2)
{
    return call_with_net_route<swdrvl3::AddInetNetRoute>(entry, arg2);
}

uint8_t DEV_SWDRVL3_PMGR_DeleteInetNetRoute(NetRouteEntry *entry, uint64_t arg2)
{
    return call_with_net_route<swdrvl3::DeleteInetNetRoute>(entry, arg2);
}

uint32_t DEV_SWDRVL3_PMGR_AddInetMyIpHostRoute(const HostRouteEntry *entry)
{
    return call<swdrvl3::AddInetMyIpHostRoute>(*entry);
}

uint32_t DEV_SWDRVL3_PMGR_DeleteInetMyIpHostRoute(const HostRouteEntry *entry)
{
    return call<swdrvl3::DeleteInetMyIpHostRoute>(*entry);
}

uint32_t DEV_SWDRVL3_PMGR_AddInetECMPRouteMultiPath(NetRouteEntry *entry, const uint64_t *next_hops, uint32_t count)
{
    assert(count <= swdrvl3::MultiPathRoute::max_next_hops);
    Exchange<swdrvl3::AddInetECMPRouteMultiPath> exchange;
    swdrvl3::MultiPathRoute &request = exchange.request();
    request.entry = *entry;
    if (count != 0) {
        memcpy(request.next_hops.data(), next_hops, count * sizeof *next_hops);
    }
    request.next_hop_count = count;
    return exchange.run(back_into(entry));
}

uint8_t DEV_SWDRVL3_PMGR_DeleteInetECMPRoute(NetRouteEntry *entry)
{
    return call<swdrvl3::DeleteInetECMPRoute>(*entry, back_into(entry));
}

uint32_t DEV_SWDRVL3_PMGR_AddInetECMPRouteOnePath(NetRouteEntry *entry, uint64_t next_hop, uint8_t arg3)
{
    return call_with_one_path<swdrvl3::AddInetECMPRouteOnePath>(entry, next_hop, arg3, back_into(entry));
}

uint8_t DEV_SWDRVL3_PMGR_DeleteInetECMPRouteOnePath(const NetRouteEntry *entry, uint64_t next_hop, uint8_t arg3)
{
    return call_with_one_path<swdrvl3::DeleteInetECMPRouteOnePath>(entry, next_hop, arg3, NoOutput());
}

uint8_t DEV_SWDRVL3_PMGR_SetSpecialDefaultRoute(const NetRouteEntry *entry, uint32_t arg2)
{
    return call_with_special_default_route<swdrvl3::SetSpecialDefaultRoute>(entry, arg2);
}

uint8_t DEV_SWDRVL3_PMGR_DeleteSpecialDefaultRoute(const NetRouteEntry *entry, uint32_t arg2)
{
    return call_with_special_default_route<swdrvl3::DeleteSpecialDefaultRoute>(entry, arg2);
}

uint8_t DEV_SWDRVL3_PMGR_ReadAndClearHostRouteEntryHitBit(const HostRouteEntry *entry, uint32_t *hit)
{
    Exchange<swdrvl3::ReadAndClearHostRouteEntryHitBit> exchange;
    exchange.request().entry = *entry;
    return exchange.run([hit](const swdrvl3::HostRouteHit &reply) { *hit = reply.hit; });
}

// Irregular: the driver process has no request for it. Nothing is sent and callers are told that it is done.
uint8_t DEV_SWDRVL3_PMGR_ReadAndClearNetRouteEntryHitBit(void)
{
    return 1;
}

uint8_t DEV_SWDRVL3_PMGR_ClearHostRouteHWInfo(HostRouteEntry *entry)
{
    return call<swdrvl3::ClearHostRouteHWInfo>(*entry, back_into(entry));
}

uint8_t DEV_SWDRVL3_PMGR_ClearNetRouteHWInfo(NetRouteEntry *entry)
{
    return call<swdrvl3::ClearNetRouteHWInfo>(*entry, back_into(entry));
}
