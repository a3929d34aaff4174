// The QoS family's facts.
#pragma once

#include <stdint.h>

#include "ipc/command.h"

namespace quillon::swdrvl4 {

using Family = ipc::Family<122, 20>;

struct MainQueue : ipc::Queue<24> {};

template <uint32_t Code, class Request = ipc::Empty, class Reply = ipc::Empty, class Result = uint8_t>
using Command = ipc::Command<Family, MainQueue, Code, Request, Reply, Result>;

// A request whose failure report has its second line, unlike the family's others.
template <uint32_t Code, class Request>
struct CommandWithSendLine : Command<Code, Request> {
    static constexpr bool send_line = true;
};

}  // namespace quillon::swdrvl4
