// Multicast entries of the MAC address table and their ports.
#include "amtrdrv/commands.h"
#include "host/driver/amtrdrv_encoding.h"
#include "host/driver/handlers.h"
#include "host/driver/on_switch.h"
#include "host/driver/request_values.h"

namespace quillon::driver {

void add_amtrdrv_multicast(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_switch<amtrdrv::CreateMulticastAddrTblEntry>(
        dispatcher, model, [](Switch &chips, const amtrdrv::VlanMac &request) {
            return chips.macs().create_multicast(key_of(request), chips.chips.vlans);
        });
    on_switch<amtrdrv::DestroyMulticastAddrTblEntry>(
        dispatcher, model, [](Switch &chips, const amtrdrv::VlanMac &request) {
            return chips.macs().remove(key_of(request), MacKind::multicast);
        });
    on_switch<amtrdrv::AddMulticastPortMember>(
        dispatcher, model, [](Switch &chips, const amtrdrv::NewMulticastMember &request) {
            const auto tagged = as_bool(request.mode);
            return tagged && chips.macs().add_member(key_of(request), logical(request), *tagged);
        });
    on_switch<amtrdrv::DeleteMulticastPortMember>(
        dispatcher, model, [](Switch &chips, const amtrdrv::MulticastMember &request) {
            return chips.macs().remove_member(key_of(request), logical(request));
        });
    on_switch<amtrdrv::SetMulticastPortList>(
        dispatcher, model, [](Switch &chips, const amtrdrv::MulticastPortLists &request) {
            const auto members = decoded_bitmap(request.first_ports);
            const auto tagged = decoded_bitmap(request.second_ports);
            return members && tagged && chips.macs().set_members(key_of(request), Stack::local_unit, *members, *tagged);
        });
    on_switch<amtrdrv::SetMCastEntryForInternalPacket>(
        dispatcher, model, [](Switch &chips) { return chips.macs().set_internal_multicast(chips.chips.vlans); });
}

}  // namespace quillon::driver
