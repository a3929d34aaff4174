#include "host/driver/model/oam_events.h"

#include <algorithm>

namespace quillon::driver {
namespace {

// Takes the waits out that `ends` says.
template <class Ends>
void end_waits(std::map<OamBindings::WaitId, OamWait> &waits, std::vector<OamBindings::WaitId> &ended, Ends ends)
{
    std::erase_if(waits, [&](const auto &entry) {
        const bool ends_now = ends(entry.second);
        if (ends_now) {
            ended.push_back(entry.first);
        }
        return ends_now;
    });
}

}  // namespace

std::optional<OamBindings::Handle> OamBindings::bind(const OamSubscription &subscription)
{
    if (bindings_.size() >= most) {
        forget_clients_that_ended();
    }
    if (bindings_.size() >= most) {
        return std::nullopt;
    }
    bindings_.emplace(++last_handle_, Binding{.subscription = subscription});
    return last_handle_;
}

std::optional<std::vector<OamBindings::WaitId>> OamBindings::unbind(const OamSubscription &subscription)
{
    std::vector<WaitId> ended;
    const size_t unbound = std::erase_if(bindings_, [&](const auto &entry) {
        const Binding &binding = entry.second;
        if (binding.subscription != subscription) {
            return false;
        }
        for (const auto &[id, wait] : binding.waits) {
            ended.push_back(id);
        }
        return true;
    });
    return unbound == 0 ? std::nullopt : std::optional(std::move(ended));
}

std::optional<bool> OamBindings::wait(pid_t client, Handle handle, WaitId id, const OamWait &wait)
{
    const auto found = bindings_.find(handle);
    if (found == bindings_.end()) {
        return false;
    }
    Binding &binding = found->second;
    if (binding.subscription.client != client || !binding.subscription.events.has_one_of(wait.events)) {
        return false;
    }
    for (size_t i = 0; i < OamEvents::count; ++i) {
        if (binding.kept[i] != 0 && wait.events.contains(static_cast<OamEvent>(i))) {
            --binding.kept[i];
            return true;
        }
    }
    binding.waits.emplace(id, wait);
    return std::nullopt;
}

void OamBindings::cancel(WaitId id)
{
    for (auto &[handle, binding] : bindings_) {
        binding.waits.erase(id);
    }
}

OamBindings::Raised OamBindings::raise(OamEvent event)
{
    forget_clients_that_ended();
    Raised raised;
    for (auto &[handle, binding] : bindings_) {
        if (!binding.subscription.events.contains(event)) {
            continue;
        }
        ++raised.bindings;
        const std::vector<WaitId> ended = deliver(event, binding);
        raised.waits.insert(raised.waits.end(), ended.begin(), ended.end());
    }
    return raised;
}

std::vector<OamBindings::WaitId> OamBindings::deliver(OamEvent event, Handle handle)
{
    const auto found = bindings_.find(handle);
    return found == bindings_.end() ? std::vector<WaitId>{} : deliver(event, found->second);
}

std::vector<OamBindings::WaitId> OamBindings::deliver(OamEvent event, Binding &binding)
{
    std::vector<WaitId> ended;
    end_waits(binding.waits, ended, [event](const OamWait &wait) { return wait.events.contains(event); });
    if (ended.empty()) {
        ++binding.kept[static_cast<size_t>(event)];
    }
    return ended;
}

std::vector<OamBindings::WaitId> OamBindings::expire(Clock::time_point now)
{
    std::vector<WaitId> ended;
    for (auto &[handle, binding] : bindings_) {
        end_waits(binding.waits, ended, [now](const OamWait &wait) { return wait.deadline && *wait.deadline <= now; });
    }
    return ended;
}

std::optional<OamBindings::Clock::time_point> OamBindings::next_deadline() const
{
    std::optional<Clock::time_point> next;
    for (const auto &[handle, binding] : bindings_) {
        for (const auto &[id, wait] : binding.waits) {
            if (wait.deadline && (!next || *wait.deadline < *next)) {
                next = wait.deadline;
            }
        }
    }
    return next;
}

// A client that is gone has no waits any more: they are cancelled as its connections close.
void OamBindings::forget_clients_that_ended()
{
    std::map<pid_t, bool> known;
    std::erase_if(bindings_, [&](const auto &entry) {
        const pid_t client = entry.second.subscription.client;
        const auto [place, is_new] = known.try_emplace(client);
        if (is_new) {
            place->second = runs_(client);
        }
        return !place->second;
    });
}

}  // namespace quillon::driver
