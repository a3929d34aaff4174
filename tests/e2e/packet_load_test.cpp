// Received packets under load: what is counted, what stops and goes on, and who dies meanwhile.
#include <gmock/gmock.h>
#include <signal.h>
#include <stdint.h>
#include <string.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "e2e/support/packet_client.h"

namespace quillon::test {
namespace {

using nicdrv::NicShMem;
using testing::HasSubstr;

struct PacketLoadTest : PacketClientTest {
    // An application process whose threads receive so many packets each and give them back, some of them after they
    // were held as fragments.
    static std::unique_ptr<Application> receiver(uint32_t threads, uint32_t packets)
    {
        return std::make_unique<Application>([=] {
            std::vector<std::jthread> receiving;
            for (uint32_t i = 0; i < threads; ++i) {
                receiving.emplace_back(receive_and_give_back, packets);
            }
        });
    }

    static void receive_and_give_back(uint32_t packets)
    {
        while (packets > 0) {
            for (const QuillonReceivedPacket &packet : receive_some(packets)) {
                const uint8_t *const data = quillon_received_data(&packet);
                EXPECT_EQ(std::count(data, data + packet.length, static_cast<uint8_t>(packet.cookie)), packet.length);
                if (packets % 4 == 0 && packet.cookie < 10) {
                    DEV_NICDRV_ReserveFragmentBuffer(packet.cookie);
                    DEV_NICDRV_ReleaseFragmentBuffer(packet.cookie);
                }
                EXPECT_EQ(give_back(packet), 1);
                --packets;
            }
        }
    }

    // The receive task may still be about to see that the last buffers are back.
    static void expect_nothing_on_loan(uint32_t freed)
    {
        NicShMem expected{};
        expected.cookie_pool = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
        expected.pool_resume_level.fill(32);
        expected.rx_task_id = record().rx_task_id;
        expected.free_ok_count = freed;
        wait_until("all counts of the record are as they were", [&] {
            const NicShMem now = record();
            return memcmp(&now, &expected, sizeof expected) == 0;
        });
        NicMemStatus memory;
        EXPECT_EQ(DEV_NICDRV_PMGR_MemStatus(&memory), 1);
        EXPECT_EQ(memory.values[1], 0U) << "filled buffers";
        EXPECT_EQ(memory.values[2], 0U) << "refused frees";
    }
};

TEST_F(PacketLoadTest, BalancesAfterManyProcessesHaveReceivedAndFreed)
{
    constexpr uint32_t packets = 100'000;
    constexpr uint32_t processes = 4;
    constexpr uint32_t threads = 4;
    std::vector<std::unique_ptr<Application>> receivers;
    for (uint32_t i = 0; i < processes; ++i) {
        receivers.push_back(receiver(threads, packets / processes / threads));
    }
    for (uint32_t cookie = 0; cookie < 10; ++cookie) {
        inject(cookie, 9'000);
    }
    inject(10, 10'000);
    for (const auto &process : receivers) {
        process->expect_success();
    }

    expect_nothing_on_loan(packets);
    NicRxSummary summary;
    EXPECT_EQ(DEV_NICDRV_PMGR_RxSummary(&summary), 1);
    EXPECT_EQ(summary.values[0], packets);
    EXPECT_EQ(summary.values[1], packets * 60U);
    EXPECT_EQ(summary.values[2], 0U) << "dropped";
    EXPECT_EQ(summary.values[3], packets) << "fetched";
    EXPECT_EQ(summary.last_value, 0U) << "waiting";
    driver.expect_quiet_end();
}

// The receiver asks for more while the pool is stopped: only the wake-ups of those who give buffers back let it go on.
TEST_F(PacketLoadTest, StopsAtTheLevelAndMissesNoWakeUp)
{
    constexpr uint32_t stop_level = 48;
    constexpr uint32_t packets = 250 * stop_level;
    constexpr uint32_t at_once = 32;
    static_assert(packets % at_once == 0);
    Application process([] {
        std::array<std::jthread, 3> giving_back;
        for (uint32_t received = 0; received < packets; received += at_once) {
            const auto held = receive(at_once);
            for (size_t thread = 0; thread < giving_back.size(); ++thread) {
                giving_back[thread] = std::jthread([held, thread] {
                    for (size_t i = thread; i < held.size(); i += 3) {
                        EXPECT_EQ(give_back(held[i]), 1);
                    }
                });
            }
        }
    });
    inject(3, packets);
    process.expect_success();

    expect_nothing_on_loan(packets);
    const std::string shown = told({"packet-path"});
    const size_t stops = shown.find(" stopped-pools=0x0 stops=");
    ASSERT_NE(stops, std::string::npos) << shown;
    EXPECT_GE(atoi(&shown[stops + strlen(" stopped-pools=0x0 stops=")]), packets / stop_level - 1);
}

const Events *freeing = nullptr;

// An application process that frees for ever, with the semaphore of the counts.
std::unique_ptr<Application> holder_of_the_semaphore()
{
    static const Events events;
    freeing = &events;
    auto holder = std::make_unique<Application>([] {
        DEV_NICDRV_OM_SetFreeFunc([](void * /*buffer*/) -> uint8_t {
            freeing->tell('f');
            for (;;) {
                pause();
            }
        });
        DEV_NICDRV_MREF_MemFree(nullptr, 0, nullptr);
    });
    EXPECT_EQ(events.next(), 'f');
    return holder;
}

TEST_F(PacketLoadTest, GoesOnWhenTheHolderOfTheSemaphoreIsKilled)
{
    const auto holder = holder_of_the_semaphore();
    const pid_t killed = holder->pid();
    inject(2, 20);
    EXPECT_EQ(holder->kill_and_wait(), 128 + SIGKILL);

    receive_and_give_back(20);
    expect_nothing_on_loan(20);
    EXPECT_THAT(driver.err().line(), HasSubstr("warning semaphore-recovered key=17 holder=" + std::to_string(killed)));
}

TEST_F(PacketLoadTest, EndsWhileASleeperHoldsTheSemaphore)
{
    const auto holder = holder_of_the_semaphore();
    inject(2);
    driver.signal(SIGTERM);
    EXPECT_EQ(driver.wait(), 0);
}

// What it waited for goes to others.
TEST_F(PacketLoadTest, OffersNothingToTheDead)
{
    const auto dies = receiver(4, 1);
    wait_until_waiting(dies->pid(), 4);
    dies->kill_and_wait();
    inject(7, 4);
    receive_and_give_back(4);
    expect_nothing_on_loan(4);
}

}  // namespace
}  // namespace quillon::test
