// What quillon-ctl and the driver process say to each other: one packet each on the run-time folder's control socket.
//
// A request is the words of a command, each ended by a zero byte. An answer is one byte that says how it went, and
// text.
#pragma once

#include <stddef.h>

#include <string>

namespace quillon::control {

enum class Outcome : char { done = '0', refused = '1', bad_usage = '2' };

struct Answer {
    Outcome outcome;
    std::string text;  // to print; one line without its newline unless it was done
};

// A jumbo frame as hexadecimal digits has room.
inline constexpr size_t longest_packet = size_t{64} * 1024;

}  // namespace quillon::control
