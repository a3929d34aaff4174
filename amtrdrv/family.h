// The MAC address table's family facts.
#pragma once

#include <stdint.h>

#include "ipc/command.h"

namespace quillon::amtrdrv {

struct Family : ipc::Family<121, 20> {
    static constexpr bool send_line = true;
};

struct MainQueue : ipc::Queue<24> {};

template <uint32_t Code, class Request = ipc::Empty, class Reply = ipc::Empty, class Result = uint8_t>
using Command = ipc::Command<Family, MainQueue, Code, Request, Reply, Result>;

}  // namespace quillon::amtrdrv
