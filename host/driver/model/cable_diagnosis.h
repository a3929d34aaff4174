// What a reflection measurement finds out about a copper cable.
#pragma once

#include <stdint.h>

#include <array>

#include "host/driver/model/line.h"

namespace quillon::driver {

enum class PairState : uint8_t { sound, open };

struct CablePair {
    PairState state;
    uint32_t metres;  // to the other end, or to the fault

    bool operator==(const CablePair &) const = default;
};

using CableDiagnosis = std::array<CablePair, 4>;

// A cable is pulled at the port's own end.
constexpr CableDiagnosis diagnose(const Line &line)
{
    CableDiagnosis pairs;
    pairs.fill(line.plugged ? CablePair{.state = PairState::sound, .metres = line.cable_metres}
                            : CablePair{.state = PairState::open, .metres = 0});
    return pairs;
}

}  // namespace quillon::driver
