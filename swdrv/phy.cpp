// PHYs, cables and what else lies below a port.
#include <stdint.h>
#include <stdio.h>
#include <string.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;
using quillon::ipc::Exchange;
using quillon::ipc::into;

namespace {

// A reply that is the caller's record as it is.
template <class Record>
auto into_record(Record *record)
{
    return [record](const Record &reply) { *record = reply; };
}

}  // namespace

uint8_t DEV_SWDRV_PMGR_Set1000BaseTPortTestMode(uint32_t unit, uint32_t port, uint16_t test_mode)
{
    return call<swdrv::Set1000BaseTPortTestMode>({.unit = unit, .port = port, .value = test_mode});
}

uint8_t DEV_SWDRV_PMGR_Get1000BaseTPortTestMode(uint32_t unit, uint32_t port, uint16_t *test_mode)
{
    return call<swdrv::Get1000BaseTPortTestMode>({.unit = unit, .port = port}, into(test_mode));
}

uint8_t DEV_SWDRV_PMGR_Set1000BaseTTransmitterType(uint32_t unit, uint32_t port, uint16_t transmitter_type)
{
    return call<swdrv::Set1000BaseTTransmitterType>({.unit = unit, .port = port, .value = transmitter_type});
}

uint8_t DEV_SWDRV_PMGR_Get1000BaseTTransmitterType(uint32_t unit, uint32_t port, uint16_t *transmitter_type)
{
    return call<swdrv::Get1000BaseTTransmitterType>({.unit = unit, .port = port}, into(transmitter_type));
}

uint8_t DEV_SWDRV_PMGR_GetAutoMDIXmode(uint32_t unit, uint32_t port, uint32_t *mode)
{
    return call<swdrv::GetAutoMDIXmode>({.unit = unit, .port = port}, into(mode));
}

// Irregular: returns the whole word of the result.
uint32_t DEV_SWDRV_PMGR_SocPciWrite(uint32_t value1, uint32_t value2, uint32_t value3)
{
    return call<swdrv::SocPciWrite>({.values = {value1, value2, value3}});
}

uint8_t DEV_SWDRV_PMGR_SetPortPowerSave(uint32_t unit, uint32_t port, uint8_t value1, uint8_t value2)
{
    return call<swdrv::SetPortPowerSave>({.unit = unit, .port = port, .flags = {value1, value2}});
}

uint8_t DEV_SWDRV_PMGR_GetCableDiag(uint32_t unit, uint32_t port, CableDiagRecord *record)
{
    return call<swdrv::GetCableDiag>({.unit = unit, .port = port}, into_record(record));
}

uint8_t DEV_SWDRV_PMGR_GetCableDiagResult(uint32_t unit, uint32_t port, CableDiagResultRecord *record)
{
    return call<swdrv::GetCableDiagResult>({.unit = unit, .port = port}, into_record(record));
}

uint8_t DEV_SWDRV_PMGR_EnableInternalLoopback(uint32_t value)
{
    return call<swdrv::EnableInternalLoopback>({.value = value});
}

uint8_t DEV_SWDRV_PMGR_DisableInternalLoopback(uint32_t value)
{
    return call<swdrv::DisableInternalLoopback>({.value = value});
}

uint8_t DEV_SWDRV_PMGR_IsPortLoopbacking(uint32_t value)
{
    return call<swdrv::IsPortLoopbacking>({.value = value});
}

uint8_t DEV_SWDRV_PMGR_SetPortAuthMode(uint32_t unit, uint32_t port, uint32_t auth_mode)
{
    return call<swdrv::SetPortAuthMode>({.unit = unit, .port = port, .value = auth_mode});
}

uint8_t DEV_SWDRV_PMGR_UpdatePortMapping(uint8_t value)
{
    return call<swdrv::UpdatePortMapping>({.value = value});
}

