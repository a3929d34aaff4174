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

#include "quillon/record.h"

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

/* ---- VLANs, their member ports and what ports admit ---- */

/*
 * Sets the VLAN that the port's untagged frames belong to.
 */
uint8_t DEV_SWDRV_PMGR_SetPortPVID(uint32_t unit, uint32_t port, uint32_t vlan_id);

/*
 * Creates the VLAN `vlan_id`.
 */
uint8_t DEV_SWDRV_PMGR_CreateVlan(uint32_t vlan_id);

/*
 * Removes the VLAN `vlan_id`.
 */
uint8_t DEV_SWDRV_PMGR_DestroyVlan(uint32_t vlan_id);

/*
 * Makes `vlan_id` the default VLAN of the whole system.
 */
uint8_t DEV_SWDRV_PMGR_SetGlobalDefaultVlan(uint32_t vlan_id);

/*
 * Takes the port out of the untagged ports of the VLAN.
 */
uint8_t DEV_SWDRV_PMGR_DeletePortUntaggedVlanSet(uint32_t unit, uint32_t port, uint32_t vlan_id);

/*
 * Takes the port out of the double-tagged members of the VLAN.
 */
uint8_t DEV_SWDRV_PMGR_DeletePortDoubleVlanMemberSet(uint32_t unit, uint32_t port, uint32_t vlan_id);

/*
 * Adds the port to the untagged ports of the VLAN.
 */
uint8_t DEV_SWDRV_PMGR_AddPortUntaggedVlanSet(uint32_t unit, uint32_t port, uint32_t vlan_id);

/*
 * Adds the port to the double-tagged members of the VLAN.
 */
uint8_t DEV_SWDRV_PMGR_AddPortDoubleVlanMemberSet(uint32_t unit, uint32_t port, uint32_t vlan_id);

/*
 * Takes the port out of the members of the VLAN.
 */
uint8_t DEV_SWDRV_PMGR_DeletePortVlanSet(uint32_t unit, uint32_t port, uint32_t vlan_id);

/*
 * Adds the port to the members of the VLAN.
 */
uint8_t DEV_SWDRV_PMGR_AddPortVlanSet(uint32_t unit, uint32_t port, uint32_t vlan_id);

/*
 * Sets the members of a VLAN to a set of ports. `port_bitmap` points to a bitmap of ports of which the first 32-bit
 * word is read and sent: ports beyond it cannot be set with this function.
 */
uint8_t DEV_SWDRV_PMGR_SetPortToVlanMemberSet(uint32_t value1, uint32_t value2, const uint32_t *port_bitmap);

/*
 * Sets the untagged ports of a VLAN. The arguments are those of DEV_SWDRV_PMGR_SetPortToVlanMemberSet, with one word of
 * the bitmap as well.
 */
uint8_t DEV_SWDRV_PMGR_SetPortToVlanUntaggedSet(uint32_t value1, uint32_t value2, const uint32_t *port_bitmap);

/*
 * Sets the double-tagged members of a VLAN. The arguments are those of DEV_SWDRV_PMGR_SetPortToVlanMemberSet, with one
 * word of the bitmap as well.
 */
uint8_t DEV_SWDRV_PMGR_SetPortToDoubleVlanSet(uint32_t value1, uint32_t value2, const uint32_t *port_bitmap);

/*
 * Lets the port drop incoming frames of VLANs that it is no member of.
 */
uint8_t DEV_SWDRV_PMGR_EnableIngressFilter(uint32_t unit, uint32_t port);

/*
 * Lets the port take incoming frames of any VLAN.
 */
uint8_t DEV_SWDRV_PMGR_DisableIngressFilter(uint32_t unit, uint32_t port);

/*
 * Lets the port admit tagged frames alone.
 */
uint8_t DEV_SWDRV_PMGR_AdmitOnlyVlanTaggedFrames(uint32_t unit, uint32_t port);

/*
 * Lets the port admit untagged frames alone.
 */
uint8_t DEV_SWDRV_PMGR_AdmitOnlyVlanUntaggedFrames(uint32_t unit, uint32_t port);

/*
 * Lets the port admit tagged and untagged frames.
 */
uint8_t DEV_SWDRV_PMGR_AdmitAllFrames(uint32_t unit, uint32_t port);

/*
 * Starts the trap of frames with an unspecified tag to the CPU.
 */
uint8_t DEV_SWDRV_PMGR_EnableTrapUnspecifiedTagFrame(void);

/*
 * Ends the trap of frames with an unspecified tag to the CPU.
 */
uint8_t DEV_SWDRV_PMGR_DisableTrapUnspecifiedTagFrame(void);

/*
 * Makes the CPU a member of the VLAN.
 */
uint8_t DEV_SWDRV_PMGR_AddCpuToVlan(uint32_t vlan_id);

/*
 * Takes the CPU out of the members of the VLAN.
 */
uint8_t DEV_SWDRV_PMGR_DeleteCpuFromVlan(uint32_t vlan_id);

/* ---- Frame sizes ---- */

/*
 * Sets the MTU of the system.
 */
uint8_t DEV_SWDRV_PMGR_SetSystemMTU(uint32_t value1, uint32_t value2);

/*
 * Sets the port's MTU to `mtu`.
 */
uint8_t DEV_SWDRV_PMGR_SetPortMTU(uint32_t unit, uint32_t port, uint32_t mtu);

/*
 * Stores the two values of the port's maximum frame size in `*size1` and `*size2`. What each of them limits is the
 * driver process's.
 *
 * Unlike those of other functions, the outputs are written only when the result is not 0.
 */
uint8_t DEV_SWDRV_PMGR_GetPortMaxFrameSize(uint32_t unit, uint32_t port, uint32_t *size1, uint32_t *size2);

/*
 * Lets the system carry jumbo frames.
 */
uint8_t DEV_SWDRV_PMGR_EnableJumboFrame(void);

/*
 * Ends the carrying of jumbo frames.
 */
uint8_t DEV_SWDRV_PMGR_DisableJumboFrame(void);

/* ---- 802.1Q tunnels ---- */

/*
 * Sets the MTU of 802.1Q tunnel ports to `mtu`.
 */
uint8_t DEV_SWDRV_PMGR_SetPortDot1qTunnelMTU(uint32_t mtu);

/*
 * Sets the port's 802.1Q tunnel mode. `mode` is in the driver process's encoding.
 */
uint8_t DEV_SWDRV_PMGR_SetPortDot1qTunnelMode(uint32_t unit, uint32_t port, uint8_t mode);

/*
 * Stores the 802.1Q tunnel mode of a port of the local unit, in the driver process's encoding, in `*mode`.
 */
uint8_t DEV_SWDRV_PMGR_GetPortDot1qTunnelModeofLocalPort(uint32_t unit, uint32_t port, uint8_t *mode);

/*
 * Sets the protocol id (TPID) of the port's outer tags to `tpid`.
 */
