// MAC addresses.
#pragma once

#include <stdint.h>

#include <array>

namespace quillon::driver {

// In network order.
using MacAddress = std::array<uint8_t, 6>;

constexpr bool is_multicast(const MacAddress &mac)
{
    return (mac[0] & 1) != 0;
}

// An address that one station can have.
constexpr bool is_station(const MacAddress &mac)
{
    return !is_multicast(mac) && mac != MacAddress{};
}

// The addresses that IPv6 multicasts are sent to (RFC 2464).
constexpr bool is_ipv6_multicast(const MacAddress &mac)
{
    return mac[0] == 0x33 && mac[1] == 0x33;
}

}  // namespace quillon::driver
