/*
 * Client of the switch driver: ports, VLANs, spanning tree, trunks, stacking, PHYs and buses.
 *
 * Every request function asks the driver process, waits for its answer without a time-out and returns its verdict.
 * Unless a function says otherwise:
 *
 * - It returns 1 when the driver process did what was asked and 0 when it refused.
 * - Outputs are written whenever the exchange with the driver process succeeded, also when it refused. They are not
 *   tested for null.
 * - When the exchange fails (no driver process, or it died), the function prints a failure report on standard
 *   output, runs "cat /proc/<task>/ustack" to dump the calling task's stack, writes no output and returns 0.
 * - Arguments are not tested here: the driver process refuses units, ports and values that it does not know.
 * - Any thread may call it once DEV_SWDRV_PMGR_InitiateProcessResource has run.
 *
 * `unit` is the number of a unit in the stack, `port` the number of a port on that unit. Arguments of which nothing
 * more is said than a name such as `value1`, `mode`, `flag` or `selector` are passed to the driver process as they are,
 * in the order of the function's arguments: what they mean is the driver process's.
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

/* ---- Port configuration and negotiation ---- */

/*
 * Lets the port carry traffic: its administrative state becomes up.
 */
uint8_t DEV_SWDRV_PMGR_EnablePortAdmin(uint32_t unit, uint32_t port);

/*
 * Shuts the port down: its administrative state becomes down.
 */
uint8_t DEV_SWDRV_PMGR_DisablePortAdmin(uint32_t unit, uint32_t port);

/*
 * Shuts all ports down.
 */
uint8_t DEV_SWDRV_PMGR_DisableAllPortAdmin(void);

/*
 * Sets the port's configured speed and duplex to `speed_duplex`, in the driver process's encoding.
 */
uint8_t DEV_SWDRV_PMGR_SetPortCfgSpeedDuplex(uint32_t unit, uint32_t port, uint32_t speed_duplex);

/*
 * Lets the port negotiate speed, duplex and flow control with its partner.
 */
uint8_t DEV_SWDRV_PMGR_EnablePortAutoNeg(uint32_t unit, uint32_t port);

/*
 * Stops the port from negotiating: it runs as configured.
 */
uint8_t DEV_SWDRV_PMGR_DisablePortAutoNeg(uint32_t unit, uint32_t port);

/*
 * Turns the port's configured flow control on.
 */
uint8_t DEV_SWDRV_PMGR_EnablePortCfgFlowCtrl(uint32_t unit, uint32_t port);

/*
 * Turns the port's configured flow control off.
 */
uint8_t DEV_SWDRV_PMGR_DisablePortCfgFlowCtrl(uint32_t unit, uint32_t port);

/*
 * Sets the port's configured flow control to the mode `flow_control`, in the driver process's encoding.
 */
uint8_t DEV_SWDRV_PMGR_SetPortCfgFlowCtrl(uint32_t unit, uint32_t port, uint32_t flow_control);

/*
 * Sets what the port advertises when it negotiates: `capability` is a set of bits in the driver process's encoding.
 */
uint8_t DEV_SWDRV_PMGR_SetPortAutoNegCapability(uint32_t unit, uint32_t port, uint32_t capability);

/*
 * Sets the LED of a pluggable-transceiver port. `led_status` is passed to the driver process as it is.
 */
uint8_t DEV_SWDRV_PMGR_SetMiniGbicPortLEDStatus(uint32_t unit, uint32_t port, uint8_t led_status);

/*
 * Stores the port's type, in the driver process's encoding, in `*type`.
 */
uint8_t DEV_SWDRV_PMGR_GetPortType(uint32_t unit, uint32_t port, uint32_t *type);

/*
 * Starts the port's negotiation anew.
 */
uint8_t DEV_SWDRV_PMGR_SetPortRestartAutoNego(uint32_t unit, uint32_t port);

/*
 * Sets the remote fault that the port advertises when it negotiates. `remote_fault` is in the driver process's
 * encoding.
 */
uint8_t DEV_SWDRV_PMGR_SetPortAutoNegoRemoteFaultAdvertisement(uint32_t unit, uint32_t port, uint32_t remote_fault);

/*
 * Stores the remote fault that the port advertises, in the driver process's encoding, in `*remote_fault`.
 */
uint8_t DEV_SWDRV_PMGR_GetPortAutoNegoRemoteFaultAdvertisement(uint32_t unit, uint32_t port, uint32_t *remote_fault);

/*
 * Stores whether the port's link partner signals negotiation, in the driver process's encoding, in `*state`.
 */
uint8_t DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoSignalingState(uint32_t unit, uint32_t port, uint32_t *state);

/*
 * Stores how far the port's negotiation is, in the driver process's encoding, in `*state`.
 */
uint8_t DEV_SWDRV_PMGR_GetPortAutoNegoProcessState(uint32_t unit, uint32_t port, uint32_t *state);

/*
 * Stores what the port's link partner advertises in `*capability`, as a set of bits in the driver process's encoding.
 */
uint8_t DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoCapa(uint32_t unit, uint32_t port, uint32_t *capability);

/*
 * Stores the remote fault that the port's link partner advertises, in the driver process's encoding, in
 * `*remote_fault`.
 */
uint8_t DEV_SWDRV_PMGR_GetPortLinkPartnerAutoNegoRemoteFault(uint32_t unit, uint32_t port, uint32_t *remote_fault);

/*
 * Stores the port's jabber state, in the driver process's encoding, in `*state`.
 */
uint8_t DEV_SWDRV_PMGR_GetPortJabberState(uint32_t unit, uint32_t port, uint32_t *state);

/*
 * Stores the number of false carriers that the port has seen in `*count`.
 */
uint8_t DEV_SWDRV_PMGR_GetPortFalseCarrierSenseCounter(uint32_t unit, uint32_t port, uint32_t *count);

/* ---- Spanning tree ---- */

/*
 * Sets the spanning-tree mode of the system. `mode` is in the driver process's encoding.
 */
uint8_t DEV_SWDRV_PMGR_SetSTAMode(uint32_t mode);

/*
 * Sets spanning-tree port states for a whole list in one request. `value1` to `value4` are passed to the driver process
 * as they are.
 *
 * `entries` points to `entry_count` 16-bit values. The caller keeps `entry_count` at 4,094 or below: the function does
 * not test it (a debug build of the library stops), and more entries than that overrun the request on the calling
 * task's stack. With `entry_count` 0 `entries` is not looked at and may be null.
 *
 * The request has room for 4,094 entries whatever their number: the calling task needs 8 KB of stack for it.
 */
uint8_t DEV_SWDRV_PMGR_SetPortSTAState(uint32_t value1, uint32_t entry_count, const uint16_t *entries, uint32_t value2,
                                       uint32_t value3, uint32_t value4);

/*
 * Sets the state of a port in an instance of the multiple spanning tree.
 */
uint8_t DEV_SWDRV_PMGR_SetPortSTAStateWithMstidx(uint32_t value1, uint32_t value2, uint32_t value3, uint32_t value4);

/*
 * Gives a VLAN to an instance of the multiple spanning tree.
 */
uint8_t DEV_SWDRV_PMGR_AddVlanToSTAWithMstidx(uint32_t value1, uint32_t value2);

/*
 * Takes a VLAN from an instance of the multiple spanning tree. The arguments are those of
 * DEV_SWDRV_PMGR_AddVlanToSTAWithMstidx.
 */
uint8_t DEV_SWDRV_PMGR_DeleteVlanFromSTAWithMstidx(uint32_t value1, uint32_t value2);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