uint8_t DEV_SWDRV_PMGR_SetPortDot1qTunnelTPID(uint32_t unit, uint32_t port, uint32_t tpid);

/*
 * Stores the protocol id (TPID) of the outer tags of a port of the local unit in `*tpid`.
 */
uint8_t DEV_SWDRV_PMGR_GetPortDot1qTunnelTPIDofLocalPort(uint32_t unit, uint32_t port, uint32_t *tpid);

/*
 * Sets how the port double-tags the frames of a VLAN. `value1` to `value4` are passed to the driver process as they
 * are.
 */
uint8_t DEV_SWDRV_PMGR_SetPortDot1qTunnelVlanDoubleTag(uint32_t unit, uint32_t port, uint32_t value1, uint8_t value2,
                                                       uint32_t value3, uint32_t value4);

/*
 * Sets the port's 802.1Q tunnel mode for VLANs that it replaces. `mode` is in the driver process's encoding.
 */
uint8_t DEV_SWDRV_PMGR_SetPortDot1qTunnelModeForReplaceVlan(uint32_t unit, uint32_t port, uint32_t mode);

/*
 * Sets how the port replaces a VLAN by another. `value1` to `value4` are passed to the driver process as they are.
 */
uint8_t DEV_SWDRV_PMGR_SetPortDot1qTunnelReplaceVlan(uint32_t unit, uint32_t port, uint32_t value1, uint32_t value2,
                                                     uint32_t value3, uint8_t value4);

/* ---- Mirroring ---- */

/*
 * Sets up the mirroring of a port to another.
 */
uint8_t DEV_SWDRV_PMGR_SetPortMirroring(uint32_t value1, uint32_t value2, uint32_t value3);

/*
 * Takes the mirroring of a port down.
 */
uint8_t DEV_SWDRV_PMGR_DeletePortMirroring(uint32_t value1, uint32_t value2);

/*
 * Turns port mirroring on.
 */
uint8_t DEV_SWDRV_PMGR_EnablePortMirroring(uint32_t value);

/*
 * Turns port mirroring off. The argument is that of DEV_SWDRV_PMGR_EnablePortMirroring.
 */
uint8_t DEV_SWDRV_PMGR_DisablePortMirroring(uint32_t value);

/*
 * Sets up the mirroring of a VLAN.
 */
uint8_t DEV_SWDRV_PMGR_AddVlanMirror(uint32_t value1, uint32_t value2, uint32_t value3);

/*
 * Takes the mirroring of a VLAN down. The arguments are those of DEV_SWDRV_PMGR_AddVlanMirror.
 */
uint8_t DEV_SWDRV_PMGR_DeleteVlanMirror(uint32_t value1, uint32_t value2, uint32_t value3);

/*
 * Makes the port the destination of what is mirrored by MAC address. `flag` is passed to the driver process as it is.
 */
uint8_t DEV_SWDRV_PMGR_SetDestPortForMacMirror(uint32_t unit, uint32_t port, uint8_t flag);

/*
 * Makes the port the destination of what access-control lists mirror. `flag` is passed to the driver process as it is.
 */
uint8_t DEV_SWDRV_PMGR_SetDestPortForAclMirror(uint32_t unit, uint32_t port, uint8_t flag);

/* ---- Trunks ---- */

/*
 * Creates the trunk (link aggregation) `trunk_id`.
 */
uint8_t DEV_SWDRV_PMGR_CreateTrunk(uint32_t trunk_id);

/*
 * Creates the trunk `trunk_id` with a mode in the driver process's encoding.
 */
uint8_t DEV_SWDRV_PMGR_CreateTrunkwithMode(uint32_t trunk_id, uint8_t mode);

/*
 * Sets the load-balancing mode of all trunks. `mode` is in the driver process's encoding.
 */
uint8_t DEV_SWDRV_PMGR_SetTrunkLoadBalanceMode(uint32_t mode);

/*
 * Removes the trunk `trunk_id`.
 */
uint8_t DEV_SWDRV_PMGR_DestroyTrunk(uint32_t trunk_id);

/*
 * Sets the member ports of a trunk. `port_bitmap` points to 32 bytes, a bitmap of ports. All of them are read and sent,
 * whatever `value1` and `value2` are.
 */
uint8_t DEV_SWDRV_PMGR_SetTrunkPortMembers(uint32_t value1, uint32_t value2, const uint8_t *port_bitmap);

/*
 * Sets the balance mode of what `selector` names. `mode` is in the driver process's encoding.
 */
uint8_t DEV_SWDRV_PMGR_SetTrunkBalanceMode(uint32_t selector, uint8_t mode);

/*
 * Stores the balance mode that holds on the local unit for what `selector` names, in the driver process's encoding, in
 * `*mode`.
 */
uint8_t DEV_SWDRV_PMGR_GetTrunkBalanceModeofLocalUnit(uint32_t selector, uint8_t *mode);

/*
 * Adds a multicast address to a member of a trunk. `mac` points to the 6 bytes of the address, which are sent as they
 * stand.
 */
uint8_t DEV_SWDRV_PMGR_AddMulticastAddrToTrunkMember(const uint8_t *mac, uint32_t value1, uint32_t value2,
                                                     uint32_t value3);

/*
 * Takes a multicast address from a member of a trunk. The arguments are those of
 * DEV_SWDRV_PMGR_AddMulticastAddrToTrunkMember.
 */
uint8_t DEV_SWDRV_PMGR_DeleteMulticastAddrToTrunkMember(const uint8_t *mac, uint32_t value1, uint32_t value2,
                                                        uint32_t value3);

/* ---- IGMP trap ---- */

/*
 * Starts the trap of IGMP packets.
 */
uint8_t DEV_SWDRV_PMGR_EnableIgmpTrap(void);

/*
 * Ends the trap of IGMP packets.
 */
uint8_t DEV_SWDRV_PMGR_DisableIgmpTrap(void);

/*
 * Sets how IGMP packets are trapped to the CPU. `value1` and `value2` are passed to the driver process as they are.
 */
uint8_t DEV_SWDRV_PMGR_TrapIGMPToCPU(uint8_t value1, uint8_t value2);

/* ---- Storm control ---- */

/*
 * Sets the threshold above which broadcasts count as a storm. `value1` to `value4` are passed to the driver process as
 * they are.
 */
uint8_t DEV_SWDRV_PMGR_SetBroadcastStormControlThreshold(uint32_t value1, uint32_t value2, uint32_t value3,
                                                         uint32_t value4);

/*
 * Sets the threshold above which multicasts count as a storm. The arguments are those of
 * DEV_SWDRV_PMGR_SetBroadcastStormControlThreshold.
 */
uint8_t DEV_SWDRV_PMGR_SetMulticastStormControlThreshold(uint32_t value1, uint32_t value2, uint32_t value3,
                                                         uint32_t value4);

/*
 * Sets the threshold above which unicasts to unknown addresses count as a storm. The arguments are those of
 * DEV_SWDRV_PMGR_SetBroadcastStormControlThreshold.
 */
