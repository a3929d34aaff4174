// What a port trusts, and its mapping tables of CoS, precedence and DSCP.
#include <stdint.h>

#include "ipc/exchange.h"
#include "quillon/swdrvl4.h"
#include "swdrvl4/commands.h"

namespace swdrvl4 = quillon::swdrvl4;
using quillon::ipc::call;

uint8_t DEV_SWDRVL4_PMGR_SetCosTrustMode(uint32_t unit, uint32_t port, uint32_t mode)
{
    return call<swdrvl4::SetCosTrustMode>({.unit = unit, .port = port, .value = mode});
}

uint8_t DEV_SWDRVL4_PMGR_SetQosIngCos2Dscp(uint32_t unit, uint32_t port, uint32_t cos, uint32_t cos_extra,
                                           uint32_t dscp, uint32_t dscp_extra)
{
    return call<swdrvl4::SetQosIngCos2Dscp>(
        {.unit = unit, .port = port, .cos = cos, .cos_extra = cos_extra, .dscp = dscp, .dscp_extra = dscp_extra});
}

uint8_t DEV_SWDRVL4_PMGR_SetQosIngPre2Dscp(uint32_t unit, uint32_t port, uint32_t precedence, uint32_t dscp,
                                           uint32_t dscp_extra)
{
    return call<swdrvl4::SetQosIngPre2Dscp>(
        {.unit = unit, .port = port, .precedence = precedence, .dscp = dscp, .dscp_extra = dscp_extra});
}

uint8_t DEV_SWDRVL4_PMGR_SetQosIngDscp2Dscp(uint32_t unit, uint32_t port, uint32_t dscp, uint32_t new_dscp,
                                            uint32_t new_dscp_extra)
{
    return call<swdrvl4::SetQosIngDscp2Dscp>(
        {.unit = unit, .port = port, .dscp = dscp, .new_dscp = new_dscp, .new_dscp_extra = new_dscp_extra});
}

uint8_t DEV_SWDRVL4_PMGR_SetQosIngDscp2Queue(uint32_t unit, uint32_t port, uint32_t dscp, uint32_t queue)
{
    return call<swdrvl4::SetQosIngDscp2Queue>({.unit = unit, .port = port, .dscp = dscp, .queue = queue});
}

uint8_t DEV_SWDRVL4_PMGR_SetQosIngDscp2Color(uint32_t unit, uint32_t port, uint32_t dscp, uint32_t color)
{
    return call<swdrvl4::SetQosIngDscp2Color>({.unit = unit, .port = port, .dscp = dscp, .color = color});
}

// Irregular: the DSCP is taken in front of the CoS and sent behind it.
uint8_t DEV_SWDRVL4_PMGR_SetQosIngDscp2Cos(uint32_t unit, uint32_t port, uint32_t dscp, uint32_t dscp_extra,
                                           uint32_t cos, uint32_t cos_extra)
{
    return call<swdrvl4::SetQosIngDscp2Cos>(
        {.unit = unit, .port = port, .cos = cos, .cos_extra = cos_extra, .dscp = dscp, .dscp_extra = dscp_extra});
}
