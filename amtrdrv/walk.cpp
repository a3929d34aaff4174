// Walking the table, one entry or one batch at a time.
#include <assert.h>
#include <stdint.h>
#include <string.h>

#include "amtrdrv/commands.h"
#include "ipc/exchange.h"
#include "quillon/amtrdrv.h"

namespace amtrdrv = quillon::amtrdrv;
using quillon::ipc::call;
using quillon::ipc::into;

uint8_t DEV_AMTRDRV_PMGR_ResetToFirstAddrTblEntry(uint32_t selector)
{
    return call<amtrdrv::ResetToFirstAddrTblEntry>({.value = selector});
}

uint32_t DEV_AMTRDRV_PMGR_GetNextAddrTblEntry(AddrTblEntry *entry)
{
    return call<amtrdrv::GetNextAddrTblEntry>({.value = *entry}, into(entry));
}

uint32_t DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry(AddrTblEntry *entries, uint32_t wanted, uint32_t *count)
{
    return call<amtrdrv::GetNextNAddrTblEntry>({.value = wanted}, [=](const amtrdrv::AddrTblBatch &reply) {
        assert(reply.count <= amtrdrv::AddrTblBatch::max_entries);
        *count = reply.count;
        memcpy(entries, reply.entries.data(), reply.count * sizeof(AddrTblEntry));
    });
}
