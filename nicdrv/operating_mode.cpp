// The operating mode of the packet path.
#include <stdint.h>

#include "nicdrv/attachment.h"
#include "quillon/nicdrv.h"

using quillon::nicdrv::OperatingMode;
using quillon::nicdrv::shared_record;

namespace {

// One aligned word, which every process reads and writes without the semaphore.
void set_mode(OperatingMode mode)
{
    __atomic_store_n(&shared_record().operating_mode, static_cast<uint32_t>(mode), __ATOMIC_RELAXED);
}

}  // namespace

uint32_t DEV_NICDRV_OM_GetOperatingMode(void)
{
    return __atomic_load_n(&shared_record().operating_mode, __ATOMIC_RELAXED);
}

void DEV_NICDRV_OM_SetTransitionMode(void)
{
    set_mode(OperatingMode::transition);
}

void DEV_NICDRV_OM_EnterTransitionMode(void)
{
    DEV_NICDRV_OM_SetTransitionMode();
}

void DEV_NICDRV_OM_EnterMasterMode(void)
{
    set_mode(OperatingMode::master);
}

void DEV_NICDRV_OM_EnterSlaveMode(void)
{
    set_mode(OperatingMode::slave);
}
