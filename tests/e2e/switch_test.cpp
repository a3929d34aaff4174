// A switch that application processes configure and watch.
#include <gtest/gtest.h>
#include <stdint.h>
#include <stdlib.h>

#include <array>
#include <string>
#include <vector>

#include "e2e/support/child.h"
#include "e2e/support/driver_process.h"
#include "e2e/support/observe.h"
#include "quillon/swdrv.h"

namespace quillon::test {
namespace {

// This process is a client as well. A client looks its run-time folder up once.
const std::string &folder()
{
    static const TestFolder for_this_process;
    static const int set = setenv("QUILLON_RUNTIME_DIR", for_this_process.path().c_str(), 1);
    EXPECT_EQ(set, 0);
    return for_this_process.path();
}

struct SwitchTest : testing::Test {
    SwitchTest() { DEV_SWDRV_PMGR_InitiateProcessResource(); }

    DriverProcess driver{folder(), {"--log-level=warning"}};
};

TEST_F(SwitchTest, IsSetUpAndTakenDownByTwoProcessesAtOnce)
{
    const std::map<std::string, std::string> environment = {{"QUILLON_RUNTIME_DIR", folder()}};
    Child first({QUILLON_SWITCH_SETUP, "1", "100", "1", "1", "40"}, environment);
    Child second({QUILLON_SWITCH_SETUP, "2", "200", "2", "64", "40"}, environment);
    first.write_line("");
    second.write_line("");
    for (Child *const process : {&first, &second}) {
        const std::string output = process->out().rest();
        EXPECT_TRUE(output.starts_with("created ") && lines_of(output).size() == 1) << output;
        EXPECT_EQ(process->wait(), 0);
    }

    // Nothing is left.
    for (const uint32_t vlan : {100U, 207U, 4000U}) {
        EXPECT_EQ(DEV_SWDRV_PMGR_DestroyVlan(vlan), 0) << vlan;
    }
    for (const uint32_t trunk : {1U, 2U}) {
        EXPECT_EQ(DEV_SWDRV_PMGR_DestroyTrunk(trunk), 0) << trunk;
    }
    driver.signal(SIGTERM);
    EXPECT_EQ(driver.err().rest(), "") << "nothing was refused as malformed";
    EXPECT_EQ(driver.wait(), 0);
}

// Both forms, and those of the other ports as well.
struct LinkView {
    std::array<uint32_t, 28> single;
    std::array<uint32_t, 28> block;
    std::array<uint32_t, 28> whole;  // admin state, flow control, speed and duplex, link

    bool operator==(const LinkView &) const = default;
};

LinkView look_at(uint32_t unit)
{
    LinkView view{};
    std::array<uint32_t, 90> links{};
    std::array<uint32_t, 90> all{};
    EXPECT_EQ(DEV_SWDRV_PMGR_GetAllPortLinkStatus(unit, 1, 28, links.data()), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_GetAllPortStatus(unit, 1, 28, all.data()), 1);
    for (uint32_t port = 1; port <= 28; ++port) {
        EXPECT_EQ(DEV_SWDRV_PMGR_GetPortLinkStatus(unit, port, &view.single[port - 1]), 1);
        view.block[port - 1] = links[port];
        view.whole[port - 1] = all[port];
    }
    return view;
}

TEST_F(SwitchTest, ShowsTheLinkOfAPortThatIsShut)
{
    constexpr uint32_t unit = 2;
    constexpr uint32_t port = 25;
    const LinkView before = look_at(unit);
    const LinkView other_unit = look_at(1);
    EXPECT_EQ(before.single[port - 1], 1U);
    EXPECT_EQ(before.block, before.single);
    EXPECT_EQ(before.whole[port - 1], 0x01'00'08'01U);

    LinkView shut = before;
    shut.single[port - 1] = shut.block[port - 1] = shut.whole[port - 1] = 0;
    EXPECT_EQ(DEV_SWDRV_PMGR_DisablePortAdmin(unit, port), 1);
    EXPECT_EQ(look_at(unit), shut);
    EXPECT_EQ(look_at(1), other_unit);

    EXPECT_EQ(DEV_SWDRV_PMGR_EnablePortAdmin(unit, port), 1);
    EXPECT_EQ(look_at(unit), before);

    // A link that is held down belongs to a port that is enabled.
    LinkView held_down = shut;
    held_down.whole[port - 1] = 0x01'00'00'00;
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortForceLinkDownStatus(unit, port, 1), 1);
    EXPECT_EQ(look_at(unit), held_down);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortForceLinkDownStatus(unit, port, 0), 1);
    EXPECT_EQ(look_at(unit), before);

    EXPECT_EQ(DEV_SWDRV_PMGR_DisableAllPortAdmin(), 1);
    EXPECT_EQ(look_at(unit), LinkView{});
    EXPECT_EQ(DEV_SWDRV_PMGR_ResetOnDemand(1), 1);
    EXPECT_EQ(look_at(unit), before);
}

}  // namespace
}  // namespace quillon::test
