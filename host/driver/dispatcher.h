// Brings each request to the handler that was registered for its command.
#pragma once

#include <stddef.h>
#include <stdint.h>
#include <sys/types.h>

#include <array>
#include <concepts>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "host/driver/event_log.h"
#include "host/driver/member_buffer.h"
#include "host/driver/reply.h"
#include "host/platform/queue_server.h"
#include "ipc/command.h"

namespace quillon::driver {

// What a handler of command C answers with: the byte or the word that C's caller gets. True and false stand for the
// bytes 1 and 0.
template <class T, class C>
concept ResultOf = std::same_as<T, typename C::Result> ||
    (std::same_as<T, bool> && !std::same_as<typename C::Result, uint32_t>);

template <class C>
constexpr ReplyShape reply_shape(uint32_t result)
{
    return {.result = result, .reply_size = C::reply_size, .data_offset = C::data_offset};
}

// What a refused caller gets is what it would get from a failed exchange.
template <class C>
inline constexpr ReplyShape refusal = reply_shape<C>(C::failure_is_type ? C::code : C::failure);

// A request whose caller waits for an answer that is given later, from any thread, and once. Dropped without an answer,
// it fails the caller's exchange.
template <class C>
class Parked {
  public:
    using Reply = typename C::Reply;

    Parked(host::PendingReply pending, std::span<const std::byte> request)
        : pending_(std::move(pending)), header_(request)
    {
    }

    // The caller has neither died nor given up.
    bool awaited() const { return pending_.awaited(); }

    // False when nobody waits any more.
    template <ResultOf<C> T>
    bool answer(T result, const Reply &reply = {})
    {
        const auto member = std::as_bytes(std::span(&reply, 1)).first(ipc::member_size<Reply>);
        return send(reply_shape<C>(result), member);
    }

    bool refuse() { return send(refusal<C>, {}); }

  private:
    bool send(const ReplyShape &shape, std::span<const std::byte> member)
    {
        std::array<std::byte, sizeof(ipc::Header) + C::reply_size> envelope;
        write_reply(envelope, header_, shape, member);
        return pending_.answer(envelope);
    }

    host::PendingReply pending_;
    ReplyHeader header_;
};

// The call that a request belongs to, for handlers that need more than what it carries.
template <class C>
class Call {
  public:
    explicit Call(host::Request &request) : request_(request) {}

    pid_t client() const { return request_.client(); }

    // The handler answers later. `client_gone` is called on the queue's thread, after the handler has returned, when
    // the caller died or gave up before it was answered. Once a request.
    Parked<C> park(std::function<void()> client_gone = {})
    {
        return {request_.answer_later(std::move(client_gone)), request_.bytes()};
    }

  private:
    host::Request &request_;
};

// Handlers are registered before the queues are served. From then on the dispatcher does not change, and all queues'
// threads use it at once.
class Dispatcher {
  public:
    explicit Dispatcher(EventLog &log) : log_(log) {}

    // For handlers that have something to tell.
    EventLog &log() const { return log_; }

    // Registers what answers command C. The handler takes the request and the reply, as far as C has them, and returns
    // the result:
    //
    //     dispatcher.on<swdrv::Physical2LogicalPort>(
    //         [&](const swdrv::PhysicalPort &request, swdrv::Port &reply) -> bool { ... });
    //
    // It is called on the thread of C's queue, and only for requests that came on that queue and have C's size. The
    // reply is zero at first, and it is sent whatever the result: a command that works on its request in place begins
    // with `reply = request`. When the handler throws, that is logged and the request is refused.
    template <class C, class Handler>
    void on(Handler handler)
    {
        add<C>([handler = std::move(handler)](const auto &request, auto &reply, Call<C> & /*call*/) {
            return std::optional(invoke<C>(handler, request, reply));
        });
    }

    // Registers a handler that may answer later: it takes a Call<C> & after the others and returns its result as a
    // std::optional, which is empty when it has parked the call.
    template <class C, class Handler>
    void on_parkable(Handler handler)
    {
        add<C>([handler = std::move(handler)](const auto &request, auto &reply, Call<C> &call) {
            return invoke<C>(handler, request, reply, call);
        });
    }

    // Registers commands that are known, and refused because nothing stands behind them yet.
    template <class... C>
    void not_modelled()
    {
        (add_command(facts_of<C>, {}), ...);
    }

    // Answers a request of any queue: what the queues have as their host::Handler.
    size_t answer(host::Request &request) const;

  private:
    struct Facts {
        uint16_t module;
        uint16_t code;
        uint32_t queue;
        size_t msg_size;
        ReplyShape refusal;
    };

    // Returns the size of the reply, 0 for a request that is answered later.
    using Serve = std::function<size_t(host::Request &)>;

    struct Entry {
        Facts facts;
        Serve serve;  // none for a command that is not modelled
    };

    template <class C>
    static constexpr Facts facts_of = {.module = C::module,
                                       .code = C::code,
                                       .queue = C::Queue::key,
                                       .msg_size = C::msg_size,
                                       .refusal = driver::refusal<C>};

    // Leaves out the members that C does not have.
    template <class C, class Handler, class... Rest>
    static auto invoke(const Handler &handler, const typename C::Request &request, typename C::Reply &reply,
                       Rest &...rest)
    {
        if constexpr (std::is_empty_v<typename C::Request> && std::is_empty_v<typename C::Reply>) {
            return handler(rest...);
        } else if constexpr (std::is_empty_v<typename C::Request>) {
            return handler(reply, rest...);
        } else if constexpr (std::is_empty_v<typename C::Reply>) {
            return handler(request, rest...);
        } else {
            return handler(request, reply, rest...);
        }
    }

    template <class C, class Handler>
    void add(Handler handler)
    {
        add_command(facts_of<C>, [handler = std::move(handler)](host::Request &request) -> size_t {
            MemberBuffer<typename C::Request> sent(request.bytes().subspan(C::data_offset));
            MemberBuffer<typename C::Reply> reply;
            Call<C> call(request);
            const auto result = handler(std::as_const(sent.member()), reply.member(), call);
            static_assert(ResultOf<typename std::remove_cvref_t<decltype(result)>::value_type, C>,
                          "not what the command's caller gets");
            if (!result) {
                return 0;
            }
            return write_reply(request.reply(), ReplyHeader(request.bytes()), reply_shape<C>(*result), reply.data());
        });
    }

    void add_command(const Facts &facts, Serve serve);
    size_t serve(const Entry &entry, host::Request &request) const;
    void log_served(const Facts &facts, const host::Request &request, size_t size) const;
    size_t refuse(host::Request &request, const ReplyShape &shape, std::string_view reason,
                  std::string_view error = {}) const;

    EventLog &log_;
    std::unordered_map<uint32_t, Entry> commands_;  // by key_of(module, code)
    std::unordered_set<uint16_t> modules_;
};

}  // namespace quillon::driver
