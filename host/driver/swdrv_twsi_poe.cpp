// Devices on the TWSI buses, the PoE controller, and two LED requests.
#include <algorithm>
#include <array>
#include <chrono>
#include <span>
#include <thread>

#include "host/driver/handlers.h"
#include "host/driver/request_values.h"
#include "host/driver/swdrv_encoding.h"
#include "swdrv/commands.h"

namespace quillon::driver {
namespace {

// A bus carries 400 kilobits a second, and each byte has a bit for its acknowledgement.
constexpr std::chrono::nanoseconds time_of_byte{9 * 2500};
// The device's address, in front of the offset and, in a read, once more behind it; and two bytes of offset.
constexpr size_t bytes_before_data = 4;

// A transaction on the bus: `transact` gets the device. Then it takes the time that the bits take on a real bus, so
// that programs find out here what a slow bus does to them. Only this queue waits, and nobody waits for the model.
template <class Transact>
bool on_bus(SharedTwsi &buses, uint32_t bus, uint32_t address, size_t bytes, Transact transact)
{
    const bool acknowledged = [&] {
        const auto access = buses.lock();
        TwsiDevice *const device = access->find(bus, address);
        return device != nullptr && transact(*device);
    }();
    // No event is waited for: the time that passes is what is modelled.
    std::this_thread::sleep_for(time_of_byte * (bytes_before_data + (acknowledged ? bytes : 0)));
    return acknowledged;
}

// How the data requests give an offset. Nothing when they are not to be understood.
std::optional<TwsiOffset> decoded_offset(const auto &request)
{
    const auto has_offset = as_bool(request.sel_b);
    const auto two_bytes = as_bool(request.sel_c);
    if (request.sel_a != twsi_address_of_7_bits || !has_offset || !two_bytes) {
        return std::nullopt;
    }
    return TwsiOffset{.reg = *has_offset ? std::optional(request.word) : std::nullopt, .two_bytes = *two_bytes};
}

void add_twsi_registers(Dispatcher &dispatcher, SharedTwsi &buses)
{
    dispatcher.on<swdrv::TwsiRegisterWrite>([&buses](const swdrv::Words<3> &request) {
        const auto [device, reg, value] = request.values;
        const TwsiAddress address = decoded_twsi_address(device);
        return on_bus(buses, address.bus, address.device, sizeof value,
                      [reg = reg, value = value](TwsiDevice &at) { return at.write_register(reg, value); });
    });
    dispatcher.on<swdrv::TwsiRegisterRead>([&buses](const swdrv::Words<2> &request, swdrv::Word &reply) {
        const auto [device, reg] = request.values;
        const TwsiAddress address = decoded_twsi_address(device);
        return on_bus(buses, address.bus, address.device, sizeof reply.value, [reg = reg, &reply](TwsiDevice &at) {
            const auto value = at.read_register(reg);
            reply.value = value.value_or(0);
            return value.has_value();
        });
    });
}

void add_twsi_data(Dispatcher &dispatcher, SharedTwsi &buses)
{
    dispatcher.on<swdrv::TwsiDataWriteWithBusIdx>(
        [&buses](const swdrv::TwsiDataToWrite &request, const auto & /*reply*/) {
            const auto offset = decoded_offset(request);
            return offset && on_bus(buses, request.bus_idx, request.dev_id, request.len, [&](TwsiDevice &device) {
                       return device.write(*offset, std::span(request.data).first(request.len));
                   });
        });
    dispatcher.on<swdrv::TwsiDataReadWithBusIdx>([&buses](const swdrv::TwsiDataToRead &request, auto &reply) {
        const auto offset = decoded_offset(request);
        return offset && on_bus(buses, request.bus_idx, request.dev_id, request.len, [&](TwsiDevice &device) {
                   return device.read(*offset, std::span(reply.data).first(request.len));
               });
    });

    // On the first bus, with offsets as the device has them.
    dispatcher.on<swdrv::TwsiWrite>([&buses](const swdrv::TwsiBytesToWrite &request) {
        return request.len <= request.data.size() &&
               on_bus(buses, 0, request.dev_id, request.len, [&](TwsiDevice &device) {
                   return device.write({.reg = request.offset16, .two_bytes = device.has_two_byte_offset()},
                                       std::span(request.data).first(request.len));
               });
    });
    dispatcher.on<swdrv::TwsiRead>([&buses](const swdrv::TwsiBytesToRead &request, auto &reply) {
        return request.len <= reply.data.size() &&
               on_bus(buses, 0, request.dev_id, request.len, [&](TwsiDevice &device) {
                   return device.read({.reg = request.offset16, .two_bytes = device.has_two_byte_offset()},
                                      std::span(reply.data).first(request.len));
               });
    });
}

void add_poe_controller(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::MSCC_POE_Init>([&model] {
        model.lock()->poe.start();
        return true;
    });
    dispatcher.on<swdrv::MSCC_POE_Exit>([&model] {
        model.lock()->poe.stop();
        return true;
    });
    dispatcher.on<swdrv::MSCC_POE_Write>([&model](const swdrv::PoeCommand &request, swdrv::Word &reply) {
        if (request.len > request.data.size()) {
            return false;
        }
        const PoeStatus status = model.lock()->poe.command(std::span(request.data).first(request.len));
        reply.value = encoded(status);
        return status == PoeStatus::ready;
    });
    dispatcher.on<swdrv::MSCC_POE_Read>([&model](const swdrv::HalfWord &request, swdrv::PoeAnswer &reply) {
        if (request.value > reply.data.size()) {
            return false;
        }
        const auto access = model.lock();
        const auto answer = access->poe.answer();
        std::ranges::copy(answer.first(std::min<size_t>(answer.size(), request.value)), reply.data.begin());
        const PoeStatus status = access->poe.status();
        reply.poe_status = encoded(status);
        return status == PoeStatus::ready;
    });
}

void add_leds(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::PhyLightPortLedNormal>([&model] {
        const auto access = model.lock();
        for (PortOverrides &port : access->chips.overrides) {
            port.leds = {};
        }
        return true;
    });
    dispatcher.on<swdrv::SetSysPoeLEDStatus>([&model](const swdrv::Words<2> &request) {
        const auto [unit, value] = request.values;
        const auto led = decoded<PoeLed>(value);
        const auto access = model.lock();
        if (!led || unit != Stack::local_unit) {
            return false;
        }
        access->poe.led = *led;
        return true;
    });
}

}  // namespace

void add_swdrv_twsi_poe(Dispatcher &dispatcher, SharedTwsi &buses, SharedSwitch &model)
{
    dispatcher.on<swdrv::TwsiInit>([&buses] {
        buses.lock()->start();
        return true;
    });
    add_twsi_registers(dispatcher, buses);
    add_twsi_data(dispatcher, buses);
    add_poe_controller(dispatcher, model);
    add_leds(dispatcher, model);
}

}  // namespace quillon::driver
