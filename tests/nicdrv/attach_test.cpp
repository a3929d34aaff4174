// What each way to attach asks the platform for, and what becomes of the record.
#include <functional>
#include <string>
#include <vector>

#include "nicdrv/shared_record_fixture.h"

namespace quillon::test {
namespace {

using Calls = std::vector<std::string>;

struct AttachCase {
    const char *name;
    std::function<std::optional<uint8_t>()> attach;
    bool receive_buffers;
    Calls asked;
    const char *printed = "";
    std::optional<uint8_t> returned = {};
    bool attached = true;
    bool resets_fragments = false;
};

void PrintTo(const AttachCase &attach_case, std::ostream *stream)
{
    *stream << attach_case.name;
}

std::optional<uint8_t> init()
{
    DEV_NICDRV_OM_InitSystemResources();
    return std::nullopt;
}

std::optional<uint8_t> attach()
{
    DEV_NICDRV_OM_AttachSystemResources();
    return std::nullopt;
}

std::optional<uint8_t> initate()
{
    return DEV_NICDRV_OM_InitateProcessResource();
}

const AttachCase attach_cases[] = {
    {.name = "bare", .attach = init, .receive_buffers = true, .asked = {"GetShMem 6", "GetSem 17"}},
    {.name = "bare_without_receive_buffers",
     .attach = init,
     .receive_buffers = false,
     .asked = {"GetShMem 6", "GetSem 17"}},
    {.name = "attach",
     .attach = attach,
     .receive_buffers = true,
     .asked = {"GetRxBufStartAddress", "GetShMem 6", "GetSem 17"}},
    {.name = "attach_without_receive_buffers",
     .attach = attach,
     .receive_buffers = false,
     .asked = {"GetRxBufStartAddress"},
     .printed = "\r\nDEV_NICDRV_OM_AttachSystemResources: L_IPCMEM_GetRxBufStartAddress return FALSE\n",
     .attached = false},
    {.name = "start_up",
     .attach = initate,
     .receive_buffers = true,
     .asked = {"GetRxBufStartAddress", "GetShMem 6", "GetSem 17"},
     .returned = 1,
     .resets_fragments = true},
    {.name = "start_up_without_receive_buffers",
     .attach = initate,
     .receive_buffers = false,
     .asked = {"GetRxBufStartAddress"},
     .printed = "\r\nDEV_NICDRV_OM_InitateProcessResource: L_IPCMEM_GetRxBufStartAddress return FALSE\n",
     .returned = 0,
     .attached = false},
};

class AttachTest : public SharedRecordTest, public testing::WithParamInterface<AttachCase> {};

TEST_P(AttachTest, FindsRecordAndSemaphore)
{
    use_pool(0, 0);
    static RecordBytes other_record;
    other_record = record;
    platform().segments = {{6, other_record.data()}};
    platform().semaphores = {{17, 0x12345678}};
    if (GetParam().receive_buffers) {
        platform().receive_buffers = record.data();
    }
    const RecordBytes before = record;

    testing::internal::CaptureStdout();
    EXPECT_EQ(GetParam().attach(), GetParam().returned);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), GetParam().printed);

    EXPECT_EQ(platform().system_calls, GetParam().asked);
    RecordBytes expected = before;
    if (GetParam().resets_fragments) {
        put_word(expected, fragment_held_at, 0);
    }
    EXPECT_EQ(other_record, expected) << "bytes that are the driver process's are kept";

    // Which record and which semaphore are used from then on.
    platform().system_calls.clear();
    DEV_NICDRV_ReserveFragmentBuffer(0);
    EXPECT_EQ(word_at(other_record, total_held_at), word_at(before, total_held_at) - (GetParam().attached ? 1 : 0));
    EXPECT_EQ(word_at(record, total_held_at), word_at(before, total_held_at) - (GetParam().attached ? 0 : 1));
    EXPECT_EQ(platform().system_calls.back(), GetParam().attached ? "GiveSem 305419896" : "GiveSem 2460202181");
}

INSTANTIATE_TEST_SUITE_P(Way, AttachTest, testing::ValuesIn(attach_cases),
                         [](const testing::TestParamInfo<AttachCase> &row) { return std::string(row.param.name); });

TEST(SharedRecordInfo, IsKnownWithoutAttaching)
{
    reset_platform();
    uint32_t segment_id = 0xB7B7B7B7;
    uint32_t size = 0xB7B7B7B7;

    DEV_NICDRV_OM_GetShMemInfo(&segment_id, &size);

    EXPECT_EQ(segment_id, 6);
    EXPECT_EQ(size, 496);
    EXPECT_TRUE(platform().system_calls.empty());
}

}  // namespace
}  // namespace quillon::test