uint8_t DEV_SWDRV_PMGR_SetUnknownUnicastStormControlThreshold(uint32_t value1, uint32_t value2, uint32_t value3,
                                                              uint32_t value4);

/*
 * Turns the port's control of broadcast storms on.
 */
uint8_t DEV_SWDRV_PMGR_EnableBroadcastStormControl(uint32_t unit, uint32_t port);

/*
 * Turns the port's control of broadcast storms off.
 */
uint8_t DEV_SWDRV_PMGR_DisableBroadcastStormControl(uint32_t unit, uint32_t port);

/*
 * Turns the port's control of multicast storms on.
 */
uint8_t DEV_SWDRV_PMGR_EnableMulticastStormControl(uint32_t unit, uint32_t port);

/*
 * Turns the port's control of multicast storms off.
 */
uint8_t DEV_SWDRV_PMGR_DisableMulticastStormControl(uint32_t unit, uint32_t port);

/*
 * Turns the port's control of storms of unicasts to unknown addresses on.
 */
uint8_t DEV_SWDRV_PMGR_EnableUnknownUnicastStormControl(uint32_t unit, uint32_t port);

/*
 * Turns the port's control of storms of unicasts to unknown addresses off.
 */
uint8_t DEV_SWDRV_PMGR_DisableUnknownUnicastStormControl(uint32_t unit, uint32_t port);

/*
 * Stores the step in which the port's storm thresholds can be set, in the driver process's unit, in `*granularity`.
 * `value` is passed to the driver process as it is.
 */
uint8_t DEV_SWDRV_PMGR_GetPortStormGranularity(uint32_t unit, uint32_t port, uint32_t value, uint32_t *granularity);

/* ---- Priorities and traffic classes ---- */

/*
 * Sets the user priority that the port's untagged frames get.
 */
uint8_t DEV_SWDRV_PMGR_SetPortUserDefaultPriority(uint32_t unit, uint32_t port, uint32_t priority);

/*
 * Sets the traffic class of each user priority at the port. `mapping` points to 8 bytes, one for each priority from 0
 * to 7.
 */
uint8_t DEV_SWDRV_PMGR_SetPriorityMapping(uint32_t unit, uint32_t port, const uint8_t *mapping);

/*
 * Sets the traffic class of each user priority for the whole system. `mapping` points to 8 bytes, one for each priority
 * from 0 to 7.
 */
uint8_t DEV_SWDRV_PMGR_SetPriorityMappingPerSystem(const uint8_t *mapping);

/*
 * Sets the number of traffic classes of the port to `number`.
 */
uint8_t DEV_SWDRV_PMGR_SetNumberOfTrafficClassByPort(uint32_t unit, uint32_t port, uint32_t number);

/*
 * Sets the number of traffic classes of the system to `number`.
 */
uint8_t DEV_SWDRV_PMGR_SetNumberOfTrafficClass(uint32_t number);

/*
 * Sets the traffic class of each user priority at a stacking port. `mapping` points to 8 bytes, one for each priority
 * from 0 to 7.
 */
uint8_t DEV_SWDRV_PMGR_SetStackingPortPriorityMapping(uint32_t unit, uint32_t port, const uint8_t *mapping);

/* ---- Port status and link scan ---- */

/*
 * The state of many ports in one piece, as the functions DEV_SWDRV_PMGR_GetAllPort... copy it. Which ports stand in it,
 * where and in which encoding is the driver process's.
 */
typedef struct port_state_block {
    uint8_t bytes[360];
} port_state_block;
QUILLON_RECORD_SIZE(port_state_block, 360);

/*
 * Stores the speed and duplex that the port runs at, in the driver process's encoding, in `*speed_duplex`.
 */
uint8_t DEV_SWDRV_PMGR_GetPortOperSpeedDuplex(uint32_t unit, uint32_t port, uint32_t *speed_duplex);

/*
 * Copies the speed and duplex of a block of ports to `out_block`. The three selectors say which block; they are passed
 * to the driver process as they are.
 *
 * `out_block` points to room for 360 bytes, such as a port_state_block, of any alignment. All 360 are written whenever
 * the exchange succeeded, whatever the result; those that the driver process did not fill are 0, except that the first
 * 12 still hold the selectors where it did not overwrite them.
 */
uint8_t DEV_SWDRV_PMGR_GetAllPortOperSpeedDuplex(uint32_t block_sel0, uint32_t block_sel1, uint32_t block_sel2,
                                                 void *out_block);

/*
 * Copies the link status of a block of ports to `out_block`. The arguments are those of
 * DEV_SWDRV_PMGR_GetAllPortOperSpeedDuplex.
 */
uint8_t DEV_SWDRV_PMGR_GetAllPortLinkStatus(uint32_t block_sel0, uint32_t block_sel1, uint32_t block_sel2,
                                            void *out_block);

/*
 * Stores the port's link status, in the driver process's encoding, in `*link_status`.
 */
uint8_t DEV_SWDRV_PMGR_GetPortLinkStatus(uint32_t unit, uint32_t port, uint32_t *link_status);

/*
 * Copies the status of a block of ports to `out_block`. The arguments are those of
 * DEV_SWDRV_PMGR_GetAllPortOperSpeedDuplex.
 */
uint8_t DEV_SWDRV_PMGR_GetAllPortStatus(uint32_t block_sel0, uint32_t block_sel1, uint32_t block_sel2, void *out_block);

/*
 * Stores the link status of a port in the chips' own numbers, in the driver process's encoding, in `*link_status`.
 */
uint8_t DEV_SWDRV_PMGR_GetPortLinkStatusByDeviceId(uint32_t device_id, uint32_t device_port, uint32_t *link_status);

/*
 * Stores the mode of the flow control that the port runs with, in the driver process's encoding, in `*flow_control`.
 */
uint8_t DEV_SWDRV_PMGR_GetPortFlowCtrl(uint32_t unit, uint32_t port, uint32_t *flow_control);

/*
 * Copies the flow control of a block of ports to `out_block`. The arguments are those of
 * DEV_SWDRV_PMGR_GetAllPortOperSpeedDuplex.
 */
uint8_t DEV_SWDRV_PMGR_GetAllPortFlowCtrl(uint32_t block_sel0, uint32_t block_sel1, uint32_t block_sel2,
                                          void *out_block);

/*
 * Asks for a pass of the link scan and waits for the driver process's answer. Whether the pass succeeded is not told;
 * a failed exchange shows in its report alone.
 */
void DEV_SWDRV_PMGR_LinkScan_Update(void);

/*
 * Enables the HiGig ports: their administrative state becomes up.
 */
uint8_t DEV_SWDRV_PMGR_EnableHgPortAdmin(void);

/*
 * Registers with the link scan.
 */
uint8_t DEV_SWDRV_PMGR_LINKSCAN_Register(void);

/* ---- Multicast, learning and CPU traps ---- */

