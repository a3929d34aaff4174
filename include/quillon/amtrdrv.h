/*
 * Client of the MAC address table of the driver process.
 *
 * Every function may be called from any thread once the start-up function has run.
 */
#ifndef QUILLON_AMTRDRV_H
#define QUILLON_AMTRDRV_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/*
 * Attaches the process to the driver process's queue of key 24. To be called once, before the family's first request
 * and before the process's threads make requests. Calling it again attaches again.
 *
 * When the queue is missing, prints
 * "DEV_AMTRDRV_PMGR_InitiateProcessResource(): SYSFUN_GetMsgQ fail."
 * on standard output and returns; requests then fail, each with its failure report.
 */
void DEV_AMTRDRV_PMGR_InitiateProcessResource(void);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
