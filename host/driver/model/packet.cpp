#include "host/driver/model/packet.h"

namespace quillon::driver {

PacketBytes tagged(const PacketBytes &bytes, uint32_t vlan, uint32_t class_of_service)
{
    constexpr ptrdiff_t addresses = 12;
    const uint32_t control = class_of_service << 13 | vlan;
    PacketBytes with_tag = bytes;
    with_tag.insert(with_tag.begin() + addresses,
                    {std::byte{0x81}, std::byte{0x00}, std::byte(control >> 8), std::byte(control & 0xFF)});
    return with_tag;
}

}  // namespace quillon::driver
