// The stack: identities of units and modules, fabric ports, topology, and the port hardware that stacking sets.
#include <stdint.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;
using quillon::ipc::into;

uint8_t DEV_SWDRV_PMGR_SetPortComboForcedMode(uint32_t unit, uint32_t port, uint32_t value1, uint32_t value2)
{
    return call<swdrv::SetPortComboForcedMode>({.unit = unit, .port = port, .value1 = value1, .value2 = value2});
}

uint8_t DEV_SWDRV_PMGR_SetPortIfmode(uint32_t unit, uint32_t port, uint32_t ifmode)
{
    return call<swdrv::SetPortIfmode>({.unit = unit, .port = port, .value = ifmode});
}

void DEV_SWDRV_PMGR_ShutdownSwitch(void)
{
    call<swdrv::ShutdownSwitch>();
}

uint8_t DEV_SWDRV_PMGR_UpdateHerculesUCTable(const TopologyRecord *topology)
{
    return call<swdrv::UpdateHerculesUCTable>(*topology);
}

uint8_t DEV_SWDRV_PMGR_ConfigTopologyInfo(const TopologyRecord *topology)
{
    return call<swdrv::ConfigTopologyInfo>(*topology);
}

uint8_t DEV_SWDRV_PMGR_Physical2LogicalPortByUnitID_DeviceID(uint32_t unit_id, uint32_t device_id, uint32_t phy_port,
                                                             uint32_t *unit, uint32_t *port)
{
    return call<swdrv::Physical2LogicalPortByUnitID_DeviceID>({.values = {unit_id, device_id, phy_port}},
                                                              [=](const swdrv::Port &reply) {
                                                                  *unit = reply.unit;
                                                                  *port = reply.port;
                                                              });
}

uint8_t DEV_SWDRV_PMGR_GetUnitId(uint32_t *unit_id)
{
    return call<swdrv::GetUnitId>({}, into(unit_id));
}

uint8_t DEV_SWDRV_PMGR_GetStackChipDeviceID(uint32_t *device_id)
{
    return call<swdrv::GetStackChipDeviceID>(into(device_id));
}

void DEV_SWDRV_PMGR_GetDstUnitInfo(uint32_t value1, uint32_t value2, uint32_t *info1, uint32_t *info2)
{
    call<swdrv::GetDstUnitInfo>({.values = {value1, value2}}, [=](const swdrv::Words<2> &reply) {
        *info1 = reply.values[0];
        *info2 = reply.values[1];
    });
}

void DEV_SWDRV_PMGR_HiGigRemoteLoopbackSet(uint32_t value1, uint32_t value2, uint32_t value3)
{
    call<swdrv::HiGigRemoteLoopbackSet>({.values = {value1, value2, value3}});
}

uint8_t DEV_SWDRV_PMGR_Get5670linkport(uint32_t value, uint32_t *link_port)
{
    return call<swdrv::Get5670linkport>({.value = value}, into(link_port));
}

uint8_t DEV_SWDRV_PMGR_GetCopperEnergyDetect(uint32_t unit, uint32_t port, uint32_t *energy)
{
    return call<swdrv::GetCopperEnergyDetect>({.unit = unit, .port = port}, into(energy));
}

uint8_t DEV_SWDRV_PMGR_SetFiberPortAutoNeg(uint32_t unit, uint32_t port, uint32_t auto_neg)
{
    return call<swdrv::SetFiberPortAutoNeg>({.unit = unit, .port = port, .value = auto_neg});
}

void DEV_SWDRV_PMGR_GetFabricportByUnitPosition(uint32_t unit_position, uint32_t *fabric_port)
{
    call<swdrv::GetFabricportByUnitPosition>({.value = unit_position}, into(fabric_port));
}

void DEV_SWDRV_PMGR_GetFabricPortToDstUnit(uint32_t dst_unit, uint32_t *fabric_port)
{
    call<swdrv::GetFabricPortToDstUnit>({.value = dst_unit}, into(fabric_port));
}

uint8_t DEV_SWDRV_PMGR_GetMasterModuleID(uint32_t *module_id)
{
    return call<swdrv::GetMasterModuleID>(into(module_id));
}

uint8_t DEV_SWDRV_PMGR_GetModuleInfoByUnit(uint32_t unit, uint8_t value, uint32_t *info)
{
    return call<swdrv::GetModuleInfoByUnit>({.word = unit, .flag = value}, into(info));
}

uint8_t DEV_SWDRV_PMGR_GetLocalCrossBarDeviceId(uint32_t *device_id)
{
    return call<swdrv::GetLocalCrossBarDeviceId>(into(device_id));
}

void DEV_SWDRV_PMGR_VID_BREAK(void)
{
    call<swdrv::VID_BREAK>();
}

// Irregular: the argument is input and output, one step of a walk.
uint8_t DEV_SWDRV_PMGR_GetNextSwitchChipId(uint32_t *chip_id)
{
    return call<swdrv::GetNextSwitchChipId>({.value = *chip_id}, into(chip_id));
}

void DEV_SWDRV_PMGR_GetForwardingStackingPortBitMap(uint32_t *bitmap)
{
    call<swdrv::GetForwardingStackingPortBitMap>(into(bitmap));
}
