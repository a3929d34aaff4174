// The routing family's facts.
#pragma once

#include <stdint.h>

#include "ipc/command.h"

namespace quillon::swdrvl3 {

struct Family : ipc::Family<128, 24> {
    static constexpr bool send_line = true;
};

struct MainQueue : ipc::Queue<24> {};

template <uint32_t Code, class Request = ipc::Empty, class Reply = ipc::Empty, class Result = uint8_t>
using Command = ipc::Command<Family, MainQueue, Code, Request, Reply, Result>;

// A request that is answered with a status code.
template <uint32_t Code, class Request = ipc::Empty, class Reply = ipc::Empty, class Result = uint32_t>
struct StatusCommand : Command<Code, Request, Reply, Result> {
    static constexpr uint32_t failure = 7;
};

// An IP multicast request: its caller gets whatever stands in `type`, also when the exchange failed. The reply is as
// long as the request; nothing but its `type` is looked at.
template <uint32_t Code, class Request = ipc::Empty, class Reply = Request>
struct MulticastCommand : Command<Code, Request, Reply, uint32_t> {
    static constexpr bool failure_is_type = true;
};

}  // namespace quillon::swdrvl3