uint8_t DEV_SWDRV_PMGR_SetPortMacAddr(uint32_t unit, uint32_t port, const uint8_t mac[6])
{
    Exchange<swdrv::SetPortMacAddr> exchange;
    swdrv::PortMac &request = exchange.request();
    request.unit = unit;
    request.port = port;
    memcpy(request.mac.data(), mac, sizeof request.mac);
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGR_SetCpuRateLimit(uint32_t value1, uint32_t value2)
{
    return call<swdrv::SetCpuRateLimit>({.values = {value1, value2}});
}

uint8_t DEV_SWDRV_PMGR_GetPortAbility(uint32_t unit, uint32_t port, uint32_t *ability)
{
    return call<swdrv::GetPortAbility>({.unit = unit, .port = port}, into(ability));
}

// Irregular: the arguments are tested here, the count before the pointer; what is refused is printed and not sent.
uint8_t DEV_SWDRV_PMGR_DoPHYRegsTransactions(uint32_t unit, uint32_t port, const uint8_t *phy_reg_ops,
                                             uint64_t num_of_ops)
{
    using Ops = swdrv::PhyRegOps;
    const auto count = static_cast<uint32_t>(num_of_ops);
    if (count > Ops::max_ops) {
        printf("%s(%d)num_of_ops(%lu) too large. (max value=%lu)\r\n", __func__, __LINE__,
               static_cast<unsigned long>(num_of_ops), static_cast<unsigned long>(Ops::max_ops));
        return swdrv::DoPHYRegsTransactions::failure;
    }
    if (phy_reg_ops == nullptr) {
        printf("%s(%d)phy_reg_ops is NULL\r\n", __func__, __LINE__);
        return swdrv::DoPHYRegsTransactions::failure;
    }
    Exchange<swdrv::DoPHYRegsTransactions> exchange;
    Ops &request = exchange.request();
    request.unit = unit;
    request.port = port;
    memcpy(request.ops.data(), phy_reg_ops, count * Ops::op_size);
    request.num_of_ops = count;
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGR_GetMIIPhyRegByPage(uint32_t value1, uint32_t value2, uint32_t value3, uint32_t value4,
                                          uint32_t value5, uint32_t value6, uint32_t value7, uint16_t *reg)
{
    return call<swdrv::GetMIIPhyRegByPage>({.values = {value1, value2, value3, value4, value5, value6, value7}},
                                           into(reg));
}

uint8_t DEV_SWDRV_PMGR_GetAllPortAverageTemperature(uint32_t *temperature)
{
    return call<swdrv::GetAllPortAverageTemperature>(into(temperature));
}

uint8_t DEV_SWDRV_PMGR_SetCpuPortRate(uint32_t value1, uint8_t value2)
{
    return call<swdrv::SetCpuPortRate>({.word = value1, .flag = value2});
}

uint8_t DEV_SWDRV_PMGR_SetPortEgressBlock(uint32_t unit, uint32_t port, const uint64_t egress_bitmap[2])
{
    return call<swdrv::SetPortEgressBlock>(
        {.unit = unit, .port = port, .egress_bitmap = {egress_bitmap[0], egress_bitmap[1]}});
}

uint8_t DEV_SWDRV_PMGR_SetPortTrafficTxRx(uint32_t unit, uint32_t port, uint8_t enable)
{
    return call<swdrv::SetPortTrafficTxRx>({.unit = unit, .port = port, .value = enable});
}

uint8_t DEV_SWDRV_PMGR_SetPortStationMoveAction(uint32_t unit, uint32_t port, uint8_t value1, uint8_t value2)
{
    return call<swdrv::SetPortStationMoveAction>({.unit = unit, .port = port, .flags = {value1, value2}});
}

// Irregular: the version comes out as text, and only when the driver process did not refuse.
uint8_t DEV_SWDRV_PMGR_GetCPLDSoftwareVersion(uint32_t value, char *dst)
{
    if (dst == nullptr) {
        return swdrv::GetCPLDSoftwareVersion::failure;
    }
    return call<swdrv::GetCPLDSoftwareVersion>({.value = value},
                                               [=](const swdrv::CpldVersion &version, uint8_t result) {
                                                   if (result != 0) {
                                                       sprintf(dst, "%02x.%02x", version.first, version.second);
                                                   }
                                               });
}

uint8_t DEV_SWDRV_PMGR_SetPortSfpConnector(uint32_t unit, uint32_t port, uint8_t value)
{
    return call<swdrv::SetPortSfpConnector>({.unit = unit, .port = port, .value = value});
}

uint8_t DEV_SWDRV_PMGR_SetPortFec(uint32_t unit, uint32_t port, uint32_t fec)
{
    return call<swdrv::SetPortFec>({.unit = unit, .port = port, .value = fec});
}

uint8_t DEV_SWDRV_PMGR_GetPortFecStatus(uint32_t unit, uint32_t port, uint32_t *status)
{
    return call<swdrv::GetPortFecStatus>({.unit = unit, .port = port}, into(status));
}

uint8_t DEV_SWDRV_PMGR_GetDeviceTemperature(uint32_t *temperature)
{
    return call<swdrv::GetDeviceTemperature>(into(temperature));
}
