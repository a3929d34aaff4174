// Packets to send. All but the last are irregular: without a descriptor nothing is sent.
#include <stdint.h>
#include <string.h>

#include "ipc/exchange.h"
#include "nicdrv/commands.h"
#include "nicdrv/ipc_memory.h"
#include "quillon/nicdrv.h"

namespace nicdrv = quillon::nicdrv;
using nicdrv::offset_of_data;
using nicdrv::offset_of_descriptor;
using nicdrv::sign_extended;
using quillon::ipc::Exchange;

uint8_t DEV_NICDRV_PMGR_SendPacketToPort(uint32_t arg1, uint32_t arg2, uint8_t arg3, uint16_t arg4, const void *data,
                                         uint32_t arg6, uint32_t arg7, uint64_t arg8, const void *descriptor)
{
    if (descriptor == nullptr) {
        return nicdrv::SendPacketToPort::failure;
    }
    Exchange<nicdrv::SendPacketToPort> exchange;
    nicdrv::PacketToPort &request = exchange.request();
    request.arg1 = arg1;
    request.arg2 = arg2;
    request.arg3 = arg3;
    request.arg4 = arg4;
    request.data_offset = offset_of_data(data, descriptor);
    request.arg6 = arg6;
    request.arg7 = arg7;
    request.arg8 = arg8;
    request.descriptor_offset = offset_of_descriptor(descriptor);
    return exchange.run();
}

uint8_t DEV_NICDRV_PMGR_SendPacketByPort(uint32_t arg1, uint32_t arg2, uint8_t arg3, const void *data, uint32_t arg5,
                                         uint32_t arg6, uint64_t arg7, const void *descriptor)
{
    if (descriptor == nullptr) {
        return nicdrv::SendPacketByPort::failure;
    }
    Exchange<nicdrv::SendPacketByPort> exchange;
    nicdrv::PacketByPort &request = exchange.request();
    request.arg1 = arg1;
    request.arg2 = arg2;
    request.arg3 = arg3;
    request.data_offset = offset_of_data(data, descriptor);
    request.arg5 = arg5;
    request.arg6 = arg6;
    request.arg7 = arg7;
    request.descriptor_offset = offset_of_descriptor(descriptor);
    return exchange.run();
}

uint8_t DEV_NICDRV_PMGR_SendPacketByPortList(uint32_t arg1, const uint8_t *first_ports, const uint8_t *second_ports,
                                             const void *data, uint32_t arg5, uint32_t arg6, uint64_t arg7,
                                             const void *descriptor)
{
    if (descriptor == nullptr) {
        return nicdrv::SendPacketByPortList::failure;
    }
    Exchange<nicdrv::SendPacketByPortList> exchange;
    nicdrv::PacketByPortList &request = exchange.request();
    request.arg1 = arg1;
    memcpy(request.first_ports.data(), first_ports, request.first_ports.size());
    memcpy(request.second_ports.data(), second_ports, request.second_ports.size());
    request.data_offset = offset_of_data(data, descriptor);
    request.arg5 = arg5;
    request.arg6 = arg6;
    request.arg7 = arg7;
    request.descriptor_offset = offset_of_descriptor(descriptor);
    return exchange.run();
}

uint8_t DEV_NICDRV_PMGR_SendPacketByVid(uint32_t arg1, const void *data, uint32_t arg3, uint32_t arg4, uint64_t arg5,
                                        const void *descriptor)
{
    if (descriptor == nullptr) {
        return nicdrv::SendPacketByVid::failure;
    }
    Exchange<nicdrv::SendPacketByVid> exchange;
    nicdrv::PacketByVid &request = exchange.request();
    request.arg1 = arg1;
    request.data_offset = sign_extended(offset_of_data(data, descriptor));
    request.arg3 = arg3;
    request.arg4 = arg4;
    request.arg5 = arg5;
    request.descriptor_offset = offset_of_descriptor(descriptor);
    return exchange.run();
}

uint8_t DEV_NICDRV_PMGR_SendIUCPacket(const void *data, uint16_t arg2, uint8_t arg3, uint32_t arg4)
{
    Exchange<nicdrv::SendIUCPacket> exchange;
    nicdrv::IucPacket &request = exchange.request();
    request.data_offset = L_IPCMEM_GetTxOffset(data);
    request.arg2 = arg2;
    request.arg3 = arg3;
    request.arg4 = arg4;
    return exchange.run();
}
