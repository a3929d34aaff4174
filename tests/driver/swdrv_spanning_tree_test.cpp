#include <gtest/gtest.h>
#include <stdint.h>

#include <numeric>
#include <string>
#include <vector>

#include "driver/swdrv_client.h"
#include "support/byte_text.h"

namespace quillon::test {
namespace {

using driver::LogicalPort;
using driver::SpanningTreeMode;
using enum driver::SpanningTreeState;

constexpr LogicalPort port{2, 3};

uint8_t set_state(uint32_t instance, const std::vector<uint16_t> &vlans, uint32_t state)
{
    return DEV_SWDRV_PMGR_SetPortSTAState(instance, static_cast<uint32_t>(vlans.size()), vlans.data(), 2, 3, state);
}

struct SwdrvSpanningTreeTest : SwdrvClientTest {
    driver::SpanningTreeState state(uint32_t instance, const LogicalPort &of = port)
    {
        return model.lock()->chips.spanning_tree.state(instance, of);
    }
    uint32_t instance_of(uint32_t vlan) { return model.lock()->chips.spanning_tree.instance_of(vlan); }
};

TEST_F(SwdrvSpanningTreeTest, KeepsAStateForEachPortAndInstance)
{
    expect_checked(DEV_SWDRV_PMGR_SetSTAMode, {3}, {1});
    EXPECT_EQ(model.lock()->chips.spanning_tree.mode(), SpanningTreeMode::mstp);
    EXPECT_EQ(state(0), forwarding);
    expect_checked(DEV_SWDRV_PMGR_SetPortSTAState, {0, 0, nullptr, 2, 3, 2}, {65, 0, nullptr, 3, 29, 0});
    expect_checked(DEV_SWDRV_PMGR_SetPortSTAStateWithMstidx, {64, 2, 3, 4}, {65, 3, 29, 6});
    expect_checked(DEV_SWDRV_PMGR_SetPortSTAStateWithMstidx, {64, 1, 3, 1}, {UINT32_MAX, 0, 0, 0});
    EXPECT_EQ(state(0), blocking);
    EXPECT_EQ(state(63), forwarding);
    EXPECT_EQ(state(64), learning);
    EXPECT_EQ(state(64, {1, 3}), disabled);
}

TEST_F(SwdrvSpanningTreeTest, HasEachVlanInOneInstance)
{
    const auto add = [](uint32_t instance) { return DEV_SWDRV_PMGR_AddVlanToSTAWithMstidx(instance, 10); };
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(10), 1);
    EXPECT_EQ(instance_of(10), 0U);
    EXPECT_EQ(DEV_SWDRV_PMGR_DeleteVlanFromSTAWithMstidx(0, 10), 0);
    EXPECT_EQ(add(1), 1);
    expect_checked(DEV_SWDRV_PMGR_AddVlanToSTAWithMstidx, {64, 10}, {65, 11});
    EXPECT_EQ(instance_of(10), 64U);
    expect_checked(DEV_SWDRV_PMGR_DeleteVlanFromSTAWithMstidx, {64, 10}, {1, 11});
    EXPECT_EQ(instance_of(10), 0U);
    EXPECT_EQ(add(1), 1);
    EXPECT_EQ(add(0), 1);
    EXPECT_EQ(instance_of(10), 0U);
    EXPECT_EQ(add(5), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_DestroyVlan(10), 1);
    EXPECT_EQ(instance_of(10), 0U) << "goes with its VLAN";
}

TEST_F(SwdrvSpanningTreeTest, RefusesACallerWithAnotherViewOfTheInstance)
{
    for (const uint32_t id : {10U, 20U, 30U}) {
        EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(id), 1);
    }
    EXPECT_EQ(DEV_SWDRV_PMGR_AddVlanToSTAWithMstidx(1, 10), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_AddVlanToSTAWithMstidx(1, 20), 1);
    const struct {
        const char *what;
        uint32_t instance;
        std::vector<uint16_t> vlans;
        bool accepted;
    } rows[] = {
        {"all of them", 1, {10, 20}, true},
        {"one of them", 1, {20}, true},
        {"not told", 1, {}, true},
        {"one more", 1, {10, 30}, false},
        {"one that does not exist", 0, {40}, false},
        {"the common tree's", 0, {1, 30}, true},
        {"one that left the common tree", 0, {1, 20}, false},
        {"VLAN 0", 0, {0}, false},
        {"no such instance", 65, {}, false},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(set_state(row.instance, row.vlans, 3), row.accepted ? 1 : 0);
        if (row.instance != 65) {
            EXPECT_EQ(state(row.instance), row.accepted ? listening : forwarding);
            EXPECT_EQ(set_state(row.instance, {}, 5), 1);
        }
    }

    // As many as a request has room for.
    std::vector<uint16_t> all(4094);
    std::iota(all.begin(), all.end(), uint16_t{1});
    for (const uint16_t vlan : all) {
        model.lock()->chips.vlans.create(vlan);
    }
    EXPECT_EQ(DEV_SWDRV_PMGR_AddVlanToSTAWithMstidx(0, 10), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_AddVlanToSTAWithMstidx(0, 20), 1);
    EXPECT_EQ(set_state(0, all, 1), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_AddVlanToSTAWithMstidx(5, 4094), 1);
    EXPECT_EQ(set_state(0, all, 5), 0) << "the last one is elsewhere";
    EXPECT_EQ(state(0), disabled);
}

// More entries than the client library would send. Behind the list the request has more words that name VLAN 1.
TEST_F(SwdrvSpanningTreeTest, RefusesAListLongerThanTheRequest)
{
    RawQueue client = served.client();
    const auto ask = [&](const std::string &count) {
        std::vector<uint8_t> request = closed_bytes_of("+8 7800 1420 +16 22000000 +24 00*4 " + count);
        for (int entry = 0; entry < 4094; ++entry) {
            request.insert(request.end(), {0x01, 0x00});
        }
        const auto rest = closed_bytes_of("01000000 03000000 02000000");
        request.insert(request.end(), rest.begin(), rest.end());
        const auto reply = client.exchange(request, 24);
        return reply ? text_of(std::span(*reply).subspan(16)) : "no reply";
    };
    EXPECT_EQ(ask("FF0F0000"), text_of(closed_bytes_of("00*8")));
    EXPECT_EQ(ask("FFFFFFFF"), text_of(closed_bytes_of("00*8")));
    EXPECT_EQ(ask("FE0F0000"), text_of(closed_bytes_of("01000000 00*4")));
}

}  // namespace
}  // namespace quillon::test
