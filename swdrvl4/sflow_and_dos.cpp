// sFlow sampling and the DoS protection filters. Unlike the family's other requests, theirs say on the console that
// the driver process refused.
#include <stdint.h>
#include <stdio.h>

#include "ipc/exchange.h"
#include "quillon/swdrvl4.h"
#include "swdrvl4/commands.h"

namespace swdrvl4 = quillon::swdrvl4;
using quillon::ipc::call;
using quillon::ipc::Caller;

namespace {

auto print_if_refused(Caller caller = Caller::here())
{
    return [caller](uint8_t result) {
        if (result == 0) [[unlikely]] {
            printf("%s: return_value=%d\n", caller.function, result);
        }
    };
}

}  // namespace

uint8_t DEV_SWDRVL4_PMGR_EnablePortSflow(uint32_t unit, uint32_t port, uint8_t mode)
{
    return call<swdrvl4::EnablePortSflow>({.unit = unit, .port = port, .value = mode}, print_if_refused());
}

uint8_t DEV_SWDRVL4_PMGR_SetPortSflowRate(uint32_t unit, uint32_t port, uint32_t rate)
{
    return call<swdrvl4::SetPortSflowRate>({.unit = unit, .port = port, .value = rate}, print_if_refused());
}

// Irregular: nothing is sent.
uint8_t DEV_SWDRVL4_PMGR_GetSflowSampleCount(void)
{
    return 1;
}

uint8_t DEV_SWDRVL4_PMGR_SetDosProtectionFilter(uint32_t filter, uint8_t mode)
{
    return call<swdrvl4::SetDosProtectionFilter>({.filter = filter, .mode = mode}, print_if_refused());
}
