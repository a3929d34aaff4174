// The library under replies of any content and length, and failures of any status. An input is a call of the wire tests
// and the reply to its request.
#include <gtest/gtest.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/input.h"
#include "quillon/amtrdrv.h"
#include "support/arguments.h"
#include "support/recording_platform.h"
#include "wire/row_exchange.h"

namespace quillon::fuzz {
namespace {

using test::Failure;
using test::PlayedReply;
using test::SentRequest;
using test::TextByte;
using test::WireRow;

// In an order that does not depend on how the program is linked.
std::vector<const WireRow *> calls_that_send()
{
    std::vector<const WireRow *> calls;
    for (const WireRow &row : test::all_wire_rows()) {
        if (row.code) {
            calls.push_back(&row);
        }
    }
    std::ranges::sort(calls, {}, [](const WireRow *row) { return test_name(*row); });
    return calls;
}

// The library copies as many entries as a batch says it has, which the protocol leaves to the driver process to keep
// within a batch.
void keep_batch_limit(const WireRow &row, std::vector<TextByte> &from_type)
{
    constexpr size_t count_at = 2420 - 16;
    constexpr uint8_t most_entries = QUILLON_ADDR_TBL_BATCH_ENTRIES;
    if (row.function == "DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry") {
        from_type.resize(count_at + sizeof(uint32_t), uint8_t{0});
        const uint8_t count = from_type[count_at].value() % (most_entries + 1);
        from_type[count_at] = count;
        std::fill(from_type.begin() + count_at + 1, from_type.end(), uint8_t{0});
    }
}

// What the platform says; half of all inputs let the exchange succeed.
uint32_t status_of(uint8_t byte)
{
    return byte < 0x80 ? 0 : byte;
}

void require(const WireRow &row, const std::string &wrong)
{
    if (!wrong.empty()) {
        fprintf(stderr, "%s: %s\n", test_name(row).c_str(), wrong.c_str());
        abort();
    }
}

void play(const WireRow &row, Input &input)
{
    test::reset_platform();
    const uint32_t status = status_of(input.next());
    const bool poisoned = input.next() % 2 != 0;
    test::platform().answer = [&](const SentRequest &sent) {
        const auto bytes = input.take(sizeof(uint32_t) + sent.reply_size);
        PlayedReply reply{.status = status, .poisoned = poisoned, .from_type = {bytes.begin(), bytes.end()}};
        keep_batch_limit(row, reply.from_type);
        return reply;
    };

    test::Arguments arguments;
    row.call(arguments);

    // What is written beside the outputs of a success, the address sanitizer sees.
    if (status != 0 && test::request_facts(row.sent_by).failure != Failure::status) {
        require(row, arguments.wrong_after_failure());
    }
    require(row, test::platform().sent.size() == 1 ? "" : "it was not sent once");
}

}  // namespace
}  // namespace quillon::fuzz

extern "C" [[gnu::visibility("default")]] int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    using namespace quillon;
    GTEST_FLAG_SET(break_on_failure, true);  // what the platform finds wrong
    for (const auto *row : fuzz::calls_that_send()) {
        test::start_family_of(row->sent_by, test::request_facts(row->sent_by).queue_key);
    }
    // The failure reports.
    return freopen("/dev/null", "w", stdout) == nullptr ? 1 : 0;
}

extern "C" [[gnu::visibility("default")]] int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace quillon::fuzz;
    static const auto calls = calls_that_send();
    Input input(std::span(data, size));
    play(*calls[input.next<uint16_t>() % calls.size()], input);
    return 0;
}
