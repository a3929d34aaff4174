// How a request refers to what stays in the IPC memory.
#pragma once

#include <stdint.h>
#include <string.h>

#include "quillon/platform.h"

namespace quillon::nicdrv {

// Offsets that are 64 bits wide on the wire are negative where the platform's 32 bits are.
inline int64_t sign_extended(uint32_t offset)
{
    return static_cast<int32_t>(offset);
}

// The offset of a packet, by the one field of its buffer descriptor that is known here.
inline uint32_t offset_of_data(const void *data, const void *descriptor)
{
    constexpr size_t buffer_kind_offset = 72;
    constexpr uint16_t outside_transmit_area = 1;
    uint16_t buffer_kind;
    memcpy(&buffer_kind, static_cast<const char *>(descriptor) + buffer_kind_offset, sizeof buffer_kind);
    return buffer_kind == outside_transmit_area ? L_IPCMEM_GetOffset(data) : L_IPCMEM_GetTxOffset(data);
}

inline int64_t offset_of_descriptor(const void *descriptor)
{
    return sign_extended(L_IPCMEM_GetTxOffset(descriptor));
}

}  // namespace quillon::nicdrv
