// Port configuration, and negotiation with the link partner.
#include "host/driver/handlers.h"
#include "host/driver/request_values.h"
#include "host/driver/swdrv_encoding.h"
#include "host/driver/swdrv_running_port.h"
#include "swdrv/commands.h"

namespace quillon::driver {
namespace {

// Answers C by what `change` returns for the settings of the port and the request.
template <class C, class Change>
void on_settings(Dispatcher &dispatcher, SharedSwitch &model, Change change)
{
    dispatcher.on<C>([&model, change](const typename C::Request &request) {
        const auto access = model.lock();
        PortSettings *const settings = access->chips.ports.find(logical(request));
        return settings != nullptr && change(*settings, request);
    });
}

// The same for a change that every port can take.
template <class C, class Change>
void on_any_settings(Dispatcher &dispatcher, SharedSwitch &model, Change change)
{
    on_settings<C>(dispatcher, model, [change](PortSettings &settings, const auto & /*request*/) {
        change(settings);
        return true;
    });
}

void add_admin_state(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_any_settings<swdrv::EnablePortAdmin>(dispatcher, model, [](PortSettings &port) { port.set_admin_up(true); });
    on_any_settings<swdrv::DisablePortAdmin>(dispatcher, model, [](PortSettings &port) { port.set_admin_up(false); });
    dispatcher.on<swdrv::DisableAllPortAdmin>([&model] {
        model.lock()->chips.shut_all_ports();
        return true;
    });
}

void add_speed_and_flow_control(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_settings<swdrv::SetPortCfgSpeedDuplex>(dispatcher, model,
                                              [](PortSettings &port, const swdrv::PortWord &request) {
                                                  const auto speed_duplex = decoded<SpeedDuplex>(request.value);
                                                  return speed_duplex && port.set_speed_duplex(*speed_duplex);
                                              });
    on_any_settings<swdrv::EnablePortCfgFlowCtrl>(
        dispatcher, model, [](PortSettings &port) { port.set_flow_control({.receive = true, .transmit = true}); });
    on_any_settings<swdrv::DisablePortCfgFlowCtrl>(dispatcher, model,
                                                   [](PortSettings &port) { port.set_flow_control({}); });
    on_settings<swdrv::SetPortCfgFlowCtrl>(dispatcher, model, [](PortSettings &port, const swdrv::PortWord &request) {
        const auto flow_control = decoded<FlowControl>(request.value);
        if (flow_control) {
            port.set_flow_control(*flow_control);
        }
        return flow_control.has_value();
    });
}

void add_port_hardware(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_settings<swdrv::SetMiniGbicPortLEDStatus>(dispatcher, model,
                                                 [](PortSettings &port, const swdrv::PortFlag &request) {
                                                     const auto led = decoded<OpticsLed>(request.value);
                                                     return led && port.set_optics_led(*led);
                                                 });
    dispatcher.on<swdrv::GetPortType>([&model](const swdrv::Port &request, swdrv::Word &reply) {
        const auto access = model.lock();
        const PortSettings *const port = access->chips.ports.find(logical(request));
        reply.value = port == nullptr ? 0 : encoded(port->type());
        return port != nullptr;
    });
    on_running_port<swdrv::GetPortJabberState>(dispatcher, model,
                                               [](const RunningPort &port) { return encoded(port.jabber()); });
    dispatcher.on<swdrv::GetPortFalseCarrierSenseCounter>([&model](const swdrv::Port &request, swdrv::Word &reply) {
        const auto access = model.lock();
        const Line *const line = access->lines.find(logical(request));
        reply.value = line == nullptr ? 0 : line->false_carriers;
        return line != nullptr;
    });
}

void add_own_negotiation(Dispatcher &dispatcher, SharedSwitch &model)
{
    const auto negotiate = [](bool on) {
        return [on](PortSettings &port, const swdrv::Port & /*request*/) { return port.set_negotiates(on); };
    };
    on_settings<swdrv::EnablePortAutoNeg>(dispatcher, model, negotiate(true));
    on_settings<swdrv::DisablePortAutoNeg>(dispatcher, model, negotiate(false));
    on_settings<swdrv::SetPortAutoNegCapability>(dispatcher, model,
                                                 [](PortSettings &port, const swdrv::PortWord &request) {
                                                     const auto advertised = decoded_capability(request.value);
                                                     return advertised && port.set_advertised(*advertised);
                                                 });
    // What is negotiated follows every change at once, so that doing it anew leads to the same.
    on_settings<swdrv::SetPortRestartAutoNego>(
        dispatcher, model, [](PortSettings &port, const swdrv::Port & /*request*/) { return port.negotiates(); });
    on_settings<swdrv::SetPortAutoNegoRemoteFaultAdvertisement>(
        dispatcher, model, [](PortSettings &port, const swdrv::PortWord &request) {
            const auto fault = decoded<RemoteFault>(request.value);
            if (fault) {
                port.set_advertised_fault(*fault);
            }
            return fault.has_value();
        });
    dispatcher.on<swdrv::GetPortAutoNegoRemoteFaultAdvertisement>(
        [&model](const swdrv::Port &request, swdrv::Word &reply) {
            const auto access = model.lock();
            const PortSettings *const port = access->chips.ports.find(logical(request));
            reply.value = port == nullptr ? 0 : encoded(port->advertised_fault());
            return port != nullptr;
        });
}

void add_partners_negotiation(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_running_port<swdrv::GetPortAutoNegoProcessState>(
        dispatcher, model, [](const RunningPort &port) { return encoded(port.negotiation().state); });
    on_running_port<swdrv::GetPortLinkPartnerAutoNegoSignalingState>(dispatcher, model, [](const RunningPort &port) {
        return port.negotiation().partner ? signalling_detected : signalling_not_detected;
    });
    on_running_port<swdrv::GetPortLinkPartnerAutoNegoCapa>(dispatcher, model, [](const RunningPort &port) {
        const auto partner = port.negotiation().partner;
        return partner ? encoded_capability(partner->advertised) : 0;
    });
    on_running_port<swdrv::GetPortLinkPartnerAutoNegoRemoteFault>(dispatcher, model, [](const RunningPort &port) {
        const auto partner = port.negotiation().partner;
        return encoded(partner ? partner->remote_fault : RemoteFault::none);
    });
}

}  // namespace

void add_swdrv_port_config(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_admin_state(dispatcher, model);
    add_speed_and_flow_control(dispatcher, model);
    add_port_hardware(dispatcher, model);
    add_own_negotiation(dispatcher, model);
    add_partners_negotiation(dispatcher, model);
}

}  // namespace quillon::driver
