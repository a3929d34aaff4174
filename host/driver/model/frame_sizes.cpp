#include "host/driver/model/frame_sizes.h"

#include <algorithm>

namespace quillon::driver {
namespace {

constexpr uint32_t addresses_and_type = 14;
constexpr uint32_t check_sequence = 4;
constexpr uint32_t tag = 4;

}  // namespace

bool FrameSizes::set_system_mtu(uint32_t standard, uint32_t jumbo)
{
    if (!is_mtu(standard) || !is_mtu(jumbo) || jumbo < standard) {
        return false;
    }
    standard_mtu_ = standard;
    jumbo_mtu_ = jumbo;
    return true;
}

bool FrameSizes::set_largest_untagged(uint32_t frame)
{
    const uint32_t mtu = frame - std::min(frame, addresses_and_type + check_sequence);
    return jumbo_frames_ ? set_system_mtu(standard_mtu_, mtu) : set_system_mtu(mtu, std::max(mtu, jumbo_mtu_));
}

bool FrameSizes::set_tunnel_mtu(uint32_t mtu)
{
    if (!is_mtu(mtu)) {
        return false;
    }
    tunnel_mtu_ = mtu;
    return true;
}

bool FrameSizes::set_port_mtu(const LogicalPort &port, uint32_t mtu)
{
    PortMtu *const own = ports_.find(port);
    if (own == nullptr || !is_mtu(mtu)) {
        return false;
    }
    own->mtu = mtu;
    return true;
}

std::optional<FrameSize> FrameSizes::largest(const LogicalPort &port, bool is_tunnel) const
{
    const PortMtu *const own = ports_.find(port);
    if (own == nullptr) {
        return std::nullopt;
    }
    const uint32_t system_mtu = jumbo_frames_ ? jumbo_mtu_ : standard_mtu_;
    const uint32_t mtu = std::min(own->mtu, is_tunnel ? tunnel_mtu_ : system_mtu);
    const uint32_t untagged = addresses_and_type + mtu + check_sequence;
    return FrameSize{.untagged = untagged, .tagged = untagged + (is_tunnel ? 2 * tag : tag)};
}

}  // namespace quillon::driver
