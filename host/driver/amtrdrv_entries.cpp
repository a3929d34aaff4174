// Setting entries of the MAC address table, and what is deleted as it was set.
#include "amtrdrv/commands.h"
#include "host/driver/amtrdrv_encoding.h"
#include "host/driver/handlers.h"
#include "host/driver/on_switch.h"
#include "host/driver/request_values.h"

namespace quillon::driver {
namespace {

bool set(Switch &chips, const MacKey &key, MacEntry entry, std::optional<uint32_t> chip = {})
{
    entry.last_seen = chips.now();
    return chips.macs().set(key, entry, chips.chips.vlans, chips.chips.trunks, chip);
}

bool set(Switch &chips, const AddrTblEntry &bytes, std::optional<uint32_t> chip = {})
{
    const auto entry = decoded(bytes);
    return entry && set(chips, entry->first, entry->second, chip);
}

void add_stations(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_switch<amtrdrv::SetAddrTblEntry>(
        dispatcher, model, [](Switch &chips, const amtrdrv::Entry &request) { return set(chips, request.value); });
    on_switch<amtrdrv::SetAddrTblEntryByDevice>(
        dispatcher, model,
        [](Switch &chips, const amtrdrv::DeviceEntry &request) { return set(chips, request.entry, request.device); });
    on_switch<amtrdrv::SetMacEntryWithAttribute>(
        dispatcher, model, [](Switch &chips, const amtrdrv::EntryAttribute &request) {
            const auto replaces = as_bool(request.mode);
            const auto treatment = decoded_treatment(request.attribute);
            auto entry = decoded(request.entry);
            if (!replaces || !treatment || !entry || (!*replaces && chips.macs().find(entry->first) != nullptr)) {
                return false;
            }
            const uint32_t cpu_priority = entry->second.treatment.cpu_priority;
            entry->second.treatment = *treatment;
            entry->second.treatment.cpu_priority = cpu_priority;
            return set(chips, entry->first, entry->second);
        });
}

void add_own_addresses(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_switch<amtrdrv::AddVlanMac>(dispatcher, model, [](Switch &chips, const amtrdrv::VlanMac &request) {
        return set(chips, key_of(request), {.kind = MacKind::of_vlan, .destination = Cpu{}});
    });
    on_switch<amtrdrv::DeleteVlanMac>(dispatcher, model, [](Switch &chips, const amtrdrv::VlanMac &request) {
        return chips.macs().remove(key_of(request), MacKind::of_vlan);
    });
    on_switch<amtrdrv::SetInterventionEntry>(
        dispatcher, model, [](Switch &chips, const amtrdrv::Intervention &request) {
            const auto traps = as_bool(request.mode);
            return traps && set(chips, key_of(request),
                                {.kind = MacKind::intervention,
                                 .destination = Cpu{},
                                 .treatment = {.copies_to_cpu = !*traps, .cpu_priority = request.value}});
        });
    on_switch<amtrdrv::DeleteInterventionEntry>(dispatcher, model, [](Switch &chips, const amtrdrv::VlanMac &request) {
        return chips.macs().remove(key_of(request), MacKind::intervention);
    });
}

}  // namespace

void add_amtrdrv_entries(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_stations(dispatcher, model);
    add_own_addresses(dispatcher, model);
}

}  // namespace quillon::driver
