// Packet generators.
#include <stdint.h>

#include "ipc/exchange.h"
#include "nicdrv/commands.h"
#include "nicdrv/ipc_memory.h"
#include "quillon/nicdrv.h"

namespace nicdrv = quillon::nicdrv;
using nicdrv::offset_of_data;
using nicdrv::offset_of_descriptor;
using nicdrv::PacketGen;
using quillon::ipc::Exchange;

// Irregular, as the next: without a descriptor nothing is sent.
uint8_t DEV_NICDRV_PMGR_AddPacketGenByPort(uint32_t arg1, uint32_t arg2, uint8_t arg3, const void *data, uint32_t arg5,
                                           uint32_t arg6, const void *descriptor, uint8_t generator, uint32_t *entry)
{
    if (descriptor == nullptr) {
        return nicdrv::AddPacketGenByPort::failure;
    }
    Exchange<nicdrv::AddPacketGenByPort> exchange;
    PacketGen &request = exchange.request();
    request.arg1 = arg1;
    request.arg2 = arg2;
    request.arg3 = arg3;
    request.data_offset = offset_of_data(data, descriptor);
    request.arg5 = arg5;
    request.arg6 = arg6;
    request.descriptor_offset = offset_of_descriptor(descriptor);
    request.generator = generator;
    request.entry = 0;
    return exchange.run([=](const PacketGen &reply) { *entry = reply.entry; });
}

uint8_t DEV_NICDRV_PMGR_UpdatePacketGenByPort(uint32_t arg1, uint32_t arg2, uint8_t arg3, const void *data,
                                              uint32_t arg5, uint32_t arg6, const void *descriptor, uint8_t generator,
                                              uint32_t entry)
{
    if (descriptor == nullptr) {
        return nicdrv::UpdatePacketGenByPort::failure;
    }
    Exchange<nicdrv::UpdatePacketGenByPort> exchange;
    PacketGen &request = exchange.request();
    request.arg1 = arg1;
    request.arg2 = arg2;
    request.arg3 = arg3;
    request.data_offset = offset_of_data(data, descriptor);
    request.arg5 = arg5;
    request.arg6 = arg6;
    request.descriptor_offset = offset_of_descriptor(descriptor);
    request.generator = generator;
    request.entry = entry;
    return exchange.run();
}

uint8_t DEV_NICDRV_PMGR_RemovePacketGen(uint8_t generator, uint32_t entry)
{
    Exchange<nicdrv::RemovePacketGen> exchange;
    PacketGen &request = exchange.request();
    request.generator = generator;
    request.entry = entry;
    return exchange.run();
}

uint8_t DEV_NICDRV_PMGR_EnablePacketGen(uint8_t generator, uint8_t arg2, uint8_t arg3, uint32_t arg4)
{
    Exchange<nicdrv::EnablePacketGen> exchange;
    PacketGen &request = exchange.request();
    request.generator = generator;
    request.enable_arg2 = arg2;
    request.enable_arg3 = arg3;
    request.enable_arg4 = arg4;
    return exchange.run();
}

uint8_t DEV_NICDRV_PMGR_SetPacketGenRate(uint8_t generator, const uint64_t *wanted_rate, uint64_t *rate)
{
    Exchange<nicdrv::SetPacketGenRate> exchange;
    PacketGen &request = exchange.request();
    request.generator = generator;
    request.wanted_rate = *wanted_rate;
    request.rate = 0;
    return exchange.run([=](const PacketGen &reply) { *rate = reply.rate; });
}
