// Statistics of a range of ports.
#include <assert.h>
#include <stdint.h>
#include <string.h>

#include "ipc/exchange.h"
#include "nmtrdrv/commands.h"
#include "quillon/nmtrdrv.h"

namespace nmtrdrv = quillon::nmtrdrv;
using quillon::ipc::call;
using quillon::ipc::Caller;

namespace {

template <class C>
[[gnu::always_inline]] inline uint8_t read_stats(const nmtrdrv::StatsRangeReq &range,
                                                 typename C::Reply::Record *records, Caller caller = Caller::here())
{
    assert(range.ports() <= C::Reply::max_ports);
    return call<C>(
        range,
        [ports = range.ports(), records](const typename C::Reply &reply) {
            memcpy(records, reply.records.data(), ports * sizeof(*records));
        },
        caller);
}

}  // namespace

uint8_t DEV_NMTRDRV_PMGR_GetIfTableStats(uint32_t selector, uint32_t first_port, uint32_t last_port,
                                         IfTableStats *records)
{
    return read_stats<nmtrdrv::GetIfTableStats>(
        {.selector = selector, .first_port = first_port, .last_port = last_port}, records);
}

uint8_t DEV_NMTRDRV_PMGR_GetIfXTableStats(uint32_t selector, uint32_t first_port, uint32_t last_port,
                                          IfXTableStats *records)
{
    return read_stats<nmtrdrv::GetIfXTableStats>(
        {.selector = selector, .first_port = first_port, .last_port = last_port}, records);
}

uint8_t DEV_NMTRDRV_PMGR_GetRmonStats(uint32_t selector, uint32_t first_port, uint32_t last_port, RmonStats *records)
{
    return read_stats<nmtrdrv::GetRmonStats>({.selector = selector, .first_port = first_port, .last_port = last_port},
                                             records);
}

uint8_t DEV_NMTRDRV_PMGR_GetEtherLikeStats(uint32_t selector, uint32_t first_port, uint32_t last_port,
                                           EtherLikeStats *records)
{
    return read_stats<nmtrdrv::GetEtherLikeStats>(
        {.selector = selector, .first_port = first_port, .last_port = last_port}, records);
}

uint8_t DEV_NMTRDRV_PMGR_GetEtherLikePause(uint32_t selector, uint32_t first_port, uint32_t last_port,
                                           EtherLikePause *records)
{
    return read_stats<nmtrdrv::GetEtherLikePause>(
        {.selector = selector, .first_port = first_port, .last_port = last_port}, records);
}

uint8_t DEV_NMTRDRV_PMGR_GetAutoTrafficControlIfXTableStats(uint32_t selector, uint32_t first_port, uint32_t last_port,
                                                            IfXTableStats *records)
{
    return read_stats<nmtrdrv::GetAutoTrafficControlIfXTableStats>(
        {.selector = selector, .first_port = first_port, .last_port = last_port}, records);
}
