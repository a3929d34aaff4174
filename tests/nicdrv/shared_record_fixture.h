// The shared record as it stands in memory: bytes, and where its fields are.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <map>
#include <optional>

#include "quillon/nicdrv.h"
#include "support/recording_platform.h"

namespace quillon::test {

inline constexpr size_t record_size = 496;
using RecordBytes = std::array<uint8_t, record_size>;

inline constexpr size_t cookie_pool_at = 4;
inline constexpr size_t pool_flow_held_at = 84;
inline constexpr size_t pool_resume_level_at = 124;
inline constexpr size_t pool_stopped_at = 164;
inline constexpr size_t total_held_at = 176;
inline constexpr size_t rx_task_id_at = 180;
inline constexpr size_t fragment_held_at = 184;
inline constexpr size_t free_ok_count_at = 200;
inline constexpr size_t free_fail_count_at = 204;

inline constexpr uint32_t record_semaphore = 2460202181;
inline constexpr uint32_t receive_task = 2375854010;

inline uint32_t word_at(const RecordBytes &bytes, size_t offset)
{
    uint32_t word = 0;
    std::memcpy(&word, &bytes.at(offset), sizeof word);
    return word;
}

inline void put_word(RecordBytes &bytes, size_t offset, uint32_t word)
{
    std::memcpy(&bytes.at(offset), &word, sizeof word);
}

// Attached to a record in which every byte has a value of its own that no function may lose.
class SharedRecordTest : public testing::Test {
  protected:
    SharedRecordTest()
    {
        for (size_t at = 0; at < record_size; ++at) {
            record[at] = static_cast<uint8_t>(at * 37 + at / 256 + 1);
        }
        put_word(record, rx_task_id_at, receive_task);
        attach_to_record();
    }
    ~SharedRecordTest() override { reset_platform(); }

    static void attach_to_record()
    {
        reset_platform();
        platform().segments = {{6, record.data()}};
        platform().semaphores = {{17, record_semaphore}};
        DEV_NICDRV_OM_InitSystemResources();
        platform().system_calls.clear();
    }

    void use_pool(uint32_t cookie, uint16_t pool)
    {
        std::memcpy(&record.at(cookie_pool_at + 2 * cookie), &pool, sizeof pool);
    }

    // As the driver process does: a record that the library was attached to stays where it is.
    static inline RecordBytes record;
};

}  // namespace quillon::test
