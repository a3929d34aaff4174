/*
 * Client of the routing service of the driver process: L3 interfaces, routes, IP multicast, and the debug menu.
 *
 * Every request function asks the driver process, waits for its answer without a time-out and returns its verdict.
 * Unless a function says otherwise:
 *
 * - A function that returns a uint8_t returns 1 when the driver process did what was asked and 0 when it refused.
 * - A function that returns a uint32_t returns a status code of the driver process, as it is.
 * - Outputs, and entries that are copied back, are written whenever the exchange with the driver process succeeded,
 *   also when it refused.
 * - When the exchange fails (no driver process, or it died), the function prints a failure report and the line
 *   "<function>:SYSFUN_SendRequestMsg fail! (<status>)" on standard output, runs "cat /proc/<task>/ustack" to dump the
 *   calling task's stack, writes no output and copies no entry back. What it then returns stands beside it: 0, 7, or
 *   for IP multicast what the request's buffer holds.
 * - Arguments are not tested here, pointers not for null: the driver process refuses what it does not know.
 * - Any thread may call it once DEV_SWDRVL3_PMGR_InitiateProcessResource has run.
 *
 * Arguments that are named by their position (`arg1`, ...) are numbers of devices, interfaces and VLANs. They are
 * passed to the driver process as they are; what each means is the driver process's to say.
 *
 * `mac` points to a MAC address of 6 bytes, in the order in which they are sent on a wire.
 */
#ifndef QUILLON_SWDRVL3_H
#define QUILLON_SWDRVL3_H

#include <stdint.h>

#include "quillon/record.h"

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/*
 * A route to one host: 72 bytes. What they hold is the driver process's to say. It fills hardware information in as
 * well, which is why most requests copy the entry back.
 */
typedef struct HostRouteEntry {
    uint64_t words[9];
} HostRouteEntry;
QUILLON_RECORD_SIZE(HostRouteEntry, 72);

/* A route to a network: 80 bytes, otherwise as HostRouteEntry. */
typedef struct NetRouteEntry {
    uint64_t words[10];
} NetRouteEntry;
QUILLON_RECORD_SIZE(NetRouteEntry, 80);

/*
 * A downstream interface or a replication of an IP multicast entry: 8 bytes and a word, 12 bytes. What they hold is the
 * driver process's to say.
 */
typedef struct McastInterface {
    uint8_t bytes[8];
    uint32_t word;
} McastInterface;
QUILLON_RECORD_SIZE(McastInterface, 12);
QUILLON_FIELD_OFFSET(McastInterface, word, 8);

/* What a new layer-3 multicast entry brings: 384 bytes. What they hold is the driver process's to say. */
typedef struct McastEntryBlock {
    uint8_t bytes[384];
} McastEntryBlock;
QUILLON_RECORD_SIZE(McastEntryBlock, 384);

/*
 * Attaches the process to the driver process's queue of key 24. To be called once, before the family's first request
 * and before the process's threads make requests. Calling it again attaches again.
 *
 * When the queue is missing, prints
 * "DEV_SWDRVL3_PMGR_InitiateProcessResource(): SYSFUN_GetMsgQ fail."
 * on standard output and returns; requests then fail, each with its failure report.
 */
void DEV_SWDRVL3_PMGR_InitiateProcessResource(void);

/* ---- Routing on and off ---- */

/* Switches the protection against storms of unicast packets on. Returns 0 when the exchange fails. */
uint8_t DEV_SWDRVL3_PMGR_EnableUnicastStormProtect(uint32_t arg1, uint32_t arg2);

/* Switches the protection against storms of unicast packets off. Returns 0 when the exchange fails. */
uint8_t DEV_SWDRVL3_PMGR_DisableUnicastStormProtect(uint32_t arg1, uint32_t arg2);

/* Switches routing on. Returns 0 when the exchange fails. */
uint8_t DEV_SWDRVL3_PMGR_EnableRouting(uint32_t arg1, uint32_t arg2);

