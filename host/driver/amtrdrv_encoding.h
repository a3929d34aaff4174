// How the MAC address table's requests encode what they set and ask for. docs/driver-encodings.md tells it to their
// callers.
#pragma once

#include <stdint.h>

#include <optional>
#include <utility>

#include "host/driver/encoding.h"
#include "host/driver/model/mac_table.h"
#include "quillon/amtrdrv.h"

namespace quillon::driver {

// What stands in the 16 bytes of an entry.
struct EntryRecord {
    MacAddress mac;
    uint16_t vlan;
    uint16_t unit;
    uint16_t port;  // or the trunk, or how many members a multicast address has
    uint8_t status;
    uint8_t destination;
    uint8_t flags;
    uint8_t cpu_priority;
};
static_assert(sizeof(EntryRecord) == sizeof(AddrTblEntry) && alignof(EntryRecord) <= 2);

// As dot1qTpFdbStatus (RFC 4363).
template <>
inline constexpr auto codes<MacKind> = std::to_array<Code<MacKind>>({
    {1, MacKind::intervention},
    {3, MacKind::learned},
    {4, MacKind::of_vlan},
    {5, MacKind::set},
    {5, MacKind::multicast},  // which its destination tells from a static one
});

// Which kind of place frames go to, and the place.
struct EncodedDestination {
    uint8_t type;
    uint16_t unit = 0;
    uint16_t port = 0;
};

EncodedDestination encoded(const MacDestination &destination);

AddrTblEntry encoded(const MacKey &key, const MacEntry &entry);

// What can be set: an entry that is learned or static. Nothing when a field means nothing.
std::optional<std::pair<MacKey, MacEntry>> decoded(const AddrTblEntry &bytes);

// Where an entry stands in the table's order; a record of zeros stands in front of all entries.
MacKey decoded_key(const AddrTblEntry &bytes);

// The three lowest of an entry's flags. Nothing when there are others.
std::optional<MacTreatment> decoded_treatment(uint32_t flags);

MacKey key_of(const auto &request)
{
    return {.vlan = request.vlan, .mac = request.mac};
}

}  // namespace quillon::driver
