// L3 interfaces and router MAC addresses.
#include "host/driver/handlers.h"
#include "host/driver/swdrvl3_encoding.h"
#include "swdrvl3/commands.h"

namespace quillon::driver {
namespace {

VlanMac router_mac(const swdrvl3::RouterMac &request)
{
    return {.vlan = request.arg1, .mac = request.mac};
}

void add_interfaces(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrvl3::CreateL3Interface>([&model](const swdrvl3::NewL3Interface &request, swdrvl3::Word &reply) {
        const VlanMac where{.vlan = request.arg1, .mac = request.mac};
        if (request.arg2 != virtual_router) {
            return encoded(TableStatus::unresolved);
        }
        const auto access = model.lock();
        const auto created = access->chips.l3_interfaces.create(access->chips.vlans, where);
        reply.value = created.id;
        return encoded(created.status);
    });
    dispatcher.on<swdrvl3::DeleteL3Interface>([&model](const swdrvl3::L3Interface &request) {
        const uint32_t id = request.arg1;
        const VlanMac where{.vlan = request.arg2, .mac = request.mac};
        return request.arg4 == virtual_router && model.lock()->chips.delete_l3_interface(id, where);
    });
}

void add_router_macs(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrvl3::AddL3Mac>([&model](const swdrvl3::RouterMac &request) {
        const auto access = model.lock();
        return encoded(access->chips.l3_interfaces.add_mac(access->chips.vlans, router_mac(request)));
    });
    dispatcher.on<swdrvl3::DeleteL3Mac>([&model](const swdrvl3::RouterMac &request) {
        return model.lock()->chips.l3_interfaces.remove_mac(router_mac(request));
    });
    const auto set_l3_bit = [&model](bool on) {
        return [&model, on](const swdrvl3::RouterMac &request) {
            return model.lock()->chips.l3_interfaces.set_l3_bit(router_mac(request), on);
        };
    };
    dispatcher.on<swdrvl3::SetL3Bit>(set_l3_bit(true));
    dispatcher.on<swdrvl3::UnSetL3Bit>(set_l3_bit(false));
}

}  // namespace

void add_swdrvl3_interfaces(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_interfaces(dispatcher, model);
    add_router_macs(dispatcher, model);
}

}  // namespace quillon::driver
