#include "host/driver/model/packet_generators.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace quillon::driver {
namespace {

using std::chrono::nanoseconds;

nanoseconds period(uint64_t rate)
{
    return nanoseconds(std::chrono::seconds(1)) / rate;
}

}  // namespace

std::optional<uint32_t> PacketGenerators::add(uint32_t generator, Packet packet)
{
    Generator *const found = find(generator);
    if (found == nullptr || found->entries.size() >= most_entries) {
        return std::nullopt;
    }
    uint32_t entry = 1;
    while (found->entries.contains(entry)) {
        ++entry;
    }
    found->entries.emplace(entry, std::move(packet));
    return entry;
}

bool PacketGenerators::update(uint32_t generator, uint32_t entry, Packet packet)
{
    Generator *const found = find(generator);
    if (found == nullptr || !found->entries.contains(entry)) {
        return false;
    }
    found->entries[entry] = std::move(packet);
    return true;
}

bool PacketGenerators::remove(uint32_t generator, uint32_t entry)
{
    Generator *const found = find(generator);
    if (found == nullptr || found->entries.erase(entry) == 0) {
        return false;
    }
    found->running = found->running && !found->entries.empty();
    return true;
}

bool PacketGenerators::start(uint32_t generator, std::optional<uint32_t> packets, Time now)
{
    Generator *const found = find(generator);
    if (found == nullptr || found->entries.empty() || packets == 0) {
        return false;
    }
    found->running = true;
    found->left = packets;
    found->next = now;
    found->last_entry = 0;
    return true;
}

bool PacketGenerators::stop(uint32_t generator)
{
    Generator *const found = find(generator);
    if (found == nullptr) {
        return false;
    }
    found->running = false;
    return true;
}

std::optional<uint64_t> PacketGenerators::set_rate(uint32_t generator, uint64_t wanted, Time now)
{
    Generator *const found = find(generator);
    if (found == nullptr || wanted == 0) {
        return std::nullopt;
    }
    found->rate = std::min(wanted, most_rate);
    found->next = std::min(found->next, now + period(found->rate));
    return found->rate;
}

PacketGenerators::Packet PacketGenerators::take_due(Time now)
{
    constexpr auto most_missed = std::chrono::milliseconds(100);
    for (Generator &generator : generators_) {
        if (generator.running && generator.next <= now) {
            generator.next = std::max(generator.next, now - most_missed) + period(generator.rate);
            return take_next(generator);
        }
    }
    return nullptr;
}

PacketGenerators::Packet PacketGenerators::take_next(Generator &generator)
{
    auto entry = generator.entries.upper_bound(generator.last_entry);
    if (entry == generator.entries.end()) {
        entry = generator.entries.begin();
    }
    generator.last_entry = entry->first;
    ++generator.sent;
    generator.running = !generator.left || --*generator.left > 0;
    return entry->second;
}

std::optional<Time> PacketGenerators::next_due() const
{
    std::optional<Time> first;
    for (const Generator &generator : generators_) {
        if (generator.running && (!first || generator.next < *first)) {
            first = generator.next;
        }
    }
    return first;
}

}  // namespace quillon::driver
