// What no client of ours would send: it is answered or dropped, and harms nobody.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdint.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "e2e/support/driver_process.h"
#include "e2e/support/observe.h"
#include "e2e/support/raw_queue.h"
#include "support/byte_text.h"

namespace quillon::test {
namespace {

using testing::HasSubstr;

constexpr uint32_t queues[] = {24, 25, 52, 59};

// In place of an envelope. `n` makes one different from the next.
struct Malformed {
    const char *reason;
    std::vector<uint8_t> (*bytes)(uint32_t n);
};

std::vector<uint8_t> chips_request()
{
    return closed_bytes_of("+8 7800 0400 +16 04000000 00*4");
}

std::vector<uint8_t> with(size_t offset, uint32_t value)
{
    auto bytes = chips_request();
    bytes[offset] = static_cast<uint8_t>(value);
    return bytes;
}

const Malformed kinds[] = {
    {"cut short", [](uint32_t n) { return std::vector<uint8_t>(n % 20, 0x55); }},
    {"wrong size", [](uint32_t n) { return with(10, 5 + n % 200); }},
    {"wrong size",
     [](uint32_t n) {
         auto bytes = chips_request();
         bytes.resize(24 + 1 + n * 63 % 65'000, 0xAA);  // up to what fills the largest packet
         return bytes;
     }},
    {"unknown module", [](uint32_t n) { return with(9, 1 + n % 255); }},
    {"unknown code", [](uint32_t n) { return with(18, 1 + n % 255); }},
};

TEST(MalformedRequests, AreRefusedAndNothingElseSuffers)
{
    const TestFolder folder;
    DriverProcess driver(folder.path(), {"--log-level=warning"});
    RawQueue healthy(folder.path(), 24);
    int messages = 0;
    for (uint32_t n = 0; n < 170; ++n) {
        const uint32_t queue = queues[n % std::size(queues)];
        RawQueue client(folder.path(), queue);
        for (const Malformed &kind : kinds) {
            // A module that is wrong is known before anything else is looked at.
            const auto reply = client.exchange(kind.bytes(n), 24);
            ASSERT_TRUE(reply) << kind.reason << ' ' << n;
            EXPECT_EQ(text_of(std::span(*reply).subspan(16)), text_of(closed_bytes_of("00*8"))) << kind.reason;
            ++messages;
        }
        if (queue != 24) {
            const auto reply = client.exchange(chips_request(), 24);
            ASSERT_TRUE(reply);
            EXPECT_EQ(reply->at(16), 0) << "answered on queue " << queue;
            ++messages;
        }
        // No message of this transport at all: the client is dropped.
        client.send_packet(std::vector<uint8_t>(1 + n * 41 % 300, 0x5A));
        EXPECT_EQ(client.receive(), std::nullopt);
        ++messages;
        // No room for a reply, and nobody who reads it.
        RawQueue(folder.path(), queue).send(kinds[n % std::size(kinds)].bytes(n), n % 20);
        ++messages;

        const auto reply = healthy.exchange(chips_request(), 24);
        ASSERT_TRUE(reply);
        EXPECT_EQ(reply->at(16), 2);
    }
    EXPECT_GE(messages, 1000);

    driver.signal(SIGTERM);
    EXPECT_EQ(driver.wait(), 0);
    const std::string log = driver.err().rest();
    for (const char *logged : {"reason=\"cut short\"", "reason=\"wrong size\"", "reason=\"unknown module\"",
                               "reason=\"unknown code\"", "reason=\"wrong queue\"", "foreign-client-dropped"}) {
        EXPECT_THAT(log, HasSubstr(logged));
    }
}

}  // namespace
}  // namespace quillon::test
