// Attaches the process to the family's queues.
#include "amtrdrv/family.h"
#include "ipc/failure_report.h"
#include "ipc/queue_handle.h"
#include "quillon/amtrdrv.h"

namespace amtrdrv = quillon::amtrdrv;
using quillon::ipc::attach;
using quillon::ipc::report_attach_failure;

void DEV_AMTRDRV_PMGR_InitiateProcessResource(void)
{
    if (!attach<amtrdrv::MainQueue>()) {
        report_attach_failure(__func__);
    }
}
