#include "host/driver/oam_delivery.h"

#include <errno.h>
#include <signal.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

namespace quillon::driver {
namespace {

bool process_runs(pid_t process)
{
    return kill(process, 0) == 0 || errno != ESRCH;
}

template <class ParkedWait>
void refuse(std::vector<ParkedWait> waits)
{
    for (ParkedWait &wait : waits) {
        wait.call.answer(false);
    }
}

}  // namespace

OamDelivery::Waits::Waits() : bindings(process_runs) {}

std::vector<OamDelivery::ParkedWait> OamDelivery::Waits::take(const std::vector<OamBindings::WaitId> &ids)
{
    std::vector<ParkedWait> taken;
    taken.reserve(ids.size());
    for (const OamBindings::WaitId id : ids) {
        if (auto wait = parked.extract(id)) {
            taken.push_back(std::move(wait.mapped()));
        }
    }
    return taken;
}

OamDelivery::OamDelivery() : alarm_([this] { return expire(); }) {}

std::optional<OamBindings::Handle> OamDelivery::bind(const OamSubscription &subscription)
{
    return waits_.lock()->bindings.bind(subscription);
}

bool OamDelivery::unbind(const OamSubscription &subscription)
{
    std::vector<ParkedWait> ended;
    {
        const auto waits = waits_.lock();
        const auto ids = waits->bindings.unbind(subscription);
        if (!ids) {
            return false;
        }
        ended = waits->take(*ids);
    }
    refuse(std::move(ended));
    return true;
}

std::optional<bool> OamDelivery::wait(WaitCall &call, OamBindings::Handle handle, const OamWait &wait)
{
    {
        const auto waits = waits_.lock();
        const OamBindings::WaitId id = ++waits->last_id;
        if (const auto result = waits->bindings.wait(call.client(), handle, id, wait)) {
            return result;
        }
        waits->parked.emplace(id, ParkedWait{.binding = handle, .call = call.park([this, id] { cancel(id); })});
    }
    if (wait.deadline) {
        alarm_.set(*wait.deadline);
    }
    return std::nullopt;
}

size_t OamDelivery::raise(OamEvent event)
{
    OamBindings::Raised raised;
    std::vector<ParkedWait> ended;
    {
        const auto waits = waits_.lock();
        raised = waits->bindings.raise(event);
        ended = waits->take(raised.waits);
    }
    deliver(event, std::move(ended));
    return raised.bindings;
}

// What only callers who had just given up were told comes to the binding once more.
void OamDelivery::deliver(OamEvent event, std::vector<ParkedWait> ended)
{
    while (!ended.empty()) {
        std::set<OamBindings::Handle> told;
        std::set<OamBindings::Handle> missed;
        for (ParkedWait &wait : ended) {
            (wait.call.answer(true) ? told : missed).insert(wait.binding);
        }
        ended.clear();
        const auto waits = waits_.lock();
        for (const OamBindings::Handle binding : missed) {
            if (!told.contains(binding)) {
                std::ranges::move(waits->take(waits->bindings.deliver(event, binding)), std::back_inserter(ended));
            }
        }
    }
}

void OamDelivery::cancel(OamBindings::WaitId id)
{
    const auto waits = waits_.lock();
    waits->bindings.cancel(id);
    waits->parked.erase(id);
}

std::optional<Alarm::Clock::time_point> OamDelivery::expire()
{
    std::vector<ParkedWait> expired;
    std::optional<Alarm::Clock::time_point> next;
    {
        const auto waits = waits_.lock();
        expired = waits->take(waits->bindings.expire(Alarm::Clock::now()));
        next = waits->bindings.next_deadline();
    }
    refuse(std::move(expired));
    return next;
}

}  // namespace quillon::driver
