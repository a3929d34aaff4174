// Spanning-tree mode and port states.
#include <cstdint>
#include <string>
#include <vector>

#include "quillon/swdrv.h"
#include "support/byte_text.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// As many entries as the request has room for, each different from the others.
std::string all_entries()
{
    std::vector<uint8_t> bytes;
    for (uint32_t entry = 0x1001; entry < 0x1001 + 4094; ++entry) {
        bytes.push_back(static_cast<uint8_t>(entry));
        bytes.push_back(static_cast<uint8_t>(entry >> 8));
    }
    return text_of(bytes);
}

// clang-format off
const WireRows spanning_tree{
    {.function = "DEV_SWDRV_PMGR_SetSTAMode",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetSTAMode(0x14131211); },
     .code = 33, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortSTAState",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_SetPortSTAState(0x14131211, 1, arg.in("C1C2"), 0x44434241, 0x64636261, 0x74737271);
     },
     .code = 34, .msg_size = 8212,
     .request = "+24 11121314 +28 01000000 +32 C1C2 +8220 41424344 +8224 61626364 +8228 71727374", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortSTAState", .branch = "no_entries",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetPortSTAState(0x14131211, 0, nullptr, 0x44434241, 0x64636261, 0x74737271);
     },
     .code = 34, .msg_size = 8212,
     .request = "+24 11121314 +28 00000000 +8220 41424344 +8224 61626364 +8228 71727374", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortSTAState", .branch = "all_entries",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_SetPortSTAState(0x14131211, 4094, arg.in(all_entries()), 0x44434241, 0x64636261,
                                               0x74737271);
     },
     .code = 34, .msg_size = 8212,
     .request = "+24 11121314 +28 FE0F0000 +32 " + all_entries() + " +8220 41424344 +8224 61626364 +8228 71727374",
     .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortSTAStateWithMstidx",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetPortSTAStateWithMstidx(0x14131211, 0x24232221, 0x34333231, 0x44434241);
     },
     .code = 35, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 31323334 +36 41424344", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_AddVlanToSTAWithMstidx",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_AddVlanToSTAWithMstidx(0x14131211, 0x24232221); },
     .code = 36, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DeleteVlanFromSTAWithMstidx",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DeleteVlanFromSTAWithMstidx(0x14131211, 0x24232221); },
     .code = 37, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
