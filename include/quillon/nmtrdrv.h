/*
 * Client of the port counters of the driver process.
 *
 * Every request function asks the driver process, waits for its answer without a time-out and returns its verdict.
 * Unless a function says otherwise:
 *
 * - It returns 1 when the driver process did what was asked and 0 when it refused.
 * - Outputs are written whenever the exchange with the driver process succeeded, also when it refused. They are not
 *   tested for null.
 * - When the exchange fails (no driver process, or it died), the function prints a failure report on standard output,
 *   runs "cat /proc/<task>/ustack" to dump the calling task's stack, prints
 *   "<function>:SYSFUN_SendRequestMsg fail! (<status>)", writes no output and returns 0.
 * - Arguments are not tested here: they go to the driver process as they are, and it refuses what it does not know.
 * - Any thread may call it once DEV_NMTRDRV_PMGR_InitiateProcessResource has run.
 */
#ifndef QUILLON_NMTRDRV_H
#define QUILLON_NMTRDRV_H

#include <stdint.h>

#include "quillon/record.h"

#ifdef __cplusplus
extern "C" {
#endif

/*
 * The interface table statistics of one port. The driver process lays the counters out, here and in the records below;
 * replies carry the bytes unchanged.
 */
typedef struct IfTableStats {
    uint8_t bytes[96];
} IfTableStats;

/* The extended interface table statistics of one port. */
typedef struct IfXTableStats {
    uint8_t bytes[104];
} IfXTableStats;

/* The RMON statistics of one port. */
typedef struct RmonStats {
    uint8_t bytes[136];
} RmonStats;

/* The Ethernet-like statistics of one port. */
typedef struct EtherLikeStats {
    uint8_t bytes[120];
} EtherLikeStats;

/* The pause statistics of one port as an Ethernet-like interface. */
typedef struct EtherLikePause {
    uint8_t bytes[24];
} EtherLikePause;

/*
 * What a port can count: a u64 and, behind it without a gap, a u16. What they say is the driver process's.
 */
typedef struct StatsAbility {
    uint8_t bytes[10];
} StatsAbility;

QUILLON_RECORD_SIZE(IfTableStats, 96);
QUILLON_RECORD_SIZE(IfXTableStats, 104);
QUILLON_RECORD_SIZE(RmonStats, 136);
QUILLON_RECORD_SIZE(EtherLikeStats, 120);
QUILLON_RECORD_SIZE(EtherLikePause, 24);
QUILLON_RECORD_SIZE(StatsAbility, 10);

/* The most ports whose statistics one request brings. */
enum { QUILLON_STATS_PORTS = 30 };

#pragma GCC visibility push(default)

/*
 * Attaches the process to the driver process's queue of key 24. To be called once, before the family's first request
 * and before the process's threads make requests. Calling it again attaches again.
 *
 * When the queue is missing, prints
 * "DEV_NMTRDRV_PMGR_InitiateProcessResource(): SYSFUN_GetMsgQ fail."
 * on standard output and returns; requests then fail, each with its failure report.
 */
void DEV_NMTRDRV_PMGR_InitiateProcessResource(void);

/* ---- Clearing ---- */

/*
 * Clears the counters of port `port` of the stack's unit `unit`.
 */
uint8_t DEV_NMTRDRV_PMGR_ClearPortCounter(uint32_t unit, uint32_t port);

/*
 * Clears the counters of all ports.
 */
uint8_t DEV_NMTRDRV_PMGR_ClearAllCounters(void);

/* ---- Statistics of a range of ports ----
 *
 * Each function stores one record for each port from `first_port` to `last_port`, both included, in `records`, which
 * has room for that many. `selector` is passed to the driver process as it is.
 *
 * The caller keeps the range within QUILLON_STATS_PORTS ports: that is not tested, and more would be read from behind
 * the reply. A range may end at the largest u32. One whose `last_port` is `first_port` - 1 is empty: the driver process
 * is asked and nothing is stored.
 *
 * RMON, Ethernet-like and pause statistics need memory for the exchange, which is freed before they return. Without it
 * they print a new line and "<function>(<line>): Failed to malloc <size> bytes" on standard output, ask nothing, store
 * nothing and return 0.
 */

/*
 * Interface table statistics, 96 bytes a port.
 */
uint8_t DEV_NMTRDRV_PMGR_GetIfTableStats(uint32_t selector, uint32_t first_port, uint32_t last_port,
                                         IfTableStats *records);

/*
 * Extended interface table statistics, 104 bytes a port.
 */
uint8_t DEV_NMTRDRV_PMGR_GetIfXTableStats(uint32_t selector, uint32_t first_port, uint32_t last_port,
                                          IfXTableStats *records);

/*
 * RMON statistics, 136 bytes a port.
 */
uint8_t DEV_NMTRDRV_PMGR_GetRmonStats(uint32_t selector, uint32_t first_port, uint32_t last_port, RmonStats *records);

/*
 * Ethernet-like statistics, 120 bytes a port.
 */
uint8_t DEV_NMTRDRV_PMGR_GetEtherLikeStats(uint32_t selector, uint32_t first_port, uint32_t last_port,
                                           EtherLikeStats *records);

/*
 * Pause statistics of Ethernet-like interfaces, 24 bytes a port.
 */
uint8_t DEV_NMTRDRV_PMGR_GetEtherLikePause(uint32_t selector, uint32_t first_port, uint32_t last_port,
                                           EtherLikePause *records);

/*
 * Extended interface table statistics that automatic traffic control works with, 104 bytes a port.
 */
uint8_t DEV_NMTRDRV_PMGR_GetAutoTrafficControlIfXTableStats(uint32_t selector, uint32_t first_port, uint32_t last_port,
                                                            IfXTableStats *records);

/* ---- What a port can count ---- */

/*
 * Stores what port `port` of unit `unit` can count in `*ability`: 10 bytes, as they came.
 */
uint8_t DEV_NMTRDRV_PMGR_GetStatsAbility(uint32_t unit, uint32_t port, StatsAbility *ability);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
