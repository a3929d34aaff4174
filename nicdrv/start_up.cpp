// Attaches the process to the family's queues.
#include <stdint.h>

#include "ipc/failure_report.h"
#include "ipc/queue_handle.h"
#include "nicdrv/family.h"
#include "quillon/nicdrv.h"

namespace nicdrv = quillon::nicdrv;
using quillon::ipc::attach;
using quillon::ipc::report_attach_failure;

uint8_t DEV_NICDRV_PMGR_InitiateProcessResource(void)
{
    if (attach<nicdrv::MainQueue>() && attach<nicdrv::FreeQueue>()) {
        return 1;
    }
    report_attach_failure(__func__);
    return 0;
}
