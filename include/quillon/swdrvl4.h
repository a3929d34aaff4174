/*
 * Client of the QoS service of the driver process.
 *
 * Every function may be called from any thread once the start-up function has run.
 */
#ifndef QUILLON_SWDRVL4_H
#define QUILLON_SWDRVL4_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/*
 * Attaches the process to the driver process's queue of key 24. To be called once, before the family's first request
 * and before the process's threads make requests. Calling it again attaches again.
 *
 * Returns nothing and prints nothing when the queue is missing: the first request then fails, with its failure report.
 */
void DEV_SWDRVL4_PMGR_InitiateProcessResource(void);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
