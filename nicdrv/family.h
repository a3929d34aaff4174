// The packet driver's family facts.
#pragma once

#include <stdint.h>

#include "ipc/command.h"

namespace quillon::nicdrv {

// Its requests are on the packet path: what they do not fill, they do not clear either.
struct Family : ipc::Family<37, 24> {
    static constexpr bool cleared = false;
};

struct MainQueue : ipc::Queue<25> {};
// Received packets are given back beside the other requests, so that a busy driver gets its buffers back.
struct FreeQueue : ipc::Queue<52> {};

template <uint32_t Code, class Request = ipc::Empty, class Reply = ipc::Empty, class Result = uint8_t>
using Command = ipc::Command<Family, MainQueue, Code, Request, Reply, Result>;

template <uint32_t Code, class Request = ipc::Empty, class Reply = ipc::Empty>
using FreeCommand = ipc::Command<Family, FreeQueue, Code, Request, Reply>;

}  // namespace quillon::nicdrv
