// The counters' family facts.
#pragma once

#include <stdint.h>

#include "ipc/command.h"

namespace quillon::nmtrdrv {

struct Family : ipc::Family<126, 24> {
    static constexpr bool send_line = true;
};

struct MainQueue : ipc::Queue<24> {};

template <uint32_t Code, class Request = ipc::Empty, class Reply = ipc::Empty, class Result = uint8_t>
using Command = ipc::Command<Family, MainQueue, Code, Request, Reply, Result>;

// A request whose envelope the caller's stack is spared.
template <uint32_t Code, class Request, class Reply>
struct HeapCommand : Command<Code, Request, Reply> {
    static constexpr bool on_heap = true;
};

}  // namespace quillon::nmtrdrv
