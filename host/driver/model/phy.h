// The PHY of a copper port and its registers.
#pragma once

#include <stdint.h>

#include <compare>
#include <map>
#include <optional>
#include <utility>

#include "host/driver/model/cable_diagnosis.h"
#include "host/driver/model/line.h"
#include "host/driver/model/port_settings.h"
#include "host/driver/model/port_status.h"

namespace quillon::driver {

struct PhyRegister {
    static constexpr uint32_t pages = 32;
    static constexpr uint32_t per_page = 32;

    uint32_t page;
    uint32_t number;

    // NOLINTNEXTLINE(modernize-use-nullptr): takes the comparison for one of pointers
    auto operator<=>(const PhyRegister &) const = default;
    bool exists() const { return page < pages && number < per_page; }
};

struct PhyOperation {
    enum class Kind : uint8_t { read, write, set_bits, clear_bits };

    Kind kind;
    PhyRegister reg;
    uint16_t value;
};

// What PHYs hold besides the settings of their ports. Optics have the loopback alone.
struct PhyState {
    static constexpr uint32_t test_modes = 5;  // IEEE 802.3, 40.6.1.1.2; 0 is none

    bool loopback = false;
    bool powered_down = false;
    bool isolated = false;
    uint32_t test_mode = 0;
    uint16_t clock_bits = 0;  // how master and slave are told apart, in the places that they have in register 9
    std::map<PhyRegister, uint16_t> kept;
    std::optional<CableDiagnosis> last_diagnosis;

    bool is_silent() const { return powered_down || test_mode != 0; }
};

// The registers of one PHY, on copies of what they stand for: who writes them takes the copies over. Those of page 0 up
// to 15 are what IEEE 802.3, clauses 22 and 40, says and agree with the port; all others keep what is written.
class Phy {
  public:
    Phy(const PortSettings &settings, PhyState state, const Line &line, bool held_down)
        : settings_(settings), state_(std::move(state)), line_(line), held_down_(held_down)
    {
    }

    const PortSettings &settings() const { return settings_; }
    const PhyState &state() const { return state_; }

    // Of a register that exists.
    uint16_t read(const PhyRegister &reg) const;

    // False for a register that does not exist, and for a value that asks for what a PHY does not do.
    bool run(const PhyOperation &operation);

  private:
    RunningPort running() const { return {settings_, line_, held_down_ || state_.is_silent()}; }

    uint16_t control() const;
    uint16_t status() const;
    uint16_t advertisement() const;
    uint16_t partner_ability() const;
    uint16_t gigabit_control() const;
    uint16_t gigabit_status() const;

    bool write(const PhyRegister &reg, uint16_t value);
    bool write_control(uint16_t value);
    bool write_advertisement(uint16_t value);
    bool write_gigabit_control(uint16_t value);
    void reset();

    PortSettings settings_;
    PhyState state_;
    const Line &line_;
    bool held_down_;
};

}  // namespace quillon::driver