/* Switches the routing of IPv4 on. Returns 0 when the exchange fails. */
uint8_t DEV_SWDRVL3_PMGR_EnableIPv4Routing(uint32_t arg1, uint32_t arg2);

/* Switches the routing of IPv6 on. Returns 0 when the exchange fails. */
uint8_t DEV_SWDRVL3_PMGR_EnableIPv6Routing(uint32_t arg1, uint32_t arg2);

/* Switches routing off. Returns 0 when the exchange fails. */
uint8_t DEV_SWDRVL3_PMGR_DisableRouting(uint32_t arg1, uint32_t arg2);

/* Switches the routing of IPv4 off. Returns 0 when the exchange fails. */
uint8_t DEV_SWDRVL3_PMGR_DisableIPv4Routing(uint32_t arg1, uint32_t arg2);

/* Switches the routing of IPv6 off. Returns 0 when the exchange fails. */
uint8_t DEV_SWDRVL3_PMGR_DisableIPv6Routing(uint32_t arg1, uint32_t arg2);

/* ---- L3 interfaces and router MAC addresses ---- */

/*
 * Creates an L3 interface with the MAC address `mac` and stores its identifier in `*interface_id`: the driver process's
 * answer whatever the status code.
 *
 * Returns the status code, and 7 when the exchange fails.
 */
uint32_t DEV_SWDRVL3_PMGR_CreateL3Interface(uint32_t arg1, uint32_t arg2, const uint8_t *mac, uint32_t *interface_id);

/*
 * Deletes an L3 interface with the MAC address `mac`. Its numbers are not placed as those of
 * DEV_SWDRVL3_PMGR_CreateL3Interface: `arg1` stands where that has the identifier of the interface, followed by `arg2`
 * and `arg4`.
 *
 * Returns 0 when the exchange fails.
 */
uint8_t DEV_SWDRVL3_PMGR_DeleteL3Interface(uint32_t arg1, uint32_t arg2, const uint8_t *mac, uint32_t arg4);

/* Adds a router MAC address. Returns the status code, and 7 when the exchange fails. */
uint32_t DEV_SWDRVL3_PMGR_AddL3Mac(uint32_t arg1, const uint8_t *mac);

/* Deletes a router MAC address. Returns 0 when the exchange fails. */
uint8_t DEV_SWDRVL3_PMGR_DeleteL3Mac(uint32_t arg1, const uint8_t *mac);

/* Sets the L3 bit of a MAC address. Returns 0 when the exchange fails. */
uint8_t DEV_SWDRVL3_PMGR_SetL3Bit(uint32_t arg1, const uint8_t *mac);

/* Clears the L3 bit of a MAC address. Returns 0 when the exchange fails. */
uint8_t DEV_SWDRVL3_PMGR_UnSetL3Bit(uint32_t arg1, const uint8_t *mac);

/*
 * Asks the driver process nothing, changes nothing and returns 1. Arguments that a caller passes are ignored.
 */
uint8_t DEV_SWDRVL3_PMGR_SetL3InterfaceMtu(void);

/* ---- Host and network routes ---- */

/*
 * Installs a host route or changes it. `*entry` (72 bytes) is sent whole and copied back whole.
 *
 * Returns the status code, and 7 when the exchange fails.
 */
uint32_t DEV_SWDRVL3_PMGR_SetInetHostRoute(HostRouteEntry *entry);

/* Removes a host route. `*entry` is sent whole and copied back whole. Returns 0 when the exchange fails. */
uint8_t DEV_SWDRVL3_PMGR_DeleteInetHostRoute(HostRouteEntry *entry);

/*
 * Adds a network route. `*entry` (80 bytes) is sent whole and copied back whole; `arg2`, 64 bits, is passed to the
 * driver process as it is.
 *
 * Returns the status code, and 7 when the exchange fails.
 */
uint32_t DEV_SWDRVL3_PMGR_AddInetNetRoute(NetRouteEntry *entry, uint64_t arg2);

