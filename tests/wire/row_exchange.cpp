#include "wire/row_exchange.h"

#include <stdexcept>

#include "quillon/amtrdrv.h"
#include "quillon/devrm.h"
#include "quillon/nicdrv.h"
#include "quillon/nmtrdrv.h"
#include "quillon/swdrv.h"
#include "quillon/swdrvl3.h"
#include "quillon/swdrvl4.h"
#include "support/recording_platform.h"

namespace quillon::test {
namespace {

struct Family {
    std::string_view prefix;
    void (*start_up)();
};

constexpr Family families[] = {
    {"DEV_SWDRV_", DEV_SWDRV_PMGR_InitiateProcessResource},
    {"DEV_AMTRDRV_", DEV_AMTRDRV_PMGR_InitiateProcessResource},
    {"DEV_NICDRV_", [] { DEV_NICDRV_PMGR_InitiateProcessResource(); }},
    {"DEV_SWDRVL4_", DEV_SWDRVL4_PMGR_InitiateProcessResource},
    {"DEV_SWDRVL3_", DEV_SWDRVL3_PMGR_InitiateProcessResource},
    {"DEV_NMTRDRV_", DEV_NMTRDRV_PMGR_InitiateProcessResource},
    {"DEVRM_", DEVRM_PMGR_InitiateProcessResource},
};

void append_word(uint64_t value, int bytes, std::vector<TextByte> &to)
{
    for (int byte = 0; byte < bytes; ++byte) {
        to.emplace_back(static_cast<uint8_t>(value >> 8 * byte));
    }
}

void append_member(const std::string &text, size_t offset, TextByte skipped, size_t end, std::vector<TextByte> &to)
{
    const std::vector<TextByte> member = bytes_of(text, offset, skipped);
    if (offset + member.size() > end) {
        throw std::invalid_argument("the row's bytes end at +" + std::to_string(offset + member.size()) +
                                    ", its member at +" + std::to_string(end));
    }
    to.insert(to.end(), member.begin(), member.end());
}

}  // namespace

std::vector<TextByte> sent_envelope(const WireRow &row, const RequestFacts &facts)
{
    const TextByte unfilled = facts.clearing == Clearing::all ? TextByte(uint8_t{0}) : std::nullopt;
    const TextByte msg_type = facts.clearing == Clearing::none ? std::nullopt : TextByte(uint8_t{0});

    std::vector<TextByte> envelope(8, msg_type);
    append_word(facts.module, 2, envelope);
    append_word(row.msg_size, 2, envelope);
    envelope.resize(16, unfilled);
    append_word(row.code.value(), 4, envelope);
    if (row.msg_size > 4) {
        envelope.resize(facts.data_offset, unfilled);
        append_member(row.request, facts.data_offset, unfilled, facts.data_offset + row.msg_size - 4, envelope);
    }
    envelope.resize(20U + row.msg_size, unfilled);
    return envelope;
}

std::vector<TextByte> reply_from_type(const WireRow &row, const RequestFacts &facts)
{
    std::vector<TextByte> reply;
    append_word(row.reply_type, 4, reply);
    if (!row.reply.empty()) {
        reply.resize(facts.data_offset - 16, std::nullopt);
        append_member(row.reply, facts.data_offset, std::nullopt, 20U + row.reply_size, reply);
    }
    return reply;
}

void *start_family_of(std::string_view function, uint32_t queue_key)
{
    platform().attaches.clear();
    for (const Family &family : families) {
        if (function.starts_with(family.prefix)) {
            family.start_up();
        }
    }
    for (const Attach &attach : platform().attaches) {
        if (attach.key == queue_key) {
            return attach.handle;
        }
    }
    throw std::logic_error("the start-up of the family of " + std::string(function) + " leaves out its queue");
}

}  // namespace quillon::test
