#include <gtest/gtest.h>
#include <stdint.h>

#include <string>
#include <vector>

#include "driver/swdrv_client.h"
#include "support/byte_text.h"

namespace quillon::test {
namespace {

using driver::ChipState;
using driver::LogicalPort;
using driver::SpanningTreeMode;
using driver::SpanningTreeState;

constexpr LogicalPort port{2, 3};

struct SwdrvSpanningTreeTest : SwdrvClientTest {};

TEST_F(SwdrvSpanningTreeTest, ChangesSpanningTrees)
{
    // 4094 entries, as many as a request has room for.
    static std::vector<uint16_t> all;
    for (uint16_t vlan = 1; vlan <= 4094; ++vlan) {
        all.push_back(vlan);
        model.lock()->chips.vlans.create(vlan);
    }
    static constexpr uint16_t in_instance[] = {10, 4094};

    expect_changes({
        {"MSTP", [] { return DEV_SWDRV_PMGR_SetSTAMode(3); },
         [](const ChipState &chips) { return chips.spanning_tree.mode() == SpanningTreeMode::mstp; }},
        {"all VLANs", [] { return DEV_SWDRV_PMGR_SetPortSTAState(0, 4094, all.data(), 2, 3, 2); },
         [](const ChipState &chips) { return chips.spanning_tree.state(0, port) == SpanningTreeState::blocking; }},
        {"VLAN 10", [] { return DEV_SWDRV_PMGR_AddVlanToSTAWithMstidx(5, 10); },
         [](const ChipState &chips) { return chips.spanning_tree.instance_of(10) == 5; }},
        {"VLAN 4094", [] { return DEV_SWDRV_PMGR_AddVlanToSTAWithMstidx(5, 4094); },
         [](const ChipState &chips) { return chips.spanning_tree.instance_of(4094) == 5; }},
        {"VLANs of the instance", [] { return DEV_SWDRV_PMGR_SetPortSTAState(5, 2, in_instance, 2, 3, 3); },
         [](const ChipState &chips) { return chips.spanning_tree.state(5, port) == SpanningTreeState::listening; }},
        {"no VLANs", [] { return DEV_SWDRV_PMGR_SetPortSTAState(5, 0, nullptr, 2, 3, 1); },
         [](const ChipState &chips) { return chips.spanning_tree.state(5, port) == SpanningTreeState::disabled; }},
        {"the instance", [] { return DEV_SWDRV_PMGR_SetPortSTAStateWithMstidx(5, 2, 3, 4); },
         [](const ChipState &chips) { return chips.spanning_tree.state(5, port) == SpanningTreeState::learning; }},
        {"back", [] { return DEV_SWDRV_PMGR_DeleteVlanFromSTAWithMstidx(5, 10); },
         [](const ChipState &chips) { return chips.spanning_tree.instance_of(10) == 0; }},
    });
    expect_refused({
        {"mode 1", [] { return DEV_SWDRV_PMGR_SetSTAMode(1); }},
        {"the last VLAN is elsewhere", [] { return DEV_SWDRV_PMGR_SetPortSTAState(0, 4094, all.data(), 2, 3, 5); }},
        {"state 0", [] { return DEV_SWDRV_PMGR_SetPortSTAState(0, 0, nullptr, 2, 3, 0); }},
        {"state 6", [] { return DEV_SWDRV_PMGR_SetPortSTAStateWithMstidx(5, 2, 3, 6); }},
        {"instance 65", [] { return DEV_SWDRV_PMGR_SetPortSTAStateWithMstidx(65, 2, 3, 5); }},
        {"no port", [] { return DEV_SWDRV_PMGR_SetPortSTAStateWithMstidx(5, 2, 29, 5); }},
    });
    EXPECT_EQ(model.lock()->chips.spanning_tree.state(0, port), SpanningTreeState::blocking);
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
