// Attaches the process to the family's queues.
#include "ipc/queue_handle.h"
#include "quillon/swdrv.h"
#include "swdrv/family.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::attach;

// A queue that is missing shows in the first request that needs it.
void DEV_SWDRV_PMGR_InitiateProcessResource(void)
{
    attach<swdrv::MainQueue>();
    attach<swdrv::TwsiQueue>();
}
