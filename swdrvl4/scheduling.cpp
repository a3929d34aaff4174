// Egress scheduling and queue weights.
#include <stdint.h>

#include "ipc/exchange.h"
#include "quillon/swdrvl4.h"
#include "swdrvl4/commands.h"

namespace swdrvl4 = quillon::swdrvl4;
using quillon::ipc::call;

uint8_t DEV_SWDRVL4_PMGR_SetEgressSchedulingMethod(uint32_t method)
{
    return call<swdrvl4::SetEgressSchedulingMethod>({.method = method, .unit = 0, .port = 0});
}

// Irregular: the last argument is sent first.
uint8_t DEV_SWDRVL4_PMGR_SetPortEgressSchedulingMethod(uint32_t unit, uint32_t port, uint32_t method)
{
    return call<swdrvl4::SetPortEgressSchedulingMethod>({.method = method, .unit = unit, .port = port});
}

uint8_t DEV_SWDRVL4_PMGR_SetEgressSpSchedulingQueues(uint32_t unit, uint32_t port, uint32_t queue, uint32_t mode)
{
    return call<swdrvl4::SetEgressSpSchedulingQueues>({.unit = unit, .port = port, .queue = queue, .mode = mode});
}

uint8_t DEV_SWDRVL4_PMGR_SetWrrQueueWeight(uint32_t queue, uint32_t weight)
{
    return call<swdrvl4::SetWrrQueueWeight>({.queue = queue, .weight = weight});
}

uint8_t DEV_SWDRVL4_PMGR_SetStrictPriorityQueue(uint32_t queue)
{
    return call<swdrvl4::SetStrictPriorityQueue>({.value = queue});
}

uint8_t DEV_SWDRVL4_PMGR_SetPortWrrQueueWeight(uint32_t unit, uint32_t port, uint32_t queue, uint32_t weight)
{
    return call<swdrvl4::SetPortWrrQueueWeight>({.unit = unit, .port = port, .queue = queue, .weight = weight});
}
