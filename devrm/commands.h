// The rule manager's requests: code, what each carries, what comes back.
#pragma once

#include <stdint.h>

#include <cstddef>

#include "devrm/family.h"
#include "ipc/envelope.h"
#include "quillon/devrm.h"

namespace quillon::devrm {

using ipc::Padded;

// Arguments are named by their position in the function that passes them: what they number is settled between its
// caller and the driver process.

struct Word {
    uint32_t value;
    Trailer trailer{};
};

struct ThreeWords {
    uint32_t a1;
    uint32_t a2;
    uint32_t a3;
    Trailer trailer{};
};

// The reply of GetCounter, named by the arguments that it goes to.
struct CounterWords {
    uint32_t a4;
    uint32_t a5;
    uint32_t a6;
    Trailer trailer{};
};

struct RuleAllocation {
    uint32_t a1;
    uint32_t a2;
    uint32_t a3;
    uint32_t a4;
    uint32_t a5;
    Trailer trailer{};
};

struct RuleSetting {
    uint32_t a1;
    uint32_t a2;
    uint32_t a3;
    RulePattern pattern;
    RuleActionBlock action;
    Trailer trailer{};
};
static_assert(offsetof(RuleSetting, pattern) == 12 && offsetof(RuleSetting, action) == 204 &&
              offsetof(RuleSetting, trailer) == 540);

// The third argument stands before the second.
struct RuleDestruction {
    uint32_t a1;
    ipc::UnusedWord unused{};
    uint32_t a3;
    uint32_t a2;
    Trailer trailer{};
};
static_assert(offsetof(RuleDestruction, a3) == 8);

struct MeterUpdate {
    uint32_t a1;
    uint32_t a2;
    uint32_t a3;
    ipc::UnusedWord unused{};
    RuleMeter meter;
    Trailer trailer{};
};
static_assert(offsetof(MeterUpdate, meter) == 16 && offsetof(MeterUpdate, trailer) == 40);

// The arguments stand in an order of their own.
struct PclCreation {
    uint32_t a4;
    uint32_t a1;
    uint32_t a2;
    uint32_t a5;
    Padded<uint8_t> a3;
    Trailer trailer{};
};
static_assert(offsetof(PclCreation, a3) == 16 && offsetof(PclCreation, trailer) == 20);

// Rules.
using FieldInit = Command<18, Trailer, Trailer, void>;
using AllocateRule = Command<5, RuleAllocation>;
using SetRule = Command<6, RuleSetting>;
using DestroyRule = Command<8, RuleDestruction>;

// Meters and actions.
using UpdateMeter = Command<10, MeterUpdate>;
using ShareMeter = Command<11, ThreeWords>;
using DestroyAction = Command<14, ThreeWords>;

// The device.
using GetNumberOfChips = Command<15, Trailer, Trailer, uint32_t>;
using GetDeviceInfo = Command<16, Trailer, Word>;
using CheckSoc = Command<17, Word>;

// Policy control lists.
using CreatePcl = Command<19, PclCreation>;
using BindPclToPort = Command<20, ThreeWords>;
using UnbindPclToPort = Command<21, ThreeWords>;
using BindPclToTrunkPort = Command<22, ThreeWords>;
using UnbindPclToTrunkPort = Command<23, ThreeWords>;

// Counters.
using GetCounter = Command<24, ThreeWords, CounterWords>;
using ClearCounter = Command<25, ThreeWords>;
using GetNumberOfEXCLUDEVLAN = Command<26, Trailer, Trailer, uint32_t>;

}  // namespace quillon::devrm
