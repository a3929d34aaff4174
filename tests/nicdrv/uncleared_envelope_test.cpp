// What a request of the packet path does not fill is sent as the stack held it: clearing it takes its time. The fields
// of its outputs it does fill, with zero.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <span>
#include <vector>

#include "quillon/nicdrv.h"
#include "support/recording_platform.h"
#include "support/used_stack.h"

namespace quillon::test {
namespace {

struct UnfilledCase {
    const char *name;
    std::function<void()> request;
    size_t from;
    size_t to;
    bool zero = false;
};

// Sent by the second of two calls: the first one binds its symbols, which needs a stack of its own.
std::vector<uint8_t> sent_from_a_used_stack(const std::function<void()> &request)
{
    DEV_NICDRV_PMGR_InitiateProcessResource();
    reset_platform();
    platform().answer = [](const SentRequest &) { return PlayedReply{.from_type = bytes_of("01000000")}; };
    request();
    leave_garbage_on_the_stack();
    request();
    return platform().sent.at(1).envelope;
}

NicRxSummary summary;
NicMemStatus status;
NicPriInfo info;
uint32_t entry;
uint64_t rate;

void add_packet_generator()
{
    static const uint8_t packet[1] = {};
    static const uint8_t descriptor[74] = {};
    platform().ipc_places = {{packet, {}}, {descriptor, {}}};
    DEV_NICDRV_PMGR_AddPacketGenByPort(1, 2, 3, packet, 5, 6, descriptor, 8, &entry);
}

void set_rate()
{
    const uint64_t wanted = 2;
    DEV_NICDRV_PMGR_SetPacketGenRate(1, &wanted, &rate);
}

const UnfilledCase cases[] = {
    {"RxSummary", [] { DEV_NICDRV_PMGR_RxSummary(&summary); }, 24, 60},
    {"MemStatus", [] { DEV_NICDRV_PMGR_MemStatus(&status); }, 24, 52},
    {"PriInfo", [] { DEV_NICDRV_PMGR_PriInfo(&info); }, 24, 1512},
    {"RemovePacketGen", [] { DEV_NICDRV_PMGR_RemovePacketGen(0x91, 0x14131211); }, 24, 56},
    {"EnablePacketGen", [] { DEV_NICDRV_PMGR_EnablePacketGen(0x91, 0x92, 0x93, 0x14131211); }, 72, 88},
    {"AddPacketGenByPort", add_packet_generator, 60, 64, true},
    {"SetPacketGenRate", set_rate, 80, 88, true},
};

TEST(UnclearedEnvelopeTest, KeepsWhatTheStackHeldButInOutputs)
{
    for (const UnfilledCase &one : cases) {
        const std::vector<uint8_t> envelope = sent_from_a_used_stack(one.request);
        ASSERT_GE(envelope.size(), one.to) << one.name;
        const auto bytes = std::span(envelope).subspan(one.from, one.to - one.from);
        const bool zero = std::ranges::count(bytes, 0) == static_cast<ptrdiff_t>(bytes.size());
        EXPECT_EQ(zero, one.zero) << one.name;
    }
}

}  // namespace
}  // namespace quillon::test
