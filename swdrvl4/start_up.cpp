// Attaches the process to the family's queues.
#include "ipc/queue_handle.h"
#include "quillon/swdrvl4.h"
#include "swdrvl4/family.h"

namespace swdrvl4 = quillon::swdrvl4;
using quillon::ipc::attach;

// A queue that is missing shows in the first request.
void DEV_SWDRVL4_PMGR_InitiateProcessResource(void)
{
    attach<swdrvl4::MainQueue>();
}
