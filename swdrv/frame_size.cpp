// Frame sizes of the system and of ports.
#include <stdint.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;

uint8_t DEV_SWDRV_PMGR_SetSystemMTU(uint32_t value1, uint32_t value2)
{
    return call<swdrv::SetSystemMTU>({.values = {value1, value2}});
}

uint8_t DEV_SWDRV_PMGR_SetPortMTU(uint32_t unit, uint32_t port, uint32_t mtu)
{
    return call<swdrv::SetPortMTU>({.unit = unit, .port = port, .value = mtu});
}

// Irregular: the outputs are written only when the driver process has not refused.
uint8_t DEV_SWDRV_PMGR_GetPortMaxFrameSize(uint32_t unit, uint32_t port, uint32_t *size1, uint32_t *size2)
{
    return call<swdrv::GetPortMaxFrameSize>({.unit = unit, .port = port},
                                            [=](const swdrv::Words<2> &reply, uint8_t result) {
                                                if (result != 0) {
                                                    *size1 = reply.values[0];
                                                    *size2 = reply.values[1];
                                                }
                                            });
}

uint8_t DEV_SWDRV_PMGR_EnableJumboFrame(void)
{
    return call<swdrv::EnableJumboFrame>();
}

uint8_t DEV_SWDRV_PMGR_DisableJumboFrame(void)
{
    return call<swdrv::DisableJumboFrame>();
}
