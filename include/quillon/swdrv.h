/*
 * Client of the switch driver: ports, VLANs, spanning tree, trunks, stacking, PHYs and buses.
 *
 * Every request function asks the driver process, waits for its answer without a time-out and returns its verdict.
 * Unless a function says otherwise:
 *
 * - It returns 1 when the driver process did what was asked and 0 when it refused.
 * - Outputs are written whenever the exchange with the driver process succeeded, also when it refused. They are not
 *   tested for null.
 * - When the exchange fails (no driver process, or it died), the function prints a failure report on standard output,
 * runs "cat /proc/<task>/ustack" to dump the calling task's stack, writes no output and returns 0.
 * - Arguments are not tested here: the driver process refuses units, ports and values that it does not know.
 * - Any thread may call it once DEV_SWDRV_PMGR_InitiateProcessResource has run.
 *
 * `unit` is the number of a unit in the stack, `port` the number of a port on that unit.
 */
#ifndef QUILLON_SWDRV_H
#define QUILLON_SWDRV_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/*
 * Attaches the process to the switch driver's queues: key 24, and key 59 for the TWSI buses. The second is tried
 * whatever the first gave. To be called once, before the family's first request and before the process's threads make
 * requests. Calling it again attaches again.
 *
 * Returns nothing and prints nothing when a queue is missing: the requests that need it then fail, each with its
 * failure report.
 */
void DEV_SWDRV_PMGR_InitiateProcessResource(void);

/* ---- Unit, device and port mapping ---- */

/*
 * Asks for a reset of the switch chips. `flag` is passed to the driver process as it is; its meaning is the driver
 * process's.
 */
uint8_t DEV_SWDRV_PMGR_ResetOnDemand(uint8_t flag);

/*
 * Returns the number of switch chips of the local unit. A failed exchange gives 0 as well; only its report tells.
 */
uint8_t DEV_SWDRV_PMGR_GetLocalUnitChipsetNumber(void);

/*
 * Translates a logical port into the chips' own numbers: stores the module id in `*module_id`, the device id in
 * `*device_id` and the port of that device in `*phy_port`.
 */
uint8_t DEV_SWDRV_PMGR_Logical2PhyDevicePortID(uint32_t unit, uint32_t port, uint32_t *module_id, uint32_t *device_id,
                                               uint32_t *phy_port);

/*
 * As DEV_SWDRV_PMGR_Logical2PhyDevicePortID, with a request code of its own; the outputs are the same three.
 */
uint8_t DEV_SWDRV_PMGR_Logical2PhyDeviceID(uint32_t unit, uint32_t port, uint32_t *module_id, uint32_t *device_id,
                                           uint32_t *phy_port);

/*
 * Translates the chips' own numbers of a port back: stores its unit in `*unit` and its logical port in `*port`.
 */
uint8_t DEV_SWDRV_PMGR_Physical2LogicalPort(uint32_t module_id, uint32_t device_id, uint32_t phy_port, uint32_t *unit,
                                            uint32_t *port);

/*
 * Stores in `*device_id` the id that the chip with module id `module_id` has on `unit`.
 */
uint8_t DEV_SWDRV_PMGR_GetLocalDeviceIDFromModuleID(uint32_t unit, uint32_t module_id, uint32_t *device_id);

/*
 * Stores in `*module_id` the module id of the chip that is device `device_id` of `unit`.
 */
uint8_t DEV_SWDRV_PMGR_GetModuleIdFromLocalDeviceId(uint32_t unit, uint32_t device_id, uint32_t *module_id);

/*
 * Clears the automatically tuned equaliser (DFE) of the port's serdes, so that it is tuned anew.
 */
uint8_t DEV_SWDRV_PMGR_PortSerdesAutoTuneDfeClear(uint32_t unit, uint32_t port);

/*
 * Holds the port's link down while `force_down` is 1, whatever the cable says, and lets it go with 0.
 */
uint8_t DEV_SWDRV_PMGR_SetPortForceLinkDownStatus(uint32_t unit, uint32_t port, uint8_t force_down);

/*
 * Shows a LED pattern of `pattern_len` bytes at the port instead of its own. `led_mode` is passed to the driver process
 * as it is.
 *
 * `pattern` points to `pattern_len` bytes, 30 at most. With `pattern_len` 0 it is not looked at and may be null.
 *
 * Returns 0 at once, without asking the driver process and without a report, when `pattern_len` is above 30, or when it
 * is not 0 and `pattern` is null.
 */
uint8_t DEV_SWDRV_PMGR_SetPortForceLEDStatus(uint32_t unit, uint32_t port, const uint8_t *pattern, uint32_t pattern_len,
                                             uint32_t led_mode);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
