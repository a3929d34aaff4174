// Received packets under load: what is counted, what stops and goes on, and who dies meanwhile.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdint.h>
#include <string.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "e2e/support/packet_client.h"

namespace quillon::test {
namespace {

using nicdrv::NicShMem;
using testing::HasSubstr;

class Worker : public Child {
  public:
    Worker(const std::string &folder, std::vector<std::string> arguments)
        : Child(command(std::move(arguments)), {{"QUILLON_RUNTIME_DIR", folder}})
    {
        EXPECT_EQ(out().line(), "ready");
    }

    void begin() { write_line(""); }

    void expect_done()
    {
        EXPECT_EQ(out().rest(), "done\n");
        EXPECT_EQ(wait(), 0);
    }

  private:
    static std::vector<std::string> command(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), QUILLON_PACKET_WORKER);
        return arguments;
    }
};

struct PacketLoadTest : PacketClientTest {
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
    std::vector<std::unique_ptr<Worker>> workers;
    for (uint32_t i = 0; i < processes; ++i) {
        workers.push_back(std::make_unique<Worker>(
            folder(), std::vector<std::string>{"receive", std::to_string(threads),
                                               std::to_string(packets / processes / threads)}));
    }
    for (const auto &worker : workers) {
        worker->begin();
    }
    for (uint32_t cookie = 0; cookie < 10; ++cookie) {
        inject(cookie, 9'000);
    }
    inject(10, 10'000);
    for (const auto &worker : workers) {
        worker->expect_done();
    }

    expect_nothing_on_loan(packets);
    NicRxSummary summary;
    EXPECT_EQ(DEV_NICDRV_PMGR_RxSummary(&summary), 1);
    EXPECT_EQ(summary.values[0], packets);
    EXPECT_EQ(summary.values[1], packets * 60U);
    EXPECT_EQ(summary.values[2], 0U) << "dropped";
    EXPECT_EQ(summary.values[3], packets) << "fetched";
    EXPECT_EQ(summary.last_value, 0U) << "waiting";
    driver.signal(SIGTERM);
    EXPECT_EQ(driver.err().rest(), "");
}

// The receiver asks for more while the pool is stopped: only the wake-ups of those who give buffers back let it go on.
TEST_F(PacketLoadTest, StopsAtTheLevelAndMissesNoWakeUp)
{
    constexpr uint32_t stop_level = 48;
    constexpr uint32_t packets = 250 * stop_level;
    Worker worker(folder(), {"hand-over", std::to_string(packets), "32"});
    worker.begin();
    inject(3, packets);
    worker.expect_done();

    expect_nothing_on_loan(packets);
    const std::string shown = control(folder(), {"packet-path"}).out;
    const size_t stops = shown.find(" stopped-pools=0x0 stops=");
    ASSERT_NE(stops, std::string::npos) << shown;
    EXPECT_GE(atoi(&shown[stops + strlen(" stopped-pools=0x0 stops=")]), packets / stop_level - 1);
}

TEST_F(PacketLoadTest, GoesOnWhenTheHolderOfTheSemaphoreIsKilled)
{
    Worker worker(folder(), {"die-freeing"});
    worker.begin();
    const std::string line = worker.out().line();
    ASSERT_TRUE(line.starts_with("freeing ")) << line;
    inject(2, 20);
    EXPECT_EQ(worker.kill_and_wait(), 128 + SIGKILL);

    for (const QuillonReceivedPacket &packet : receive(20)) {
        EXPECT_EQ(give_back(packet), 1);
    }
    expect_nothing_on_loan(20);
    EXPECT_THAT(driver.err().line(),
                HasSubstr("warning semaphore-recovered key=17 holder=" + line.substr(strlen("freeing "))));
}

// What it waited for goes to others.
TEST_F(PacketLoadTest, OffersNothingToTheDead)
{
    Worker worker(folder(), {"receive", "4", "1"});
    worker.begin();
    wait_until("its threads wait", [&] {
        size_t waiting = 0;
        for (const auto &task :
             std::filesystem::directory_iterator("/proc/" + std::to_string(worker.pid()) + "/task")) {
            waiting += waits_for_reply(worker.pid(), std::stoi(task.path().filename()));
        }
        return waiting == 4;
    });
    worker.kill_and_wait();
    inject(7, 4);
    for (const QuillonReceivedPacket &packet : receive(4)) {
        EXPECT_EQ(give_back(packet), 1);
    }
    expect_nothing_on_loan(4);
}

}  // namespace
}  // namespace quillon::test