/*
 * Switches IP multicast on in hardware.
 */
uint8_t DEV_SWDRV_PMGR_EnableIPMC(uint32_t value);

/*
 * Switches IP multicast off again.
 */
uint8_t DEV_SWDRV_PMGR_DisableIPMC(uint32_t value);

/*
 * Has IP multicast checked for the port that it came in by.
 */
uint8_t DEV_SWDRV_PMGR_IPMC_EnableSourcePortCheck(uint32_t value);

/*
 * Ends the check for the port that IP multicast came in by.
 */
uint8_t DEV_SWDRV_PMGR_IPMC_DisableSourcePortCheck(uint32_t value);

/*
 * Has the source address take part in the search for IP multicast.
 */
uint8_t DEV_SWDRV_PMGR_IPMC_EnableSourceIPSearch(uint32_t value);

/*
 * Has IP multicast searched without its source address.
 */
uint8_t DEV_SWDRV_PMGR_IPMC_DisableSourceIPSearch(uint32_t value);

/*
 * Has the port learn the source addresses of what it receives.
 */
uint8_t DEV_SWDRV_PMGR_EnablePortLearning(uint32_t unit, uint32_t port);

/*
 * Ends the learning of source addresses at the port.
 */
uint8_t DEV_SWDRV_PMGR_DisablePortLearning(uint32_t unit, uint32_t port);

/*
 * Sets how the port learns source addresses.
 */
uint8_t DEV_SWDRV_PMGR_SetPortLearningStatus(uint32_t unit, uint32_t port, uint8_t flag1, uint8_t flag2, uint8_t flag3);

/*
 * Traps packets to unknown IP multicast addresses to the CPU.
 */
uint8_t DEV_SWDRV_PMGR_EnableUMCASTIpTrap(void);

/*
 * Ends the trapping of packets to unknown IP multicast addresses.
 */
uint8_t DEV_SWDRV_PMGR_DisableUMCASTIpTrap(void);

/*
 * Traps frames to unknown multicast MAC addresses to the CPU.
 */
uint8_t DEV_SWDRV_PMGR_EnableUMCASTMacTrap(void);

/*
 * Ends the trapping of frames to unknown multicast MAC addresses.
 */
uint8_t DEV_SWDRV_PMGR_DisableUMCASTMacTrap(void);

/*
 * Adds an IPv6 multicast MAC address. `mac` points to its 6 bytes, in the order of the wire.
 */
uint8_t DEV_SWDRV_PMGR_AddIPv6MulticastAddress(const uint8_t *mac, uint32_t value);

/*
 * Deletes an IPv6 multicast MAC address. The arguments are those of DEV_SWDRV_PMGR_AddIPv6MulticastAddress.
 */
uint8_t DEV_SWDRV_PMGR_DelIPv6MulticastAddress(const uint8_t *mac, uint32_t value);

/*
 * Traps MLD packets to the CPU.
 */
uint8_t DEV_SWDRV_PMGR_EnableMLDTrap2CPU(void);

/*
 * Ends the trapping of MLD packets.
 */
uint8_t DEV_SWDRV_PMGR_DisableMLDTrap2CPU(void);

/*
 * Sets how MLD packets are trapped to the CPU.
 */
uint8_t DEV_SWDRV_PMGR_TrapMLDToCPU(uint8_t value1, uint8_t value2);

/*
 * Traps IPv6 neighbour discovery packets to the CPU.
 */
uint8_t DEV_SWDRV_PMGR_EnableNDTrap2CPU(uint8_t value);

/*
 * Ends the trapping of IPv6 neighbour discovery packets.
 */
uint8_t DEV_SWDRV_PMGR_DisableNDTrap2CPU(uint8_t value);

/*
 * Sets how RA and RR packets are trapped to the CPU.
 */
uint8_t DEV_SWDRV_PMGR_SetRaAndRrTrap2CPU(uint8_t value);

/*
 * Sets whether EAPOL frames pass through the switch.
 */
uint8_t DEV_SWDRV_PMGR_SetEapolFramePassThrough(uint8_t value);

/*
 * Sets the maximum frame size.
 */
uint8_t DEV_SWDRV_PMGR_ModifyMaxFrameSize(uint8_t value1, uint8_t value2);

/*
 * Stores in `*media` the medium that is active at the port, as the driver process numbers it.
 */
uint8_t DEV_SWDRV_PMGR_GetPortMediaActive(uint32_t unit, uint32_t port, uint32_t *media);

/*
 * Sets how packets to unknown IPv4 multicast addresses are trapped to the CPU.
 */
uint8_t DEV_SWDRV_PMGR_TrapUnknownIpMcastToCPU(uint8_t value1, uint8_t value2, uint32_t value3);

/*
 * Sets how packets to unknown IPv6 multicast addresses are trapped to the CPU.
 */
uint8_t DEV_SWDRV_PMGR_TrapUnknownIpv6McastToCPU(uint8_t value1, uint8_t value2);

/* ---- VLAN rules, VLAN trunking and RSPAN ---- */

/*
 * Records that requests of this group carry. What stands inside is between the caller and the driver process: the bytes
 * are copied as they are.
 */

/* A protocol of protocol-based VLANs (802.1v). */
typedef struct ProtocolTemplate {
    uint8_t bytes[5];
} ProtocolTemplate;
QUILLON_RECORD_SIZE(ProtocolTemplate, 5);

/* Names an entry of a protocol group: eight bytes followed by a number of 32 bits. */
typedef struct ProtocolGroupKey {
    uint8_t bytes[12];
} ProtocolGroupKey;
QUILLON_RECORD_SIZE(ProtocolGroupKey, 12);

/*
 * Puts frames of some protocols, received at a port, in a VLAN.
 *
 * `count` templates of 5 bytes each stand one behind the other at `templates`, laid out as ProtocolTemplate. The caller
 * keeps `count` at 11 or below: the function does not test it (a debug build of the library stops), and more templates
 * than that overrun the request on the calling task's stack. With `count` 0 `templates` is not looked at and may be
 * null. `key` points to the name of the group entry.
 */
uint8_t DEV_SWDRV_PMGR_AddDot1vProtocolPortEntry(uint32_t unit, uint32_t port, uint32_t value1, uint32_t value2,
                                                 uint32_t count, const ProtocolGroupKey *key, uint8_t value3,
                                                 const uint8_t *templates);

/*
 * Takes back what DEV_SWDRV_PMGR_AddDot1vProtocolPortEntry set. The arguments are the same, with the same bounds,
 * without `value3`.
 */
uint8_t DEV_SWDRV_PMGR_DelDot1vProtocolPortEntry(uint32_t unit, uint32_t port, uint32_t value1, uint32_t value2,
                                                 uint32_t count, const ProtocolGroupKey *key, const uint8_t *templates);

/*
 * Sets an entry of a protocol group to the protocol that `protocol` points to.
 */
