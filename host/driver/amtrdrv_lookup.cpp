// Looking addresses up in the chips.
#include <fmt/format.h>

#include <string>

#include "amtrdrv/commands.h"
#include "host/driver/amtrdrv_encoding.h"
#include "host/driver/handlers.h"
#include "host/driver/on_switch.h"
#include "host/driver/request_values.h"

namespace quillon::driver {
namespace {

void add_lookup(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_switch<amtrdrv::ARLLookUp>(
        dispatcher, model, [](Switch &chips, const amtrdrv::VlanMac &request, amtrdrv::Lookup &reply) {
            const MacEntry *const entry = chips.macs().find(key_of(request));
            if (entry == nullptr) {
                return false;
            }
            const EncodedDestination destination = encoded(entry->destination);
            reply = {.first_value = destination.unit, .second_value = destination.port, .flag = destination.type};
            return true;
        });
    on_switch<amtrdrv::ARLFirstChipLookUp>(
        dispatcher, model, [](Switch &chips, const amtrdrv::VlanMac &request, amtrdrv::FirstChipLookup &reply) {
            const MacEntry *const entry = chips.macs().find(key_of(request));
            if (entry == nullptr || !entry->chips.test(0)) {
                return false;
            }
            const EncodedDestination destination = encoded(entry->destination);
            reply = {.first_value = destination.unit,
                     .second_value = destination.port,
                     .third_value = encoded(entry->kind),
                     .flag = destination.type};
            return true;
        });
}

// How many addresses of zeros there are, and the first of them.
struct NullAddresses {
    static constexpr int64_t most_named = 100;

    int64_t count = 0;
    std::string named;
};

NullAddresses null_addresses(const MacTable &macs)
{
    NullAddresses found;
    for (const auto &[key, entry] : macs) {
        if (key.mac == MacAddress{} && ++found.count <= NullAddresses::most_named) {
            const EncodedDestination at = encoded(entry.destination);
            found.named +=
                fmt::format("{}{}/{}/{}/{}", found.named.empty() ? "" : ",", key.vlan, at.type, at.unit, at.port);
        }
    }
    return found;
}

// In place of a console: the log.
void add_null_addresses(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<amtrdrv::ShowValidNullMac>([&model, &log = dispatcher.log()] {
        const NullAddresses found = null_addresses(model.lock()->macs());
        log.write_limited(Level::info, "null-mac", {}, {{"entries", found.count}, {"at", found.named}});
        return true;
    });
}

}  // namespace

void add_amtrdrv_lookup(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_lookup(dispatcher, model);
    add_null_addresses(dispatcher, model);
    on_switch<amtrdrv::ReadAndClearLocalHitBit>(
        dispatcher, model, [](Switch &chips, const amtrdrv::HitBitKey &request, amtrdrv::Flag &reply) {
            const uint32_t unit = request.selector;
            const auto ports = decoded_bitmap(request.block);
            if (!ports || request.mode > 1) {
                return false;
            }
            const PortMask of_interest = *ports == 0 ? first_ports(chips.stack.shape().ports) : *ports;
            const auto hit =
                chips.macs().hit(key_of(request), unit, of_interest, chips.chips.trunks, request.mode == 1);
            reply.value = hit == true ? 1 : 0;
            return hit.has_value();
        });
    // An address finds its place wherever there is one.
    dispatcher.on<amtrdrv::GetHashLookupDepth>([](amtrdrv::Word &reply) {
        reply.value = MacTable::capacity;
        return true;
    });
}

}  // namespace quillon::driver
