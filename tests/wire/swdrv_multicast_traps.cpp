// IP multicast, learning, what is trapped to the CPU, and the frame size.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows multicast_traps{
    {.function = "DEV_SWDRV_PMGR_EnableIPMC",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnableIPMC(0x14131211); },
     .code = 117, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisableIPMC",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisableIPMC(0x14131211); },
     .code = 118, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_IPMC_EnableSourcePortCheck",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_IPMC_EnableSourcePortCheck(0x14131211); },
     .code = 119, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_IPMC_DisableSourcePortCheck",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_IPMC_DisableSourcePortCheck(0x14131211); },
     .code = 120, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_IPMC_EnableSourceIPSearch",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_IPMC_EnableSourceIPSearch(0x14131211); },
     .code = 121, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_IPMC_DisableSourceIPSearch",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_IPMC_DisableSourceIPSearch(0x14131211); },
     .code = 122, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_EnablePortLearning",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnablePortLearning(0x14131211, 0x24232221); },
     .code = 123, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisablePortLearning",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisablePortLearning(0x14131211, 0x24232221); },
     .code = 124, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortLearningStatus",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_SetPortLearningStatus(0x14131211, 0x24232221, 0x91, 0x92, 0x93);
     },
     .code = 125, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 91 +33 92 +34 93", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_EnableUMCASTIpTrap",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnableUMCASTIpTrap(); },
     .code = 142, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisableUMCASTIpTrap",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisableUMCASTIpTrap(); },
     .code = 143, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_EnableUMCASTMacTrap",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnableUMCASTMacTrap(); },
     .code = 144, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisableUMCASTMacTrap",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisableUMCASTMacTrap(); },
     .code = 145, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_AddIPv6MulticastAddress",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_AddIPv6MulticastAddress(arg.in("C1..C6"), 0x14131211); },
     .code = 156, .msg_size = 16, .request = "+24 C1C2C3C4C5C6 +32 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DelIPv6MulticastAddress",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_DelIPv6MulticastAddress(arg.in("C1..C6"), 0x14131211); },
     .code = 157, .msg_size = 16, .request = "+24 C1C2C3C4C5C6 +32 11121314", .reply_size = 4},

    // A byte is sent that no argument fills.
    {.function = "DEV_SWDRV_PMGR_EnableMLDTrap2CPU",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnableMLDTrap2CPU(); },
     .code = 158, .msg_size = 5, .request = "+24 00", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisableMLDTrap2CPU",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisableMLDTrap2CPU(); },
     .code = 159, .msg_size = 5, .request = "+24 00", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_TrapMLDToCPU",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_TrapMLDToCPU(0x91, 0x92); },
     .code = 160, .msg_size = 6, .request = "+24 91 +25 92", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_EnableNDTrap2CPU",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnableNDTrap2CPU(0x91); },
     .code = 162, .msg_size = 5, .request = "+24 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisableNDTrap2CPU",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisableNDTrap2CPU(0x91); },
     .code = 163, .msg_size = 5, .request = "+24 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetRaAndRrTrap2CPU",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetRaAndRrTrap2CPU(0x91); },
     .code = 246, .msg_size = 5, .request = "+24 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetEapolFramePassThrough",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetEapolFramePassThrough(0x91); },
     .code = 195, .msg_size = 5, .request = "+24 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_ModifyMaxFrameSize",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_ModifyMaxFrameSize(0x91, 0x92); },
     .code = 199, .msg_size = 6, .request = "+24 91 +25 92", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_GetPortMediaActive",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortMediaActive(0x14131211, 0x24232221, arg.out_u32(0xE4E3E2E1));
     },
     .code = 200, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_TrapUnknownIpMcastToCPU",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_TrapUnknownIpMcastToCPU(0x91, 0x92, 0x14131211); },
     .code = 204, .msg_size = 12, .request = "+24 91 +25 92 +28 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_TrapUnknownIpv6McastToCPU",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_TrapUnknownIpv6McastToCPU(0x91, 0x92); },
     .code = 205, .msg_size = 6, .request = "+24 91 +25 92", .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
