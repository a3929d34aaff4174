// Traffic segmentation and private VLANs, which keep ports from one another.
#include <stdint.h>
#include <string.h>

#include "ipc/exchange.h"
#include "quillon/swdrvl4.h"
#include "swdrvl4/commands.h"

namespace swdrvl4 = quillon::swdrvl4;
using quillon::ipc::call;
using quillon::ipc::Exchange;

namespace {

void fill(swdrvl4::PortLists &request, uint32_t session, const uint8_t *first_ports, const uint8_t *second_ports)
{
    request.session = session;
    memcpy(request.first_ports.data(), first_ports, sizeof request.first_ports);
    memcpy(request.second_ports.data(), second_ports, sizeof request.second_ports);
}

}  // namespace

uint8_t DEV_SWDRVL4_PMGR_EnableTrafficSegmatation(void)
{
    return call<swdrvl4::EnableTrafficSegmatation>();
}

uint8_t DEV_SWDRVL4_PMGR_DisableTrafficSegmatation(void)
{
    return call<swdrvl4::DisableTrafficSegmatation>();
}

uint8_t DEV_SWDRVL4_PMGR_ResetTrafficSegmatation(void)
{
    return call<swdrvl4::ResetTrafficSegmatation>();
}

// Irregular: segmentation has no sessions: the word that names one for private VLANs is sent as 0.
uint8_t DEV_SWDRVL4_PMGR_SetTrafficSegmatationByPortlist(const uint8_t *first_ports, const uint8_t *second_ports)
{
    Exchange<swdrvl4::SetTrafficSegmatationByPortlist> exchange;
    constexpr uint32_t no_session = 0;
    fill(exchange.request(), no_session, first_ports, second_ports);
    return exchange.run();
}

uint8_t DEV_SWDRVL4_PMGR_SetPrivateVlanPortlistBySessionId(uint32_t session, const uint8_t *first_ports,
                                                           const uint8_t *second_ports)
{
    Exchange<swdrvl4::SetPrivateVlanPortlistBySessionId> exchange;
    fill(exchange.request(), session, first_ports, second_ports);
    return exchange.run();
}

uint8_t DEV_SWDRVL4_PMGR_DeletePrivateVlanPortlistBySessionId(uint32_t session, const uint8_t *first_ports,
                                                              const uint8_t *second_ports)
{
    Exchange<swdrvl4::DeletePrivateVlanPortlistBySessionId> exchange;
    fill(exchange.request(), session, first_ports, second_ports);
    return exchange.run();
}

uint8_t DEV_SWDRVL4_PMGR_SetPrivateVlanUplinkPortMode(uint8_t mode)
{
    return call<swdrvl4::SetPrivateVlanUplinkPortMode>({.value = mode});
}

uint8_t DEV_SWDRVL4_PMGR_SetPrivateVlanTrunkMode(uint32_t unit, uint32_t port, uint8_t mode)
{
    return call<swdrvl4::SetPrivateVlanTrunkMode>({.unit = unit, .port = port, .value = mode});
}
