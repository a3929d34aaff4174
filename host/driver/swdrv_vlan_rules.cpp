// VLANs by protocol, by MAC address and by IP subnet, VLAN trunking and RSPAN.
#include <algorithm>
#include <optional>
#include <set>
#include <span>

#include "host/driver/handlers.h"
#include "host/driver/kept_request.h"
#include "host/driver/request_values.h"
#include "host/driver/swdrv_encoding.h"
#include "swdrv/commands.h"

namespace quillon::driver {
namespace {

// ---- Protocols ----

constexpr uint32_t most_groups = 128;

// The frame type, as dot1vProtocolTemplateFrameType (RFC 4363), a protocol of two bytes in the order of the wire, and
// two bytes of no meaning.
bool is_protocol(const ProtocolTemplate &protocol)
{
    constexpr uint8_t ethernet = 1;
    constexpr uint8_t rfc1042 = 2;
    constexpr uint8_t snap8021h = 3;
    constexpr uint8_t llc_other = 5;
    const auto &[type, high, low, rest1, rest2] = protocol.bytes;
    return (type == ethernet || type == rfc1042 || type == snap8021h || type == llc_other) && rest1 == 0 && rest2 == 0;
}

struct ProtocolEntry {
    ProtocolGroupPort at;
    ProtocolVlan vlan;
};

// Nothing when there is something in it that does not exist.
std::optional<ProtocolEntry> protocol_entry(const Stack &stack, const swdrv::ProtocolPortEntry &request,
                                            uint32_t priority)
{
    const uint32_t group = request.value1;
    if (!stack.has(logical(request)) || group < 1 || group > most_groups || request.count < 1 ||
        request.count > request.templates.size()) {
        return std::nullopt;
    }
    ProtocolEntry entry{.at = {.port = logical(request), .group = group},
                        .vlan = {{.vlan = request.value2, .priority = priority}, {}, {}}};
    std::ranges::copy(request.key.bytes, entry.vlan.key.begin());
    for (uint32_t i = 0; i < request.count; ++i) {
        if (!is_protocol(request.templates[i])) {
            return std::nullopt;
        }
        std::ranges::copy(request.templates[i].bytes, entry.vlan.protocols.emplace_back().begin());
    }
    return entry;
}

void add_protocols(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::AddDot1vProtocolPortEntry>([&model](const swdrv::AddedProtocolPortEntry &request) {
        const auto access = model.lock();
        ChipState &chips = access->chips;
        const auto entry = protocol_entry(access->stack, request.entry, request.value);
        return entry && chips.vlan_rules.protocols.set(chips.vlans, entry->at, entry->vlan);
    });
    dispatcher.on<swdrv::DelDot1vProtocolPortEntry>([&model](const swdrv::ProtocolPortEntry &request) {
        const auto access = model.lock();
        auto &table = access->chips.vlan_rules.protocols;
        const auto entry = protocol_entry(access->stack, request, 0);
        const ProtocolVlan *const set = entry ? table.find(entry->at) : nullptr;
        return set != nullptr && set->matches(entry->vlan) && table.erase(entry->at);
    });
    keep<swdrv::SetDot1vProtocolGroupEntry>(
        dispatcher, model, Setting::protocol_group_entry,
        [](const Stack & /*stack*/, const swdrv::ProtocolGroup &request) -> std::optional<KeptRequest> {
            constexpr uint32_t most_entries = 256;
            constexpr uint32_t no_group = 0;
            const uint32_t group = request.value2;
            if (request.value1 >= most_entries || group > most_groups ||
                (group != no_group && !is_protocol(request.protocol))) {
                return std::nullopt;
            }
            const auto &[type, high, low, rest1, rest2] = request.protocol.bytes;
            return KeptRequest{.key = {request.value1}, .value = {group, type, high, low}};
        });
}

// ---- Addresses ----

void add_addresses(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::SetMacVlanEntry>([&model](const swdrv::MacVlan &request) {
        const auto access = model.lock();
        ChipState &chips = access->chips;
        return is_station(request.mac) &&
               chips.vlan_rules.macs.set(chips.vlans, request.mac, {.vlan = request.vid, .priority = request.value});
    });
    dispatcher.on<swdrv::DeleteMacVlanEntry>(
        [&model](const swdrv::MacAddress &request) { return model.lock()->chips.vlan_rules.macs.erase(request.mac); });
    dispatcher.on<swdrv::SetIpSubnetVlanEntry>([&model](const swdrv::IpSubnetVlan &request) {
        const Ipv4Subnet subnet{.address = request.subnet.ip, .mask = request.subnet.mask};
        const auto access = model.lock();
        ChipState &chips = access->chips;
        return subnet.is_sound() &&
               chips.vlan_rules.subnets.set(chips.vlans, subnet, {.vlan = request.vid, .priority = request.value});
    });
    dispatcher.on<swdrv::DeleteIpSubnetVlanEntry>([&model](const swdrv::IpSubnet &request) {
        return model.lock()->chips.vlan_rules.subnets.erase({.address = request.ip, .mask = request.mask});
    });
}

// ---- VLAN trunking ----

// A bit for each VLAN id, bit 0 of the first byte for id 0.
std::set<uint32_t> decoded_vlan_list(std::span<const uint8_t> list)
{
    std::set<uint32_t> vlans;
    for (uint32_t id = 0; id < 8 * list.size(); ++id) {
        if ((list[id / 8] >> id % 8 & 1) != 0) {
            vlans.insert(id);
        }
    }
    return vlans;
}

// False, and nothing changes, when one of the VLANs does not exist or the port does not.
bool trunk(Switch &model, const LogicalPort &port, const std::set<uint32_t> &vlans, std::optional<bool> on)
{
    const auto exists = [&model](uint32_t vlan) { return model.chips.vlans.has(vlan); };
    if (!on || !model.stack.has(port) || !std::ranges::all_of(vlans, exists)) {
        return false;
    }
    for (const uint32_t vlan : vlans) {
        PortSet &ports = model.chips.vlan_rules.trunked[vlan];
        *on ? ports.insert(port) : ports.erase(port);
    }
    return true;
}

void add_vlan_trunking(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::SetDefaultVlanTrunking>([&model] {
        model.lock()->chips.vlan_rules.trunked.clear();
        return true;
    });
    dispatcher.on<swdrv::CreateVlanForVlanTrunking>([&model](const swdrv::Words<2> &request) {
        const auto [vlan, port] = request.values;
        const auto access = model.lock();
        return access->stack.has(decoded_port(port)) && access->chips.vlans.create(vlan) &&
               trunk(*access, decoded_port(port), {vlan}, true);
    });
    dispatcher.on<swdrv::SetPortVlanTunkingByVLAN>([&model](const swdrv::VlanTrunking &request) {
        return trunk(*model.lock(), decoded_port(request.value1), {request.value2}, as_bool(request.flag));
    });
    dispatcher.on<swdrv::SetPortVlanTunkingByVlanList>([&model](const swdrv::VlanListTrunking &request) {
        const auto vlans = decoded_vlan_list(request.vlan_list);
        return trunk(*model.lock(), decoded_port(request.value), vlans, as_bool(request.flag));
    });
}

// ---- Tags ----

void add_tags(Dispatcher &dispatcher, SharedSwitch &model)
{
    keep<swdrv::SetCopyInnerPri2OuterPri>(
        dispatcher, model, Setting::copy_inner_priority,
        [](const Stack &stack, const swdrv::Words<3> &request) -> std::optional<KeptRequest> {
            const auto [unit, port, on] = request.values;
            if (!stack.has({unit, port}) || on > 1) {
                return std::nullopt;
            }
            return KeptRequest{.key = {unit, port}, .value = {on}};
        });
    dispatcher.on<swdrv::SetRspanVlanTag>([&model](const swdrv::RspanVlanTag &request) {
        const RspanTag tag{{.vlan = request.value2, .priority = request.value1}, request.value3};
        const auto access = model.lock();
        ChipState &chips = access->chips;
        if (!chips.vlans.has(tag.vlan) || !is_priority(tag.priority) || !is_tpid(tag.tpid)) {
            return false;
        }
        chips.vlan_rules.rspan_tag = tag;
        return true;
    });
}

}  // namespace

void add_swdrv_vlan_rules(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_protocols(dispatcher, model);
    add_addresses(dispatcher, model);
    add_vlan_trunking(dispatcher, model);
    add_tags(dispatcher, model);
}

}  // namespace quillon::driver
