// The table of an OAM engine: what it watches, and what it found.
#pragma once

#include <stdint.h>

#include <array>
#include <bitset>
#include <map>

#include "host/driver/model/oam_events.h"

namespace quillon::driver {

struct OamEntry {
    using Settings = std::array<uint8_t, 60>;

    uint32_t module_id;  // of the chip that it is on
    Settings settings;
    std::bitset<OamEvents::count> exceptions = {};  // found since it was set
};

class OamEntries {
  public:
    static constexpr uint32_t most = 2048;
    static constexpr uint32_t group_size = 32;  // what is found is told for so many entries at once
    static constexpr uint32_t groups = most / group_size;

    // An entry begins anew. False for an index that is too large.
    bool set(uint32_t index, uint32_t module_id, const OamEntry::Settings &settings);
    const OamEntry *find(uint32_t index) const;  // null when it was not set

    // False for an entry that was not set.
    bool detect(uint32_t index, OamEvent event);

    // Of one chip: a bit for each group that has an entry with the exception, and a bit for each such entry of a group.
    uint64_t groups_with(OamEvent event, uint32_t module_id) const;
    uint32_t entries_with(OamEvent event, uint32_t module_id, uint32_t group) const;

  private:
    std::map<uint32_t, OamEntry> entries_;
};

}  // namespace quillon::driver