uint8_t DEV_SWDRV_PMGR_SetDot1vProtocolGroupEntry(uint32_t value1, const ProtocolTemplate *protocol, uint32_t value2);

/*
 * Puts frames from a MAC address in VLAN `vid`. `mac` points to its 6 bytes, in the order of the wire.
 */
uint8_t DEV_SWDRV_PMGR_SetMacVlanEntry(const uint8_t *mac, uint16_t vid, uint8_t value);

/*
 * Deletes the VLAN of a MAC address. `mac` points to its 6 bytes.
 */
uint8_t DEV_SWDRV_PMGR_DeleteMacVlanEntry(const uint8_t *mac);

/*
 * Puts frames from an IPv4 subnet in VLAN `vid`. `ip` and `mask` are numbers and are passed on without a change of
 * their byte order.
 */
uint8_t DEV_SWDRV_PMGR_SetIpSubnetVlanEntry(uint32_t ip, uint32_t mask, uint16_t vid, uint8_t value);

/*
 * Deletes the VLAN of an IPv4 subnet. `ip` and `mask` are those it was set with.
 */
uint8_t DEV_SWDRV_PMGR_DeleteIpSubnetVlanEntry(uint32_t ip, uint32_t mask);

/*
 * Sets VLAN trunking to its default.
 */
uint8_t DEV_SWDRV_PMGR_SetDefaultVlanTrunking(void);

/*
 * Creates a VLAN for VLAN trunking. `value1` and the number that `value2` points to are passed to the driver process as
 * they are; nothing is written back.
 */
uint8_t DEV_SWDRV_PMGR_CreateVlanForVlanTrunking(uint32_t value1, const uint32_t *value2);

/*
 * Sets VLAN trunking at a port for one VLAN. In the request `value2` stands before `flag`.
 */
uint8_t DEV_SWDRV_PMGR_SetPortVlanTunkingByVLAN(uint32_t value1, uint8_t flag, uint32_t value2);

/*
 * Sets VLAN trunking for a list of VLANs. `vlan_list` points to a bitmap of 512 bytes, one bit for each VLAN id from 0
 * to 4,095; in the request it stands before the others. The number that `value` points to and `flag` are passed to the
 * driver process as they are; nothing is written back.
 */
uint8_t DEV_SWDRV_PMGR_SetPortVlanTunkingByVlanList(const uint32_t *value, uint8_t flag, const void *vlan_list);

/*
 * Sets whether the priority of the inner tag is copied to the outer one.
 */
uint8_t DEV_SWDRV_PMGR_SetCopyInnerPri2OuterPri(uint32_t value1, uint32_t value2, uint32_t value3);

/*
 * Sets the tag of remote mirroring (RSPAN).
 */
uint8_t DEV_SWDRV_PMGR_SetRspanVlanTag(uint32_t value1, uint16_t value2, uint16_t value3);

/*
 * Ends the learning of source addresses from remote mirroring (RSPAN) at the port.
 */
uint8_t DEV_SWDRV_PMGR_DisableRspanPortLearning(uint32_t unit, uint32_t port);

/*
 * Has the port learn source addresses from remote mirroring (RSPAN).
 */
uint8_t DEV_SWDRV_PMGR_EnableRspanPortLearning(uint32_t unit, uint32_t port);

/* ---- Stacking and topology ---- */

/* What the topology task knows of the stack. The bytes are copied to the driver process as they are. */
typedef struct TopologyRecord {
    uint8_t bytes[13];
} TopologyRecord;
QUILLON_RECORD_SIZE(TopologyRecord, 13);

/*
 * Sets the medium that a combo port is held to.
 */
uint8_t DEV_SWDRV_PMGR_SetPortComboForcedMode(uint32_t unit, uint32_t port, uint32_t value1, uint32_t value2);

/*
 * Sets the interface mode of the port.
 */
uint8_t DEV_SWDRV_PMGR_SetPortIfmode(uint32_t unit, uint32_t port, uint32_t ifmode);

/*
 * Shuts the switch down. Returns nothing: only a failed exchange shows, by its report.
 */
void DEV_SWDRV_PMGR_ShutdownSwitch(void);

/*
 * Brings the unicast table of the fabric chip up to the topology that `topology` points to.
 */
uint8_t DEV_SWDRV_PMGR_UpdateHerculesUCTable(const TopologyRecord *topology);

/*
 * Tells the driver process the topology that `topology` points to.
 */
uint8_t DEV_SWDRV_PMGR_ConfigTopologyInfo(const TopologyRecord *topology);

/*
 * Translates a port, named by its unit, its device on that unit and its number on that device, into a logical one:
 * stores its unit in `*unit` and its logical port in `*port`.
 */
uint8_t DEV_SWDRV_PMGR_Physical2LogicalPortByUnitID_DeviceID(uint32_t unit_id, uint32_t device_id, uint32_t phy_port,
                                                             uint32_t *unit, uint32_t *port);

/*
 * Stores the number of the local unit in `*unit_id`.
 */
uint8_t DEV_SWDRV_PMGR_GetUnitId(uint32_t *unit_id);

/*
 * Stores in `*device_id` the device id of the chip that has the stacking ports.
 */
uint8_t DEV_SWDRV_PMGR_GetStackChipDeviceID(uint32_t *device_id);

/*
 * Asks how a unit of the stack is reached and stores the two numbers of the answer in `*info1` and `*info2`.
 *
 * Returns nothing: after a failed exchange the outputs are as they were.
 */
void DEV_SWDRV_PMGR_GetDstUnitInfo(uint32_t value1, uint32_t value2, uint32_t *info1, uint32_t *info2);

/*
 * Sets the loopback at the far end of a HiGig link.
 *
 * Returns nothing: only a failed exchange shows, by its report.
 */
void DEV_SWDRV_PMGR_HiGigRemoteLoopbackSet(uint32_t value1, uint32_t value2, uint32_t value3);

/*
 * Stores a link port of the fabric chip in `*link_port`.
 */
uint8_t DEV_SWDRV_PMGR_Get5670linkport(uint32_t value, uint32_t *link_port);

/*
 * Stores in `*energy` whether the copper side of the port detects energy on its cable, as the driver process puts it.
 */
uint8_t DEV_SWDRV_PMGR_GetCopperEnergyDetect(uint32_t unit, uint32_t port, uint32_t *energy);

/*
 * Sets the auto-negotiation of a fibre port.
 */
uint8_t DEV_SWDRV_PMGR_SetFiberPortAutoNeg(uint32_t unit, uint32_t port, uint32_t auto_neg);

/*
 * Stores in `*fabric_port` the fabric port of the unit at `unit_position`.
 *
 * Returns nothing: after a failed exchange the output is as it was.
 */
void DEV_SWDRV_PMGR_GetFabricportByUnitPosition(uint32_t unit_position, uint32_t *fabric_port);

/*
 * Stores in `*fabric_port` the fabric port by which unit `dst_unit` is reached.
 *
 * Returns nothing: after a failed exchange the output is as it was.
 */