/*
 * Removes a network route; its arguments are those of DEV_SWDRVL3_PMGR_AddInetNetRoute.
 *
 * Returns 1 or 0, but 7 when the exchange fails: compare with 1.
 */
uint8_t DEV_SWDRVL3_PMGR_DeleteInetNetRoute(NetRouteEntry *entry, uint64_t arg2);

/*
 * Adds the host route of an address of the switch itself. `*entry` is sent whole and not copied back.
 *
 * Returns the status code, and 7 when the exchange fails.
 */
uint32_t DEV_SWDRVL3_PMGR_AddInetMyIpHostRoute(const HostRouteEntry *entry);

/*
 * Removes the host route of an address of the switch itself. `*entry` is sent whole and not copied back.
 *
 * Returns the status code, and 7 when the exchange fails.
 */
uint32_t DEV_SWDRVL3_PMGR_DeleteInetMyIpHostRoute(const HostRouteEntry *entry);

/* ---- Equal-cost multi-path routes ---- */

/*
 * Adds a network route with several next hops. `*entry` is sent whole and copied back whole.
 *
 * `next_hops` points to `count` next hops of 64 bits each, 8 at most. The bound is the caller's to keep: a debug build
 * of the library stops at a larger `count`, another one writes past its buffer. With `count` 0 the pointer is not
 * looked at.
 *
 * Returns the status code, and 7 when the exchange fails.
 */
uint32_t DEV_SWDRVL3_PMGR_AddInetECMPRouteMultiPath(NetRouteEntry *entry, const uint64_t *next_hops, uint32_t count);

/*
 * Removes a network route with all its next hops. `*entry` is sent whole and copied back whole. Returns 0 when the
 * exchange fails.
 */
uint8_t DEV_SWDRVL3_PMGR_DeleteInetECMPRoute(NetRouteEntry *entry);

/*
 * Adds one next hop to a network route. `*entry` is sent whole and copied back whole; `next_hop` and `arg3`, 8 bits,
 * are passed to the driver process as they are.
 *
 * Returns the status code, and 7 when the exchange fails.
 */
uint32_t DEV_SWDRVL3_PMGR_AddInetECMPRouteOnePath(NetRouteEntry *entry, uint64_t next_hop, uint8_t arg3);

/*
 * Removes one next hop from a network route; its arguments are those of DEV_SWDRVL3_PMGR_AddInetECMPRouteOnePath, but
 * `*entry` is not copied back. Returns 0 when the exchange fails.
 */
uint8_t DEV_SWDRVL3_PMGR_DeleteInetECMPRouteOnePath(const NetRouteEntry *entry, uint64_t next_hop, uint8_t arg3);

/* ---- Special default route, hit bits and hardware information ---- */

/*
 * Sets the special default route. Bytes 4 to 79 of `*entry` are sent; `arg2` takes the place of its first four bytes,
 * which are not sent. The entry is not copied back. Returns 0 when the exchange fails.
 */
uint8_t DEV_SWDRVL3_PMGR_SetSpecialDefaultRoute(const NetRouteEntry *entry, uint32_t arg2);

/*
 * Removes the special default route; its arguments are those of DEV_SWDRVL3_PMGR_SetSpecialDefaultRoute. Returns 0 when
 * the exchange fails.
 */
uint8_t DEV_SWDRVL3_PMGR_DeleteSpecialDefaultRoute(const NetRouteEntry *entry, uint32_t arg2);

/*
 * Stores in `*hit` the hit bit of a host route and clears it in the hardware. `*entry` is sent whole and not copied
 * back. Returns 0 when the exchange fails.
 */
uint8_t DEV_SWDRVL3_PMGR_ReadAndClearHostRouteEntryHitBit(const HostRouteEntry *entry, uint32_t *hit);

/*
 * Asks the driver process nothing and returns 1, without reading or clearing a hit bit. Arguments that a caller passes
 * are ignored, and none of them is written to.
 */
