// Attaches the process to the family's queues.
#include "ipc/failure_report.h"
#include "ipc/queue_handle.h"
#include "quillon/swdrvl3.h"
#include "swdrvl3/family.h"

namespace swdrvl3 = quillon::swdrvl3;
using quillon::ipc::attach;
using quillon::ipc::report_attach_failure;

void DEV_SWDRVL3_PMGR_InitiateProcessResource(void)
{
    if (!attach<swdrvl3::MainQueue>()) {
        report_attach_failure(__func__);
    }
}