void DEV_SWDRV_PMGR_GetFabricPortToDstUnit(uint32_t dst_unit, uint32_t *fabric_port);

/*
 * Stores the module id of the stack's master in `*module_id`.
 */
uint8_t DEV_SWDRV_PMGR_GetMasterModuleID(uint32_t *module_id);

/*
 * Stores in `*info` what is asked about the modules of `unit`. `value` selects it and is passed to the driver process
 * as it is.
 */
uint8_t DEV_SWDRV_PMGR_GetModuleInfoByUnit(uint32_t unit, uint8_t value, uint32_t *info);

/*
 * Stores in `*device_id` the device id of the local unit's cross-bar.
 */
uint8_t DEV_SWDRV_PMGR_GetLocalCrossBarDeviceId(uint32_t *device_id);

/*
 * Sends the VID_BREAK request, which carries nothing; its meaning is the driver process's.
 *
 * Returns nothing: only a failed exchange shows, by its report.
 */
void DEV_SWDRV_PMGR_VID_BREAK(void);

/*
 * Makes one step of a walk over the switch chips: sends the id in `*chip_id` and replaces it with the next one. With
 * which number a walk begins is the driver process's to say; with quillon-driver it is 0.
 *
 * Returns 0 when the driver process refused, as at the end of the walk; `*chip_id` is then replaced all the same. After
 * a failed exchange it is as it was.
 */
uint8_t DEV_SWDRV_PMGR_GetNextSwitchChipId(uint32_t *chip_id);

/*
 * Stores in `*bitmap` the stacking ports that forward, one bit for each.
 *
 * Returns nothing: after a failed exchange the output is as it was.
 */
void DEV_SWDRV_PMGR_GetForwardingStackingPortBitMap(uint32_t *bitmap);

/* ---- PHY, cable and port diagnostics ---- */

/*
 * Results of cable diagnostics. What the numbers say is the driver process's: the bytes are copied as they are.
 */

/* Three numbers of 64 bits followed by one of 32. */
typedef struct CableDiagRecord {
    uint8_t bytes[28];
} CableDiagRecord;
QUILLON_RECORD_SIZE(CableDiagRecord, 28);

/* Three numbers of 64 bits. */
typedef struct CableDiagResultRecord {
    uint8_t bytes[24];
} CableDiagResultRecord;
QUILLON_RECORD_SIZE(CableDiagResultRecord, 24);

/*
 * Puts a 1000BASE-T port in a test mode.
 */
uint8_t DEV_SWDRV_PMGR_Set1000BaseTPortTestMode(uint32_t unit, uint32_t port, uint16_t test_mode);

/*
 * Stores the test mode of a 1000BASE-T port in `*test_mode`.
 */
uint8_t DEV_SWDRV_PMGR_Get1000BaseTPortTestMode(uint32_t unit, uint32_t port, uint16_t *test_mode);

/*
 * Sets the transmitter type of a 1000BASE-T port.
 */
uint8_t DEV_SWDRV_PMGR_Set1000BaseTTransmitterType(uint32_t unit, uint32_t port, uint16_t transmitter_type);

/*
 * Stores the transmitter type of a 1000BASE-T port in `*transmitter_type`.
 */
uint8_t DEV_SWDRV_PMGR_Get1000BaseTTransmitterType(uint32_t unit, uint32_t port, uint16_t *transmitter_type);

/*
 * Stores in `*mode` the auto-MDIX mode of the port, as the driver process numbers it.
 */
uint8_t DEV_SWDRV_PMGR_GetAutoMDIXmode(uint32_t unit, uint32_t port, uint32_t *mode);

/*
 * Writes to the switch chip over PCI.
 *
 * Returns all 32 bits of the driver process's result, and 0 after a failed exchange.
 */
uint32_t DEV_SWDRV_PMGR_SocPciWrite(uint32_t value1, uint32_t value2, uint32_t value3);

/*
 * Sets the power saving of the port.
 */
uint8_t DEV_SWDRV_PMGR_SetPortPowerSave(uint32_t unit, uint32_t port, uint8_t value1, uint8_t value2);

/*
 * Runs the diagnostics of the port's cable and stores what they found in `*record`.
 */
uint8_t DEV_SWDRV_PMGR_GetCableDiag(uint32_t unit, uint32_t port, CableDiagRecord *record);

/*
 * Stores the result of the diagnostics of the port's cable in `*record`.
 */
uint8_t DEV_SWDRV_PMGR_GetCableDiagResult(uint32_t unit, uint32_t port, CableDiagResultRecord *record);

/*
 * Sets an internal loopback.
 */
uint8_t DEV_SWDRV_PMGR_EnableInternalLoopback(uint32_t value);

/*
 * Takes an internal loopback back.
 */
uint8_t DEV_SWDRV_PMGR_DisableInternalLoopback(uint32_t value);

/*
 * Asks whether there is an internal loopback.
 *
 * Returns the answer itself: 1 for yes, 0 for no. A failed exchange gives 0 as well; only its report tells.
 */
uint8_t DEV_SWDRV_PMGR_IsPortLoopbacking(uint32_t value);

/*
 * Sets the authentication mode of the port.
 */
uint8_t DEV_SWDRV_PMGR_SetPortAuthMode(uint32_t unit, uint32_t port, uint32_t auth_mode);

/*
 * Has the driver process work its port mapping out anew. `value` is passed to it as it is.
 */
uint8_t DEV_SWDRV_PMGR_UpdatePortMapping(uint8_t value);

/*
 * Sets the MAC address of the port. `mac` points to its 6 bytes, in the order of the wire.
 */
uint8_t DEV_SWDRV_PMGR_SetPortMacAddr(uint32_t unit, uint32_t port, const uint8_t mac[6]);

/*
 * Limits the rate of what goes to the CPU.
 */
uint8_t DEV_SWDRV_PMGR_SetCpuRateLimit(uint32_t value1, uint32_t value2);

/*
 * Stores in `*ability` what the port is able to do, as the driver process encodes it.
 */
uint8_t DEV_SWDRV_PMGR_GetPortAbility(uint32_t unit, uint32_t port, uint32_t *ability);

/*
 * Has the driver process carry out up to 10 operations on the registers of the port's PHY. `phy_reg_ops` points to
 * `num_of_ops` operations of 6 bytes each, one behind the other, whose layout is the driver process's. Nothing is
 * written back to them: what an operation reads does not come back by this way. Of `num_of_ops` the low 32 bits count.
 *
 * Returns 0 at once, without asking the driver process, and prints a line
 * - "DEV_SWDRV_PMGR_DoPHYRegsTransactions(<line>)num_of_ops(<num_of_ops>) too large. (max value=10)" when there are
 *   more than 10,
 * - otherwise "DEV_SWDRV_PMGR_DoPHYRegsTransactions(<line>)phy_reg_ops is NULL" when `phy_reg_ops` is null, also when
 *   there are none.
 */
