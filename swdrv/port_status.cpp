// State of ports, one by one or in blocks, and link scan.
#include <stdint.h>
#include <string.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;
using quillon::ipc::into;

namespace {

// The block of the caller has a layout and an alignment of its own.
auto into_block(void *out_block)
{
    return [=](const port_state_block &reply) { memcpy(out_block, &reply, sizeof reply); };
}

}  // namespace

uint8_t DEV_SWDRV_PMGR_GetPortOperSpeedDuplex(uint32_t unit, uint32_t port, uint32_t *speed_duplex)
{
    return call<swdrv::GetPortOperSpeedDuplex>({.unit = unit, .port = port}, into(speed_duplex));
}

uint8_t DEV_SWDRV_PMGR_GetAllPortOperSpeedDuplex(uint32_t block_sel0, uint32_t block_sel1, uint32_t block_sel2,
                                                 void *out_block)
{
    return call<swdrv::GetAllPortOperSpeedDuplex>(
        {.block_sel0 = block_sel0, .block_sel1 = block_sel1, .block_sel2 = block_sel2}, into_block(out_block));
}

uint8_t DEV_SWDRV_PMGR_GetAllPortLinkStatus(uint32_t block_sel0, uint32_t block_sel1, uint32_t block_sel2,
                                            void *out_block)
{
    return call<swdrv::GetAllPortLinkStatus>(
        {.block_sel0 = block_sel0, .block_sel1 = block_sel1, .block_sel2 = block_sel2}, into_block(out_block));
}

uint8_t DEV_SWDRV_PMGR_GetPortLinkStatus(uint32_t unit, uint32_t port, uint32_t *link_status)
{
    return call<swdrv::GetPortLinkStatus>({.unit = unit, .port = port}, into(link_status));
}

uint8_t DEV_SWDRV_PMGR_GetAllPortStatus(uint32_t block_sel0, uint32_t block_sel1, uint32_t block_sel2, void *out_block)
{
    return call<swdrv::GetAllPortStatus>({.block_sel0 = block_sel0, .block_sel1 = block_sel1, .block_sel2 = block_sel2},
                                         into_block(out_block));
}

uint8_t DEV_SWDRV_PMGR_GetPortLinkStatusByDeviceId(uint32_t device_id, uint32_t device_port, uint32_t *link_status)
{
    return call<swdrv::GetPortLinkStatusByDeviceId>({.device_id = device_id, .device_port = device_port},
                                                    into(link_status));
}

uint8_t DEV_SWDRV_PMGR_GetPortFlowCtrl(uint32_t unit, uint32_t port, uint32_t *flow_control)
{
    return call<swdrv::GetPortFlowCtrl>({.unit = unit, .port = port}, into(flow_control));
}

uint8_t DEV_SWDRV_PMGR_GetAllPortFlowCtrl(uint32_t block_sel0, uint32_t block_sel1, uint32_t block_sel2,
                                          void *out_block)
{
    return call<swdrv::GetAllPortFlowCtrl>(
        {.block_sel0 = block_sel0, .block_sel1 = block_sel1, .block_sel2 = block_sel2}, into_block(out_block));
}

// Irregular: the driver process's result goes nowhere.
void DEV_SWDRV_PMGR_LinkScan_Update(void)
{
    call<swdrv::LinkScan_Update>();
}

// Irregular: it counts bytes that carry nothing.
uint8_t DEV_SWDRV_PMGR_EnableHgPortAdmin(void)
{
    return call<swdrv::EnableHgPortAdmin>({});
}

uint8_t DEV_SWDRV_PMGR_LINKSCAN_Register(void)
{
    return call<swdrv::LINKSCAN_Register>();
}
