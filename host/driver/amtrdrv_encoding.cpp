#include "host/driver/amtrdrv_encoding.h"

#include <bit>

namespace quillon::driver {
namespace {

constexpr uint8_t at_port = 1;
constexpr uint8_t at_trunk = 2;
constexpr uint8_t at_cpu = 3;
constexpr uint8_t at_members = 4;

constexpr uint32_t discards_from = 1U << 0;
constexpr uint32_t discards_to = 1U << 1;
constexpr uint32_t copies_to_cpu = 1U << 2;
constexpr uint8_t hit = 1U << 3;

std::optional<MacDestination> decoded_destination(const EntryRecord &record)
{
    switch (record.destination) {
        case at_port:
            return LogicalPort{.unit = record.unit, .port = record.port};
        case at_trunk:
            return record.unit == 0 ? std::optional(TrunkId{record.port}) : std::nullopt;
        case at_cpu:
            return record.unit == 0 && record.port == 0 ? std::optional(Cpu{}) : std::nullopt;
        default:
            return std::nullopt;
    }
}

}  // namespace

EncodedDestination encoded(const MacDestination &destination)
{
    if (const auto *const port = std::get_if<LogicalPort>(&destination)) {
        return {.type = at_port, .unit = static_cast<uint16_t>(port->unit), .port = static_cast<uint16_t>(port->port)};
    }
    if (const auto *const trunk = std::get_if<TrunkId>(&destination)) {
        return {.type = at_trunk, .port = static_cast<uint16_t>(trunk->id)};
    }
    if (const auto *const members = std::get_if<MulticastMembers>(&destination)) {
        return {.type = at_members, .port = static_cast<uint16_t>(members->tagged.size())};
    }
    return {.type = at_cpu};
}

AddrTblEntry encoded(const MacKey &key, const MacEntry &entry)
{
    const EncodedDestination destination = encoded(entry.destination);
    const MacTreatment &treatment = entry.treatment;
    const uint32_t flags = (treatment.discards_from ? discards_from : 0) | (treatment.discards_to ? discards_to : 0) |
                           (treatment.copies_to_cpu ? copies_to_cpu : 0) | (entry.hit ? hit : 0);
    return std::bit_cast<AddrTblEntry>(EntryRecord{.mac = key.mac,
                                                   .vlan = static_cast<uint16_t>(key.vlan),
                                                   .unit = destination.unit,
                                                   .port = destination.port,
                                                   .status = static_cast<uint8_t>(encoded(entry.kind)),
                                                   .destination = destination.type,
                                                   .flags = static_cast<uint8_t>(flags),
                                                   .cpu_priority = static_cast<uint8_t>(treatment.cpu_priority)});
}

std::optional<std::pair<MacKey, MacEntry>> decoded(const AddrTblEntry &bytes)
{
    const auto record = std::bit_cast<EntryRecord>(bytes);
    const auto kind = decoded<MacKind>(record.status);
    const auto destination = decoded_destination(record);
    auto treatment = decoded_treatment(record.flags & ~uint32_t{hit});
    if ((kind != MacKind::learned && kind != MacKind::set) || !destination || !treatment) {
        return std::nullopt;
    }
    treatment->cpu_priority = record.cpu_priority;
    return std::pair(
        decoded_key(bytes),
        MacEntry{
            .kind = *kind, .destination = *destination, .treatment = *treatment, .hit = (record.flags & hit) != 0});
}

MacKey decoded_key(const AddrTblEntry &bytes)
{
    const auto record = std::bit_cast<EntryRecord>(bytes);
    return {.vlan = record.vlan, .mac = record.mac};
}

std::optional<MacTreatment> decoded_treatment(uint32_t flags)
{
    if ((flags & ~(discards_from | discards_to | copies_to_cpu)) != 0) {
        return std::nullopt;
    }
    return MacTreatment{.discards_from = (flags & discards_from) != 0,
                        .discards_to = (flags & discards_to) != 0,
                        .copies_to_cpu = (flags & copies_to_cpu) != 0};
}

}  // namespace quillon::driver
