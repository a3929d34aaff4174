// Attaches the process to the shared record.
#include <stdint.h>
#include <stdio.h>

#include "nicdrv/attachment.h"
#include "quillon/nicdrv.h"

namespace nicdrv = quillon::nicdrv;
using nicdrv::nic_sem;
using nicdrv::nic_shmem;

namespace {

// Kept for whoever debugs the process: nothing here reads it.
void *nic_rx_buf_start = nullptr;

bool find_receive_buffers(const char *function)
{
    if (L_IPCMEM_GetRxBufStartAddress(&nic_rx_buf_start) != 0) {
        return true;
    }
    printf("\r\n%s: L_IPCMEM_GetRxBufStartAddress return FALSE\n", function);
    return false;
}

void attach_record()
{
    nic_shmem = static_cast<nicdrv::NicShMem *>(SYSRSC_MGR_GetShMem(nicdrv::shared_record_segment));
    SYSFUN_GetSem(nicdrv::shared_record_semaphore_key, &nic_sem);
}

}  // namespace

void DEV_NICDRV_OM_GetShMemInfo(uint32_t *segment_id, uint32_t *size)
{
    *segment_id = nicdrv::shared_record_segment;
    *size = sizeof(nicdrv::NicShMem);
}

void DEV_NICDRV_OM_InitSystemResources(void)
{
    attach_record();
}

void DEV_NICDRV_OM_AttachSystemResources(void)
{
    if (find_receive_buffers(__func__)) {
        attach_record();
    }
}

// The count is that of all processes: one that starts forgets what the others hold.
uint8_t DEV_NICDRV_OM_InitateProcessResource(void)
{
    if (!find_receive_buffers(__func__)) {
        return 0;
    }
    attach_record();
    nicdrv::shared_record().fragment_held = 0;
    return 1;
}
