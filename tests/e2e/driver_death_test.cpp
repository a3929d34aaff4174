// What the driver process's and a client's death mean to everybody else.
#include <gtest/gtest.h>
#include <signal.h>

#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include "e2e/support/driver_process.h"
#include "e2e/support/observe.h"
#include "quillon/swdrv.h"

namespace quillon::test {
namespace {

constexpr size_t threads = 8;

// An application process that makes a call in each of its threads whenever it is told to.
class Caller {
  public:
    void call() const { calls_.tell('c'); }

    void wait_until_waiting() const { test::wait_until_waiting(process_.pid(), threads); }

    // Until all have returned, each with this number of chips; 0 stands for a failure.
    void expect_returns(unsigned result) const
    {
        for (size_t i = 0; i < threads; ++i) {
            EXPECT_EQ(returned_.next() - '0', static_cast<int>(result));
        }
        EXPECT_EQ(returned_.next(), 'e');
    }

    void kill_and_wait() { process_.kill_and_wait(); }

  private:
    Events calls_;
    Events returned_;
    Application process_{[this] {
        DEV_SWDRV_PMGR_InitiateProcessResource();
        while (calls_.told() == 'c') {
            std::vector<std::jthread> calling;
            for (size_t i = 0; i < threads; ++i) {
                calling.emplace_back(
                    [this] { returned_.tell(static_cast<char>('0' + DEV_SWDRV_PMGR_GetLocalUnitChipsetNumber())); });
            }
            calling.clear();
            returned_.tell('e');
        }
    }};
};

TEST(DriverDeath, EndsEveryCallAndTheNextDriverProcessServesAll)
{
    std::optional<DriverProcess> driver(std::in_place, runtime_folder());
    const std::vector<Caller> clients(8);
    driver->stop();
    for (const Caller &client : clients) {
        client.call();
    }
    for (const Caller &client : clients) {
        client.wait_until_waiting();
    }
    driver->kill_and_wait();
    for (const Caller &client : clients) {
        client.expect_returns(0);
    }

    driver.emplace(runtime_folder());
    for (const Caller &client : clients) {
        client.call();
        client.expect_returns(2);
    }
    driver->signal(SIGTERM);
    EXPECT_EQ(driver->wait(), 0);
}

TEST(ClientDeath, IsNoticedAndTouchesNobodyElse)
{
    DriverProcess driver(runtime_folder(), {"--log-level=warning"});
    const size_t sockets_at_first = sockets_of(driver.pid());
    const Caller survivor;
    survivor.call();
    survivor.expect_returns(2);

    Caller victim;
    driver.stop();
    victim.call();
    survivor.call();
    victim.wait_until_waiting();
    survivor.wait_until_waiting();
    victim.kill_and_wait();
    driver.resume();
    survivor.expect_returns(2);

    // What the dead one had is given back: there are the survivor's calls and its attaching.
    const size_t most_sockets = sockets_at_first + threads + 1;
    wait_until("the dead client's connections are closed", [&] { return sockets_of(driver.pid()) <= most_sockets; });
    survivor.call();
    survivor.expect_returns(2);
    driver.expect_quiet_end();
}

}  // namespace
}  // namespace quillon::test
