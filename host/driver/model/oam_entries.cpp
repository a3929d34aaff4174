#include "host/driver/model/oam_entries.h"

namespace quillon::driver {

static_assert(OamEntries::groups == 64 && OamEntries::group_size == 32, "a bit for each in what is asked for");

bool OamEntries::set(uint32_t index, uint32_t module_id, const OamEntry::Settings &settings)
{
    if (index >= most) {
        return false;
    }
    entries_.insert_or_assign(index, OamEntry{.module_id = module_id, .settings = settings});
    return true;
}

const OamEntry *OamEntries::find(uint32_t index) const
{
    const auto found = entries_.find(index);
    return found == entries_.end() ? nullptr : &found->second;
}

bool OamEntries::detect(uint32_t index, OamEvent event)
{
    const auto found = entries_.find(index);
    if (found == entries_.end()) {
        return false;
    }
    found->second.exceptions.set(static_cast<size_t>(event));
    return true;
}

uint64_t OamEntries::groups_with(OamEvent event, uint32_t module_id) const
{
    uint64_t with = 0;
    for (uint32_t group = 0; group < groups; ++group) {
        with |= (entries_with(event, module_id, group) != 0 ? uint64_t{1} : 0) << group;
    }
    return with;
}

uint32_t OamEntries::entries_with(OamEvent event, uint32_t module_id, uint32_t group) const
{
    const uint32_t first = group * group_size;
    uint32_t with = 0;
    for (auto place = entries_.lower_bound(first); place != entries_.end() && place->first < first + group_size;
         ++place) {
        const auto &[index, entry] = *place;
        if (entry.module_id == module_id && entry.exceptions.test(static_cast<size_t>(event))) {
            with |= uint32_t{1} << (index - first);
        }
    }
    return with;
}

}  // namespace quillon::driver
