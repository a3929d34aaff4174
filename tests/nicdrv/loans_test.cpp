// Every counter of the shared record for each way that a received buffer can go back, and when it does.
#include <string>
#include <vector>

#include "nicdrv/shared_record_fixture.h"

namespace quillon::test {
namespace {

const std::string take = "TakeSem 2460202181 4294967295";
const std::string give = "GiveSem 2460202181";
const std::string wake = "SendEvent 2375854010 8";

// Changes of the record's words, by their offsets.
using Changes = std::map<size_t, uint32_t>;

constexpr uint32_t minus_1 = 0xFFFFFFFF;

class LoansTest : public SharedRecordTest {
  protected:
    LoansTest()
    {
        freed.clear();
        free_result = 1;
        platform().before_system_call = [this] { seen.push_back(record); };
    }
    ~LoansTest() override { DEV_NICDRV_OM_SetFreeFunc(DEV_NICDRV_PMGR_FreeRxPacket); }

    static uint8_t recorded_free(void *buffer)
    {
        // Recorded like the platform's calls, so that the order shows.
        platform().before_system_call();
        platform().system_calls.emplace_back("free");
        freed.push_back(buffer);
        return free_result;
    }

    // What is not as it was before, but for these changes; empty when all is as expected.
    static std::string differences_from(const RecordBytes &before, const RecordBytes &after, const Changes &changes)
    {
        RecordBytes expected = before;
        for (const auto &[offset, change] : changes) {
            put_word(expected, offset, word_at(before, offset) + change);
        }
        return differences(std::vector<TextByte>(expected.begin(), expected.end()), after);
    }

    // The record when the n-th recorded call was made.
    const RecordBytes &at_call(size_t number) const { return seen.at(number); }

    uint8_t mem_free(uint32_t cookie)
    {
        void *const not_read = reinterpret_cast<void *>(0x71);
        testing::internal::CaptureStdout();
        const uint8_t result = DEV_NICDRV_MREF_MemFree(not_read, cookie, buffer);
        printed = testing::internal::GetCapturedStdout();
        return result;
    }

    void *const buffer = reinterpret_cast<void *>(0x9897969594939291);
    std::vector<RecordBytes> seen;
    std::string printed;

