/* stub_calls COUNT: makes each measured request so many times, for an instruction counter to look at. */
#include <errno.h>
#include <stdio.h>
#include <stdlib.h>

#include "minimal_stub.h"
#include "quillon/swdrv.h"

int main(int argc, char **argv)
{
    char *end = NULL;
    errno = 0;
    const unsigned long count = argc == 2 ? strtoul(argv[1], &end, 10) : 0;
    if (count == 0 || errno != 0 || *end != '\0') {
        fprintf(stderr, "usage: stub_calls COUNT\n");
        return 2;
    }
    DEV_SWDRV_PMGR_InitiateProcessResource();
    minimal_start_up();
    for (unsigned long call = 0; call < count; ++call) {
        uint32_t module_id = 0;
        DEV_SWDRV_PMGR_SetPortForceLinkDownStatus(1, 2, 1);
        minimal_set(1, 2, 1);
        DEV_SWDRV_PMGR_GetModuleIdFromLocalDeviceId(1, 2, &module_id);
        minimal_get(1, 2, &module_id);
    }
    return 0;
}
