/*
 * Offers the routing debug menu on the terminal.
 *
 *     quillon-run -- routing_menu
 *
 * The debug console lists its subsystems: 0 enters the routing menu, whose keys switch the routing of IPv4 and IPv6 on
 * and off in the driver process. Q leaves the menu, and then the console. Keys can come from a pipe as well:
 *
 *     printf 001qq | quillon-run -- routing_menu
 *
 * Exits with 0 when the operator has left the console, and with 1 when the input ended before.
 */
#include <stdio.h>
#include <stdlib.h>

#include "quillon/platform.h"
#include "quillon/swdrvl3.h"
#include "quillon/workstation.h"

int main(void)
{
    DEV_SWDRVL3_PMGR_InitiateProcessResource();
    if (DEV_SWDRVL3_PMGR_Create_InterCSC_Relation() != QUILLON_STATUS_OK) {
        fputs("routing_menu: the debug console does not take the menu\n", stderr);
        return EXIT_FAILURE;
    }
    return quillon_console_run() ? EXIT_SUCCESS : EXIT_FAILURE;
}
