// The rule manager: rules, meters, counters and policy control lists.
#include "devrm/commands.h"
#include "host/driver/devrm_encoding.h"
#include "host/driver/handlers.h"
#include "host/driver/request_values.h"

namespace quillon::driver {
namespace {

using devrm::ThreeWords;
using devrm::Trailer;

RuleName rule_name(const auto &request)
{
    return {.unit = request.a1, .pcl = request.a2, .rule = request.a3};
}

PclName pcl_name(const auto &request)
{
    return {.unit = request.a1, .pcl = request.a2};
}

void add_rules(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<devrm::FieldInit>([&model](const Trailer &, Trailer &) {
        const auto access = model.lock();
        access->chips.rules = Rules(access->stack);
        return true;
    });
    dispatcher.on<devrm::AllocateRule>([&model](const devrm::RuleAllocation &request, Trailer &) {
        const uint32_t priority = request.a4;
        const auto user_bytes = decoded_place(request.a5);
        return user_bytes && model.lock()->chips.rules.allocate(rule_name(request), priority, *user_bytes);
    });
    dispatcher.on<devrm::SetRule>([&model](const devrm::RuleSetting &request, Trailer &) {
        const auto action = decoded_action(request.action);
        return action && model.lock()->chips.rules.set(rule_name(request), request.pattern, *action);
    });
    dispatcher.on<devrm::DestroyRule>([&model](const devrm::RuleDestruction &request, Trailer &) {
        return model.lock()->chips.rules.destroy(rule_name(request));
    });
    dispatcher.on<devrm::DestroyAction>([&model](const ThreeWords &request, Trailer &) {
        return model.lock()->chips.rules.destroy_action(rule_name(request));
    });
}

void add_meters_and_counters(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<devrm::UpdateMeter>([&model](const devrm::MeterUpdate &request, Trailer &) {
        return model.lock()->chips.rules.update_meter(rule_name(request), decoded_meter(request.meter));
    });
    dispatcher.on<devrm::ShareMeter>([&model](const ThreeWords &request, Trailer &) {
        const auto [unit, rule, other, unused] = request;
        return model.lock()->chips.rules.share_meter(unit, rule, other);
    });
    dispatcher.on<devrm::GetCounter>([&model](const ThreeWords &request, devrm::CounterWords &reply) {
        const auto access = model.lock();
        const RuleCounter *const counter = access->chips.rules.counter(rule_name(request));
        if (counter != nullptr) {
            reply = {.a4 = counter->green, .a5 = counter->yellow, .a6 = counter->red};
        }
        return counter != nullptr;
    });
    dispatcher.on<devrm::ClearCounter>([&model](const ThreeWords &request, Trailer &) {
        const auto access = model.lock();
        RuleCounter *const counter = access->chips.rules.counter(rule_name(request));
        if (counter != nullptr) {
            *counter = {};
        }
        return counter != nullptr;
    });
}

void add_device(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<devrm::GetNumberOfChips>(
        [&model](const Trailer &, Trailer &) { return model.lock()->stack.shape().chips; });
    dispatcher.on<devrm::GetDeviceInfo>([&model](const Trailer &, devrm::Word &reply) {
        const StackShape shape = model.lock()->stack.shape();
        reply.value = shape.chips | shape.ports << 8 | shape.units << 16;
        return true;
    });
    dispatcher.on<devrm::CheckSoc>(
        [](const devrm::Word &request, Trailer &) { return request.value == no_system_on_chip; });
    // There is no request that would exclude a VLAN from rules.
    dispatcher.on<devrm::GetNumberOfEXCLUDEVLAN>([](const Trailer &, Trailer &) { return uint32_t{0}; });
}

void add_pcls(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<devrm::CreatePcl>([&model](const devrm::PclCreation &request, Trailer &) {
        const auto deny = as_bool(request.a3);
        return deny && model.lock()->chips.rules.create_pcl(
                           pcl_name(request), {.deny = *deny, .priority = request.a4, .size = request.a5});
    });
    const auto bind_port = [&model](bool bound) {
        return [&model, bound](const ThreeWords &request, Trailer &) {
            return model.lock()->chips.rules.bind_port(pcl_name(request), request.a3, bound);
        };
    };
    dispatcher.on<devrm::BindPclToPort>(bind_port(true));
    dispatcher.on<devrm::UnbindPclToPort>(bind_port(false));
    dispatcher.on<devrm::BindPclToTrunkPort>([&model](const ThreeWords &request, Trailer &) {
        const auto access = model.lock();
        return access->chips.rules.bind_trunk(access->chips.trunks, pcl_name(request), request.a3);
    });
    dispatcher.on<devrm::UnbindPclToTrunkPort>([&model](const ThreeWords &request, Trailer &) {
        return model.lock()->chips.rules.unbind_trunk(pcl_name(request), request.a3);
    });
}

}  // namespace

void add_devrm_rules(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_rules(dispatcher, model);
    add_meters_and_counters(dispatcher, model);
    add_device(dispatcher, model);
    add_pcls(dispatcher, model);
}

}  // namespace quillon::driver
