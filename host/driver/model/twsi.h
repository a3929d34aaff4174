// The TWSI (I2C) buses and what is connected to them. A reset of the switch chips does not change it.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <array>
#include <map>
#include <optional>
#include <span>
#include <vector>

#include "host/driver/model/guarded.h"

namespace quillon::driver {

// Where in a device an access begins. Without a register it begins behind the last byte of the access before.
struct TwsiOffset {
    std::optional<uint32_t> reg;
    bool two_bytes = false;  // on the bus
};

// A device as its bytes: those of register 0, highest byte first, then those of register 1 and so on.
class TwsiDevice {
  public:
    struct Layout {
        size_t register_size;
        bool two_byte_offset;
        size_t writable_from;  // in bytes
        size_t writable_end;
    };

    TwsiDevice(const Layout &layout, std::vector<uint8_t> bytes) : layout_(layout), bytes_(std::move(bytes)) {}

    // False, and nothing changes, for bytes that the device does not have or does not let go, and for an offset that
    // is not as long as the device's offsets are.
    bool read(const TwsiOffset &from, std::span<uint8_t> data);
    bool write(const TwsiOffset &to, std::span<const uint8_t> data);

    // One register. The offset is as long as it has to be.
    std::optional<uint32_t> read_register(uint32_t reg);
    bool write_register(uint32_t reg, uint32_t value);

    bool has_two_byte_offset() const { return layout_.two_byte_offset; }
    void forget_position() { position_ = 0; }

  private:
    std::optional<size_t> begin_of(const TwsiOffset &offset, size_t size) const;
    TwsiOffset offset_of(uint32_t reg) const { return {.reg = reg, .two_bytes = layout_.two_byte_offset}; }

    Layout layout_;
    std::vector<uint8_t> bytes_;
    size_t position_ = 0;
};

class TwsiBuses {
  public:
    static constexpr uint32_t count = 2;

    // Addresses of 7 bits.
    static constexpr uint32_t sensor = 0x48;
    static constexpr uint32_t sfp_identity = 0x50;
    static constexpr uint32_t sfp_diagnostics = 0x51;
    static constexpr uint32_t eeprom = 0x57;
    static constexpr size_t eeprom_size = 8192;

    TwsiBuses();

    // Null where nothing answers.
    TwsiDevice *find(uint32_t bus, uint32_t address);

    // What a start of the buses changes in the devices: they begin at their first byte again.
    void start();

  private:
    std::array<std::map<uint32_t, TwsiDevice>, count> buses_;
};

using SharedTwsi = Guarded<TwsiBuses>;

}  // namespace quillon::driver
