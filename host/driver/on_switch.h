// Requests that are answered by one expression on the switch.
#pragma once

#include <stdint.h>

#include <concepts>

#include "host/driver/dispatcher.h"
#include "host/driver/model/switch.h"

namespace quillon::driver {

// Answers C with what `act` returns for the switch and for the members that C has, under the switch's lock.
template <class C, class Act>
void on_switch(Dispatcher &dispatcher, SharedSwitch &model, Act act)
{
    dispatcher.on<C>([&model, act](auto &...members) {
        const bool done = act(*model.lock(), members...);
        if constexpr (std::same_as<typename C::Result, uint32_t>) {
            return uint32_t{done};
        } else {
            return done;
        }
    });
}

}  // namespace quillon::driver
