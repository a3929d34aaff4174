#include "host/driver/model/port_status.h"

namespace quillon::driver {

PortStatus RunningPort::status() const
{
    const auto running_at = speed_duplex();
    return {.admin_up = settings_.admin_up(),
            .speed_duplex = running_at,
            .flow_control = running_at ? flow_control(*running_at) : FlowControl{}};
}

NegotiationStatus RunningPort::negotiation() const
{
    if (!settings_.negotiates()) {
        return {.state = NegotiationState::disabled};
    }
    if (!in_contact()) {
        return {.state = NegotiationState::configuring};
    }
    return {.state = speed_duplex() ? NegotiationState::complete : NegotiationState::configuring,
            .partner = line_.partner};
}

// A transceiver without power sees nothing.
JabberState RunningPort::jabber() const
{
    if (!settings_.admin_up()) {
        return JabberState::unknown;
    }
    return line_.jabbers ? JabberState::jabbering : JabberState::none;
}

std::optional<SpeedDuplex> RunningPort::speed_duplex() const
{
    if (!in_contact()) {
        return std::nullopt;
    }
    const LinkModes partner = line_.partner.advertised.modes;
    if (!settings_.negotiates()) {
        return partner.can_run_at(settings_.speed_duplex()) ? std::optional(settings_.speed_duplex()) : std::nullopt;
    }
    const LinkModes common = settings_.advertised().modes.in_common(partner);
    return common.empty() ? std::nullopt : std::optional(speed_duplex_of(common.best()));
}

// Half duplex has no pauses. What is negotiated allows for no more than what is configured.
FlowControl RunningPort::flow_control(SpeedDuplex speed_duplex) const
{
    if (!is_full_duplex(speed_duplex)) {
        return {};
    }
    const FlowControl configured = settings_.flow_control();
    if (!settings_.negotiates()) {
        return configured;
    }
    const FlowControl agreed = resolve_flow_control(settings_.advertised(), line_.partner.advertised);
    return {.receive = agreed.receive && configured.receive, .transmit = agreed.transmit && configured.transmit};
}

}  // namespace quillon::driver
