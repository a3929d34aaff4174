// Trunks.
#include "host/driver/handlers.h"
#include "host/driver/swdrv_encoding.h"
#include "swdrv/commands.h"

namespace quillon::driver {
namespace {

void add_trunks(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::CreateTrunk>(
        [&model](const swdrv::Trunk &request) { return model.lock()->chips.trunks.create(request.trunk_id); });
    dispatcher.on<swdrv::CreateTrunkwithMode>([&model](const swdrv::TrunkMode &request) {
        const auto balance = decoded<TrunkBalance>(request.mode);
        return balance && model.lock()->chips.trunks.create(request.trunk_id, *balance);
    });
    dispatcher.on<swdrv::DestroyTrunk>(
        [&model](const swdrv::Trunk &request) { return model.lock()->chips.destroy_trunk(request.trunk_id); });
    dispatcher.on<swdrv::SetTrunkPortMembers>([&model](const swdrv::TrunkPortMembers &request) {
        const uint32_t unit = request.value1;
        const uint32_t trunk = request.value2;
        const auto ports = decoded_bitmap(request.port_bitmap);
        return ports && model.lock()->chips.trunks.set_members(trunk, unit, *ports);
    });
}

void add_balance(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::SetTrunkLoadBalanceMode>([&model](const swdrv::Word &request) {
        const auto balance = decoded<TrunkBalance>(request.value);
        if (balance) {
            model.lock()->chips.trunks.set_balance_of_all(*balance);
        }
        return balance.has_value();
    });
    dispatcher.on<swdrv::SetTrunkBalanceMode>([&model](const swdrv::TrunkBalanceMode &request) {
        const uint32_t trunk = request.selector;
        const auto balance = decoded<TrunkBalance>(request.mode);
        return balance && model.lock()->chips.trunks.set_balance(trunk, *balance);
    });
    dispatcher.on<swdrv::GetTrunkBalanceModeofLocalUnit>([&model](const swdrv::Word &request, swdrv::Flag &reply) {
        const auto access = model.lock();
        const Trunk *const trunk = access->chips.trunks.find(request.value);
        reply.value = trunk == nullptr ? 0 : static_cast<uint8_t>(encoded(trunk->balance));
        return trunk != nullptr;
    });
}

TrunkMulticast multicast(const swdrv::TrunkMulticastAddr &request)
{
    return {.mac = request.mac, .vlan = request.value1, .port = {.unit = request.value2, .port = request.value3}};
}

void add_multicasts(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::AddMulticastAddrToTrunkMember>([&model](const swdrv::TrunkMulticastAddr &request) {
        const auto access = model.lock();
        return access->chips.trunks.add(access->chips.vlans, multicast(request));
    });
    dispatcher.on<swdrv::DeleteMulticastAddrToTrunkMember>([&model](const swdrv::TrunkMulticastAddr &request) {
        return model.lock()->chips.trunks.remove(multicast(request));
    });
}

}  // namespace

void add_swdrv_trunk(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_trunks(dispatcher, model);
    add_balance(dispatcher, model);
    add_multicasts(dispatcher, model);
}

}  // namespace quillon::driver
