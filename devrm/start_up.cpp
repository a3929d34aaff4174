// Attaches the process to the family's queues.
#include "devrm/family.h"
#include "ipc/failure_report.h"
#include "ipc/queue_handle.h"
#include "quillon/devrm.h"

namespace devrm = quillon::devrm;
using quillon::ipc::attach;
using quillon::ipc::report_attach_failure;

void DEVRM_PMGR_InitiateProcessResource(void)
{
    if (!attach<devrm::MainQueue>()) {
        report_attach_failure("");
    }
}
