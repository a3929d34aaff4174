// Received buffers on loan to the upper layers, and their way back.
#include <assert.h>
#include <stdint.h>
#include <stdio.h>

#include "nicdrv/attachment.h"
#include "quillon/nicdrv.h"

using quillon::nicdrv::cookie_without_pool;
using quillon::nicdrv::CountersLock;
using quillon::nicdrv::decrement;
using quillon::nicdrv::increment;
using quillon::nicdrv::NicShMem;
using quillon::nicdrv::pools;
using quillon::nicdrv::shared_record;

namespace {

NicFreeFunc nic_free_func = DEV_NICDRV_PMGR_FreeRxPacket;

uint32_t pool_of(const NicShMem &record, uint32_t cookie)
{
    const uint32_t pool = record.cookie_pool[cookie];
    assert(pool < pools);
    return pool;
}

bool give_back(NicShMem &record, void *buffer)
{
    const CountersLock lock;
    if (nic_free_func(buffer) != 1) {
        increment(record.free_fail_count);
        return false;
    }
    increment(record.free_ok_count);
    return true;
}

// True when the receive task may go on with the pool, for which it has stopped.
bool count_back(NicShMem &record, uint32_t cookie)
{
    const uint32_t pool = pool_of(record, cookie);
    const CountersLock lock;
    decrement(record.cookie_usage[cookie].held);
    decrement(record.pool_held[pool]);
    decrement(record.total_held);
    decrement(record.pool_flow_held[pool]);
    return record.pool_stopped[pool] != 0 && record.pool_flow_held[pool] < record.pool_resume_level[pool];
}

}  // namespace

void DEV_NICDRV_OM_SetFreeFunc(NicFreeFunc free_func)
{
    nic_free_func = free_func;
}

// The free function and the loan have a critical section each, and the event is sent when neither is held any more.
uint8_t DEV_NICDRV_MREF_MemFree(void * /*ignored*/, uint32_t cookie, void *buffer)
{
    NicShMem &record = shared_record();
    if (!give_back(record, buffer)) {
        return 0;
    }
    if (cookie < pools) {
        constexpr uint32_t pool_may_resume = 8;
        if (count_back(record, cookie) && SYSFUN_SendEvent(record.rx_task_id, pool_may_resume) != 0) {
            printf("%s:SYSFUN_SendEvent failure.\n", __func__);
        }
    } else if (cookie == cookie_without_pool) {
        const CountersLock lock;
        decrement(record.cookie10_held);
    } else {
        // The buffer is gone and the loan stays counted: its caller has lost the cookie.
        puts("DEV_NICDRV_MREF_MemFree: cookie value is invalid !!");
    }
    return 1;
}

void DEV_NICDRV_ReserveFragmentBuffer(uint32_t cookie)
{
    assert(cookie < pools);
    NicShMem &record = shared_record();
    const CountersLock lock;
    const uint32_t pool = pool_of(record, cookie);
    decrement(record.total_held);
    increment(record.fragment_held);
    decrement(record.cookie_usage[cookie].held);
    decrement(record.pool_held[pool]);
    decrement(record.pool_flow_held[pool]);
}

void DEV_NICDRV_ReleaseFragmentBuffer(uint32_t cookie)
{
    assert(cookie < pools);
    NicShMem &record = shared_record();
    const CountersLock lock;
    const uint32_t pool = pool_of(record, cookie);
    increment(record.total_held);
    decrement(record.fragment_held);
    increment(record.cookie_usage[cookie].held);
    increment(record.pool_held[pool]);
    increment(record.pool_flow_held[pool]);
}
