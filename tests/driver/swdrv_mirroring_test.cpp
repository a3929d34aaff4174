#include <gtest/gtest.h>
#include <stdint.h>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::ChipState;
using driver::LogicalPort;
using driver::MirroredFrames;
using driver::PortMirror;

constexpr LogicalPort port{2, 3};
constexpr uint32_t port_word = 0x2'0003;
constexpr LogicalPort source{1, 7};
constexpr uint32_t source_word = 0x1'0007;

struct SwdrvMirroringTest : SwdrvClientTest {};

TEST_F(SwdrvMirroringTest, ChangesMirrors)
{
    expect_changes({
        {"mirror", [] { return DEV_SWDRV_PMGR_SetPortMirroring(source_word, port_word, 2); },
         [](const ChipState &chips) {
             const PortMirror *const mirror = chips.mirrors.find(port);
             return mirror != nullptr && *mirror == PortMirror{{{source, MirroredFrames{false, true}}}, false};
         }},
        {"enabled", [] { return DEV_SWDRV_PMGR_EnablePortMirroring(port_word); },
         [](const ChipState &chips) { return chips.mirrors.find(port)->enabled; }},
        {"disabled", [] { return DEV_SWDRV_PMGR_DisablePortMirroring(port_word); },
         [](const ChipState &chips) { return !chips.mirrors.find(port)->enabled; }},
        {"no mirror", [] { return DEV_SWDRV_PMGR_DeletePortMirroring(source_word, port_word); },
         [](const ChipState &chips) { return chips.mirrors.find(port) == nullptr; }},
        {"VLAN", [] { return DEV_SWDRV_PMGR_AddVlanMirror(1, 2, 3); },
         [](const ChipState &chips) { return chips.mirrors.has_vlan_mirror(1, port); }},
        {"no VLAN", [] { return DEV_SWDRV_PMGR_DeleteVlanMirror(1, 2, 3); },
         [](const ChipState &chips) { return !chips.mirrors.has_vlan_mirror(1, port); }},
        {"addresses", [] { return DEV_SWDRV_PMGR_SetDestPortForMacMirror(2, 3, 1); },
         [](const ChipState &chips) { return chips.mirrors.mac_destination() == port; }},
        {"lists", [] { return DEV_SWDRV_PMGR_SetDestPortForAclMirror(2, 3, 1); },
         [](const ChipState &chips) { return chips.mirrors.acl_destination() == port; }},
        {"no addresses", [] { return DEV_SWDRV_PMGR_SetDestPortForMacMirror(2, 3, 0); },
         [](const ChipState &chips) { return !chips.mirrors.mac_destination(); }},
        {"no lists", [] { return DEV_SWDRV_PMGR_SetDestPortForAclMirror(2, 3, 0); },
         [](const ChipState &chips) { return !chips.mirrors.acl_destination(); }},
    });
    expect_refused({
        {"no frames", [] { return DEV_SWDRV_PMGR_SetPortMirroring(source_word, port_word, 0); }},
        {"frames 4", [] { return DEV_SWDRV_PMGR_SetPortMirroring(source_word, port_word, 4); }},
        {"a port without a unit", [] { return DEV_SWDRV_PMGR_SetPortMirroring(7, port_word, 1); }},
        {"not mirrored", [] { return DEV_SWDRV_PMGR_DeletePortMirroring(source_word, port_word); }},
        {"no destination", [] { return DEV_SWDRV_PMGR_EnablePortMirroring(port_word); }},
        {"no VLAN", [] { return DEV_SWDRV_PMGR_AddVlanMirror(2, 2, 3); }},
        {"flag 2", [] { return DEV_SWDRV_PMGR_SetDestPortForMacMirror(2, 3, 2); }},
        {"flag 2 of lists", [] { return DEV_SWDRV_PMGR_SetDestPortForAclMirror(2, 3, 2); }},
    });
}

}  // namespace
}  // namespace quillon::test
