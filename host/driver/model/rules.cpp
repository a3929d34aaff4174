#include "host/driver/model/rules.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace quillon::driver {
namespace {

// Null when there is none.
template <class Table>
auto *entry_of(Table &table, uint32_t number)
{
    const auto found = table.find(number);
    return found == table.end() ? nullptr : &found->second;
}

// The selected entries of a table: those with larger priorities first, then those with smaller numbers.
template <class Table, class Selected>
auto ranked(Table &table, Selected selected)
{
    std::vector<typename Table::mapped_type *> entries;
    for (auto &[number, entry] : table) {
        if (selected(entry)) {
            entries.push_back(&entry);
        }
    }
    std::ranges::stable_sort(entries, std::greater<>{}, [](const auto *entry) { return entry->priority; });
    return entries;
}

void count(RuleCounter &counter, Colour colour)
{
    switch (colour) {
        case Colour::green:
            ++counter.green;
            break;
        case Colour::yellow:
            ++counter.yellow;
            break;
        case Colour::red:
            ++counter.red;
            break;
    }
}

// What `earlier` leaves open is for `later` to say.
Treatment merged(const Treatment &earlier, const Treatment &later)
{
    return {.drop = earlier.drop || later.drop,
            .copy_to_cpu = earlier.copy_to_cpu || later.copy_to_cpu,
            .mirror = earlier.mirror || later.mirror,
            .priority = earlier.priority ? earlier.priority : later.priority,
            .dscp = earlier.dscp ? earlier.dscp : later.dscp,
            .redirect = earlier.redirect ? earlier.redirect : later.redirect};
}

}  // namespace

Rules::Pcl *Rules::find(const PclName &name)
{
    return stack_.has_unit(name.unit) ? entry_of(units_[name.unit - 1], name.pcl) : nullptr;
}

Rules::Rule *Rules::find(const RuleName &name)
{
    Pcl *const pcl = find(PclName{.unit = name.unit, .pcl = name.pcl});
    return pcl == nullptr ? nullptr : entry_of(pcl->rules, name.rule);
}

Rules::Rule *Rules::find_in_unit(uint32_t unit, uint32_t number)
{
    if (stack_.has_unit(unit)) {
        for (auto &[id, pcl] : units_[unit - 1]) {
            if (Rule *const rule = entry_of(pcl.rules, number)) {
                return rule;
            }
        }
    }
    return nullptr;
}

bool Rules::create_pcl(const PclName &name, const PclSettings &settings)
{
    if (!stack_.has_unit(name.unit)) {
        return false;
    }
    Unit &unit = units_[name.unit - 1];
    uint32_t room = most_rules;
    for (const auto &[id, pcl] : unit) {
        room -= pcl.size;
    }
    return settings.size >= 1 && settings.size <= room && unit.try_emplace(name.pcl, Pcl{settings, 0, {}, {}}).second;
}

bool Rules::bind_port(const PclName &name, uint32_t port, bool bound)
{
    Pcl *const pcl = find(name);
    if (pcl == nullptr || !stack_.has({.unit = name.unit, .port = port}) || pcl->is_bound_to(port) == bound) {
        return false;
    }
    pcl->ports ^= port_bit(port);
    return true;
}

bool Rules::bind_trunk(const Trunks &trunks, const PclName &name, uint32_t trunk)
{
    Pcl *const pcl = find(name);
    return pcl != nullptr && trunks.find(trunk) != nullptr && pcl->trunks.insert(trunk).second;
}

bool Rules::unbind_trunk(const PclName &name, uint32_t trunk)
{
    Pcl *const pcl = find(name);
    return pcl != nullptr && pcl->trunks.erase(trunk) != 0;
}

void Rules::forget_trunk(uint32_t trunk)
{
    for (Unit &unit : units_) {
        for (auto &[id, pcl] : unit) {
            pcl.trunks.erase(trunk);
        }
    }
}

bool Rules::allocate(const RuleName &name, uint32_t priority, const UserBytesPlace &user_bytes)
{
    Pcl *const pcl = find(PclName{.unit = name.unit, .pcl = name.pcl});
    if (pcl == nullptr || pcl->rules.size() == pcl->size || find_in_unit(name.unit, name.rule) != nullptr) {
        return false;
    }
    Rule &rule = pcl->rules[name.rule];
    rule.priority = priority;
    rule.user_bytes = user_bytes;
    return true;
}

bool Rules::set(const RuleName &name, const RulePattern &pattern, const RuleAction &action)
{
    Rule *const rule = find(name);
    const auto &redirect = action.treatment.redirect;
    if (rule == nullptr || !is_valid(pattern) || (redirect && !stack_.has(*redirect))) {
        return false;
    }
    rule->pattern = pattern;
    rule->action = action;
    return true;
}

bool Rules::destroy(const RuleName &name)
{
    Pcl *const pcl = find(PclName{.unit = name.unit, .pcl = name.pcl});
    return pcl != nullptr && pcl->rules.erase(name.rule) != 0;
}

bool Rules::destroy_action(const RuleName &name)
{
    Rule *const rule = find(name);
    return rule != nullptr && std::exchange(rule->action, std::nullopt).has_value();
}

bool Rules::update_meter(const RuleName &name, const MeterRate &rate)
{
    Rule *const rule = find(name);
    if (rule == nullptr || (rate.committed_burst == 0 && rate.excess_burst == 0)) {
        return false;
    }
    if (rule->meter == nullptr) {
        rule->meter = std::make_shared<Meter>(rate);
    } else {
        *rule->meter = Meter(rate);
    }
    return true;
}

bool Rules::share_meter(uint32_t unit, uint32_t rule, uint32_t other)
{
    Rule *const user = find_in_unit(unit, rule);
    const Rule *const owner = find_in_unit(unit, other);
    if (user == nullptr || owner == nullptr || owner->meter == nullptr) {
        return false;
    }
    user->meter = owner->meter;
    return true;
}

RuleCounter *Rules::counter(const RuleName &name)
{
    Rule *const rule = find(name);
    return rule == nullptr ? nullptr : &rule->counter;
}

Treatment Rules::Pcl::receive(const ParsedPacket &packet, Time now)
{
    std::optional<Treatment> decided;
    const auto is_matched = [&](const Rule &rule) {
        return rule.pattern && matches(*rule.pattern, rule.user_bytes, packet);
    };
    for (Rule *const rule : ranked(rules, is_matched)) {
        const Colour colour = rule->meter == nullptr ? Colour::green : rule->meter->colour(packet.bytes.size(), now);
        count(rule->counter, colour);
        if (rule->action && !decided) {
            decided = rule->action->treatment;
            decided->drop = decided->drop || (rule->action->drop_red && colour == Colour::red);
        }
    }
    return decided.value_or(Treatment{.drop = deny});
}

Treatment Rules::receive(const Trunks &trunks, const LogicalPort &port, std::span<const std::byte> bytes, Time now)
{
    const ParsedPacket packet = parse_packet(bytes);
    const auto is_bound = [&](const Pcl &pcl) {
        const auto has_port = [&](uint32_t trunk) { return trunks.find(trunk)->members.contains(port); };
        return pcl.is_bound_to(port.port) || std::ranges::any_of(pcl.trunks, has_port);
    };
    Treatment treatment;
    for (Pcl *const pcl : ranked(units_.at(port.unit - 1), is_bound)) {
        treatment = merged(treatment, pcl->receive(packet, now));
    }
    return treatment;
}

}  // namespace quillon::driver