uint8_t DEV_SWDRV_PMGR_DoPHYRegsTransactions(uint32_t unit, uint32_t port, const uint8_t *phy_reg_ops,
                                             uint64_t num_of_ops);

/*
 * Reads a paged register of a PHY over MII and stores it in `*reg`. The seven values say which; they are passed to the
 * driver process as they are.
 */
uint8_t DEV_SWDRV_PMGR_GetMIIPhyRegByPage(uint32_t value1, uint32_t value2, uint32_t value3, uint32_t value4,
                                          uint32_t value5, uint32_t value6, uint32_t value7, uint16_t *reg);

/*
 * Stores the average temperature of all ports in `*temperature`, in the driver process's unit.
 */
uint8_t DEV_SWDRV_PMGR_GetAllPortAverageTemperature(uint32_t *temperature);

/*
 * Sets the rate of the CPU port.
 */
uint8_t DEV_SWDRV_PMGR_SetCpuPortRate(uint32_t value1, uint8_t value2);

/*
 * Sets the ports to which the port does not send. `egress_bitmap` points to two words, 128 bits, which are passed to
 * the driver process as they are.
 */
uint8_t DEV_SWDRV_PMGR_SetPortEgressBlock(uint32_t unit, uint32_t port, const uint64_t egress_bitmap[2]);

/*
 * Sets whether the port sends and receives.
 */
uint8_t DEV_SWDRV_PMGR_SetPortTrafficTxRx(uint32_t unit, uint32_t port, uint8_t enable);

/*
 * Sets what happens when a known address shows up at the port.
 */
uint8_t DEV_SWDRV_PMGR_SetPortStationMoveAction(uint32_t unit, uint32_t port, uint8_t value1, uint8_t value2);

/*
 * Writes the version of the CPLD's program to `dst` as text: two numbers of two hexadecimal digits with a point between
 * them, such as "01.0a". `dst` has room for 6 characters.
 *
 * Returns 0 at once, without asking the driver process and without a report, when `dst` is null. When the driver
 * process refuses, `dst` is as it was.
 */
uint8_t DEV_SWDRV_PMGR_GetCPLDSoftwareVersion(uint32_t value, char *dst);

/*
 * Sets the SFP connector of the port.
 */
uint8_t DEV_SWDRV_PMGR_SetPortSfpConnector(uint32_t unit, uint32_t port, uint8_t value);

/*
 * Sets the forward error correction of the port.
 */
uint8_t DEV_SWDRV_PMGR_SetPortFec(uint32_t unit, uint32_t port, uint32_t fec);

/*
 * Stores in `*status` the forward error correction of the port, as the driver process numbers it.
 */
uint8_t DEV_SWDRV_PMGR_GetPortFecStatus(uint32_t unit, uint32_t port, uint32_t *status);

/*
 * Stores the temperature of the device in `*temperature`, in the driver process's unit.
 */
uint8_t DEV_SWDRV_PMGR_GetDeviceTemperature(uint32_t *temperature);

/* ---- OAM, trunk hashing and event delivery ---- */

/*
 * `oam_sel`, `entry_index` and the parameters of this group are passed to the driver process as they are. `enable` is 1
 * or 0.
 */

/* Settings of an OAM entry: 56 bytes followed by a number of 32 bits, copied to the driver process as they are. */
typedef struct OamEntryRecord {
    uint8_t bytes[60];
} OamEntryRecord;
QUILLON_RECORD_SIZE(OamEntryRecord, 60);

/* A CRC hash entry: 48 bytes followed by a number of 32 bits, copied to the driver process as they are. */
typedef struct TrunkHashCrcRecord {
    uint8_t bytes[52];
} TrunkHashCrcRecord;
QUILLON_RECORD_SIZE(TrunkHashCrcRecord, 52);

/*
 * Hands `mode` to the driver process.
 *
 * Returns nothing: only a failed exchange shows, by its report.
 */
void DEV_SWDRV_PMGR_Receive_All(uint32_t mode);

/*
 * Sets whether OAM PDUs that the port receives are trapped to the CPU.
 */
uint8_t DEV_SWDRV_PMGR_SetOamPduToCpu(uint32_t unit, uint32_t port, uint8_t enable);

/*
 * Sets whether the port is in OAM loopback.
 */
uint8_t DEV_SWDRV_PMGR_SetOamLoopback(uint32_t unit, uint32_t port, uint8_t enable);

/*
 * Switches the OAM engine on or off.
 */
uint8_t DEV_SWDRV_PMGR_SetOamEnable(uint8_t oam_sel, uint8_t enable);

/*
 * Sets an entry of the OAM engine to what `record` points to.
 */
uint8_t DEV_SWDRV_PMGR_SetOamEntry(uint8_t oam_sel, uint32_t entry_index, uint32_t param1, uint32_t param2,
                                   const OamEntryRecord *record);

/*
 * Sets what becomes of packets of an opcode, in a profile of the OAM engine. The name has no underscore behind the
 * prefix, unlike all others.
 */
uint8_t DEV_SWDRV_PMGRSetOamOpcodeProfilePktCmdEntry(uint8_t oam_sel, uint32_t entry_index, uint32_t param1,
                                                     uint32_t param2, uint32_t param3);

/*
 * Switches the OAM engine's aging daemon on or off.
 */
uint8_t DEV_SWDRV_PMGR_SetOamAgingDaemonEnable(uint8_t oam_sel, uint8_t enable);

/*
 * Sets an aging period of the OAM engine.
 */
uint8_t DEV_SWDRV_PMGR_SetOamAgingPeriodEntry(uint8_t oam_sel, uint32_t entry_index, uint32_t param1, uint32_t param2);

/*
 * Sets whether the OAM engine takes the packets of a packet command, `entry_index`, for signs of life. In the request
 * `enable` stands before `entry_index`.
 */
uint8_t DEV_SWDRV_PMGR_SetOamKeepaliveForPacketCommandEnable(uint8_t oam_sel, uint32_t entry_index, uint8_t enable);

/*
 * Sets the detection of an OAM exception. `entry_index` says which exception, in the driver process's numbering.
 */
uint8_t DEV_SWDRV_PMGR_SetOamExceptionConfig(uint8_t oam_sel, uint32_t entry_index, uint32_t param1, uint8_t enable);

/*
 * Sets the recovery from an OAM exception. `entry_index` says which exception, in the driver process's numbering.
 */
uint8_t DEV_SWDRV_PMGR_SetOamExceptionRecoveryConfig(uint8_t oam_sel, uint32_t entry_index, uint32_t param1);

/*
 * Stores in `*status` the groups of OAM entries that have an exception. `entry_index` says which exception, in the
 * driver process's numbering.
 */
uint8_t DEV_SWDRV_PMGR_GetOamExceptionGroupStatus(uint32_t value, uint8_t oam_sel, uint32_t entry_index,
                                                  uint64_t *status);

