#include <inttypes.h>
#include <quillon/swdrv.h>
#include <stdio.h>

int main(void)
{
    uint32_t type = 0;
    DEV_SWDRV_PMGR_InitiateProcessResource();
    uint8_t answered = DEV_SWDRV_PMGR_GetPortType(1, 1, &type);
    printf("%u %" PRIu32 "\n", answered, type);
    return 0;
}
