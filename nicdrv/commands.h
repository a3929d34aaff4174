// The packet driver's requests: code, what each carries, what comes back.
//
// The envelopes are not cleared, and the unused bytes of a member are not either: stubs fill the fields in place.
#pragma once

#include <stdint.h>

#include <array>
#include <cstddef>

#include "ipc/envelope.h"
#include "nicdrv/family.h"
#include "quillon/nicdrv.h"

namespace quillon::nicdrv {

using ipc::Unused;

// ---- Transmit ----

using PortList8 = std::array<uint8_t, 8>;

// Packets stay in the IPC memory; a request says where, by offsets in it. Those that are 64 bits wide are the
// platform's 32-bit offset with its sign extended.
struct PacketToPort {
    uint32_t arg1;
    uint32_t arg2;
    uint8_t arg3;
    Unused<1> unused;
    uint16_t arg4;
    uint32_t data_offset;
    uint32_t arg6;
    uint32_t arg7;
    uint64_t arg8;
    int64_t descriptor_offset;
};
static_assert(offsetof(PacketToPort, arg4) == 10 && offsetof(PacketToPort, data_offset) == 12 &&
              offsetof(PacketToPort, arg8) == 24 && offsetof(PacketToPort, descriptor_offset) == 32);

struct PacketByPort {
    uint32_t arg1;
    uint32_t arg2;
    uint8_t arg3;
    Unused<3> unused;
    uint32_t data_offset;
    uint32_t arg5;
    uint32_t arg6;
    uint64_t arg7;
    int64_t descriptor_offset;
};
static_assert(offsetof(PacketByPort, data_offset) == 12 && offsetof(PacketByPort, arg7) == 24 &&
              offsetof(PacketByPort, descriptor_offset) == 32);

struct PacketByPortList {
    uint32_t arg1;
    PortList8 first_ports;
    PortList8 second_ports;
    uint32_t data_offset;
    uint32_t arg5;
    uint32_t arg6;
    uint64_t arg7;
    int64_t descriptor_offset;
};
static_assert(offsetof(PacketByPortList, first_ports) == 4 && offsetof(PacketByPortList, second_ports) == 12 &&
              offsetof(PacketByPortList, data_offset) == 20 && offsetof(PacketByPortList, arg7) == 32 &&
              offsetof(PacketByPortList, descriptor_offset) == 40);

struct PacketByVid {
    uint32_t arg1;
    Unused<4> unused;
    int64_t data_offset;
    uint32_t arg3;
    uint32_t arg4;
    uint64_t arg5;
    int64_t descriptor_offset;
};
static_assert(offsetof(PacketByVid, data_offset) == 8 && offsetof(PacketByVid, arg5) == 24 &&
              offsetof(PacketByVid, descriptor_offset) == 32);

struct IucPacket {
    uint32_t data_offset;
    uint16_t arg2;
    uint8_t arg3;
    Unused<1> unused;
    uint32_t arg4;
};
static_assert(offsetof(IucPacket, arg3) == 6 && offsetof(IucPacket, arg4) == 8);

using SendPacketToPort = Command<0, PacketToPort>;
using SendPacketByPort = Command<1, PacketByPort>;
using SendPacketByPortList = Command<7, PacketByPortList>;
using SendPacketByVid = Command<10, PacketByVid>;
using SendIUCPacket = Command<11, IucPacket>;

// ---- Packet generators ----

// One member for all of them, in both directions: a request fills the fields that it has.
struct PacketGen {
    uint32_t arg1;
    uint32_t arg2;
    uint8_t arg3;
    Unused<3> unused1;
    uint32_t data_offset;
    uint32_t arg5;
    uint32_t arg6;
    int64_t descriptor_offset;
    uint8_t generator;
    Unused<3> unused2;
    uint32_t entry;
    uint8_t enable_arg2;
    uint8_t enable_arg3;
    Unused<2> unused3;
    uint32_t enable_arg4;
    uint64_t wanted_rate;
    uint64_t rate;
};
static_assert(offsetof(PacketGen, data_offset) == 12 && offsetof(PacketGen, descriptor_offset) == 24 &&
              offsetof(PacketGen, generator) == 32 && offsetof(PacketGen, entry) == 36 &&
              offsetof(PacketGen, enable_arg2) == 40 && offsetof(PacketGen, enable_arg3) == 41 &&
              offsetof(PacketGen, enable_arg4) == 44 && offsetof(PacketGen, wanted_rate) == 48 &&
              offsetof(PacketGen, rate) == 56);

using AddPacketGenByPort = Command<2, PacketGen, PacketGen>;
using UpdatePacketGenByPort = Command<3, PacketGen, PacketGen>;
using RemovePacketGen = Command<4, PacketGen, PacketGen>;
using EnablePacketGen = Command<5, PacketGen, PacketGen>;
using SetPacketGenRate = Command<6, PacketGen, PacketGen>;

// ---- Received packets and statistics ----

struct RxBuffer {
    uint64_t buffer;
};

template <class T>
struct Record {
    T value;
};

using FreeRxPacket = FreeCommand<13, RxBuffer>;

// These ask for their records with as many bytes as bring them back; kept.
using RxSummary = Command<14, Unused<sizeof(NicRxSummary)>, Record<NicRxSummary>>;
using MemStatus = Command<15, Unused<sizeof(NicMemStatus)>, Record<NicMemStatus>>;
using PriInfo = Command<16, Unused<sizeof(NicPriInfo)>, Record<NicPriInfo>>;
using Clear = Command<17>;

}  // namespace quillon::nicdrv
