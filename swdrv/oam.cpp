// OAM, trunk hashing, and the events that a task binds itself to and waits for.
#include <stdint.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;
using quillon::ipc::Exchange;
using quillon::ipc::into;

void DEV_SWDRV_PMGR_Receive_All(uint32_t mode)
{
    call<swdrv::Receive_All>({.value = mode});
}

uint8_t DEV_SWDRV_PMGR_SetOamPduToCpu(uint32_t unit, uint32_t port, uint8_t enable)
{
    return call<swdrv::SetOamPduToCpu>({.unit = unit, .port = port, .value = enable});
}

uint8_t DEV_SWDRV_PMGR_SetOamLoopback(uint32_t unit, uint32_t port, uint8_t enable)
{
    return call<swdrv::SetOamLoopback>({.unit = unit, .port = port, .value = enable});
}

uint8_t DEV_SWDRV_PMGR_SetOamEnable(uint8_t oam_sel, uint8_t enable)
{
    return call<swdrv::SetOamEnable>({.oam_sel = oam_sel, .enable = enable});
}

uint8_t DEV_SWDRV_PMGR_SetOamEntry(uint8_t oam_sel, uint32_t entry_index, uint32_t param1, uint32_t param2,
                                   const OamEntryRecord *record)
{
    Exchange<swdrv::SetOamEntry> exchange;
    swdrv::OamEntry &request = exchange.request();
    request.oam_sel = oam_sel;
    request.entry_index = entry_index;
    request.param1 = param1;
    request.param2 = param2;
    request.record = *record;
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGRSetOamOpcodeProfilePktCmdEntry(uint8_t oam_sel, uint32_t entry_index, uint32_t param1,
                                                     uint32_t param2, uint32_t param3)
{
    return call<swdrv::SetOamOpcodeProfilePktCmdEntry>(
        {.oam_sel = oam_sel, .entry_index = entry_index, .param1 = param1, .param2 = param2, .param3 = param3});
}

uint8_t DEV_SWDRV_PMGR_SetOamAgingDaemonEnable(uint8_t oam_sel, uint8_t enable)
{
    return call<swdrv::SetOamAgingDaemonEnable>({.oam_sel = oam_sel, .enable = enable});
}

uint8_t DEV_SWDRV_PMGR_SetOamAgingPeriodEntry(uint8_t oam_sel, uint32_t entry_index, uint32_t param1, uint32_t param2)
{
    return call<swdrv::SetOamAgingPeriodEntry>(
        {.oam_sel = oam_sel, .entry_index = entry_index, .param1 = param1, .param2 = param2});
}

// Irregular: the last argument stands before the second in the request.
uint8_t DEV_SWDRV_PMGR_SetOamKeepaliveForPacketCommandEnable(uint8_t oam_sel, uint32_t entry_index, uint8_t enable)
{
    return call<swdrv::SetOamKeepaliveForPacketCommandEnable>(
        {.oam_sel = oam_sel, .enable = enable, .entry_index = entry_index});
}

uint8_t DEV_SWDRV_PMGR_SetOamExceptionConfig(uint8_t oam_sel, uint32_t entry_index, uint32_t param1, uint8_t enable)
{
    return call<swdrv::SetOamExceptionConfig>(
        {.oam_sel = oam_sel, .entry_index = entry_index, .param1 = param1, .enable = enable});
}

uint8_t DEV_SWDRV_PMGR_SetOamExceptionRecoveryConfig(uint8_t oam_sel, uint32_t entry_index, uint32_t param1)
{
    return call<swdrv::SetOamExceptionRecoveryConfig>(
        {.oam_sel = oam_sel, .entry_index = entry_index, .param1 = param1});
}

uint8_t DEV_SWDRV_PMGR_GetOamExceptionGroupStatus(uint32_t value, uint8_t oam_sel, uint32_t entry_index,
                                                  uint64_t *status)
{
    return call<swdrv::GetOamExceptionGroupStatus>({.value = value, .oam_sel = oam_sel, .entry_index = entry_index},
                                                   into(status));
}

uint8_t DEV_SWDRV_PMGR_GetOamExceptionStatus(uint32_t value, uint8_t oam_sel, uint32_t entry_index, uint32_t param1,
                                             uint32_t *status)
{
    return call<swdrv::GetOamExceptionStatus>(
        {.value = value, .oam_sel = oam_sel, .entry_index = entry_index, .param1 = param1}, into(status));
}

uint8_t DEV_SWDRV_PMGR_SetTrunkHashGlobalMode(uint32_t mode)
{
    return call<swdrv::SetTrunkHashGlobalMode>({.value = mode});
}

uint8_t DEV_SWDRV_PMGR_SetTrunkHashCrcEntry(uint32_t value, uint32_t entry_index, const TrunkHashCrcRecord *record)
{
    Exchange<swdrv::SetTrunkHashCrcEntry> exchange;
    swdrv::TrunkHashCrc &request = exchange.request();
    request.value = value;
    request.entry_index = entry_index;
    request.record = *record;
    return exchange.run();
}

// Irregular: only a binding has a handle.
uint8_t DEV_SWDRV_PMGR_EventBindUnbindOam(int8_t operation, uint32_t param1, uint32_t param2, uint64_t *event_handle)
{
    return call<swdrv::EventBindUnbindOam>(
        {.operation = static_cast<uint8_t>(operation), .param1 = param1, .param2 = param2},
        [=](const swdrv::DoubleWord &reply) {
            if (operation == swdrv::OamBinding::bind && event_handle != nullptr) {
                *event_handle = reply.value;
            }
        });
}

// Irregular: no time-out is asked for by a flag of its own.
uint8_t DEV_SWDRV_PMGR_WaitAndReceiveOam(uint32_t event, uint64_t event_handle, const uint32_t *timeout)
{
    const bool wait_forever = timeout == nullptr;
    return call<swdrv::WaitAndReceiveOam>({.event = event,
                                           .event_handle = event_handle,
                                           .wait_forever = static_cast<uint8_t>(wait_forever),
                                           .timeout = wait_forever ? 0 : *timeout});
}
