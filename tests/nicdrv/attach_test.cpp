// What each way to attach asks the platform for, and what becomes of the record.
#include <functional>
#include <string>
#include <vector>

#include "nicdrv/shared_record_fixture.h"

namespace quillon::test {
namespace {

using Calls = std::vector<std::string>;

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

struct AttachTest : SharedRecordTest {};

TEST_F(AttachTest, FindsRecordAndSemaphore)
{
    const Calls all = {"GetRxBufStartAddress", "GetShMem 6", "GetSem 17"};
    const Calls record_only = {"GetShMem 6", "GetSem 17"};
    const Calls buffers_only = {"GetRxBufStartAddress"};
    const std::string no_buffers = ": L_IPCMEM_GetRxBufStartAddress return FALSE\n";
    const struct {
        const char *what;
        std::function<std::optional<uint8_t>()> attach;
        bool receive_buffers;
        Calls asked;
        std::string printed = "";
        std::optional<uint8_t> returned = {};
        bool attached = true;
        bool resets_fragments = false;
    } cases[] = {
        {"bare", init, true, record_only},
        {"bare, without receive buffers", init, false, record_only},
        {"attach", attach, true, all},
        {"attach, without receive buffers",
         attach,
         false,
         buffers_only,
         "\r\nDEV_NICDRV_OM_AttachSystemResources" + no_buffers,
         {},
         false},
        {"start-up", DEV_NICDRV_OM_InitateProcessResource, true, all, "", 1, true, true},
        {"start-up, without receive buffers", DEV_NICDRV_OM_InitateProcessResource, false, buffers_only,
         "\r\nDEV_NICDRV_OM_InitateProcessResource" + no_buffers, 0, false},
    };
    for (const auto &one : cases) {
        SCOPED_TRACE(one.what);
        attach_to_record();
        use_pool(0, 0);
        static RecordBytes other_record;
        other_record = record;
        platform().segments = {{6, other_record.data()}};
        platform().semaphores = {{17, 0x12345678}};
        if (one.receive_buffers) {
            platform().receive_buffers = record.data();
        }
        const RecordBytes before = record;

        testing::internal::CaptureStdout();
        EXPECT_EQ(one.attach(), one.returned);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), one.printed);

        EXPECT_EQ(platform().system_calls, one.asked);
        RecordBytes expected = before;
        if (one.resets_fragments) {
            put_word(expected, fragment_held_at, 0);
        }
        EXPECT_EQ(other_record, expected) << "bytes that are the driver process's are kept";

        // Which record and which semaphore are used from then on.
        DEV_NICDRV_ReserveFragmentBuffer(0);
        const RecordBytes &used = one.attached ? other_record : record;
        const RecordBytes &unused = one.attached ? record : other_record;
        EXPECT_EQ(word_at(used, total_held_at), word_at(before, total_held_at) - 1);
        EXPECT_EQ(word_at(unused, total_held_at), word_at(before, total_held_at));
        EXPECT_EQ(platform().system_calls.back(), one.attached ? "GiveSem 305419896" : "GiveSem 2460202181");
    }
}

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
