#include "host/driver/reception.h"

#include <chrono>

namespace quillon::driver {

std::optional<Treatment> receive_packet(SharedSwitch &model, const LogicalPort &port, std::span<const std::byte> packet)
{
    const auto access = model.lock();
    if (!access->running_port(port)->status().link_up()) {
        return std::nullopt;
    }
    return access->chips.rules.receive(access->chips.trunks, port, packet, std::chrono::steady_clock::now());
}

}  // namespace quillon::driver
