/*
 * Client of the rule manager of the driver process.
 *
 * Every function may be called from any thread once the start-up function has run.
 */
#ifndef QUILLON_DEVRM_H
#define QUILLON_DEVRM_H

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
 * "(): SYSFUN_GetMsgQ fail." (this family prints no function name)
 * on standard output and returns; requests then fail, each with its failure report.
 */
void DEVRM_PMGR_InitiateProcessResource(void);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
