// User priorities and traffic classes.
#include <stdint.h>
#include <string.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;
using quillon::ipc::Exchange;

namespace {

void fill(swdrv::PortPriorityMapping &request, uint32_t unit, uint32_t port, const uint8_t *mapping)
{
    request.unit = unit;
    request.port = port;
    memcpy(request.mapping.data(), mapping, sizeof request.mapping);
}

}  // namespace

uint8_t DEV_SWDRV_PMGR_SetPortUserDefaultPriority(uint32_t unit, uint32_t port, uint32_t priority)
{
    return call<swdrv::SetPortUserDefaultPriority>({.unit = unit, .port = port, .value = priority});
}

uint8_t DEV_SWDRV_PMGR_SetPriorityMapping(uint32_t unit, uint32_t port, const uint8_t *mapping)
{
    Exchange<swdrv::SetPriorityMapping> exchange;
    fill(exchange.request(), unit, port, mapping);
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGR_SetPriorityMappingPerSystem(const uint8_t *mapping)
{
    Exchange<swdrv::SetPriorityMappingPerSystem> exchange;
    memcpy(exchange.request().mapping.data(), mapping, sizeof exchange.request().mapping);
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGR_SetNumberOfTrafficClassByPort(uint32_t unit, uint32_t port, uint32_t number)
{
    return call<swdrv::SetNumberOfTrafficClassByPort>({.unit = unit, .port = port, .value = number});
}

uint8_t DEV_SWDRV_PMGR_SetNumberOfTrafficClass(uint32_t number)
{
    return call<swdrv::SetNumberOfTrafficClass>({.value = number});
}

uint8_t DEV_SWDRV_PMGR_SetStackingPortPriorityMapping(uint32_t unit, uint32_t port, const uint8_t *mapping)
{
    Exchange<swdrv::SetStackingPortPriorityMapping> exchange;
    fill(exchange.request(), unit, port, mapping);
    return exchange.run();
}
