// The switch driver's requests: code, what each carries, what comes back.
#pragma once

#include <stdint.h>

#include <array>
#include <cstddef>

#include "ipc/envelope.h"
#include "swdrv/family.h"

namespace quillon::swdrv {

using ipc::Empty;
using ipc::Padded;

struct Flag {
    uint8_t value;
};

struct Word {
    uint32_t value;
};

struct Port {
    uint32_t unit;
    uint32_t port;
};

struct PortFlag {
    uint32_t unit;
    uint32_t port;
    Padded<uint8_t> value;
};

// A port as the chips number it.
struct PhysicalPort {
    uint32_t module_id;
    uint32_t device_id;
    uint32_t phy_port;
};

struct UnitModule {
    uint32_t unit;
    uint32_t module_id;
};

struct UnitDevice {
    uint32_t unit;
    uint32_t device_id;
};

struct ForcedLed {
    // The driver process accepts fewer bytes than the member holds.
    static constexpr uint32_t max_pattern = 30;

    uint32_t unit;
    uint32_t port;
    std::array<uint8_t, 32> pattern;
    uint32_t pattern_len;
    uint32_t led_mode;
};
static_assert(offsetof(ForcedLed, pattern_len) == 40);

// Unit, device and port mapping.
using ResetOnDemand = Command<2, Flag>;
using GetLocalUnitChipsetNumber = Command<4>;
using Logical2PhyDevicePortID = Command<5, Port, PhysicalPort>;
using Logical2PhyDeviceID = Command<6, Port, PhysicalPort>;
using Physical2LogicalPort = Command<7, PhysicalPort, Port>;
using GetLocalDeviceIDFromModuleID = Command<8, UnitModule, Word>;
using GetModuleIdFromLocalDeviceId = Command<9, UnitDevice, Word>;
using PortSerdesAutoTuneDfeClear = Command<296, Port>;
using SetPortForceLinkDownStatus = Command<295, PortFlag>;
using SetPortForceLEDStatus = Command<297, ForcedLed>;

}  // namespace quillon::swdrv
