// Ageing, learning and the service itself.
#include <stdint.h>

#include "amtrdrv/commands.h"
#include "ipc/exchange.h"
#include "quillon/amtrdrv.h"

namespace amtrdrv = quillon::amtrdrv;
using quillon::ipc::call;

uint8_t DEV_AMTRDRV_PMGR_SetAgeingTime(uint32_t ageing_time)
{
    return call<amtrdrv::SetAgeingTime>({.value = ageing_time});
}

// Irregular: a word that nobody fills is counted and sent as 0.
uint8_t DEV_AMTRDRV_PMGR_DisableHardwareLearning(void)
{
    return call<amtrdrv::DisableHardwareLearning>({});
}

uint8_t DEV_AMTRDRV_PMGR_Disable(uint32_t selector)
{
    return call<amtrdrv::Disable>({.value = selector});
}

uint8_t DEV_AMTRDRV_PMGR_SetInterfaceConfig(uint32_t first_value, uint32_t second_value, uint32_t third_value)
{
    return call<amtrdrv::SetInterfaceConfig>(
        {.first_value = first_value, .second_value = second_value, .third_value = third_value});
}
