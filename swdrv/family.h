// The switch driver's family facts.
#pragma once

#include <stdint.h>

#include "ipc/command.h"

namespace quillon::swdrv {

using Family = ipc::Family<120, 24>;

struct MainQueue : ipc::Queue<24> {};
// Transactions on the TWSI buses are slow: they wait on a queue of their own.
struct TwsiQueue : ipc::Queue<59> {};

template <uint32_t Code, class Request = ipc::Empty, class Reply = ipc::Empty, class Result = uint8_t>
using Command = ipc::Command<Family, MainQueue, Code, Request, Reply, Result>;

template <uint32_t Code, class Request = ipc::Empty, class Reply = ipc::Empty, class Result = uint8_t>
using TwsiCommand = ipc::Command<Family, TwsiQueue, Code, Request, Reply, Result>;

}  // namespace quillon::swdrv
