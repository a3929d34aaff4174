// What the codes mean that the switch chip attaches to a packet for the CPU.
#include <stdint.h>

#include "quillon/nicdrv.h"

namespace {

struct PacketClass {
    int32_t cpu_code;
    uint32_t class_id;
};

constexpr PacketClass packet_classes[] = {
    {5, 501}, {7, 501}, {8, 501}, {9, 501}, {23, 503}, {10, 504}, {11, 504}, {12, 504}, {13, 504}, {24, 505},
};

}  // namespace

uint32_t DEV_NICDRV_LIB_ReceivePacketReason(uint32_t cpu_code)
{
    switch (cpu_code) {
        case 37:
        case 271:
            return 2;
        case 401:
        case 406:
            return 32;
        default:
            return 0;
    }
}

uint32_t DEV_NICDRV_LIB_CosValue(uint32_t cos)
{
    return cos;
}

uint32_t DEV_NICDRV_LIB_PktClassId(int32_t cpu_code)
{
    for (const PacketClass &packet_class : packet_classes) {
        if (packet_class.cpu_code == cpu_code) {
            return packet_class.class_id;
        }
    }
    return 0;
}

uint32_t DEV_NICDRV_LIB_BpduCpuCode(uint8_t flag)
{
    return flag == 1 ? 502 : 326;
}
