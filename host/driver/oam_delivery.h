// The way of OAM events to the callers that wait for them.
#pragma once

#include <stddef.h>

#include <map>
#include <optional>
#include <vector>

#include "host/driver/alarm.h"
#include "host/driver/dispatcher.h"
#include "host/driver/model/guarded.h"
#include "host/driver/model/oam_events.h"
#include "swdrv/commands.h"

namespace quillon::driver {

// May be used from any thread.
class OamDelivery {
  public:
    using WaitCall = Call<swdrv::WaitAndReceiveOam>;

    OamDelivery();
    OamDelivery(const OamDelivery &) = delete;
    OamDelivery &operator=(const OamDelivery &) = delete;

    // As OamBindings has them.
    std::optional<OamBindings::Handle> bind(const OamSubscription &subscription);
    bool unbind(const OamSubscription &subscription);

    // Nothing when the call is parked. It is answered with true by an event, and with false when its time is over or
    // the binding is taken back.
    std::optional<bool> wait(WaitCall &call, OamBindings::Handle handle, const OamWait &wait);

    // Returns how many bindings the event is for.
    size_t raise(OamEvent event);

  private:
    struct ParkedWait {
        OamBindings::Handle binding;
        Parked<swdrv::WaitAndReceiveOam> call;
    };

    struct Waits {
        Waits();

        std::vector<ParkedWait> take(const std::vector<OamBindings::WaitId> &ids);

        OamBindings bindings;
        OamBindings::WaitId last_id = 0;
        std::map<OamBindings::WaitId, ParkedWait> parked;
    };

    void deliver(OamEvent event, std::vector<ParkedWait> ended);
    void cancel(OamBindings::WaitId id);
    std::optional<Alarm::Clock::time_point> expire();

    Guarded<Waits> waits_;
    Alarm alarm_;
};

}  // namespace quillon::driver
