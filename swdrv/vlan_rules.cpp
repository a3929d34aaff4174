// VLANs by protocol, by MAC address and by IP subnet, VLAN trunking and RSPAN.
#include <assert.h>
#include <stdint.h>
#include <string.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;
using quillon::ipc::Exchange;

namespace {

void fill(swdrv::ProtocolPortEntry &entry, uint32_t unit, uint32_t port, uint32_t value1, uint32_t value2,
          uint32_t count, const ProtocolGroupKey *key, const uint8_t *templates)
{
    assert(count <= swdrv::ProtocolPortEntry::max_templates);
    entry.unit = unit;
    entry.port = port;
    entry.value1 = value1;
    entry.value2 = value2;
    entry.count = count;
    entry.key = *key;
    if (count != 0) {
        memcpy(entry.templates.data(), templates, count * sizeof(ProtocolTemplate));
    }
}

}  // namespace

uint8_t DEV_SWDRV_PMGR_AddDot1vProtocolPortEntry(uint32_t unit, uint32_t port, uint32_t value1, uint32_t value2,
                                                 uint32_t count, const ProtocolGroupKey *key, uint8_t value3,
                                                 const uint8_t *templates)
{
    Exchange<swdrv::AddDot1vProtocolPortEntry> exchange;
    swdrv::AddedProtocolPortEntry &request = exchange.request();
    fill(request.entry, unit, port, value1, value2, count, key, templates);
    request.value = value3;
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGR_DelDot1vProtocolPortEntry(uint32_t unit, uint32_t port, uint32_t value1, uint32_t value2,
                                                 uint32_t count, const ProtocolGroupKey *key, const uint8_t *templates)
{
    Exchange<swdrv::DelDot1vProtocolPortEntry> exchange;
    fill(exchange.request(), unit, port, value1, value2, count, key, templates);
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGR_SetDot1vProtocolGroupEntry(uint32_t value1, const ProtocolTemplate *protocol, uint32_t value2)
{
    Exchange<swdrv::SetDot1vProtocolGroupEntry> exchange;
    swdrv::ProtocolGroup &request = exchange.request();
    request.value1 = value1;
    request.protocol = *protocol;
    request.value2 = value2;
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGR_SetMacVlanEntry(const uint8_t *mac, uint16_t vid, uint8_t value)
{
    Exchange<swdrv::SetMacVlanEntry> exchange;
    swdrv::MacVlan &request = exchange.request();
    memcpy(request.mac.data(), mac, sizeof request.mac);
    request.vid = vid;
    request.value = value;
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGR_DeleteMacVlanEntry(const uint8_t *mac)
{
    Exchange<swdrv::DeleteMacVlanEntry> exchange;
    memcpy(exchange.request().mac.data(), mac, sizeof exchange.request().mac);
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGR_SetIpSubnetVlanEntry(uint32_t ip, uint32_t mask, uint16_t vid, uint8_t value)
{
    return call<swdrv::SetIpSubnetVlanEntry>({.subnet = {.ip = ip, .mask = mask}, .vid = vid, .value = value});
}

uint8_t DEV_SWDRV_PMGR_DeleteIpSubnetVlanEntry(uint32_t ip, uint32_t mask)
{
    return call<swdrv::DeleteIpSubnetVlanEntry>({.ip = ip, .mask = mask});
}

uint8_t DEV_SWDRV_PMGR_SetDefaultVlanTrunking(void)
{
    return call<swdrv::SetDefaultVlanTrunking>();
}

uint8_t DEV_SWDRV_PMGR_CreateVlanForVlanTrunking(uint32_t value1, const uint32_t *value2)
{
    return call<swdrv::CreateVlanForVlanTrunking>({.values = {value1, *value2}});
}

// Irregular: the last argument stands before the flag in the request.
uint8_t DEV_SWDRV_PMGR_SetPortVlanTunkingByVLAN(uint32_t value1, uint8_t flag, uint32_t value2)
{
    return call<swdrv::SetPortVlanTunkingByVLAN>({.value1 = value1, .value2 = value2, .flag = flag});
}

// Irregular: the last argument stands first in the request.
uint8_t DEV_SWDRV_PMGR_SetPortVlanTunkingByVlanList(const uint32_t *value, uint8_t flag, const void *vlan_list)
{
    Exchange<swdrv::SetPortVlanTunkingByVlanList> exchange;
    swdrv::VlanListTrunking &request = exchange.request();
    memcpy(request.vlan_list.data(), vlan_list, sizeof request.vlan_list);
    request.value = *value;
    request.flag = flag;
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGR_SetCopyInnerPri2OuterPri(uint32_t value1, uint32_t value2, uint32_t value3)
{
    return call<swdrv::SetCopyInnerPri2OuterPri>({.values = {value1, value2, value3}});
}

uint8_t DEV_SWDRV_PMGR_SetRspanVlanTag(uint32_t value1, uint16_t value2, uint16_t value3)
{
    return call<swdrv::SetRspanVlanTag>({.value1 = value1, .value2 = value2, .value3 = value3});
}

uint8_t DEV_SWDRV_PMGR_DisableRspanPortLearning(uint32_t unit, uint32_t port)
{
    return call<swdrv::DisableRspanPortLearning>({.unit = unit, .port = port});
}

uint8_t DEV_SWDRV_PMGR_EnableRspanPortLearning(uint32_t unit, uint32_t port)
{
    return call<swdrv::EnableRspanPortLearning>({.unit = unit, .port = port});
}
