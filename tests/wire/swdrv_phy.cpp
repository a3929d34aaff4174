// PHYs, cables and what else lies below a port.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows phy{
    {.function = "DEV_SWDRV_PMGR_Set1000BaseTPortTestMode",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_Set1000BaseTPortTestMode(0x14131211, 0x24232221, 0xA2A1); },
     .code = 167, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 A1A2", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_Get1000BaseTPortTestMode",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_Get1000BaseTPortTestMode(0x14131211, 0x24232221, arg.out_u16(0xE2E1));
     },
     .code = 168, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 6, .reply = "+24 E1E2"},

    {.function = "DEV_SWDRV_PMGR_Set1000BaseTTransmitterType",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_Set1000BaseTTransmitterType(0x14131211, 0x24232221, 0xA2A1); },
     .code = 169, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 A1A2", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_Get1000BaseTTransmitterType",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_Get1000BaseTTransmitterType(0x14131211, 0x24232221, arg.out_u16(0xE2E1));
     },
     .code = 170, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 6, .reply = "+24 E1E2"},

    {.function = "DEV_SWDRV_PMGR_GetAutoMDIXmode",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetAutoMDIXmode(0x14131211, 0x24232221, arg.out_u32(0xE4E3E2E1));
     },
     .code = 172, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_SocPciWrite",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SocPciWrite(0x14131211, 0x24232221, 0x34333231); },
     .code = 175, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4,
     .result = Result::word},

    {.function = "DEV_SWDRV_PMGR_SetPortPowerSave",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortPowerSave(0x14131211, 0x24232221, 0x91, 0x92); },
     .code = 176, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 91 +33 92", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_GetCableDiag",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_GetCableDiag(0x14131211, 0x24232221, arg.out("C1..DC")); },
     .code = 177, .msg_size = 12, .request = "+24 11121314 +28 21222324",
     .reply_size = 32, .reply = "+24 C1..C8 +32 C9..D0 +40 D1..D8 +48 D9..DC"},

    {.function = "DEV_SWDRV_PMGR_GetCableDiag", .branch = "refused",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_GetCableDiag(0x14131211, 0x24232221, arg.out("C1..DC")); },
     .code = 177, .msg_size = 12, .request = "+24 11121314 +28 21222324",
     .reply_size = 32, .reply_type = refused, .reply = "+24 C1..C8 +32 C9..D0 +40 D1..D8 +48 D9..DC"},

    {.function = "DEV_SWDRV_PMGR_GetCableDiagResult",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetCableDiagResult(0x14131211, 0x24232221, arg.out("C1..D8"));
     },
     .code = 178, .msg_size = 12, .request = "+24 11121314 +28 21222324",
     .reply_size = 28, .reply = "+24 C1..C8 +32 C9..D0 +40 D1..D8"},

    {.function = "DEV_SWDRV_PMGR_GetCableDiagResult", .branch = "refused",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetCableDiagResult(0x14131211, 0x24232221, arg.out("C1..D8"));
     },
     .code = 178, .msg_size = 12, .request = "+24 11121314 +28 21222324",
     .reply_size = 28, .reply_type = refused, .reply = "+24 C1..C8 +32 C9..D0 +40 D1..D8"},

    {.function = "DEV_SWDRV_PMGR_EnableInternalLoopback",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_EnableInternalLoopback(0x14131211); },
     .code = 179, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DisableInternalLoopback",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DisableInternalLoopback(0x14131211); },
     .code = 180, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_IsPortLoopbacking",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_IsPortLoopbacking(0x14131211); },
     .code = 181, .msg_size = 8, .request = "+24 11121314", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortAuthMode",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortAuthMode(0x14131211, 0x24232221, 0x34333231); },
     .code = 184, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_UpdatePortMapping",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_UpdatePortMapping(0x91); },
     .code = 185, .msg_size = 5, .request = "+24 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortMacAddr",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_SetPortMacAddr(0x14131211, 0x24232221, arg.in("C1..C6")); },
     .code = 256, .msg_size = 20, .request = "+24 11121314 +28 21222324 +32 C1C2C3C4C5C6", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetCpuRateLimit",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetCpuRateLimit(0x14131211, 0x24232221); },
     .code = 262, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_GetPortAbility",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortAbility(0x14131211, 0x24232221, arg.out_u32(0xE4E3E2E1));
     },
     .code = 263, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_DoPHYRegsTransactions",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_DoPHYRegsTransactions(0x14131211, 0x24232221, arg.in("C1..C6"), 1);
     },
     .code = 255, .msg_size = 76, .request = "+24 11121314 +28 21222324 +32 C1C2C3C4C5C6 +92 01", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DoPHYRegsTransactions", .branch = "most_operations",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_DoPHYRegsTransactions(0x14131211, 0x24232221, arg.in("81..BC"), 10);
     },
     .code = 255, .msg_size = 76, .request = "+24 11121314 +28 21222324 +32 81..BC +92 0A", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DoPHYRegsTransactions", .branch = "no_operation",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_DoPHYRegsTransactions(0x14131211, 0x24232221, arg.in("C1"), 0);
     },
     .code = 255, .msg_size = 76, .request = "+24 11121314 +28 21222324", .reply_size = 4},

    // The upper half of the count is not looked at.
    {.function = "DEV_SWDRV_PMGR_DoPHYRegsTransactions", .branch = "count_of_64_bits",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_DoPHYRegsTransactions(0x14131211, 0x24232221, arg.in("C1..C6"), 0xF00000001);
     },
     .code = 255, .msg_size = 76, .request = "+24 11121314 +28 21222324 +32 C1C2C3C4C5C6 +92 01", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_DoPHYRegsTransactions", .branch = "too_many_operations",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_DoPHYRegsTransactions(0x14131211, 0x24232221, arg.in("81..C2"), 11);
     },
     .printed = "DEV_SWDRV_PMGR_DoPHYRegsTransactions(<line>)num_of_ops(11) too large. (max value=10)\r\n"},

    // All of the count is printed.
    {.function = "DEV_SWDRV_PMGR_DoPHYRegsTransactions", .branch = "too_large_count_of_64_bits",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_DoPHYRegsTransactions(0x14131211, 0x24232221, arg.in("C1"), 0xF0000000B);
     },
     .printed = "DEV_SWDRV_PMGR_DoPHYRegsTransactions(<line>)num_of_ops(64424509451) too large. (max value=10)\r\n"},

    {.function = "DEV_SWDRV_PMGR_DoPHYRegsTransactions", .branch = "too_many_null_operations",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DoPHYRegsTransactions(0x14131211, 0x24232221, nullptr, 11); },
     .printed = "DEV_SWDRV_PMGR_DoPHYRegsTransactions(<line>)num_of_ops(11) too large. (max value=10)\r\n"},

    {.function = "DEV_SWDRV_PMGR_DoPHYRegsTransactions", .branch = "null_operations",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_DoPHYRegsTransactions(0x14131211, 0x24232221, nullptr, 0); },
     .printed = "DEV_SWDRV_PMGR_DoPHYRegsTransactions(<line>)phy_reg_ops is NULL\r\n"},

    {.function = "DEV_SWDRV_PMGR_GetMIIPhyRegByPage",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetMIIPhyRegByPage(0x14131211, 0x24232221, 0x34333231, 0x44434241, 0x54535251,
                                                  0x64636261, 0x74737271, arg.out_u16(0xE2E1));
     },
     .code = 245, .msg_size = 32,
     .request = "+24 11121314 +28 21222324 +32 31323334 +36 41424344 +40 51525354 +44 61626364 +48 71727374",
     .reply_size = 6, .reply = "+24 E1E2"},

    {.function = "DEV_SWDRV_PMGR_GetAllPortAverageTemperature",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_GetAllPortAverageTemperature(arg.out_u32(0xE4E3E2E1)); },
     .code = 264, .msg_size = 4, .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_SetCpuPortRate",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetCpuPortRate(0x14131211, 0x91); },
     .code = 265, .msg_size = 12, .request = "+24 11121314 +28 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortEgressBlock",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_SetPortEgressBlock(0x14131211, 0x24232221, arg.in("C1..D0"));
     },
     .code = 266, .msg_size = 28, .request = "+24 11121314 +28 21222324 +32 C1..C8 +40 C9..D0", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortTrafficTxRx",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortTrafficTxRx(0x14131211, 0x24232221, 0x91); },
     .code = 289, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortStationMoveAction",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortStationMoveAction(0x14131211, 0x24232221, 0x91, 0x92); },
     .code = 292, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 91 +33 92", .reply_size = 4},

    // "9a.bc"
    {.function = "DEV_SWDRV_PMGR_GetCPLDSoftwareVersion",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_GetCPLDSoftwareVersion(0x14131211, arg.out("39612E626300")); },
     .code = 293, .msg_size = 8, .request = "+24 11121314", .reply_size = 8, .reply = "+24 9A +26 BC"},

    // "01.0a"
    {.function = "DEV_SWDRV_PMGR_GetCPLDSoftwareVersion", .branch = "small_numbers",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_GetCPLDSoftwareVersion(0x14131211, arg.out("30312E306100")); },
     .code = 293, .msg_size = 8, .request = "+24 11121314", .reply_size = 8, .reply = "+24 01 +26 0A"},

    {.function = "DEV_SWDRV_PMGR_GetCPLDSoftwareVersion", .branch = "refused",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_GetCPLDSoftwareVersion(0x14131211, arg.kept(6)); },
     .code = 293, .msg_size = 8, .request = "+24 11121314",
     .reply_size = 8, .reply_type = refused, .reply = "+24 9A +26 BC"},

    {.function = "DEV_SWDRV_PMGR_GetCPLDSoftwareVersion", .branch = "null_text",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_GetCPLDSoftwareVersion(0x14131211, nullptr); }},

    {.function = "DEV_SWDRV_PMGR_SetPortSfpConnector",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortSfpConnector(0x14131211, 0x24232221, 0x91); },
     .code = 294, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 91", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetPortFec",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetPortFec(0x14131211, 0x24232221, 0x34333231); },
     .code = 298, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_GetPortFecStatus",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_GetPortFecStatus(0x14131211, 0x24232221, arg.out_u32(0xE4E3E2E1));
     },
     .code = 299, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_GetDeviceTemperature",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_GetDeviceTemperature(arg.out_u32(0xE4E3E2E1)); },
     .code = 301, .msg_size = 4, .reply_size = 8, .reply = "+24 E1E2E3E4"},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
