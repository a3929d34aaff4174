// Received packets given back, and statistics. The requests for records are irregular: what they carry nobody fills.
#include <stdint.h>

#include "ipc/exchange.h"
#include "nicdrv/commands.h"
#include "quillon/nicdrv.h"

namespace nicdrv = quillon::nicdrv;
using quillon::ipc::call;
using quillon::ipc::Exchange;
using quillon::ipc::into;

uint8_t DEV_NICDRV_PMGR_FreeRxPacket(void *buffer)
{
    return call<nicdrv::FreeRxPacket>({.buffer = reinterpret_cast<uintptr_t>(buffer)});
}

uint8_t DEV_NICDRV_PMGR_RxSummary(NicRxSummary *summary)
{
    return Exchange<nicdrv::RxSummary>().run(into(summary));
}

uint8_t DEV_NICDRV_PMGR_MemStatus(NicMemStatus *status)
{
    return Exchange<nicdrv::MemStatus>().run(into(status));
}

uint8_t DEV_NICDRV_PMGR_PriInfo(NicPriInfo *info)
{
    return Exchange<nicdrv::PriInfo>().run(into(info));
}

uint8_t DEV_NICDRV_PMGR_Clear(void)
{
    return call<nicdrv::Clear>();
}
