// What a port can count.
#include <stdint.h>

#include "ipc/exchange.h"
#include "nmtrdrv/commands.h"
#include "quillon/nmtrdrv.h"

namespace nmtrdrv = quillon::nmtrdrv;
using quillon::ipc::call;
using quillon::ipc::into;

uint8_t DEV_NMTRDRV_PMGR_GetStatsAbility(uint32_t unit, uint32_t port, StatsAbility *ability)
{
    return call<nmtrdrv::GetStatsAbility>({.unit = unit, .port = port}, into(ability));
}
