// What a request of the packet path does not fill is sent as the stack held it: clearing it takes its time. The fields
// of its outputs it does fill, with zero.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

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
};

void PrintTo(const UnfilledCase &unfilled_case, std::ostream *stream)
{
    *stream << unfilled_case.name;
}

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

const UnfilledCase unfilled_cases[] = {
    {"RxSummary",
     [] {
         NicRxSummary summary;
         DEV_NICDRV_PMGR_RxSummary(&summary);
     },
     24, 60},
    {"MemStatus",
     [] {
         NicMemStatus status;
         DEV_NICDRV_PMGR_MemStatus(&status);
     },
     24, 52},
    {"PriInfo",
     [] {
         static NicPriInfo info;
         DEV_NICDRV_PMGR_PriInfo(&info);
     },
     24, 1512},
    {"RemovePacketGen", [] { DEV_NICDRV_PMGR_RemovePacketGen(0x91, 0x14131211); }, 24, 56},
    {"EnablePacketGen", [] { DEV_NICDRV_PMGR_EnablePacketGen(0x91, 0x92, 0x93, 0x14131211); }, 72, 88},
};

class UnclearedEnvelopeTest : public testing::TestWithParam<UnfilledCase> {};

TEST_P(UnclearedEnvelopeTest, KeepsWhatTheStackHeld)
{
    const std::vector<uint8_t> envelope = sent_from_a_used_stack(GetParam().request);

    ASSERT_GE(envelope.size(), GetParam().to);
    const auto filled_with_zero = std::count(envelope.begin() + static_cast<ptrdiff_t>(GetParam().from),
                                             envelope.begin() + static_cast<ptrdiff_t>(GetParam().to), 0);
    EXPECT_LT(static_cast<size_t>(filled_with_zero), GetParam().to - GetParam().from);
}

INSTANTIATE_TEST_SUITE_P(Request, UnclearedEnvelopeTest, testing::ValuesIn(unfilled_cases),
                         [](const testing::TestParamInfo<UnfilledCase> &row) { return std::string(row.param.name); });

TEST(OutputFieldsTest, AreSentAsZero)
{
    const void *const packet = "";
    static const uint8_t descriptor[74] = {};
    static uint32_t entry;
    static uint64_t rate;

    const std::vector<uint8_t> add = sent_from_a_used_stack([&] {
        platform().ipc_places = {{packet, {}}, {descriptor, {}}};
        DEV_NICDRV_PMGR_AddPacketGenByPort(1, 2, 3, packet, 5, 6, descriptor, 8, &entry);
    });
    EXPECT_EQ(std::count(add.begin() + 60, add.begin() + 64, 0), 4);

    const std::vector<uint8_t> set_rate = sent_from_a_used_stack([] {
        const uint64_t wanted = 2;
        DEV_NICDRV_PMGR_SetPacketGenRate(1, &wanted, &rate);
    });
    EXPECT_EQ(std::count(set_rate.begin() + 80, set_rate.begin() + 88, 0), 8);
}

}  // namespace
}  // namespace quillon::test