uint8_t DEV_SWDRVL3_PMGR_ReadAndClearNetRouteEntryHitBit(void);

/*
 * Clears the hardware information of a host route. `*entry` is sent whole and copied back whole. Returns 0 when the
 * exchange fails.
 */
uint8_t DEV_SWDRVL3_PMGR_ClearHostRouteHWInfo(HostRouteEntry *entry);

/*
 * Clears the hardware information of a network route. `*entry` is sent whole and copied back whole. Returns 0 when the
 * exchange fails.
 */
uint8_t DEV_SWDRVL3_PMGR_ClearNetRouteHWInfo(NetRouteEntry *entry);

/* ---- Tunnels ---- */

/*
 * The driver process has no tunnels. These functions ask it nothing, change nothing and return a constant: 0 when a
 * tunnel or its route is to be added or changed, or the route deleted, and 1 when one of its ends is to be deleted.
 * Arguments that a caller passes are ignored.
 */

/* Returns 0. */
uint8_t DEV_SWDRVL3_PMGR_AddTunnelInitiator(void);

/* Returns 0. */
uint8_t DEV_SWDRVL3_PMGR_UpdateTunnelTtl(void);

/* Returns 0. */
uint8_t DEV_SWDRVL3_PMGR_AddTunnelTerminator(void);

/* Returns 0. */
uint8_t DEV_SWDRVL3_PMGR_AddInetHostTunnelRoute(void);

/* Returns 1. */
uint8_t DEV_SWDRVL3_PMGR_DeleteTunnelTerminator(void);

/* Returns 1. */
uint8_t DEV_SWDRVL3_PMGR_DeleteTunnelInitiator(void);

/* Returns 0. */
uint8_t DEV_SWDRVL3_PMGR_DeleteInetHostTunnelRoute(void);

/* ---- IP multicast ---- */

/*
 * Every function here returns the driver process's whole answer. When the exchange fails, it returns what then stands
 * in the answer's place in the request's buffer: the code of the request, unless the platform wrote there. A failure
 * cannot be told from an answer by the value alone; DEV_SWDRVL3_PMGR_l3mc_entry_stat alone differs.
 *
 * Requests on an entry name it by four arguments:
 * - `arg1` and `arg2`: numbers, which are passed to the driver process as they are;
 * - `group` and `source`: point to its group address and its source address, 16 bytes each.
 *
 * The addresses are IPv4 or IPv6; how an IPv4 address stands in the 16 bytes is the driver process's to say.
 */

/* Switches IP multicast forwarding on. When the exchange fails, returns 100 (see above). */
uint32_t DEV_SWDRVL3_PMGR_ipmc_enable(uint32_t arg1, uint32_t arg2, uint32_t arg3);

/* Switches IP multicast forwarding off. When the exchange fails, returns 101 (see above). */
uint32_t DEV_SWDRVL3_PMGR_ipmc_disable(void);

/* Switches the driver process's debugging of IP multicast on. When the exchange fails, returns 102 (see above). */
uint32_t DEV_SWDRVL3_PMGR_ipmc_debug_enable(void);

/* Switches the driver process's debugging of IP multicast off. When the exchange fails, returns 103 (see above). */
uint32_t DEV_SWDRVL3_PMGR_ipmc_debug_disable(void);

/*
 * Adds a layer-2 multicast entry. `arg5` points to 8 bytes, which are passed to the driver process as they are. When
 * the exchange fails, returns 106 (see above).
 */
uint32_t DEV_SWDRVL3_PMGR_l2mc_entry_add(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                         const uint8_t *arg5);

/*
 * Deletes a layer-2 multicast entry; `arg5` as in DEV_SWDRVL3_PMGR_l2mc_entry_add. When the exchange fails, returns 107
 * (see above).
 */
uint32_t DEV_SWDRVL3_PMGR_l2mc_entry_del(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                         const uint8_t *arg5);