    static inline std::vector<void *> freed;
    static inline uint8_t free_result = 1;
};

// Before any test replaces it: each runs in a process of its own, and this one first where they share it.
TEST_F(LoansTest, AreGivenBackByRequestAtFirstWithTheSemaphoreHeld)
{
    std::string asked_before_request;
    DEV_NICDRV_PMGR_InitiateProcessResource();
    use_pool(0, 0);
    record[pool_stopped_at] = 0;
    platform().answer = [&](const SentRequest &) {
        for (const std::string &call : platform().system_calls) {
            asked_before_request += call + ";";
        }
        return PlayedReply{.from_type = bytes_of("01000000")};
    };

    EXPECT_EQ(mem_free(0), 1);

    ASSERT_EQ(platform().sent.size(), 1);
    EXPECT_EQ(platform().sent[0].function, "DEV_NICDRV_PMGR_FreeRxPacket");
    EXPECT_EQ(platform().sent[0].queue_key, 52);
    EXPECT_EQ(differences(bytes_of("--*8 25000C00 --*4 0D000000 --*4 9192939495969798"), platform().sent[0].envelope),
              "");
    EXPECT_EQ(asked_before_request, take + ";");
}

TEST_F(LoansTest, CountAFreeWhoseExchangeFailedAsFailed)
{
    DEV_NICDRV_PMGR_InitiateProcessResource();
    platform().answer = [](const SentRequest &) { return PlayedReply{.status = 2}; };
    const RecordBytes before = record;

    EXPECT_EQ(mem_free(0), 0);

    EXPECT_EQ(differences_from(before, record, {{free_fail_count_at, 1}}), "");
    EXPECT_NE(printed.find("(msgq_key=52, rc=2)"), std::string::npos);
}

struct Cookie {
    uint32_t cookie;
    uint16_t pool;
    Changes changes;
};

// No cookie draws from the pool of its own number, and no two from the same. Typed from the record's table.
const Cookie pool_cookies[] = {
    {0, 3, {{200, 1}, {248, minus_1}, {56, minus_1}, {176, minus_1}, {96, minus_1}}},
    {1, 9, {{200, 1}, {272, minus_1}, {80, minus_1}, {176, minus_1}, {120, minus_1}}},
    {2, 0, {{200, 1}, {296, minus_1}, {44, minus_1}, {176, minus_1}, {84, minus_1}}},
    {3, 1, {{200, 1}, {320, minus_1}, {48, minus_1}, {176, minus_1}, {88, minus_1}}},
    {4, 8, {{200, 1}, {344, minus_1}, {76, minus_1}, {176, minus_1}, {116, minus_1}}},
    {5, 2, {{200, 1}, {368, minus_1}, {52, minus_1}, {176, minus_1}, {92, minus_1}}},
    {6, 7, {{200, 1}, {392, minus_1}, {72, minus_1}, {176, minus_1}, {112, minus_1}}},
    {7, 6, {{200, 1}, {416, minus_1}, {68, minus_1}, {176, minus_1}, {108, minus_1}}},
    {8, 5, {{200, 1}, {440, minus_1}, {64, minus_1}, {176, minus_1}, {104, minus_1}}},
    {9, 4, {{200, 1}, {464, minus_1}, {60, minus_1}, {176, minus_1}, {100, minus_1}}},
};

TEST_F(LoansTest, ComeOffTheCountsOfTheirCookieAndItsPool)
{
    DEV_NICDRV_OM_SetFreeFunc(recorded_free);
    for (const Cookie &row : pool_cookies) {
        use_pool(row.cookie, row.pool);
        record[pool_stopped_at + row.pool] = 0;
    }
    // The first one finds all counts at their ends, where they wrap around like the driver process's.
    for (const auto &[offset, change] : pool_cookies[0].changes) {
        put_word(record, offset, change == minus_1 ? 0 : minus_1);
    }
    for (const Cookie &row : pool_cookies) {
        const RecordBytes before = record;
        platform().system_calls.clear();
        seen.clear();

        EXPECT_EQ(mem_free(row.cookie), 1);

        EXPECT_EQ(differences_from(before, record, row.changes), "") << "cookie " << row.cookie;
        EXPECT_EQ(platform().system_calls, (std::vector{take, std::string("free"), give, take, give}));
        // The first critical section counts the free, the second one the loan, and nothing changes outside of them.
        EXPECT_EQ(differences_from(before, at_call(1), {}), "") << "before the free function was called";
        EXPECT_EQ(differences_from(before, at_call(2), {{free_ok_count_at, 1}}), "") << "in the first section";
        EXPECT_EQ(differences_from(at_call(2), at_call(3), {}), "") << "between the sections";
        EXPECT_EQ(differences_from(at_call(4), record, {}), "") << "behind the second section";
        EXPECT_EQ(printed, "");
    }
    EXPECT_EQ(freed, std::vector(10, buffer));
}

TEST_F(LoansTest, WithoutAPoolComeOffTheirOwnCount)
{
    DEV_NICDRV_OM_SetFreeFunc(recorded_free);
    const RecordBytes before = record;

    EXPECT_EQ(mem_free(10), 1);

    EXPECT_EQ(differences_from(before, record, {{200, 1}, {488, minus_1}}), "");
    EXPECT_EQ(platform().system_calls, (std::vector{take, std::string("free"), give, take, give}));
    EXPECT_EQ(differences_from(at_call(3), at_call(2), {}), "") << "between the sections";
    EXPECT_EQ(differences_from(at_call(4), record, {}), "") << "behind the second section";
    EXPECT_EQ(printed, "");
}

TEST_F(LoansTest, OfAnUnknownCookieAreFreedAndStayCounted)
{
    DEV_NICDRV_OM_SetFreeFunc(recorded_free);
    for (const uint32_t cookie : {11U, 12U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU, 0x10000U, 0x100U}) {
        const RecordBytes before = record;
        platform().system_calls.clear();

        EXPECT_EQ(mem_free(cookie), 1) << cookie;

        EXPECT_EQ(differences_from(before, record, {{200, 1}}), "") << cookie;
        EXPECT_EQ(platform().system_calls, (std::vector{take, std::string("free"), give}));
        EXPECT_EQ(printed, "DEV_NICDRV_MREF_MemFree: cookie value is invalid !!\n");
    }
}

TEST_F(LoansTest, ThatCannotBeFreedStayCountedWhateverTheirCookie)
{
    DEV_NICDRV_OM_SetFreeFunc(recorded_free);
    for (const uint8_t result : std::initializer_list<uint8_t>{0, 2, 0x81, 0xFF}) {
        for (const uint32_t cookie : {0U, 9U, 10U, 11U}) {
            free_result = result;
            const RecordBytes before = record;
            platform().system_calls.clear();

            EXPECT_EQ(mem_free(cookie), 0);

            EXPECT_EQ(differences_from(before, record, {{204, 1}}), "") << cookie;
            EXPECT_EQ(platform().system_calls, (std::vector{take, std::string("free"), give}));
            EXPECT_EQ(printed, "");
        }
    }
}

TEST_F(LoansTest, WakeTheReceiveTaskOnceAndWithoutTheSemaphore)
{
    constexpr uint32_t cookie = 2;
    constexpr uint16_t pool = 5;
    constexpr uint32_t not_sent = 0x100;
    const struct {
        const char *what;
        uint8_t stopped;
        uint32_t held_before;
        uint32_t resume_level;
        bool wakes;
    } cases[] = {
        {"falls below the level", 1, 100, 100, true},     {"falls to the level", 1, 101, 100, false},
        {"is below already", 1, 99, 100, true},           {"falls to nothing", 1, 1, 1, true},
        {"never falls below level 0", 1, 1, 0, false},    {"is not stopped", 0, 100, 100, false},
        {"any value stops", 0x80, 100, 100, true},        {"levels have no sign", 1, 0x80000000, 0x80000000, true},
        {"counts have no sign", 1, 0, 0x7FFFFFFF, false},
    };
    DEV_NICDRV_OM_SetFreeFunc(recorded_free);
    use_pool(cookie, pool);
    const Changes changes = {{200, 1}, {296, minus_1}, {64, minus_1}, {176, minus_1}, {104, minus_1}};
    for (const auto &one : cases) {
        for (const uint32_t status : {0U, not_sent}) {
            // Only the pool of the cookie counts: all others say the opposite.
            for (uint32_t other = 0; other < 10; ++other) {
                record[pool_stopped_at + other] = one.wakes ? 0 : 1;
                put_word(record, pool_flow_held_at + size_t{4} * other, one.wakes ? 1000 : 0);
                put_word(record, pool_resume_level_at + size_t{4} * other, 500);
            }
            record[pool_stopped_at + pool] = one.stopped;
            put_word(record, pool_flow_held_at + size_t{4} * pool, one.held_before);
            put_word(record, pool_resume_level_at + size_t{4} * pool, one.resume_level);
            platform().event_status = status;
            platform().system_calls.clear();
            const RecordBytes before = record;

            EXPECT_EQ(mem_free(cookie), 1) << one.what;

            std::vector calls{take, std::string("free"), give, take, give};
            if (one.wakes) {
                calls.push_back(wake);
            }
            EXPECT_EQ(platform().system_calls, calls) << one.what;
            EXPECT_EQ(differences_from(before, record, changes), "") << one.what;
            EXPECT_EQ(printed,
                      one.wakes && status == not_sent ? "DEV_NICDRV_MREF_MemFree:SYSFUN_SendEvent failure.\n" : "")
                << one.what;
        }
    }
}

TEST_F(LoansTest, AreNotOnLoanWhileTheyAreFragments)
{
    DEV_NICDRV_OM_SetFreeFunc(recorded_free);
    for (const Cookie &row : pool_cookies) {
        use_pool(row.cookie, row.pool);
        // The counts of a free, and fragments instead of frees.
        Changes reserved = row.changes;
        reserved.erase(free_ok_count_at);
        reserved[fragment_held_at] = 1;
        Changes released;
        for (const auto &[offset, change] : reserved) {
            released[offset] = -change;
        }
        // Falling below the level, and yet no task is woken.
        record[pool_stopped_at + row.pool] = 1;
        put_word(record, pool_resume_level_at + size_t{4} * row.pool, 0xFFFFFFFF);
        const RecordBytes before = record;
        platform().system_calls.clear();
        seen.clear();

        DEV_NICDRV_ReserveFragmentBuffer(row.cookie);
        const RecordBytes held = record;
        EXPECT_EQ(differences_from(before, held, reserved), "") << "cookie " << row.cookie;
        EXPECT_EQ(platform().system_calls, (std::vector{take, give}));

        DEV_NICDRV_ReleaseFragmentBuffer(row.cookie);
        EXPECT_EQ(differences_from(held, record, released), "") << "cookie " << row.cookie;
        EXPECT_EQ(platform().system_calls, (std::vector{take, give, take, give}));

        EXPECT_EQ(differences_from(before, record, {}), "") << "reserved and released, nothing has changed";
        EXPECT_EQ(differences_from(before, at_call(0), {}), "");
        EXPECT_EQ(differences_from(at_call(1), held, {}), "");
        EXPECT_EQ(differences_from(held, at_call(2), {}), "");
        EXPECT_EQ(differences_from(at_call(3), record, {}), "");
    }
    EXPECT_TRUE(freed.empty());
}

}  // namespace
}  // namespace quillon::test
