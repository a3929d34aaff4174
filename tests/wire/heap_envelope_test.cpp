// The requests whose envelope is on the heap: memory that runs out, that is freed, and that is not cleared.
#include <gtest/gtest.h>

#include <regex>

#include "quillon/nmtrdrv.h"
#include "support/arguments.h"
#include "support/recording_platform.h"
#include "support/watched_heap.h"

namespace quillon::test {
namespace {

using Memory = WatchedHeap::Memory;

struct HeapRequest {
    std::string function;
    uint8_t (*read_two_ports)(void *records);
    size_t record_size;
    size_t envelope_size;
};

// For GoogleTest's messages.
void PrintTo(const HeapRequest &request, std::ostream *stream)
{
    *stream << request.function;
}

const HeapRequest heap_requests[] = {
    {.function = "DEV_NMTRDRV_PMGR_GetRmonStats",
     .read_two_ports =
         [](void *records) {
             return DEV_NMTRDRV_PMGR_GetRmonStats(0x14131211, 3, 4, static_cast<RmonStats *>(records));
         },
     .record_size = 136,
     .envelope_size = 4108},
    {.function = "DEV_NMTRDRV_PMGR_GetEtherLikeStats",
     .read_two_ports =
         [](void *records) {
             return DEV_NMTRDRV_PMGR_GetEtherLikeStats(0x14131211, 3, 4, static_cast<EtherLikeStats *>(records));
         },
     .record_size = 120,
     .envelope_size = 3628},
    {.function = "DEV_NMTRDRV_PMGR_GetEtherLikePause",
     .read_two_ports =
         [](void *records) {
             return DEV_NMTRDRV_PMGR_GetEtherLikePause(0x14131211, 3, 4, static_cast<EtherLikePause *>(records));
         },
     .record_size = 24,
     .envelope_size = 748},
};

class HeapEnvelopeTest : public testing::TestWithParam<HeapRequest> {
  protected:
    void SetUp() override
    {
        DEV_NMTRDRV_PMGR_InitiateProcessResource();
        reset_platform();
    }

    uint8_t call_with(const PlayedReply &reply, void *records)
    {
        platform().answer = [reply](const SentRequest &) { return reply; };
        testing::internal::CaptureStdout();
        const uint8_t returned = GetParam().read_two_ports(records);
        printed_ = testing::internal::GetCapturedStdout();
        return returned;
    }

    std::string printed_;
};

TEST_P(HeapEnvelopeTest, SaysThatThereIsNoMemoryAndSendsNothing)
{
    Arguments arguments;
    void *records = arguments.kept(2 * GetParam().record_size);
    const WatchedHeap heap(GetParam().envelope_size, Memory::exhausted);

    EXPECT_EQ(call_with({}, records), 0);

    EXPECT_EQ(heap.asked(), 1);
    EXPECT_TRUE(platform().sent.empty());
    EXPECT_EQ(platform().shell_commands, std::vector<std::string>{});
    EXPECT_EQ(arguments.wrong_after_failure(), "");
    const std::regex line("\n" + GetParam().function + R"(\([1-9][0-9]*\): Failed to malloc )" +
                          std::to_string(GetParam().envelope_size) + " bytes");
    EXPECT_TRUE(std::regex_match(printed_, line)) << printed_;
}

TEST_P(HeapEnvelopeTest, FreesItsMemoryHoweverTheExchangeEnds)
{
    std::vector<uint8_t> records(2 * GetParam().record_size);
    const std::vector<TextByte> accepted = bytes_of("01000000");
    const std::vector<TextByte> refused = bytes_of("00000000");
    for (const PlayedReply &reply : {PlayedReply{.from_type = accepted}, PlayedReply{.from_type = refused},
                                     PlayedReply{.status = 7, .from_type = accepted}}) {
        const WatchedHeap heap(GetParam().envelope_size);

        call_with(reply, records.data());

        EXPECT_EQ(heap.asked(), 1);
        EXPECT_EQ(heap.held(), 0);
    }
}

TEST_P(HeapEnvelopeTest, WritesWhatIsReadAndLeavesTheRestAsItWas)
{
    std::vector<uint8_t> records(2 * GetParam().record_size);
    const WatchedHeap heap(GetParam().envelope_size);

    call_with({.from_type = bytes_of("01000000")}, records.data());

    ASSERT_EQ(platform().sent.size(), 1);
    const std::vector<uint8_t> &envelope = platform().sent.front().envelope;
    ASSERT_EQ(envelope.size(), 40);
    const std::vector<uint8_t> garbage(4, heap_garbage);
    EXPECT_EQ(std::vector<uint8_t>(envelope.begin(), envelope.begin() + 8), std::vector<uint8_t>(8, 0));
    EXPECT_EQ(std::vector<uint8_t>(envelope.begin() + 12, envelope.begin() + 16), garbage);
    EXPECT_EQ(std::vector<uint8_t>(envelope.begin() + 20, envelope.begin() + 24), garbage);
}

INSTANTIATE_TEST_SUITE_P(Request, HeapEnvelopeTest, testing::ValuesIn(heap_requests),
                         [](const testing::TestParamInfo<HeapRequest> &request) { return request.param.function; });

}  // namespace
}  // namespace quillon::test
