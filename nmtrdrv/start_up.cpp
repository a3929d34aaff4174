// Attaches the process to the family's queues.
#include "ipc/failure_report.h"
#include "ipc/queue_handle.h"
#include "nmtrdrv/family.h"
#include "quillon/nmtrdrv.h"

namespace nmtrdrv = quillon::nmtrdrv;
using quillon::ipc::attach;
using quillon::ipc::report_attach_failure;

void DEV_NMTRDRV_PMGR_InitiateProcessResource(void)
{
    if (!attach<nmtrdrv::MainQueue>()) {
        report_attach_failure(__func__);
    }
}
