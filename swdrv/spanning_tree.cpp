// Spanning-tree mode and port states.
#include <assert.h>
#include <stdint.h>
#include <string.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;
using quillon::ipc::Exchange;

uint8_t DEV_SWDRV_PMGR_SetSTAMode(uint32_t mode)
{
    return call<swdrv::SetSTAMode>({.value = mode});
}

// Irregular: the member is filled in place, so that its 8 KB are cleared once and the list is copied once. How long the
// list is, is the caller's to keep.
uint8_t DEV_SWDRV_PMGR_SetPortSTAState(uint32_t value1, uint32_t entry_count, const uint16_t *entries, uint32_t value2,
                                       uint32_t value3, uint32_t value4)
{
    assert(entry_count <= swdrv::PortStaState::max_entries);
    Exchange<swdrv::SetPortSTAState> exchange;
    swdrv::PortStaState &request = exchange.request();
    request.value1 = value1;
    request.entry_count = entry_count;
    if (entry_count != 0) {
        memcpy(request.entries.data(), entries, entry_count * sizeof *entries);
    }
    request.value2 = value2;
    request.value3 = value3;
    request.value4 = value4;
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGR_SetPortSTAStateWithMstidx(uint32_t value1, uint32_t value2, uint32_t value3, uint32_t value4)
{
    return call<swdrv::SetPortSTAStateWithMstidx>({.values = {value1, value2, value3, value4}});
}

uint8_t DEV_SWDRV_PMGR_AddVlanToSTAWithMstidx(uint32_t value1, uint32_t value2)
{
    return call<swdrv::AddVlanToSTAWithMstidx>({.values = {value1, value2}});
}

uint8_t DEV_SWDRV_PMGR_DeleteVlanFromSTAWithMstidx(uint32_t value1, uint32_t value2)
{
    return call<swdrv::DeleteVlanFromSTAWithMstidx>({.values = {value1, value2}});
}
