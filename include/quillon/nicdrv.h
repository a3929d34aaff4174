/*
 * Client of the packet driver: the CPU packet path.
 *
 * Every function may be called from any thread once the start-up function has run.
 */
#ifndef QUILLON_NICDRV_H
#define QUILLON_NICDRV_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/*
 * Attaches the process to the packet driver's queues: key 25, and then key 52, on which received packets are given
 * back. Key 52 is tried only when key 25 is there. To be called once, before the family's first request and before the
 * process's threads make requests. Calling it again attaches again.
 *
 * Returns 1 when both queues are attached. Otherwise prints
 * "DEV_NICDRV_PMGR_InitiateProcessResource(): SYSFUN_GetMsgQ fail."
 * once on standard output and returns 0.
 */
uint8_t DEV_NICDRV_PMGR_InitiateProcessResource(void);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
