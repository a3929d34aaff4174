// The commands that are sent to the driver process.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <algorithm>
#include <array>
#include <tuple>
#include <vector>

#include "amtrdrv/family.h"
#include "devrm/family.h"
#include "host/platform/packet.h"
#include "nicdrv/family.h"
#include "nmtrdrv/family.h"
#include "quillon/receive.h"
#include "support/request_facts.h"
#include "support/wire_row.h"
#include "swdrv/family.h"
#include "swdrvl3/family.h"
#include "swdrvl4/family.h"

namespace quillon::fuzz {

struct Command {
    uint16_t module;
    uint16_t code;
    uint32_t queue;
    uint16_t msg_size;
    size_t reply_size;
    size_t data_offset;
};

class CommandTable {
  public:
    // All that the library sends, by the wire tests' rows, and what quillon/receive.h does.
    CommandTable()
    {
        for (const test::WireRow &row : test::all_wire_rows()) {
            if (row.code) {
                const test::RequestFacts facts = test::request_facts(row.sent_by);
                commands_.push_back({.module = facts.module,
                                     .code = *row.code,
                                     .queue = facts.queue_key,
                                     .msg_size = row.msg_size,
                                     .reply_size = row.reply_size,
                                     .data_offset = facts.data_offset});
            }
        }
        constexpr size_t packets = offsetof(QuillonReceiveEnvelope, packets);
        commands_.push_back({.module = QUILLON_RECEIVE_MODULE,
                             .code = QUILLON_RECEIVE_CODE,
                             .queue = QUILLON_RECEIVE_QUEUE,
                             .msg_size = packets - host::kEnvelopeStart,
                             .reply_size = sizeof(QuillonReceiveEnvelope) - offsetof(QuillonReceiveEnvelope, gap),
                             .data_offset = offsetof(QuillonReceiveEnvelope, count)});
        std::ranges::sort(commands_, {}, place);
    }

    // That of the family and code, or the one behind it.
    const Command &find(size_t family, uint16_t code) const
    {
        // In this order: the kept inputs name a family by its place.
        constexpr std::array modules = {swdrv::Family::module,   amtrdrv::Family::module, swdrvl4::Family::module,
                                        nmtrdrv::Family::module, devrm::Family::module,   swdrvl3::Family::module,
                                        nicdrv::Family::module};
        const auto found =
            std::ranges::lower_bound(commands_, std::tuple(modules[family % modules.size()], code), {}, place);
        return found == commands_.end() ? commands_.front() : *found;
    }

  private:
    static std::tuple<uint16_t, uint16_t> place(const Command &command) { return {command.module, command.code}; }

    std::vector<Command> commands_;
};

}  // namespace quillon::fuzz
