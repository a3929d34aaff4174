// The one door through which every request leaves the library.
#pragma once

#include <stdint.h>
#include <string.h>

#include <algorithm>
#include <cstddef>
#include <new>
#include <type_traits>

#include "ipc/command.h"
#include "ipc/envelope.h"
#include "ipc/failure_report.h"
#include "ipc/queue_handle.h"
#include "quillon/platform.h"

namespace quillon::ipc {

// The exported function that makes the call. As a default argument it names the place of the call.
struct Caller {
    const char *function;
    uint32_t line;

    [[gnu::always_inline]] static constexpr Caller here(const char *function = __builtin_FUNCTION(),
                                                        uint32_t line = __builtin_LINE())
    {
        return {function, line};
    }
};

// For requests of which only the result matters.
struct NoOutput {
    void operator()(const auto & /*reply*/) const {}
};

// The output of a reply that is one value.
template <class T>
auto into(T *destination)
{
    return [destination](const auto &reply) { *destination = reply.value; };
}

// One request and its reply in one buffer on the stack of the caller.
//
// A stub whose arguments fill the member as they are uses `call`. One that copies arrays fills the member in place.
template <class C>
class Exchange {
  public:
    using Request = typename C::Request;
    using Reply = typename C::Reply;
    using Result = typename C::Result;

    [[gnu::always_inline]] Exchange()
    {
        if constexpr (C::cleared) {
            // The header field by field and the rest as far as it travels: so the compiler merges the header's stores
            // and drops from the clearing what the member overwrites.
            Header &header = envelope_.header;
            header = {.msg_type = {}, .cmd = C::module, .msg_size = C::msg_size, .reserved = 0, .type = C::code};
            memset(reinterpret_cast<std::byte *>(&envelope_) + sizeof header, 0, behind_header);
        } else {
            envelope_.header.cmd = C::module;
            envelope_.header.msg_size = C::msg_size;
            envelope_.header.type = C::code;
        }
    }

    [[gnu::always_inline]] Request &request() { return envelope_.data.request; }

    // Sends the request. On success `output` copies what the caller wants out of the reply; it may take the result's
    // low byte as a second argument. Returns the driver process's result, or the failure value after the report.
    template <class Output = NoOutput>
    [[gnu::always_inline]] Result run(Output output = {}, Caller caller = Caller::here())
    {
        const uint32_t status = send(caller);
        if (status == 0) [[likely]] {
            take(output);
            return static_cast<Result>(type());
        }
        report(status, caller);
        return static_cast<Result>(C::failure_is_type ? type() : C::failure);
    }

    // The steps of `run`, for a stub that gives its caller something else than the result.
    [[gnu::always_inline]] uint32_t send(Caller caller)
    {
        return __SYSFUN_SendRequestMsg(queue_handle<typename C::Queue>, &envelope_, wait_for_ever, event_mask,
                                       C::reply_size, &envelope_, caller.function, caller.line);
    }

    [[gnu::always_inline]] void report(uint32_t status, Caller caller) const
    {
        report_failure(queue_handle<typename C::Queue>, C::named_in_report ? caller.function : "", caller.line, status,
                       C::send_line);
    }

    [[gnu::always_inline]] uint32_t type() const { return envelope_.header.type; }

  private:
    static constexpr uint32_t wait_for_ever = 0xFFFFFFFF;
    static constexpr uint32_t event_mask = 0x20000000;
    // As many bytes of the envelope travel besides its header, in one direction or the other.
    static constexpr uint32_t behind_header = std::max(C::msg_size, C::reply_size);

    template <class Output>
    [[gnu::always_inline]] void take(Output &output)
    {
        if constexpr (std::is_empty_v<Reply>) {
            static_assert(std::is_same_v<Output, NoOutput>, "the reply carries nothing but the result");
        } else if constexpr (std::is_invocable_v<Output, const Reply &, uint8_t>) {
            output(envelope_.data.reply, static_cast<uint8_t>(type()));
        } else {
            output(envelope_.data.reply);
        }
    }

    Envelope<Request, Reply, C::data_offset> envelope_;
};

// A request without a member.
template <class C, class Output = NoOutput>
requires std::is_empty_v<typename C::Request>
[[gnu::always_inline]] inline auto call(Output output = {}, Caller caller = Caller::here())
{
    return Exchange<C>().run(output, caller);
}

// A request whose member the caller's arguments fill as they are.
template <class C, class Output = NoOutput>
requires(!std::is_empty_v<typename C::Request>)
    [[gnu::always_inline]] inline auto call(const typename C::Request &request, Output output = {},
                                            Caller caller = Caller::here())
{
    Exchange<C> exchange;
    new (&exchange.request()) typename C::Request(request);
    return exchange.run(output, caller);
}

}  // namespace quillon::ipc
