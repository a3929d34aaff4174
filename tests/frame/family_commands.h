// A command of each kind that the families have, with the same members everywhere.
#pragma once

#include <cstdint>

#include "amtrdrv/family.h"
#include "devrm/family.h"
#include "ipc/exchange.h"
#include "nicdrv/family.h"
#include "nmtrdrv/family.h"
#include "swdrv/family.h"
#include "swdrvl3/family.h"
#include "swdrvl4/family.h"

namespace quillon::test {

struct RequestMember {
    uint32_t word;
    uint16_t half;
    uint16_t other_half;
};

struct ReplyMember {
    uint32_t value;
};

inline constexpr uint32_t some_code = 0x1234;

using SwitchCommand = swdrv::Command<some_code, RequestMember, ReplyMember>;
using TwsiCommand = swdrv::TwsiCommand<some_code, RequestMember, ReplyMember>;
using AddressCommand = amtrdrv::Command<some_code, RequestMember, ReplyMember>;
using PacketCommand = nicdrv::Command<some_code, RequestMember, ReplyMember>;
using PacketFreeCommand = nicdrv::FreeCommand<some_code, RequestMember, ReplyMember>;
using QosCommand = swdrvl4::Command<some_code, RequestMember, ReplyMember>;
using QosCommandWithSendLine = swdrvl4::CommandWithSendLine<some_code, RequestMember>;
using RoutingCommand = swdrvl3::Command<some_code, RequestMember, ReplyMember>;
using RoutingStatusCommand = swdrvl3::StatusCommand<some_code, RequestMember, ReplyMember>;
using RoutingByteStatusCommand = swdrvl3::StatusCommand<some_code, RequestMember, ReplyMember, uint8_t>;
using MulticastCommand = swdrvl3::MulticastCommand<some_code, RequestMember, ReplyMember>;
using CounterCommand = nmtrdrv::Command<some_code, RequestMember, ReplyMember>;
using RuleCommand = devrm::Command<some_code, RequestMember, ReplyMember>;
using RuleWordCommand = devrm::Command<some_code, RequestMember, ReplyMember, uint32_t>;
using AddressCommandWithoutResult = amtrdrv::Command<some_code, RequestMember, ReplyMember, void>;

inline constexpr ipc::Caller some_caller = {"an_exported_function", 77};

// Makes the request of command C, whose queue is attached first, and returns what a stub would.
template <class C>
auto request_of()
{
    ipc::attach<typename C::Queue>();
    return ipc::call<C>({.word = 0x14131211, .half = 0x2221, .other_half = 0x3231}, ipc::NoOutput(), some_caller);
}

}  // namespace quillon::test
