// IP tunnels. The driver process has no requests for them: nothing is sent. Adding a tunnel fails; deleting one of its
// ends succeeds, for it is not there.
#include <stdint.h>

#include "quillon/swdrvl3.h"

uint8_t DEV_SWDRVL3_PMGR_AddTunnelInitiator(void)
{
    return 0;
}

uint8_t DEV_SWDRVL3_PMGR_UpdateTunnelTtl(void)
{
    return 0;
}

uint8_t DEV_SWDRVL3_PMGR_AddTunnelTerminator(void)
{
    return 0;
}

uint8_t DEV_SWDRVL3_PMGR_AddInetHostTunnelRoute(void)
{
    return 0;
}

uint8_t DEV_SWDRVL3_PMGR_DeleteTunnelTerminator(void)
{
    return 1;
}

uint8_t DEV_SWDRVL3_PMGR_DeleteTunnelInitiator(void)
{
    return 1;
}

uint8_t DEV_SWDRVL3_PMGR_DeleteInetHostTunnelRoute(void)
{
    return 0;
}
