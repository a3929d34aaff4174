// The rule manager's family facts.
#pragma once

#include <stdint.h>

#include "ipc/command.h"

namespace quillon::devrm {

// The family reports its failures without a name, here and at start-up; callers know the lines so.
struct Family : ipc::Family<127, 24> {
    static constexpr bool named_in_report = false;
    static constexpr bool send_line = true;
};

struct MainQueue : ipc::Queue<24> {};

// Every member of the family, request or reply, ends with a word that is counted and that nobody fills.
using Trailer = ipc::UnusedWord;

template <uint32_t Code, class Request = Trailer, class Reply = Trailer, class Result = uint8_t>
using Command = ipc::Command<Family, MainQueue, Code, Request, Reply, Result>;

}  // namespace quillon::devrm
