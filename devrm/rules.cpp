// Rules, their meters, actions and counters, and the policy control lists that bind them to ports.
#include <assert.h>
#include <stdint.h>

#include "devrm/commands.h"
#include "ipc/exchange.h"
#include "quillon/devrm.h"

namespace devrm = quillon::devrm;
using quillon::ipc::call;
using quillon::ipc::Exchange;

void DEVRM_PMGR_FieldInit(void)
{
    call<devrm::FieldInit>({});
}

uint8_t DEVRM_PMGR_AllocateRule(uint32_t a1, uint32_t a2, uint32_t a3, uint32_t a4, uint32_t a5)
{
    return call<devrm::AllocateRule>({.a1 = a1, .a2 = a2, .a3 = a3, .a4 = a4, .a5 = a5});
}

// Irregular: records are copied into the member, and a null pattern leaves its place zero.
uint8_t DEVRM_PMGR_SetRule(uint32_t a1, uint32_t a2, uint32_t a3, const RulePattern *pattern,
                           const RuleActionBlock *action)
{
    assert(action != nullptr);
    Exchange<devrm::SetRule> exchange;
    devrm::RuleSetting &request = exchange.request();
    request.a1 = a1;
    request.a2 = a2;
    request.a3 = a3;
    if (pattern != nullptr) {
        request.pattern = *pattern;
    }
    request.action = *action;
    return exchange.run();
}

// Irregular: the third argument stands before the second.
uint8_t DEVRM_PMGR_DestroyRule(uint32_t a1, uint32_t a2, uint32_t a3)
{
    return call<devrm::DestroyRule>({.a1 = a1, .a3 = a3, .a2 = a2});
}

// Irregular: a record is copied into the member.
uint8_t DEVRM_PMGR_UpdateMeter(uint32_t a1, uint32_t a2, uint32_t a3, const RuleMeter *meter)
{
    Exchange<devrm::UpdateMeter> exchange;
    devrm::MeterUpdate &request = exchange.request();
    request.a1 = a1;
    request.a2 = a2;
    request.a3 = a3;
    request.meter = *meter;
    return exchange.run();
}

uint8_t DEVRM_PMGR_ShareMeter(uint32_t a1, uint32_t a2, uint32_t a3)
{
    return call<devrm::ShareMeter>({.a1 = a1, .a2 = a2, .a3 = a3});
}

uint8_t DEVRM_PMGR_DestroyAction(uint32_t a1, uint32_t a2, uint32_t a3)
{
    return call<devrm::DestroyAction>({.a1 = a1, .a2 = a2, .a3 = a3});
}

uint32_t DEVRM_PMGR_GetNumberOfChips(void)
{
    return call<devrm::GetNumberOfChips>({});
}

uint8_t DEVRM_PMGR_GetDeviceInfo(uint32_t *info)
{
    return call<devrm::GetDeviceInfo>({}, [=](const devrm::Word &reply, uint8_t result) {
        if (result != 0) {
            *info = reply.value;
        }
    });
}

uint8_t DEVRM_PMGR_CheckSoc(uint32_t a1)
{
    return call<devrm::CheckSoc>({.value = a1});
}

// Irregular: the arguments are sent in an order of their own.
uint8_t DEVRM_PMGR_CreatePcl(uint32_t a1, uint32_t a2, uint8_t a3, uint32_t a4, uint32_t a5)
{
    return call<devrm::CreatePcl>({.a4 = a4, .a1 = a1, .a2 = a2, .a5 = a5, .a3 = a3});
}

uint8_t DEVRM_PMGR_BindPclToPort(uint32_t a1, uint32_t a2, uint32_t a3)
{
    return call<devrm::BindPclToPort>({.a1 = a1, .a2 = a2, .a3 = a3});
}

uint8_t DEVRM_PMGR_UnbindPclToPort(uint32_t a1, uint32_t a2, uint32_t a3)
{
    return call<devrm::UnbindPclToPort>({.a1 = a1, .a2 = a2, .a3 = a3});
}

uint8_t DEVRM_PMGR_BindPclToTrunkPort(uint32_t a1, uint32_t a2, uint32_t a3)
{
    return call<devrm::BindPclToTrunkPort>({.a1 = a1, .a2 = a2, .a3 = a3});
}

uint8_t DEVRM_PMGR_UnbindPclToTrunkPort(uint32_t a1, uint32_t a2, uint32_t a3)
{
    return call<devrm::UnbindPclToTrunkPort>({.a1 = a1, .a2 = a2, .a3 = a3});
}

uint8_t DEVRM_PMGR_GetCounter(uint32_t a1, uint32_t a2, uint32_t a3, uint32_t *a4, uint32_t *a5, uint32_t *a6)
{
    return call<devrm::GetCounter>({.a1 = a1, .a2 = a2, .a3 = a3},
                                   [=](const devrm::CounterWords &reply, uint8_t result) {
                                       if (result != 0) {
                                           *a4 = reply.a4;
                                           *a5 = reply.a5;
                                           *a6 = reply.a6;
                                       }
                                   });
}

uint8_t DEVRM_PMGR_ClearCounter(uint32_t a1, uint32_t a2, uint32_t a3)
{
    return call<devrm::ClearCounter>({.a1 = a1, .a2 = a2, .a3 = a3});
}

uint32_t DEVRM_PMGR_GetNumberOfEXCLUDEVLAN(void)
{
    return call<devrm::GetNumberOfEXCLUDEVLAN>({});
}
