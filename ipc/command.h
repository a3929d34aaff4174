// How the families state their facts and their commands. Both sides of the protocol read them.
#pragma once

#include <stdint.h>

#include <type_traits>

#include "ipc/envelope.h"

namespace quillon::ipc {

// A message queue of the driver process. A family derives a type of its own: it holds a handle of its own.
template <uint32_t Key>
struct Queue {
    static constexpr uint32_t key = Key;
};

// What holds for a family or a command that does not say otherwise.
struct CommandDefaults {
    // The envelope is zeroed before it is filled.
    static constexpr bool cleared = true;
    // The envelope is taken from the heap. Then it is not zeroed, whatever `cleared` says, but for its message type.
    static constexpr bool on_heap = false;
    // What the caller gets when the exchange fails.
    static constexpr uint32_t failure = 0;
    // After a failed exchange the caller gets what then stands in `type`, not `failure`.
    static constexpr bool failure_is_type = false;
    // The failure report names the function; otherwise its name is empty there.
    static constexpr bool named_in_report = true;
    // The failure report has its second line.
    static constexpr bool send_line = false;
};

// The facts of a family: the module id that tells it apart in the driver process and where its members start.
template <uint16_t Module, uint32_t DataOffset>
struct Family : CommandDefaults {
    static constexpr uint16_t module = Module;
    static constexpr uint32_t data_offset = DataOffset;
};

// One request: its code, what it carries and what comes back. `Result` is the part of the reply's `type` that the
// caller gets: its low byte, the whole word, or nothing.
template <class FamilyFacts, class QueueOfCommand, uint32_t Code, class RequestMember = Empty,
          class ReplyMember = Empty, class ResultPart = uint8_t>
struct Command : FamilyFacts {
    using Request = RequestMember;
    using Reply = ReplyMember;
    using Result = ResultPart;
    using Queue = QueueOfCommand;
    static constexpr uint32_t code = Code;
    static constexpr uint32_t msg_size = size_of_type + member_size<Request>;
    static constexpr uint32_t reply_size = size_of_type + member_size<Reply>;

    template <class Member>
    static constexpr bool has_no_hidden_padding =
        std::is_empty_v<Member> || std::has_unique_object_representations_v<Member>;
    static_assert(has_no_hidden_padding<Request> && has_no_hidden_padding<Reply>,
                  "bytes of the stack would leak: name the padding as Unused");
    static_assert(msg_size <= UINT16_MAX && Code <= UINT16_MAX);
};

}  // namespace quillon::ipc
