// Unit, device and port mapping, and what overrides a port's hardware.
#include <algorithm>
#include <optional>

#include "host/driver/handlers.h"
#include "host/driver/request_values.h"
#include "swdrv/commands.h"

namespace quillon::driver {
namespace {

std::optional<ForcedLeds> forced_leds(const swdrv::ForcedLed &request)
{
    if (request.pattern_len > ForcedLeds::longest_pattern) {
        return std::nullopt;
    }
    return ForcedLeds{.pattern = {request.pattern.begin(), request.pattern.begin() + request.pattern_len},
                      .mode = request.led_mode};
}

void add_mapping(Dispatcher &dispatcher, SharedSwitch &model)
{
    const auto to_chip = [&model](const swdrv::Port &request, swdrv::PhysicalPort &reply) {
        const auto port = model.lock()->stack.to_chip(logical(request));
        if (port) {
            reply = {.module_id = port->module_id, .device_id = port->device_id, .phy_port = port->phy_port};
        }
        return port.has_value();
    };
    dispatcher.on<swdrv::Logical2PhyDevicePortID>(to_chip);
    dispatcher.on<swdrv::Logical2PhyDeviceID>(to_chip);

    dispatcher.on<swdrv::Physical2LogicalPort>([&model](const swdrv::PhysicalPort &request, swdrv::Port &reply) {
        const auto port = model.lock()->stack.to_logical(
            {.module_id = request.module_id, .device_id = request.device_id, .phy_port = request.phy_port});
        if (port) {
            reply = {.unit = port->unit, .port = port->port};
        }
        return port.has_value();
    });
    dispatcher.on<swdrv::GetLocalDeviceIDFromModuleID>([&model](const swdrv::UnitModule &request, swdrv::Word &reply) {
        const auto device_id = model.lock()->stack.device_of(request.unit, request.module_id);
        reply.value = device_id.value_or(0);
        return device_id.has_value();
    });
    dispatcher.on<swdrv::GetModuleIdFromLocalDeviceId>([&model](const swdrv::UnitDevice &request, swdrv::Word &reply) {
        const auto module_id = model.lock()->stack.module_of(request.unit, request.device_id);
        reply.value = module_id.value_or(0);
        return module_id.has_value();
    });
}

void add_chips(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::ResetOnDemand>([&model](const swdrv::Flag &request) {
        const auto reset = as_bool(request.value);
        if (reset == true) {
            model.lock()->reset_chips();
        }
        return reset.has_value();
    });
    dispatcher.on<swdrv::GetLocalUnitChipsetNumber>(
        [&model] { return static_cast<uint8_t>(model.lock()->stack.shape().chips); });
}

void add_overrides(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::SetPortForceLinkDownStatus>([&model](const swdrv::PortFlag &request) {
        const auto link_down = as_bool(request.value);
        const auto access = model.lock();
        PortOverrides *const overrides = access->chips.overrides.find(logical(request));
        if (overrides == nullptr || !link_down) {
            return false;
        }
        overrides->link_down = *link_down;
        return true;
    });
    dispatcher.on<swdrv::SetPortForceLEDStatus>([&model](const swdrv::ForcedLed &request) {
        auto leds = forced_leds(request);
        const auto access = model.lock();
        PortOverrides *const overrides = access->chips.overrides.find(logical(request));
        if (overrides == nullptr || !leds) {
            return false;
        }
        overrides->leds = *std::move(leds);
        return true;
    });
    // A simulated serdes has nothing to tune; that the port exists is all that can be said.
    dispatcher.on<swdrv::PortSerdesAutoTuneDfeClear>(
        [&model](const swdrv::Port &request) { return model.lock()->stack.has(logical(request)); });
}

}  // namespace

void add_swdrv_mapping(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_mapping(dispatcher, model);
    add_chips(dispatcher, model);
    add_overrides(dispatcher, model);
}

}  // namespace quillon::driver