/* Adds a port to a layer-3 multicast entry. When the exchange fails, returns 108 (see above). */
uint32_t DEV_SWDRVL3_PMGR_l3mc_port_add(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                        uint32_t arg5, uint32_t arg6);

/* Deletes a port from a layer-3 multicast entry. When the exchange fails, returns 109 (see above). */
uint32_t DEV_SWDRVL3_PMGR_l3mc_port_del(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                        uint32_t arg5, uint32_t arg6);

/* Adds a downstream interface to a layer-3 multicast entry. When the exchange fails, returns 110 (see above). */
uint32_t DEV_SWDRVL3_PMGR_l3mc_dnintf_add(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                          const McastInterface *interface);

/* Deletes a downstream interface from a layer-3 multicast entry. When the exchange fails, returns 111 (see above). */
uint32_t DEV_SWDRVL3_PMGR_l3mc_dnintf_del(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                          const McastInterface *interface);

/*
 * Adds a layer-3 multicast entry. `arg5` points to 8 bytes; they, `arg6` and the whole `*block` are passed to the
 * driver process as they are. When the exchange fails, returns 112 (see above).
 */
uint32_t DEV_SWDRVL3_PMGR_l3mc_entry_add(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                         const uint8_t *arg5, uint8_t arg6, const McastEntryBlock *block);

/* Deletes a layer-3 multicast entry. When the exchange fails, returns 113 (see above). */
uint32_t DEV_SWDRVL3_PMGR_l3mc_entry_del(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source);

/*
 * Reads the status of a layer-3 multicast entry. `*entry_status` is sent as it is and becomes the driver process's
 * whole answer, the status of the entry.
 *
 * Returns 0 when the exchange succeeded, whatever the answer. When it fails, returns the platform's status, which is
 * not 0, and `*entry_status` is written all the same: it becomes what then stands in the answer's place, 114 unless the
 * platform wrote there.
 */
uint32_t DEV_SWDRVL3_PMGR_l3mc_entry_stat(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                          uint32_t *entry_status);

/* Adds the CPU port to a layer-3 multicast entry. When the exchange fails, returns 115 (see above). */
uint32_t DEV_SWDRVL3_PMGR_l3mc_cpu_port_add(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source);

/* Deletes the CPU port from a layer-3 multicast entry. When the exchange fails, returns 116 (see above). */
uint32_t DEV_SWDRVL3_PMGR_l3mc_cpu_port_del(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source);

/* Adds a replication to a layer-3 multicast entry. When the exchange fails, returns 117 (see above). */
uint32_t DEV_SWDRVL3_PMGR_l3mc_repl_add(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                        const McastInterface *interface);

/* Deletes a replication from a layer-3 multicast entry. When the exchange fails, returns 118 (see above). */
uint32_t DEV_SWDRVL3_PMGR_l3mc_repl_del(uint32_t arg1, uint32_t arg2, const uint8_t *group, const uint8_t *source,
                                        const McastInterface *interface);

/* ---- Debug menu ---- */

/*
 * Registers the routing debug menu with the platform's debug console, as subsystem 24 of the name "DEVSWDRVL3_PMGR". To
 * be called once, during start-up, by a process that offers the menu; that process needs the console functions of the
 * platform (quillon/platform.h), which no other function here uses.
 *
 * Returns what the platform's registration returned.
 */
uint32_t DEV_SWDRVL3_PMGR_Create_InterCSC_Relation(void);

/*
 * The menu itself. The debug console calls it when the operator enters the subsystem: it prints the menu, reads one
 * key, acts on it and begins again. Keys 0 to 3 switch the routing of IPv4 or IPv6 on or off and print whether the
 * request returned 1 ("TRUE") or not ("FALSE").
 *
 * Returns when the operator presses Q or q. When no key can be read, prints
 * "DEV_SWDRVL3_PMGR_Backdoor_Main: BACKDOOR_MGR_GetChar fail"
 * on standard output and returns.
 */
void DEV_SWDRVL3_PMGR_Backdoor_Main(void);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
