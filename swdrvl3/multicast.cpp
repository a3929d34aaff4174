// IP multicast: layer-2 and layer-3 entries, their ports, downstream interfaces and replications.
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

// The exchange of a request on one multicast entry, with the entry's key in its place.
template <class Command>
class EntryExchange : public Exchange<Command> {
  public:
    [[gnu::always_inline]] EntryExchange(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source)
    {
        swdrvl3::McastEntryKey &key = this->request().key;
        key.arg1 = arg1;
        memcpy(key.group.data(), group, key.group.size());
        memcpy(key.source.data(), source, key.source.size());
        key.arg2 = arg2;
    }
};

template <class Command>
[[gnu::always_inline]] inline uint32_t call_with_key(uint32_t arg1, uint32_t arg2, const uint8_t *group,
                                                     const uint8_t *source, Caller caller = Caller::here())
{
    return EntryExchange<Command>(arg1, arg2, group, source).run(NoOutput(), caller);
}

template <class Command>
[[gnu::always_inline]] inline uint32_t call_with_l2_entry(uint32_t arg1, uint32_t arg2, const uint8_t *group,
                                                          const uint8_t *source, const uint8_t *arg5,
                                                          Caller caller = Caller::here())
{
    EntryExchange<Command> exchange(arg1, arg2, group, source);
    memcpy(exchange.request().arg5.data(), arg5, exchange.request().arg5.size());
    return exchange.run(NoOutput(), caller);
}

// Irregular: the sixth argument stands before the fifth.
template <class Command>
[[gnu::always_inline]] inline uint32_t call_with_port(uint32_t arg1, uint32_t arg2, const uint8_t *group,
                                                      const uint8_t *source, uint32_t arg5, uint32_t arg6,
                                                      Caller caller = Caller::here())
{
    EntryExchange<Command> exchange(arg1, arg2, group, source);
    exchange.request().arg6 = arg6;
    exchange.request().arg5 = arg5;
    return exchange.run(NoOutput(), caller);
}

template <class Command>
[[gnu::always_inline]] inline uint32_t call_with_interface(uint32_t arg1, uint32_t arg2, const uint8_t *group,
                                                           const uint8_t *source, const McastInterface *interface,
                                                           Caller caller = Caller::here())
{
    EntryExchange<Command> exchange(arg1, arg2, group, source);
    exchange.request().interface = *interface;
    return exchange.run(NoOutput(), caller);
}

}  // namespace

uint32_t DEV_SWDRVL3_PMGR_ipmc_enable(uint32_t arg1, uint32_t arg2, uint32_t arg3)
{
    return call<swdrvl3::ipmc_enable>({.arg1 = arg1, .arg2 = arg2, .arg3 = arg3});
}

uint32_t DEV_SWDRVL3_PMGR_ipmc_disable(void)
{
    return call<swdrvl3::ipmc_disable>({});
}

uint32_t DEV_SWDRVL3_PMGR_ipmc_debug_enable(void)
{
    return call<swdrvl3::ipmc_debug_enable>({});
}

uint32_t DEV_SWDRVL3_PMGR_ipmc_debug_disable(void)
{
    return call<swdrvl3::ipmc_debug_disable>({});
}

uint32_t DEV_SWDRVL3_PMGR_l2mc_entry_add(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                         const uint8_t *arg5)
{
    return call_with_l2_entry<swdrvl3::l2mc_entry_add>(arg1, arg2, group, source, arg5);
}

uint32_t DEV_SWDRVL3_PMGR_l2mc_entry_del(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                         const uint8_t *arg5)
{
    return call_with_l2_entry<swdrvl3::l2mc_entry_del>(arg1, arg2, group, source, arg5);
}

uint32_t DEV_SWDRVL3_PMGR_l3mc_port_add(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                        uint32_t arg5, uint32_t arg6)
{
    return call_with_port<swdrvl3::l3mc_port_add>(arg1, arg2, group, source, arg5, arg6);
}

uint32_t DEV_SWDRVL3_PMGR_l3mc_port_del(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                        uint32_t arg5, uint32_t arg6)
{
    return call_with_port<swdrvl3::l3mc_port_del>(arg1, arg2, group, source, arg5, arg6);
}

uint32_t DEV_SWDRVL3_PMGR_l3mc_dnintf_add(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                          const McastInterface *interface)
{
    return call_with_interface<swdrvl3::l3mc_dnintf_add>(arg1, arg2, group, source, interface);
}

uint32_t DEV_SWDRVL3_PMGR_l3mc_dnintf_del(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                          const McastInterface *interface)
{
    return call_with_interface<swdrvl3::l3mc_dnintf_del>(arg1, arg2, group, source, interface);
}

uint32_t DEV_SWDRVL3_PMGR_l3mc_entry_add(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                         const uint8_t *arg5, uint8_t arg6, const McastEntryBlock *block)
{
    EntryExchange<swdrvl3::l3mc_entry_add> exchange(arg1, arg2, group, source);
    swdrvl3::L3mcNewEntry &request = exchange.request();
    memcpy(request.arg5.data(), arg5, request.arg5.size());
    request.arg6 = arg6;
    request.block = *block;
    return exchange.run();
}

uint32_t DEV_SWDRVL3_PMGR_l3mc_entry_del(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source)
{
    return call_with_key<swdrvl3::l3mc_entry_del>(arg1, arg2, group, source);
}

// Irregular: the driver process's answer goes to the caller's word, also after a failed exchange, and what is returned
// is the status of the exchange.
uint32_t DEV_SWDRVL3_PMGR_l3mc_entry_stat(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                          uint32_t *entry_status)
{
    const Caller caller = Caller::here();
    EntryExchange<swdrvl3::l3mc_entry_stat> exchange(arg1, arg2, group, source);
    exchange.request().value = *entry_status;
    const uint32_t status = exchange.send(caller);
    *entry_status = exchange.type();
    if (status != 0) [[unlikely]] {
        exchange.report(status, caller);
    }
    return status;
}

uint32_t DEV_SWDRVL3_PMGR_l3mc_cpu_port_add(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source)
{
    return call_with_key<swdrvl3::l3mc_cpu_port_add>(arg1, arg2, group, source);
}

uint32_t DEV_SWDRVL3_PMGR_l3mc_cpu_port_del(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source)
{
    return call_with_key<swdrvl3::l3mc_cpu_port_del>(arg1, arg2, group, source);
}

uint32_t DEV_SWDRVL3_PMGR_l3mc_repl_add(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                        const McastInterface *interface)
{
    return call_with_interface<swdrvl3::l3mc_repl_add>(arg1, arg2, group, source, interface);
}

uint32_t DEV_SWDRVL3_PMGR_l3mc_repl_del(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                        const McastInterface *interface)
{
    return call_with_interface<swdrvl3::l3mc_repl_del>(arg1, arg2, group, source, interface);
}
