// Route entries, laid out as docs/driver-encodings.md says.
#pragma once

#include <arpa/inet.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <array>
#include <string>

#include "quillon/swdrvl3.h"

namespace quillon::test {

template <class Entry, class Field>
void put(Entry &entry, size_t offset, const Field &field)
{
    memcpy(reinterpret_cast<char *>(&entry) + offset, &field, sizeof field);
}

template <class Entry>
uint32_t word_at(const Entry &entry, size_t offset)
{
    uint32_t word;
    memcpy(&word, reinterpret_cast<const char *>(&entry) + offset, sizeof word);
    return word;
}

// The address's type and its bytes behind a word; IPv4 and IPv6 are told apart by the colon.
template <class Entry>
void put_address(Entry &entry, const std::string &address)
{
    const bool is_ipv6 = address.find(':') != std::string::npos;
    std::array<uint8_t, 16> bytes{};
    inet_pton(is_ipv6 ? AF_INET6 : AF_INET, address.c_str(), bytes.data());
    put(entry, 0, is_ipv6 ? 2U : 1U);
    put(entry, 8, bytes);
}

inline HostRouteEntry host_entry(const std::string &address, uint32_t interface = 0, uint32_t unit = 1,
                                 uint32_t port = 1, const std::array<uint8_t, 6> &mac = {0x02, 0, 0, 0, 0, 1})
{
    HostRouteEntry entry{};
    put_address(entry, address);
    put(entry, 4, interface);
    put(entry, 24, mac);
    put(entry, 32, unit);
    put(entry, 36, port);
    return entry;
}

inline NetRouteEntry net_entry(const std::string &network, uint32_t prefix_length)
{
    NetRouteEntry entry{};
    put_address(entry, network);
    put(entry, 4, prefix_length);
    return entry;
}

struct HostInformation {
    uint32_t installed;
    uint32_t number;

    explicit HostInformation(const HostRouteEntry &entry) : installed(word_at(entry, 40)), number(word_at(entry, 44)) {}
};

struct NetInformation {
    uint32_t installed;
    uint32_t number;
    uint32_t path_count;

    explicit NetInformation(const NetRouteEntry &entry)
        : installed(word_at(entry, 32)), number(word_at(entry, 36)), path_count(word_at(entry, 40))
    {
    }
};

}  // namespace quillon::test
