// Clearing counters.
#include <stdint.h>

#include "ipc/exchange.h"
#include "nmtrdrv/commands.h"
#include "quillon/nmtrdrv.h"

namespace nmtrdrv = quillon::nmtrdrv;
using quillon::ipc::call;

uint8_t DEV_NMTRDRV_PMGR_ClearPortCounter(uint32_t unit, uint32_t port)
{
    return call<nmtrdrv::ClearPortCounter>({.unit = unit, .port = port});
}

// Irregular: bytes that nobody fills are counted and sent as 0.
uint8_t DEV_NMTRDRV_PMGR_ClearAllCounters(void)
{
    return call<nmtrdrv::ClearAllCounters>({});
}
