// How a client comes by the run's shared memory. C library only.
#ifndef QUILLON_HOST_PLATFORM_RUN_OFFER_H
#define QUILLON_HOST_PLATFORM_RUN_OFFER_H

#include <cstdint>

#include "host/platform/shared_memory.h"

namespace quillon::host {

// The driver process's one packet on a client's connection, which brings the memory's descriptor. The connection is
// kept: it ends with the run, or with the client.
struct RunOffer {
    static constexpr uint32_t kMagic = 0x6e6c6c72;
    static constexpr uint32_t kVersion = 1;

    uint32_t magic = kMagic;
    uint32_t version = kVersion;
    uint64_t run = 0;    // no other run of this machine has the same
    int32_t client = 0;  // as the driver process knows it: task ids mean nothing between PID namespaces
    uint32_t reserved = 0;
    MemoryMap map = {};

    bool is_ours() const { return magic == kMagic && version == kVersion; }
};

// Sends it with the descriptor of the memory, without waiting.
bool send_offer(int socket, const RunOffer &offer, int memory);

// Receives what is there. The descriptor is the caller's then, and -1 if there is none. Returns the packet's size, 0
// when the driver process is gone, or -1 with errno, which is EMFILE when there is no room for the descriptor.
ssize_t receive_offer(int socket, RunOffer &offer, int &memory);

}  // namespace quillon::host

#endif
