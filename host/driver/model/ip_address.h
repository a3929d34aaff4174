// IP addresses of both versions, and prefixes of them.
#pragma once

#include <stdint.h>

#include <algorithm>
#include <array>
#include <compare>

namespace quillon::driver {

enum class IpVersion : uint8_t { v4, v6 };

constexpr uint32_t bits_of(IpVersion version)
{
    return version == IpVersion::v4 ? 32 : 128;
}

struct IpAddress {
    IpVersion version;
    std::array<uint8_t, 16> bytes;  // of IPv4 the first four; the others are zero

    // NOLINTNEXTLINE(modernize-use-nullptr): takes the comparison for one of pointers
    auto operator<=>(const IpAddress &) const = default;
};

constexpr bool is_unspecified(const IpAddress &address)
{
    return std::ranges::all_of(address.bytes, [](uint8_t byte) { return byte == 0; });
}

constexpr bool is_multicast(const IpAddress &address)
{
    return address.version == IpVersion::v4 ? (address.bytes[0] & 0xF0) == 0xE0 : address.bytes[0] == 0xFF;
}

// That of one host.
constexpr bool is_unicast(const IpAddress &address)
{
    const bool is_broadcast =
        address.version == IpVersion::v4 &&
        std::all_of(address.bytes.begin(), address.bytes.begin() + 4, [](uint8_t byte) { return byte == 0xFF; });
    return !is_unspecified(address) && !is_multicast(address) && !is_broadcast;
}

// The first `length` bits, and zeros.
constexpr IpAddress masked(IpAddress address, uint32_t length)
{
    for (uint32_t bit = 0; bit < 128; bit += 8) {
        const uint32_t kept = std::clamp(length, bit, bit + 8) - bit;
        address.bytes[bit / 8] &= static_cast<uint8_t>(0xFF00U >> kept);
    }
    return address;
}

struct IpPrefix {
    IpAddress network;
    uint32_t length;

    // NOLINTNEXTLINE(modernize-use-nullptr): takes the comparison for one of pointers
    auto operator<=>(const IpPrefix &) const = default;
};

// Of unicast addresses, and with no bit behind its length.
constexpr bool is_routable(const IpPrefix &prefix)
{
    return prefix.length <= bits_of(prefix.network.version) &&
           masked(prefix.network, prefix.length) == prefix.network && !is_multicast(prefix.network);
}

}  // namespace quillon::driver
