// What the driver process's and a client's death mean to everybody else.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <deque>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "e2e/support/client_process.h"
#include "e2e/support/driver_process.h"
#include "e2e/support/monotonic_clock.h"
#include "e2e/support/observe.h"

namespace quillon::test {
namespace {

using testing::AllOf;
using testing::Each;
using testing::Field;
using testing::SizeIs;

auto all_return(int calls, unsigned result)
{
    return AllOf(SizeIs(static_cast<size_t>(calls)), Each(Field(&Return::result, result)));
}

constexpr int threads = 8;

TEST(DriverDeath, EndsEveryCallAndTheNextDriverProcessServesAll)
{
    const TestFolder folder;
    std::optional<DriverProcess> driver(std::in_place, folder.path());
    std::deque<ClientProcess> clients;
    for (int i = 0; i < 8; ++i) {
        clients.emplace_back(folder.path(), threads);
    }

    driver->stop();
    std::ranges::for_each(clients, &ClientProcess::call);
    std::ranges::for_each(clients, &ClientProcess::wait_until_waiting);
    const int64_t killed_at = monotonic_now();
    driver->kill_and_wait();
    int64_t last_return = 0;
    for (ClientProcess &client : clients) {
        std::vector<std::string> reports;
        const auto returned = client.returns(&reports);
        EXPECT_THAT(returned, all_return(threads, 0));
        for (const Return &call : returned) {
            last_return = std::max(last_return, call.at);
        }
        // Each of them has said why, for its own task.
        EXPECT_EQ(std::ranges::count_if(reports,
                                        [](const std::string &line) {
                                            return line.find("DEV_SWDRV_PMGR_GetLocalUnitChipsetNumber() line ") == 0 &&
                                                   line.ends_with("(msgq_key=24, rc=2)\r");
                                        }),
                  threads);
        EXPECT_EQ(std::ranges::count_if(reports,
                                        [](const std::string &line) { return line.starts_with("dumped cat /proc/"); }),
                  threads);
        EXPECT_THAT(reports, SizeIs(2 * threads));
    }
    const auto latest = (last_return - killed_at) / 1000;
    RecordProperty("latest_return_after_kill_us", std::to_string(latest));
    std::cout << "the last of 64 calls returned " << latest << " us after the kill\n";

    driver.emplace(folder.path());
    std::ranges::for_each(clients, &ClientProcess::call);
    for (ClientProcess &client : clients) {
        EXPECT_THAT(client.returns(), all_return(threads, 2));
        client.close_input();
        EXPECT_EQ(client.wait(), 0);
    }
    driver->signal(SIGTERM);
    EXPECT_EQ(driver->wait(), 0);
}

TEST(ClientDeath, IsNoticedAndTouchesNobodyElse)
{
    const TestFolder folder;
    DriverProcess driver(folder.path(), {"--log-level=warning"});
    const size_t sockets_at_first = sockets_of(driver.pid());
    ClientProcess survivor(folder.path(), threads);
    survivor.call();
    EXPECT_THAT(survivor.returns(), all_return(threads, 2));

    ClientProcess victim(folder.path(), threads);
    driver.stop();
    victim.call();
    survivor.call();
    victim.wait_until_waiting();
    survivor.wait_until_waiting();
    victim.kill_and_wait();
    driver.resume();
    EXPECT_THAT(survivor.returns(), all_return(threads, 2));

    // What the dead one had is given back: there are the survivor's calls and its attaching.
    const size_t most_sockets = sockets_at_first + threads + 1;
    wait_until("the dead client's connections are closed", [&] { return sockets_of(driver.pid()) <= most_sockets; });
    survivor.call();
    EXPECT_THAT(survivor.returns(), all_return(threads, 2));

    driver.signal(SIGTERM);
    EXPECT_EQ(driver.wait(), 0);
    EXPECT_EQ(driver.err().rest(), "");
}

}  // namespace
}  // namespace quillon::test
