// Devices on the TWSI buses, the PoE controller, and two LED requests.
#include "quillon/swdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows twsi_poe{
    {.function = "DEV_SWDRV_PMGR_PhyLightPortLedNormal",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_PhyLightPortLedNormal(); },
     .code = 206, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_TwsiInit",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_TwsiInit(); },
     .code = 207, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_TwsiRegisterWrite",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_TwsiRegisterWrite(0x14131211, 0x24232221, 0x34333231); },
     .code = 208, .msg_size = 16, .request = "+24 11121314 +28 21222324 +32 31323334", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_TwsiRegisterRead",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_TwsiRegisterRead(0x14131211, 0x24232221, arg.out_u32(0xE4E3E2E1));
     },
     .code = 209, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 8, .reply = "+24 E1E2E3E4"},

    // A byte is asked for that nobody reads.
    {.function = "DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx(0x91, 0x92, 0x93, 0x94, 0x14131211, 0x95, arg.in("C1..C5"), 5);
     },
     .code = 210, .msg_size = 272, .request = "+24 91 +25 92 +26 93 +27 94 +28 11121314 +32 95 +33 C1..C5 +288 05",
     .reply_size = 5},

    {.function = "DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx", .branch = "length_0",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx(0x91, 0x92, 0x93, 0x94, 0x14131211, 0x95, nullptr, 0);
     },
     .code = 210, .msg_size = 272, .request = "+24 91929394 +28 11121314 +32 95", .reply_size = 5},

    {.function = "DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx", .branch = "length_1",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx(0x91, 0x92, 0x93, 0x94, 0x14131211, 0x95, arg.in("C1"), 1);
     },
     .code = 210, .msg_size = 272, .request = "+24 91929394 +28 11121314 +32 95 +33 C1 +288 01", .reply_size = 5},

    {.function = "DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx", .branch = "length_255",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx(0x91, 0x92, 0x93, 0x94, 0x14131211, 0x95, arg.in("01..FF"), 255);
     },
     .code = 210, .msg_size = 272, .request = "+24 91929394 +28 11121314 +32 95 +33 01..FF +288 FF", .reply_size = 5},

    {.function = "DEV_SWDRV_PMGR_TwsiDataWrite",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_TwsiDataWrite(0x14131211, 0x24232221, 0x34333231, 0x44434241, 0x54535251,
                                             arg.in("C1..C5"), 0xA4A3A205);
     },
     .code = 210, .msg_size = 272, .request = "+24 00 +25 11 +26 21 +27 31 +28 41424344 +32 51 +33 C1..C5 +288 05",
     .sent_by = "DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx", .reply_size = 5},

    {.function = "DEV_SWDRV_PMGR_TwsiDataWrite", .branch = "length_256",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_TwsiDataWrite(0x14131211, 0x24232221, 0x34333231, 0x44434241, 0x54535251,
                                             arg.in("00..FF"), 256);
     },
     .code = 210, .msg_size = 272, .request = "+24 00112131 +28 41424344 +32 51",
     .sent_by = "DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx", .reply_size = 5},

    {.function = "DEV_SWDRV_PMGR_TwsiDataWrite", .branch = "length_300",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_TwsiDataWrite(0x14131211, 0x24232221, 0x34333231, 0x44434241, 0x54535251,
                                             arg.in("01..FF 01..2D"), 300);
     },
     .code = 210, .msg_size = 272, .request = "+24 00112131 +28 41424344 +32 51 +33 01..2C +288 2C",
     .sent_by = "DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx", .reply_size = 5},

    // Not the layout of the write.
    {.function = "DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(0x91, 0x92, 0x93, 0x94, 0x14131211, 0x95, 5, arg.out("C1..C5"));
     },
     .code = 211, .msg_size = 28, .request = "+24 91 +28 92000000 +32 93 +33 94 +36 11121314 +40 95 +41 05",
     .reply_size = 260, .reply = "+24 C1..DF"},

    {.function = "DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx", .branch = "refused",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(0x91, 0x92, 0x93, 0x94, 0x14131211, 0x95, 5, arg.out("C1..C5"));
     },
     .code = 211, .msg_size = 28, .request = "+24 91 +28 92 +32 9394 +36 11121314 +40 9505",
     .reply_size = 260, .reply_type = refused, .reply = "+24 C1..DF"},

    {.function = "DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx", .branch = "length_0",
     .call = [](Arguments &) {
         return DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(0x91, 0x92, 0x93, 0x94, 0x14131211, 0x95, 0, nullptr);
     },
     .code = 211, .msg_size = 28, .request = "+24 91 +28 92 +32 9394 +36 11121314 +40 95",
     .reply_size = 260, .reply = "+24 C1..DF"},

    {.function = "DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx", .branch = "length_1",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(0x91, 0x92, 0x93, 0x94, 0x14131211, 0x95, 1, arg.out("C1"));
     },
     .code = 211, .msg_size = 28, .request = "+24 91 +28 92 +32 9394 +36 11121314 +40 9501",
     .reply_size = 260, .reply = "+24 C1..DF"},

    {.function = "DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx", .branch = "length_255",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(0x91, 0x92, 0x93, 0x94, 0x14131211, 0x95, 255, arg.out("00..FE"));
     },
     .code = 211, .msg_size = 28, .request = "+24 91 +28 92 +32 9394 +36 11121314 +40 95FF",
     .reply_size = 260, .reply = "+24 00..FF"},

    {.function = "DEV_SWDRV_PMGR_TwsiDataRead",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_TwsiDataRead(0x14131211, 0x24232221, 0x34333231, 0x44434241, 0x54535251, 0xA4A3A205,
                                            arg.out("C1..C5"));
     },
     .code = 211, .msg_size = 28, .request = "+24 00 +28 11000000 +32 21 +33 31 +36 41424344 +40 51 +41 05",
     .sent_by = "DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx", .reply_size = 260, .reply = "+24 C1..DF"},

    {.function = "DEV_SWDRV_PMGR_TwsiDataRead", .branch = "length_256",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_TwsiDataRead(0x14131211, 0x24232221, 0x34333231, 0x44434241, 0x54535251, 256,
                                            arg.kept(256));
     },
     .code = 211, .msg_size = 28, .request = "+24 00 +28 11 +32 2131 +36 41424344 +40 51",
     .sent_by = "DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx", .reply_size = 260, .reply = "+24 00..FF"},

    {.function = "DEV_SWDRV_PMGR_TwsiDataRead", .branch = "length_300",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_TwsiDataRead(0x14131211, 0x24232221, 0x34333231, 0x44434241, 0x54535251, 300,
                                            arg.out("01..2C --*256"));
     },
     .code = 211, .msg_size = 28, .request = "+24 00 +28 11 +32 2131 +36 41424344 +40 512C",
     .sent_by = "DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx", .reply_size = 260, .reply = "+24 01..FF"},

    {.function = "DEV_SWDRV_PMGR_TwsiWrite",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_TwsiWrite(0x91, 0xA2A1, arg.in("C1..C5"), 5); },
     .code = 212, .msg_size = 276, .request = "+24 91 +26 A1A2 +28 C1..C5 +284 0500 +288 00*8", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_TwsiWrite", .branch = "length_0",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_TwsiWrite(0x91, 0xA2A1, nullptr, 0); },
     .code = 212, .msg_size = 276, .request = "+24 91 +26 A1A2 +28 00*256", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_TwsiWrite", .branch = "length_1",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_TwsiWrite(0x91, 0xA2A1, arg.in("C1"), 1); },
     .code = 212, .msg_size = 276, .request = "+24 91 +26 A1A2 +28 C1 +284 0100", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_TwsiWrite", .branch = "length_256",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_TwsiWrite(0x91, 0xA2A1, arg.in("00..FF"), 256); },
     .code = 212, .msg_size = 276, .request = "+24 91 +26 A1A2 +28 00..FF +284 0001", .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_TwsiWrite", .branch = "length_257",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_TwsiWrite(0x91, 0xA2A1, arg.in("00..FF 00"), 257); }},

    {.function = "DEV_SWDRV_PMGR_TwsiRead",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_TwsiRead(0x91, 0xA2A1, arg.out("C1..C5"), 5); },
     .code = 213, .msg_size = 20, .request = "+24 91 +26 A1A2 +28 0500 +32 00*8",
     .reply_size = 259, .reply = "+24 C1..DF"},

    {.function = "DEV_SWDRV_PMGR_TwsiRead", .branch = "refused",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_TwsiRead(0x91, 0xA2A1, arg.out("C1..C5"), 5); },
     .code = 213, .msg_size = 20, .request = "+24 91 +26 A1A2 +28 0500",
     .reply_size = 259, .reply_type = refused, .reply = "+24 C1..DF"},

    {.function = "DEV_SWDRV_PMGR_TwsiRead", .branch = "length_0",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_TwsiRead(0x91, 0xA2A1, nullptr, 0); },
     .code = 213, .msg_size = 20, .request = "+24 91 +26 A1A2", .reply_size = 259, .reply = "+24 C1..DF"},

    {.function = "DEV_SWDRV_PMGR_TwsiRead", .branch = "length_1",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_TwsiRead(0x91, 0xA2A1, arg.out("C1"), 1); },
     .code = 213, .msg_size = 20, .request = "+24 91 +26 A1A2 +28 0100", .reply_size = 259, .reply = "+24 C1..DF"},

    {.function = "DEV_SWDRV_PMGR_TwsiRead", .branch = "length_255",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_TwsiRead(0x91, 0xA2A1, arg.out("01..FF"), 255); },
     .code = 213, .msg_size = 20, .request = "+24 91 +26 A1A2 +28 FF00", .reply_size = 259, .reply = "+24 01..FF"},

    // A byte less than a write holds.
    {.function = "DEV_SWDRV_PMGR_TwsiRead", .branch = "length_256",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_TwsiRead(0x91, 0xA2A1, arg.kept(256), 256); }},

    {.function = "DEV_SWDRV_PMGR_MSCC_POE_Init",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_MSCC_POE_Init(); },
     .code = 216, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_MSCC_POE_Write",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_MSCC_POE_Write(arg.in("C1..C5"), 5, arg.out_u32(0xE4E3E2E1));
     },
     .code = 217, .msg_size = 262, .request = "+24 C1..C5 +280 0500", .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_MSCC_POE_Write", .branch = "refused",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_MSCC_POE_Write(arg.in("C1..C5"), 5, arg.out_u32(0xE4E3E2E1));
     },
     .code = 217, .msg_size = 262, .request = "+24 C1..C5 +280 0500",
     .reply_size = 8, .reply_type = refused, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_MSCC_POE_Write", .branch = "length_0",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_MSCC_POE_Write(nullptr, 0, arg.out_u32(0xE4E3E2E1)); },
     .code = 217, .msg_size = 262, .request = "+24 00*256 +280 0000", .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_MSCC_POE_Write", .branch = "length_1",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_MSCC_POE_Write(arg.in("C1"), 1, arg.out_u32(0xE4E3E2E1)); },
     .code = 217, .msg_size = 262, .request = "+24 C1 +280 0100", .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_MSCC_POE_Write", .branch = "length_256",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_MSCC_POE_Write(arg.in("00..FF"), 256, arg.out_u32(0xE4E3E2E1));
     },
     .code = 217, .msg_size = 262, .request = "+24 00..FF +280 0001", .reply_size = 8, .reply = "+24 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_MSCC_POE_Write", .branch = "length_257",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_MSCC_POE_Write(arg.in("00..FF 00"), 257, arg.kept(4)); }},

    {.function = "DEV_SWDRV_PMGR_MSCC_POE_Read",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_MSCC_POE_Read(arg.out("C1..C5"), 5, arg.out_u32(0xE4E3E2E1));
     },
     .code = 218, .msg_size = 6, .request = "+24 0500", .reply_size = 264, .reply = "+24 C1..DF +280 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_MSCC_POE_Read", .branch = "refused",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_MSCC_POE_Read(arg.out("C1..C5"), 5, arg.out_u32(0xE4E3E2E1));
     },
     .code = 218, .msg_size = 6, .request = "+24 0500",
     .reply_size = 264, .reply_type = refused, .reply = "+24 C1..DF +280 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_MSCC_POE_Read", .branch = "length_0",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_MSCC_POE_Read(nullptr, 0, arg.out_u32(0xE4E3E2E1)); },
     .code = 218, .msg_size = 6, .request = "+24 0000", .reply_size = 264, .reply = "+24 C1..DF +280 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_MSCC_POE_Read", .branch = "length_1",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_MSCC_POE_Read(arg.out("C1"), 1, arg.out_u32(0xE4E3E2E1)); },
     .code = 218, .msg_size = 6, .request = "+24 0100", .reply_size = 264, .reply = "+24 C1..DF +280 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_MSCC_POE_Read", .branch = "length_256",
     .call = [](Arguments &arg) {
         return DEV_SWDRV_PMGR_MSCC_POE_Read(arg.out("00..FF"), 256, arg.out_u32(0xE4E3E2E1));
     },
     .code = 218, .msg_size = 6, .request = "+24 0001", .reply_size = 264, .reply = "+24 00..FF +280 E1E2E3E4"},

    {.function = "DEV_SWDRV_PMGR_MSCC_POE_Read", .branch = "length_257",
     .call = [](Arguments &arg) { return DEV_SWDRV_PMGR_MSCC_POE_Read(arg.kept(257), 257, arg.kept(4)); }},

    {.function = "DEV_SWDRV_PMGR_MSCC_POE_Exit",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_MSCC_POE_Exit(); },
     .code = 219, .msg_size = 4, .reply_size = 4},

    {.function = "DEV_SWDRV_PMGR_SetSysPoeLEDStatus",
     .call = [](Arguments &) { return DEV_SWDRV_PMGR_SetSysPoeLEDStatus(0x14131211, 0x24232221); },
     .code = 302, .msg_size = 12, .request = "+24 11121314 +28 21222324", .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
