// What happens to packets that ports receive.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "host/driver/model/switch.h"

namespace quillon::driver {

// The port, which exists, counts the packet and learns its source address; the rules that are bound to it count it too
// and say what becomes of it. Nothing when the port's link is down: no packet comes in there.
std::optional<Treatment> receive_packet(SharedSwitch &model, const LogicalPort &port,
                                        std::span<const std::byte> packet);

}  // namespace quillon::driver
