// Unit, device and port mapping, and what overrides a port's hardware.
#include <stdint.h>
#include <string.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;
using quillon::ipc::Exchange;
using quillon::ipc::into;

namespace {

auto into_physical(uint32_t *module_id, uint32_t *device_id, uint32_t *phy_port)
{
    return [=](const swdrv::PhysicalPort &reply) {
        *module_id = reply.module_id;
        *device_id = reply.device_id;
        *phy_port = reply.phy_port;
    };
}

}  // namespace

uint8_t DEV_SWDRV_PMGR_ResetOnDemand(uint8_t flag)
{
    return call<swdrv::ResetOnDemand>({.value = flag});
}

uint8_t DEV_SWDRV_PMGR_GetLocalUnitChipsetNumber(void)
{
    return call<swdrv::GetLocalUnitChipsetNumber>();
}

uint8_t DEV_SWDRV_PMGR_Logical2PhyDevicePortID(uint32_t unit, uint32_t port, uint32_t *module_id, uint32_t *device_id,
                                               uint32_t *phy_port)
{
    return call<swdrv::Logical2PhyDevicePortID>({.unit = unit, .port = port},
                                                into_physical(module_id, device_id, phy_port));
}

uint8_t DEV_SWDRV_PMGR_Logical2PhyDeviceID(uint32_t unit, uint32_t port, uint32_t *module_id, uint32_t *device_id,
                                           uint32_t *phy_port)
{
    return call<swdrv::Logical2PhyDeviceID>({.unit = unit, .port = port},
                                            into_physical(module_id, device_id, phy_port));
}

uint8_t DEV_SWDRV_PMGR_Physical2LogicalPort(uint32_t module_id, uint32_t device_id, uint32_t phy_port, uint32_t *unit,
                                            uint32_t *port)
{
    return call<swdrv::Physical2LogicalPort>({.module_id = module_id, .device_id = device_id, .phy_port = phy_port},
                                             [=](const swdrv::Port &reply) {
                                                 *unit = reply.unit;
                                                 *port = reply.port;
                                             });
}

uint8_t DEV_SWDRV_PMGR_GetLocalDeviceIDFromModuleID(uint32_t unit, uint32_t module_id, uint32_t *device_id)
{
    return call<swdrv::GetLocalDeviceIDFromModuleID>({.unit = unit, .module_id = module_id}, into(device_id));
}

uint8_t DEV_SWDRV_PMGR_GetModuleIdFromLocalDeviceId(uint32_t unit, uint32_t device_id, uint32_t *module_id)
{
    return call<swdrv::GetModuleIdFromLocalDeviceId>({.unit = unit, .device_id = device_id}, into(module_id));
}

uint8_t DEV_SWDRV_PMGR_PortSerdesAutoTuneDfeClear(uint32_t unit, uint32_t port)
{
    return call<swdrv::PortSerdesAutoTuneDfeClear>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_SetPortForceLinkDownStatus(uint32_t unit, uint32_t port, uint8_t force_down)
{
    return call<swdrv::SetPortForceLinkDownStatus>({.unit = unit, .port = port, .value = force_down});
}

// Irregular: the pattern's length is tested here, and a bad one is refused without a request or a report.
uint8_t DEV_SWDRV_PMGR_SetPortForceLEDStatus(uint32_t unit, uint32_t port, const uint8_t *pattern, uint32_t pattern_len,
                                             uint32_t led_mode)
{
    if (pattern_len != 0 && (pattern == nullptr || pattern_len > swdrv::ForcedLed::max_pattern)) {
        return swdrv::SetPortForceLEDStatus::failure;
    }
    Exchange<swdrv::SetPortForceLEDStatus> exchange;
    swdrv::ForcedLed &request = exchange.request();
    request.unit = unit;
    request.port = port;
    if (pattern_len != 0) {
        memcpy(request.pattern.data(), pattern, pattern_len);
    }
    request.pattern_len = pattern_len;
    request.led_mode = led_mode;
    return exchange.run();
}