/*
 * Stores in `*status` the OAM entries of a group that have an exception. `entry_index` says which exception, and
 * `param1` which group, in the driver process's numbering.
 */
uint8_t DEV_SWDRV_PMGR_GetOamExceptionStatus(uint32_t value, uint8_t oam_sel, uint32_t entry_index, uint32_t param1,
                                             uint32_t *status);

/*
 * Sets how traffic is spread over the ports of trunks.
 */
uint8_t DEV_SWDRV_PMGR_SetTrunkHashGlobalMode(uint32_t mode);

/*
 * Sets a CRC hash entry of the trunks to what `record` points to.
 */
uint8_t DEV_SWDRV_PMGR_SetTrunkHashCrcEntry(uint32_t value, uint32_t entry_index, const TrunkHashCrcRecord *record);

/*
 * Binds the caller to OAM events (`operation` 1), or takes back what it bound with the same `param1` and `param2`:
 * which events, and a number that tells its bindings apart, both in the driver process's numbering. With quillon-driver
 * `param1` is an event, or 0 for all of them, and a caller is a process.
 *
 * With `operation` 1 the handle of the binding is stored in `*event_handle`, unless `event_handle` is null. With any
 * other operation `event_handle` is not looked at.
 */
uint8_t DEV_SWDRV_PMGR_EventBindUnbindOam(int8_t operation, uint32_t param1, uint32_t param2, uint64_t *event_handle);

/*
 * Waits until the driver process has an OAM event for the caller. `event` is the event that is waited for, in the
 * driver process's numbering. `event_handle` is the handle that DEV_SWDRV_PMGR_EventBindUnbindOam gave. The number that
 * `timeout` points to bounds the wait, in the driver process's unit; with a null `timeout` it waits for ever.
 *
 * With quillon-driver, `event` 0 stands for any event of the binding and `*timeout` is in milliseconds. It returns 1
 * when an event has ended the wait, at once when one is kept from before. It returns 0 when the time-out has passed or
 * the binding was taken back meanwhile, and at once when there is no such binding of this process or when it is not for
 * the event. What came is not told: who wants to know which event it was waits for one at a time.
 *
 * The calling thread is held until the driver process answers, so this is called from a thread of its own; other
 * threads go on making requests meanwhile.
 */
uint8_t DEV_SWDRV_PMGR_WaitAndReceiveOam(uint32_t event, uint64_t event_handle, const uint32_t *timeout);

/* ---- TWSI buses and PoE controller ---- */

/*
 * The functions whose name has "Twsi" in it travel on the queue of key 59, so that a slow bus holds up nobody else. The
 * other ones of this group travel on the family's main queue.
 *
 * `bus_idx` says which bus, `dev_id` which device on it. They, `sel_a`, `sel_b`, `word`, `sel_c`, `offset16` and the
 * values are passed to the driver process as they are.
 *
 * With `len` 0 the pointer to the data is not looked at and may be null. A `len` beyond the bound that a function names
 * is refused: it returns 0 at once, without asking the driver process and without a report. Bytes that were read are
 * stored whenever the exchange succeeded, also when the driver process refused, and always exactly `len`.
 */

/*
 * Gives the LEDs of all ports back to the PHYs.
 */
uint8_t DEV_SWDRV_PMGR_PhyLightPortLedNormal(void);

/*
 * Sets the TWSI buses up.
 */
uint8_t DEV_SWDRV_PMGR_TwsiInit(void);

/*
 * Writes a register over a TWSI bus.
 */
uint8_t DEV_SWDRV_PMGR_TwsiRegisterWrite(uint32_t value1, uint32_t value2, uint32_t value3);

/*
 * Reads a register over a TWSI bus and stores it in `*out`.
 */
uint8_t DEV_SWDRV_PMGR_TwsiRegisterRead(uint32_t value1, uint32_t value2, uint32_t *out);

/*
 * Writes the `len` bytes at `data`, 255 at most, to a device.
 */
uint8_t DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx(uint8_t bus_idx, uint8_t dev_id, uint8_t sel_a, uint8_t sel_b,
                                               uint32_t word, uint8_t sel_c, const uint8_t *data, uint8_t len);

/*
 * DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx on bus 0. Of each argument but `word` and `data` the low 8 bits count: a `len`
 * of 256 or more is not refused but cut, 256 to 0 and 300 to 44. A failure report names
 * DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx.
 */
uint8_t DEV_SWDRV_PMGR_TwsiDataWrite(uint32_t dev_id, uint32_t sel_a, uint32_t sel_b, uint32_t word, uint32_t sel_c,
                                     const uint8_t *data, uint32_t len);

/*
 * Reads `len` bytes, 255 at most, from a device and stores them in `out`.
 */
uint8_t DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(uint8_t bus_idx, uint8_t dev_id, uint8_t sel_a, uint8_t sel_b,
                                              uint32_t word, uint8_t sel_c, uint8_t len, uint8_t *out);

/*
 * DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx on bus 0. Of each argument but `word` and `out` the low 8 bits count: a `len`
 * of 256 or more is not refused but cut, and as many bytes are stored in `out` as are left of it. A failure report
 * names DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx.
 */
uint8_t DEV_SWDRV_PMGR_TwsiDataRead(uint32_t dev_id, uint32_t sel_a, uint32_t sel_b, uint32_t word, uint32_t sel_c,
                                    uint32_t len, uint8_t *out);

/*
 * Writes the `len` bytes at `data`, 256 at most, to a device, at `offset16`.
 */
uint8_t DEV_SWDRV_PMGR_TwsiWrite(uint8_t dev_id, uint16_t offset16, const void *data, uint16_t len);

/*
 * Reads `len` bytes, 255 at most and so one less than DEV_SWDRV_PMGR_TwsiWrite writes, from a device, at `offset16`,
 * and stores them in `out`.
 */
uint8_t DEV_SWDRV_PMGR_TwsiRead(uint8_t dev_id, uint16_t offset16, void *out, uint16_t len);

/*
 * Sets the PoE controller up.
 */
uint8_t DEV_SWDRV_PMGR_MSCC_POE_Init(void);

/*
 * Writes the `len` bytes at `data`, 256 at most, to the PoE controller and stores its status in `*poe_status`.
 */
uint8_t DEV_SWDRV_PMGR_MSCC_POE_Write(const void *data, uint16_t len, uint32_t *poe_status);

/*
 * Reads `len` bytes, 256 at most, from the PoE controller, stores them in `out` and the controller's status in
 * `*poe_status`.
 */
uint8_t DEV_SWDRV_PMGR_MSCC_POE_Read(void *out, uint16_t len, uint32_t *poe_status);

/*
 * Ends the use of the PoE controller.
 */
uint8_t DEV_SWDRV_PMGR_MSCC_POE_Exit(void);

/*
 * Sets the system's PoE LED.
 */
uint8_t DEV_SWDRV_PMGR_SetSysPoeLEDStatus(uint32_t value1, uint32_t value2);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
