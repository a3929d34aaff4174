#include "host/driver/model/twsi.h"

#include <algorithm>

#include "host/driver/model/sfp.h"

namespace quillon::driver {

std::optional<size_t> TwsiDevice::begin_of(const TwsiOffset &offset, size_t size) const
{
    if (offset.reg && offset.two_bytes != layout_.two_byte_offset) {
        return std::nullopt;
    }
    const size_t begin = offset.reg ? *offset.reg * layout_.register_size : position_;
    return begin <= bytes_.size() && size <= bytes_.size() - begin ? std::optional(begin) : std::nullopt;
}

bool TwsiDevice::read(const TwsiOffset &from, std::span<uint8_t> data)
{
    const auto begin = begin_of(from, data.size());
    if (!begin) {
        return false;
    }
    std::copy_n(bytes_.begin() + static_cast<ptrdiff_t>(*begin), data.size(), data.begin());
    position_ = *begin + data.size();
    return true;
}

bool TwsiDevice::write(const TwsiOffset &to, std::span<const uint8_t> data)
{
    const auto begin = begin_of(to, data.size());
    if (!begin || (!data.empty() && (*begin < layout_.writable_from || *begin + data.size() > layout_.writable_end))) {
        return false;
    }
    std::ranges::copy(data, bytes_.begin() + static_cast<ptrdiff_t>(*begin));
    position_ = *begin + data.size();
    return true;
}

std::optional<uint32_t> TwsiDevice::read_register(uint32_t reg)
{
    std::vector<uint8_t> bytes(layout_.register_size);
    if (!read(offset_of(reg), bytes)) {
        return std::nullopt;
    }
    uint32_t value = 0;
    for (const uint8_t byte : bytes) {
        value = value << 8 | byte;
    }
    return value;
}

bool TwsiDevice::write_register(uint32_t reg, uint32_t value)
{
    std::vector<uint8_t> bytes(layout_.register_size);
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte, value >>= 8) {
        *byte = static_cast<uint8_t>(value);
    }
    return value == 0 && write(offset_of(reg), bytes);
}

TwsiBuses::TwsiBuses()
{
    for (uint32_t bus = 0; bus < count; ++bus) {
        const std::vector<uint8_t> erased(eeprom_size, 0xFF);
        buses_[bus] = {
            // Temperature, configuration, hysteresis and limit, in 1/256 degrees Celsius.
            {sensor, TwsiDevice({.register_size = 2, .two_byte_offset = false, .writable_from = 2, .writable_end = 8},
                                {static_cast<uint8_t>(30 + bus), 0x80, 0, 0, 75, 0, 80, 0})},
            {sfp_identity,
             TwsiDevice({.register_size = 1, .two_byte_offset = false, .writable_from = 0, .writable_end = 0},
                        sfp_identity_of(bus + 1))},
            // The part that belongs to the module's user.
            {sfp_diagnostics,
             TwsiDevice({.register_size = 1, .two_byte_offset = false, .writable_from = 128, .writable_end = 248},
                        sfp_diagnostics_page())},
            {eeprom,
             TwsiDevice({.register_size = 1, .two_byte_offset = true, .writable_from = 0, .writable_end = eeprom_size},
                        erased)},
        };
    }
}

TwsiDevice *TwsiBuses::find(uint32_t bus, uint32_t address)
{
    if (bus >= count) {
        return nullptr;
    }
    const auto device = buses_[bus].find(address);
    return device == buses_[bus].end() ? nullptr : &device->second;
}

void TwsiBuses::start()
{
    for (auto &bus : buses_) {
        for (auto &[address, device] : bus) {
            device.forget_position();
        }
    }
}

}  // namespace quillon::driver
