#include "host/driver/dispatcher.h"

#include <fmt/format.h>
#include <string.h>

#include <algorithm>
#include <exception>
#include <stdexcept>

namespace quillon::driver {
namespace {

// The caller of a command that nobody knows expects no more than a result, and 0 is most families' failure.
constexpr ReplyShape unknown_refusal = {
    .result = 0, .reply_size = ipc::size_of_type, .data_offset = sizeof(ipc::HeaderWithGap)};

constexpr uint32_t key_of(uint16_t module, uint16_t code)
{
    return uint32_t{module} << 16 | code;
}

// Zero where the envelope is cut short.
ipc::Header header_of(std::span<const std::byte> envelope)
{
    ipc::Header header{};
    memcpy(&header, envelope.data(), std::min(envelope.size(), sizeof header));
    return header;
}

}  // namespace

void Dispatcher::add_command(const Facts &facts, Serve serve)
{
    modules_.insert(facts.module);
    if (!commands_.emplace(key_of(facts.module, facts.code), Entry{facts, std::move(serve)}).second) {
        throw std::logic_error(
            fmt::format("the command of module {} and code {} is registered twice", facts.module, facts.code));
    }
}

size_t Dispatcher::answer(host::Request &request) const
{
    using Form = host::Request::Form;
    if (request.form() == Form::too_short) {
        return refuse(request, unknown_refusal, "cut short");
    }
    const ipc::Header header = header_of(request.bytes());
    if (!modules_.contains(header.cmd)) {
        return refuse(request, unknown_refusal, "unknown module");
    }
    const auto found = header.type <= UINT16_MAX
                           ? commands_.find(key_of(header.cmd, static_cast<uint16_t>(header.type)))
                           : commands_.end();
    if (found == commands_.end()) {
        return refuse(request, unknown_refusal, "unknown code");
    }
    const Entry &entry = found->second;
    if (request.queue() != entry.facts.queue) {
        return refuse(request, entry.facts.refusal, "wrong queue");
    }
    if (request.form() == Form::wrong_size || header.msg_size != entry.facts.msg_size) {
        return refuse(request, entry.facts.refusal, "wrong size");
    }
    if (!entry.serve) {
        return refuse(request, entry.facts.refusal, "not modelled");
    }
    return serve(entry, request);
}

size_t Dispatcher::serve(const Entry &entry, host::Request &request) const
{
    size_t size;
    try {
        size = entry.serve(request);
    } catch (const std::exception &error) {
        return refuse(request, entry.facts.refusal, "handler failed", error.what());
    }
    if (log_.writes(Level::debug)) {
        log_served(entry.facts, request, size);
    }
    return size;
}

void Dispatcher::log_served(const Facts &facts, const host::Request &request, size_t size) const
{
    if (size == 0) {
        log_.write(
            Level::debug, "request-parked",
            {{"queue", facts.queue}, {"module", facts.module}, {"code", facts.code}, {"client", request.client()}});
        return;
    }
    log_.write(Level::debug, "request-answered",
               {{"queue", facts.queue},
                {"module", facts.module},
                {"code", facts.code},
                {"client", request.client()},
                {"result", header_of(request.reply().first(size)).type}});
}

// Answers as far as there is room for an answer.
size_t Dispatcher::refuse(host::Request &request, const ReplyShape &shape, std::string_view reason,
                          std::string_view error) const
{
    const ipc::Header header = header_of(request.bytes());
    // What a request's size says and how much of it came is no more than detail: two sizes are not two events.
    log_.write_limited(error.empty() ? Level::warning : Level::error, "request-refused",
                       {{"reason", reason}, {"queue", request.queue()}, {"module", header.cmd}, {"code", header.type}},
                       {{"msg_size", header.msg_size},
                        {"bytes", static_cast<int64_t>(request.bytes().size())},
                        {"client", request.client()},
                        {"error", error}});
    return write_reply(request.reply(), ReplyHeader(request.bytes()), shape);
}

}  // namespace quillon::driver
