// How the rule manager's requests encode actions, meters and places in packets. docs/driver-encodings.md tells it to
// their callers.
#pragma once

#include <stdint.h>

#include <array>
#include <bit>
#include <optional>

#include "host/driver/encoding.h"
#include "host/driver/model/meter.h"
#include "host/driver/model/pattern_match.h"
#include "host/driver/model/rules.h"
#include "quillon/devrm.h"

namespace quillon::driver {

struct ActionBlock {
    uint32_t flags;
    uint8_t priority;
    uint8_t dscp;
    std::array<uint8_t, 2> unused;
    uint32_t redirect_unit;
    uint32_t redirect_port;
    std::array<uint8_t, 320> rest;
};
static_assert(sizeof(ActionBlock) == sizeof(RuleActionBlock));

enum : uint32_t {
    action_drop = 1U << 0,
    action_copy_to_cpu = 1U << 1,
    action_mirror = 1U << 2,
    action_priority = 1U << 3,
    action_dscp = 1U << 4,
    action_redirect = 1U << 5,
    action_drop_red = 1U << 6,
    all_actions = (1U << 7) - 1,
};

// Nothing for flags and values that mean nothing. That a port exists is for the model to see.
inline std::optional<RuleAction> decoded_action(const RuleActionBlock &bytes)
{
    constexpr uint8_t most_priority = 7;
    constexpr uint8_t most_dscp = 63;
    const auto block = std::bit_cast<ActionBlock>(bytes);
    const auto has = [&](uint32_t flag) { return (block.flags & flag) != 0; };
    if (has(~all_actions) || (has(action_priority) && block.priority > most_priority) ||
        (has(action_dscp) && block.dscp > most_dscp)) {
        return std::nullopt;
    }
    RuleAction action{
        .treatment = {.drop = has(action_drop), .copy_to_cpu = has(action_copy_to_cpu), .mirror = has(action_mirror)},
        .drop_red = has(action_drop_red)};
    if (has(action_priority)) {
        action.treatment.priority = block.priority;
    }
    if (has(action_dscp)) {
        action.treatment.dscp = block.dscp;
    }
    if (has(action_redirect)) {
        action.treatment.redirect = {.unit = block.redirect_unit, .port = block.redirect_port};
    }
    return action;
}

// The three numbers stand as they are.
static_assert(sizeof(MeterRate) == sizeof(RuleMeter));

inline MeterRate decoded_meter(const RuleMeter &bytes)
{
    return std::bit_cast<MeterRate>(bytes);
}

template <>
inline constexpr auto codes<UserBytesPlace::Start> = std::to_array<Code<UserBytesPlace::Start>>({
    {0, UserBytesPlace::Start::packet_start},
    {1, UserBytesPlace::Start::network_header},
    {2, UserBytesPlace::Start::transport_header},
});

// A place in one word.
constexpr std::optional<UserBytesPlace> decoded_place(uint32_t word)
{
    const auto start = decoded<UserBytesPlace::Start>(word >> 16);
    return start ? std::optional(UserBytesPlace{.start = *start, .offset = word & 0xFFFF}) : std::nullopt;
}

// The kind of system on a chip that a device is: the chips of this one have their CPU beside them.
inline constexpr uint32_t no_system_on_chip = 0;

}  // namespace quillon::driver
