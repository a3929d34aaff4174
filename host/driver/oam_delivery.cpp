#include "host/driver/oam_delivery.h"

#include <errno.h>
#include <signal.h>

#include <utility>

namespace quillon::driver {
namespace {

bool process_runs(pid_t process)
{
    return kill(process, 0) == 0 || errno != ESRCH;
}

template <class ParkedCall>
void answer(std::vector<ParkedCall> calls, bool result)
{
    for (ParkedCall &call : calls) {
        call.answer(result);
    }
}

}  // namespace

OamDelivery::Waits::Waits() : bindings(process_runs) {}

std::vector<OamDelivery::ParkedCall> OamDelivery::Waits::take(const std::vector<OamBindings::WaitId> &ids)
{
    std::vector<ParkedCall> taken;
    taken.reserve(ids.size());
    for (const OamBindings::WaitId id : ids) {
        taken.push_back(std::move(parked.extract(id).mapped()));
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
    std::vector<ParkedCall> ended;
    {
        const auto waits = waits_.lock();
        const auto ids = waits->bindings.unbind(subscription);
        if (!ids) {
            return false;
        }
        ended = waits->take(*ids);
    }
    answer(std::move(ended), false);
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
        waits->parked.emplace(id, call.park([this, id] { cancel(id); }));
    }
    if (wait.deadline) {
        alarm_.set(*wait.deadline);
    }
    return std::nullopt;
}

size_t OamDelivery::raise(OamEvent event)
{
    OamBindings::Raised raised;
    std::vector<ParkedCall> ended;
    {
        const auto waits = waits_.lock();
        raised = waits->bindings.raise(event);
        ended = waits->take(raised.waits);
    }
    answer(std::move(ended), true);
    return raised.bindings;
}

void OamDelivery::cancel(OamBindings::WaitId id)
{
    const auto waits = waits_.lock();
    waits->bindings.cancel(id);
    waits->parked.erase(id);
}

std::optional<Alarm::Clock::time_point> OamDelivery::expire()
{
    std::vector<ParkedCall> expired;
    std::optional<Alarm::Clock::time_point> next;
    {
        const auto waits = waits_.lock();
        expired = waits->take(waits->bindings.expire(Alarm::Clock::now()));
        next = waits->bindings.next_deadline();
    }
    answer(std::move(expired), false);
    return next;
}

}  // namespace quillon::driver
