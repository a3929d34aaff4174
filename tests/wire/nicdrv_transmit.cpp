// Packets to send. They stay in the IPC memory: a request carries their offsets, which the platform gives.
#include <string>

#include "quillon/nicdrv.h"
#include "support/recording_platform.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// A packet that lies at these offsets from the start of the IPC memory and of the transmit area.
const void *packet_at(uint32_t offset, uint32_t tx_offset)
{
    static const char packet = 0;
    platform().ipc_places[&packet] = {.offset = offset, .tx_offset = tx_offset};
    return &packet;
}

// A descriptor up to its buffer kind, behind which nothing may be read.
const void *descriptor_at(Arguments &arg, const char *buffer_kind, uint32_t tx_offset)
{
    const void *descriptor = arg.in(std::string("C5*72 ") + buffer_kind);
    platform().ipc_places[descriptor] = {.offset = 0x8A8B8C8D, .tx_offset = tx_offset};
    return descriptor;
}

// clang-format off
const WireRows transmit{
    {.function = "DEV_NICDRV_PMGR_SendPacketToPort",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_SendPacketToPort(0x14131211, 0x24232221, 0x91, 0xA2A1,
                                                 packet_at(0x7A7B7C7D, 0x54535251), 0x34333231, 0x44434241,
                                                 0x6867666564636261, descriptor_at(arg, "0000", 0x78777675));
     },
     .code = 0, .msg_size = 44,
     .request = "+24 11121314 +28 21222324 +32 91 +34 A1A2 +36 51525354 +40 31323334 +44 41424344 "
                "+48 6162636465666768 +56 75767778 00000000",
     .reply_size = 4},

    {.function = "DEV_NICDRV_PMGR_SendPacketToPort", .branch = "received_buffer",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_SendPacketToPort(0x14131211, 0x24232221, 0x91, 0xA2A1,
                                                 packet_at(0x7A7B7C7D, 0x54535251), 0x34333231, 0x44434241,
                                                 0x6867666564636261, descriptor_at(arg, "0100", 0xF8F7F6F5));
     },
     .code = 0, .msg_size = 44,
     .request = "+24 11121314 +28 21222324 +32 91 +34 A1A2 +36 7D7C7B7A +40 31323334 +44 41424344 "
                "+48 6162636465666768 +56 F5F6F7F8 FFFFFFFF",
     .reply_size = 4},

    // The kind is all of its two bytes.
    {.function = "DEV_NICDRV_PMGR_SendPacketToPort", .branch = "kind_0x0101",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_SendPacketToPort(0x14131211, 0x24232221, 0x91, 0xA2A1,
                                                 packet_at(0x7A7B7C7D, 0x54535251), 0x34333231, 0x44434241,
                                                 0x6867666564636261, descriptor_at(arg, "0101", 0x78777675));
     },
     .code = 0, .msg_size = 44,
     .request = "+24 11121314 +28 21222324 +32 91 +34 A1A2 +36 51525354 +40 31323334 +44 41424344 "
                "+48 6162636465666768 +56 75767778 00000000",
     .reply_size = 4},

    {.function = "DEV_NICDRV_PMGR_SendPacketToPort", .branch = "no_descriptor",
     .call = [](Arguments &) {
         return DEV_NICDRV_PMGR_SendPacketToPort(0x14131211, 0x24232221, 0x91, 0xA2A1, packet_at(1, 2), 0x34333231,
                                                 0x44434241, 0x6867666564636261, nullptr);
     }},

    {.function = "DEV_NICDRV_PMGR_SendPacketByPort",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_SendPacketByPort(0x14131211, 0x24232221, 0x91, packet_at(0x7A7B7C7D, 0x54535251),
                                                 0x34333231, 0x44434241, 0x6867666564636261,
                                                 descriptor_at(arg, "0200", 0x78777675));
     },
     .code = 1, .msg_size = 44,
     .request = "+24 11121314 +28 21222324 +32 91 +36 51525354 +40 31323334 +44 41424344 +48 6162636465666768 "
                "+56 75767778 00000000",
     .reply_size = 4},

    {.function = "DEV_NICDRV_PMGR_SendPacketByPort", .branch = "received_buffer",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_SendPacketByPort(0x14131211, 0x24232221, 0x91, packet_at(0x7A7B7C7D, 0x54535251),
                                                 0x34333231, 0x44434241, 0x6867666564636261,
                                                 descriptor_at(arg, "0100", 0xF8F7F6F5));
     },
     .code = 1, .msg_size = 44,
     .request = "+24 11121314 +28 21222324 +32 91 +36 7D7C7B7A +40 31323334 +44 41424344 +48 6162636465666768 "
                "+56 F5F6F7F8 FFFFFFFF",
     .reply_size = 4},

    {.function = "DEV_NICDRV_PMGR_SendPacketByPort", .branch = "no_descriptor",
     .call = [](Arguments &) {
         return DEV_NICDRV_PMGR_SendPacketByPort(0x14131211, 0x24232221, 0x91, packet_at(1, 2), 0x34333231, 0x44434241,
                                                 0x6867666564636261, nullptr);
     }},

    {.function = "DEV_NICDRV_PMGR_SendPacketByPortList",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_SendPacketByPortList(0x14131211, arg.in("81..88"), arg.in("B1..B8"),
                                                     packet_at(0x7A7B7C7D, 0x54535251), 0x34333231, 0x44434241,
                                                     0x6867666564636261, descriptor_at(arg, "0000", 0x78777675));
     },
     .code = 7, .msg_size = 52,
     .request = "+24 11121314 +28 81..88 +36 B1..B8 +44 51525354 +48 31323334 +52 41424344 +56 6162636465666768 "
                "+64 75767778 00000000",
     .reply_size = 4},

    {.function = "DEV_NICDRV_PMGR_SendPacketByPortList", .branch = "received_buffer",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_SendPacketByPortList(0x14131211, arg.in("81..88"), arg.in("B1..B8"),
                                                     packet_at(0x7A7B7C7D, 0x54535251), 0x34333231, 0x44434241,
                                                     0x6867666564636261, descriptor_at(arg, "0100", 0xF8F7F6F5));
     },
     .code = 7, .msg_size = 52,
     .request = "+24 11121314 +28 81..88 +36 B1..B8 +44 7D7C7B7A +48 31323334 +52 41424344 +56 6162636465666768 "
                "+64 F5F6F7F8 FFFFFFFF",
     .reply_size = 4},

    {.function = "DEV_NICDRV_PMGR_SendPacketByPortList", .branch = "no_descriptor",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_SendPacketByPortList(0x14131211, arg.in("81..88"), arg.in("B1..B8"), packet_at(1, 2),
                                                     0x34333231, 0x44434241, 0x6867666564636261, nullptr);
     }},

    // Both offsets are 64 bits wide here.
    {.function = "DEV_NICDRV_PMGR_SendPacketByVid",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_SendPacketByVid(0x14131211, packet_at(0x7A7B7C7D, 0x54535251), 0x34333231, 0x44434241,
                                                0x6867666564636261, descriptor_at(arg, "0000", 0x78777675));
     },
     .code = 10, .msg_size = 44,
     .request = "+24 11121314 +32 51525354 00000000 +40 31323334 +44 41424344 +48 6162636465666768 "
                "+56 75767778 00000000",
     .reply_size = 4},

    {.function = "DEV_NICDRV_PMGR_SendPacketByVid", .branch = "received_buffer",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_SendPacketByVid(0x14131211, packet_at(0xFAFBFCFD, 0x54535251), 0x34333231, 0x44434241,
                                                0x6867666564636261, descriptor_at(arg, "0100", 0xF8F7F6F5));
     },
     .code = 10, .msg_size = 44,
     .request = "+24 11121314 +32 FDFCFBFA FFFFFFFF +40 31323334 +44 41424344 +48 6162636465666768 "
                "+56 F5F6F7F8 FFFFFFFF",
     .reply_size = 4},

    {.function = "DEV_NICDRV_PMGR_SendPacketByVid", .branch = "no_descriptor",
     .call = [](Arguments &) {
         return DEV_NICDRV_PMGR_SendPacketByVid(0x14131211, packet_at(1, 2), 0x34333231, 0x44434241,
                                                0x6867666564636261, nullptr);
     }},

    {.function = "DEV_NICDRV_PMGR_SendIUCPacket",
     .call = [](Arguments &) {
         return DEV_NICDRV_PMGR_SendIUCPacket(packet_at(0x7A7B7C7D, 0xF4F3F2F1), 0xA2A1, 0x91, 0x24232221);
     },
     .code = 11, .msg_size = 16, .request = "+24 F1F2F3F4 +28 A1A2 +30 91 +32 21222324", .reply_size = 4},

    {.function = "DEV_NICDRV_PMGR_AddPacketGenByPort",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_AddPacketGenByPort(0x14131211, 0x24232221, 0x91, packet_at(0x7A7B7C7D, 0x54535251),
                                                   0x34333231, 0x44434241, descriptor_at(arg, "0000", 0x78777675), 0x92,
                                                   arg.out_u32(0xE4E3E2E1));
     },
     .code = 2, .msg_size = 68,
     .request = "+24 11121314 +28 21222324 +32 91 +36 51525354 +40 31323334 +44 41424344 +48 75767778 00000000 +56 92 "
                "+60 00000000",
     .reply_size = 68, .reply = "+60 E1E2E3E4"},

    {.function = "DEV_NICDRV_PMGR_AddPacketGenByPort", .branch = "received_buffer_refused",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_AddPacketGenByPort(0x14131211, 0x24232221, 0x91, packet_at(0x7A7B7C7D, 0x54535251),
                                                   0x34333231, 0x44434241, descriptor_at(arg, "0100", 0xF8F7F6F5), 0x92,
                                                   arg.out_u32(0xE4E3E2E1));
     },
     .code = 2, .msg_size = 68,
     .request = "+24 11121314 +28 21222324 +32 91 +36 7D7C7B7A +40 31323334 +44 41424344 +48 F5F6F7F8 FFFFFFFF +56 92 "
                "+60 00000000",
     .reply_size = 68, .reply_type = refused, .reply = "+60 E1E2E3E4"},

    {.function = "DEV_NICDRV_PMGR_AddPacketGenByPort", .branch = "no_descriptor",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_AddPacketGenByPort(0x14131211, 0x24232221, 0x91, packet_at(1, 2), 0x34333231,
                                                   0x44434241, nullptr, 0x92, arg.out_u32(0xE4E3E2E1));
     }},

    {.function = "DEV_NICDRV_PMGR_UpdatePacketGenByPort",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_UpdatePacketGenByPort(0x14131211, 0x24232221, 0x91, packet_at(0x7A7B7C7D, 0x54535251),
                                                      0x34333231, 0x44434241, descriptor_at(arg, "0000", 0x78777675),
                                                      0x92, 0x84838281);
     },
     .code = 3, .msg_size = 68,
     .request = "+24 11121314 +28 21222324 +32 91 +36 51525354 +40 31323334 +44 41424344 +48 75767778 00000000 +56 92 "
                "+60 81828384",
     .reply_size = 68},

    {.function = "DEV_NICDRV_PMGR_UpdatePacketGenByPort", .branch = "received_buffer",
     .call = [](Arguments &arg) {
         return DEV_NICDRV_PMGR_UpdatePacketGenByPort(0x14131211, 0x24232221, 0x91, packet_at(0x7A7B7C7D, 0x54535251),
                                                      0x34333231, 0x44434241, descriptor_at(arg, "0100", 0xF8F7F6F5),
                                                      0x92, 0x84838281);
     },
     .code = 3, .msg_size = 68,
     .request = "+24 11121314 +28 21222324 +32 91 +36 7D7C7B7A +40 31323334 +44 41424344 +48 F5F6F7F8 FFFFFFFF +56 92 "
                "+60 81828384",
     .reply_size = 68},

    {.function = "DEV_NICDRV_PMGR_UpdatePacketGenByPort", .branch = "no_descriptor",
     .call = [](Arguments &) {
         return DEV_NICDRV_PMGR_UpdatePacketGenByPort(0x14131211, 0x24232221, 0x91, packet_at(1, 2), 0x34333231,
                                                      0x44434241, nullptr, 0x92, 0x84838281);
     }},

    {.function = "DEV_NICDRV_PMGR_RemovePacketGen",
     .call = [](Arguments &) { return DEV_NICDRV_PMGR_RemovePacketGen(0x91, 0x14131211); },
     .code = 4, .msg_size = 68, .request = "+56 91 +60 11121314", .reply_size = 68},

    {.function = "DEV_NICDRV_PMGR_EnablePacketGen",
     .call = [](Arguments &) { return DEV_NICDRV_PMGR_EnablePacketGen(0x91, 0x92, 0x93, 0x14131211); },
     .code = 5, .msg_size = 68, .request = "+56 91 +64 92 +65 93 +68 11121314", .reply_size = 68},

    {.function = "DEV_NICDRV_PMGR_SetPacketGenRate",
     .call = [](Arguments &arg) {
         const uint64_t wanted_rate = 0x1817161514131211;
         return DEV_NICDRV_PMGR_SetPacketGenRate(0x91, &wanted_rate, arg.out_u64(0xE8E7E6E5E4E3E2E1));
     },
     .code = 6, .msg_size = 68, .request = "+56 91 +72 1112131415161718 +80 0000000000000000",
     .reply_size = 68, .reply = "+80 E1E2E3E4E5E6E7E8"},
};

}  // namespace
}  // namespace quillon::test
