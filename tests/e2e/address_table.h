// The addresses with which the MAC address table is tested.
#pragma once

#include <stdint.h>

#include "quillon/amtrdrv.h"

namespace quillon::test {

inline constexpr uint32_t address_count = 1000;

// Those that stand throughout, and those that are deleted, by turns.
inline constexpr uint32_t kept_port = 3;
inline constexpr uint32_t deleted_port = 5;
inline constexpr uint32_t block = 50;

constexpr uint32_t port_of_address(uint32_t number)
{
    return number / block % 2 == 0 ? kept_port : deleted_port;
}

// The others are learned.
constexpr bool is_set(uint32_t number)
{
    return number / block % 4 >= 2;
}

// A static entry of VLAN 1, at a port of unit 1.
constexpr AddrTblEntry static_entry(uint32_t number)
{
    const auto port = static_cast<uint8_t>(port_of_address(number));
    return {{0x02, 0, 0, 0, static_cast<uint8_t>(number >> 8), static_cast<uint8_t>(number), 1, 0, 1, 0, port, 0, 5, 1,
             0, 0}};
}

}  // namespace quillon::test
