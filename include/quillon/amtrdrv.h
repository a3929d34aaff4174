/*
 * Client of the MAC address table of the driver process.
 *
 * Every request function asks the driver process, waits for its answer without a time-out and returns its verdict.
 * Unless a function says otherwise:
 *
 * - It returns 1 when the driver process did what was asked and 0 when it refused.
 * - Outputs are written whenever the exchange with the driver process succeeded, also when it refused. Neither they
 *   nor the pointers to what is sent are tested for null.
 * - When the exchange fails (no driver process, or it died), the function prints a failure report on standard output,
 *   runs "cat /proc/<task>/ustack" to dump the calling task's stack, prints
 *   "<function>:SYSFUN_SendRequestMsg fail! (<status>)", writes no output and returns 0.
 * - Numeric arguments are not tested here: they go to the driver process as they are, and their meaning and range are
 *   its own. A neutral name (`selector`, `mode`, `value`) stands where only the driver process knows the meaning.
 * - Any thread may call it once DEV_AMTRDRV_PMGR_InitiateProcessResource has run.
 *
 * `vlan` is the VLAN of an entry and `mac` points to the 6 bytes of its MAC address, in network order. `unit` is the
 * number of a unit in the stack, `port` the number of a port on that unit.
 */
#ifndef QUILLON_AMTRDRV_H
#define QUILLON_AMTRDRV_H

#include <stdint.h>

#include "quillon/record.h"

#ifdef __cplusplus
extern "C" {
#endif

/*
 * One entry of the table: its MAC address, VLAN, port or trunk and attributes, laid out by the driver process. Requests
 * carry the 16 bytes unchanged in both directions.
 */
typedef struct AddrTblEntry {
    uint8_t bytes[16];
} AddrTblEntry;

QUILLON_RECORD_SIZE(AddrTblEntry, 16);

/* The most entries that one batch of the walk brings. */
enum { QUILLON_ADDR_TBL_BATCH_ENTRIES = 150 };

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

/* ---- Walking the table ---- */

/*
 * Puts the driver process's walk back to the first entry.
 */
uint8_t DEV_AMTRDRV_PMGR_ResetToFirstAddrTblEntry(uint32_t selector);

/*
 * Asks for the entry that follows `*entry` in the driver process's order and stores it in `*entry`. The record is the
 * cursor: the next call is made with the record that this one stored.
 *
 * Returns the driver process's whole result, not only 0 or 1. `*entry` is overwritten whatever the result says.
 */
uint32_t DEV_AMTRDRV_PMGR_GetNextAddrTblEntry(AddrTblEntry *entry);

/*
 * Asks for up to `wanted` entries, which follow one another in the driver process's order. Stores their number in
 * `*count` and that many entries in `entries`.
 *
 * `entries` has room for QUILLON_ADDR_TBL_BATCH_ENTRIES entries, the most that a reply carries, whatever `wanted` is.
 * The number that comes with the reply is not tested: the driver process keeps it within that limit.
 *
 * Returns the driver process's whole result, not only 0 or 1.
 */
uint32_t DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry(AddrTblEntry *entries, uint32_t wanted, uint32_t *count);

/* ---- Setting entries ---- */

/*
 * Sets `*entry` in the table.
 */
uint8_t DEV_AMTRDRV_PMGR_SetAddrTblEntry(const AddrTblEntry *entry);

/*
 * Sets an intervention entry for the address. `mode` and `value` are passed to the driver process as they are.
 *
 * Returns the driver process's whole result, not only 0 or 1.
 */
uint32_t DEV_AMTRDRV_PMGR_SetInterventionEntry(uint32_t vlan, const uint8_t *mac, uint8_t mode, uint32_t value);

/*
 * Deletes the intervention entry of the address.
 */
uint8_t DEV_AMTRDRV_PMGR_DeleteInterventionEntry(uint32_t vlan, const uint8_t *mac);

/*
 * Adds the MAC address of the VLAN itself.
 */
uint8_t DEV_AMTRDRV_PMGR_AddVlanMac(uint32_t vlan, const uint8_t *mac);

/*
 * Deletes the MAC address of the VLAN itself.
 */
uint8_t DEV_AMTRDRV_PMGR_DeleteVlanMac(uint32_t vlan, const uint8_t *mac);

/*
 * Sets `*entry` in the table, with an attribute beside it. `attribute` and `mode` are passed to the driver process as
 * they are.
 */
uint8_t DEV_AMTRDRV_PMGR_SetMacEntryWithAttribute(const AddrTblEntry *entry, uint32_t attribute, uint8_t mode);

/*
 * Sets `*entry` in the table of one device, the chip with the id `device`.
 *
 * Returns the driver process's whole result, not only 0 or 1.
 */
uint32_t DEV_AMTRDRV_PMGR_SetAddrTblEntryByDevice(uint8_t device, const AddrTblEntry *entry);

/* ---- Deleting entries ---- */

/*
 * Deletes the entry of the address.
 */
uint8_t DEV_AMTRDRV_PMGR_DeleteAddr(uint32_t vlan, const uint8_t *mac);

/*
 * Deletes all dynamic entries.
 */
uint8_t DEV_AMTRDRV_PMGR_DeleteAllDynamicAddr(void);

/*
 * Deletes all entries.
 */
uint8_t DEV_AMTRDRV_PMGR_DeleteAllAddr(void);

/*
 * Deletes the entries of a port. `selector` is passed to the driver process as it is.
 */
uint8_t DEV_AMTRDRV_PMGR_DeleteAddrByPort(uint32_t unit, uint32_t port, uint32_t selector);

/*
 * Deletes the dynamic entries of a port. `selector` is passed to the driver process as it is.
 */
uint8_t DEV_AMTRDRV_PMGR_DeleteDynamicAddrByPort(uint32_t unit, uint32_t port, uint32_t selector);

/*
 * Deletes the dynamic entries of a VLAN. `ignored` is not sent: the request is the same for every value.
 */
uint8_t DEV_AMTRDRV_PMGR_DeleteDynamicAddrByVlan(uint32_t ignored, uint32_t vlan);

/*
 * Deletes the dynamic entries of a port in a VLAN. `selector` is passed to the driver process as it is.
 */
uint8_t DEV_AMTRDRV_PMGR_DeleteDynamicAddrByPortAndVlan(uint32_t unit, uint32_t port, uint32_t selector, uint32_t vlan);

/*
 * Deletes the entry of the address from the table of one device, the chip with the id `device`.
 */
uint8_t DEV_AMTRDRV_PMGR_DeleteAddrByDevice(uint8_t device, uint32_t vlan, const uint8_t *mac);

/* ---- Multicast entries ---- */

/*
 * Creates the multicast entry of the address.
 */
uint8_t DEV_AMTRDRV_PMGR_CreateMulticastAddrTblEntry(uint32_t vlan, const uint8_t *mac);

/*
 * Destroys the multicast entry of the address.
 */
uint8_t DEV_AMTRDRV_PMGR_DestroyMulticastAddrTblEntry(uint32_t vlan, const uint8_t *mac);

/*
 * Adds a port to the multicast entry of the address. `mode` is passed to the driver process as it is.
 */
uint8_t DEV_AMTRDRV_PMGR_AddMulticastPortMember(uint32_t vlan, const uint8_t *mac, uint32_t unit, uint32_t port,
                                                uint8_t mode);

/*
 * Deletes a port from the multicast entry of the address. The address comes last, unlike in
 * DEV_AMTRDRV_PMGR_AddMulticastPortMember.
 */
uint8_t DEV_AMTRDRV_PMGR_DeleteMulticastPortMember(uint32_t vlan, uint32_t unit, uint32_t port, const uint8_t *mac);

/*
 * Sets the ports of the multicast entry of the address. `first_ports` and `second_ports` point to port lists of 8 bytes
 * each, which are passed to the driver process as they are.
 */
uint8_t DEV_AMTRDRV_PMGR_SetMulticastPortList(uint32_t vlan, const uint8_t *mac, const uint8_t *first_ports,
                                              const uint8_t *second_ports);

/*
 * Has the driver process set its multicast entry for internal packets. Returns nothing: whether it did is not told, and
 * a failed exchange shows in its report only.
 */
void DEV_AMTRDRV_PMGR_SetMCastEntryForInternalPacket(void);

/* ---- Looking addresses up in the chips ---- */

/*
 * Looks the address up in the chips' table. Stores what the driver process found, as it came: two words in
 * `*first_value` and `*second_value` and a byte in `*flag`.
 */
uint8_t DEV_AMTRDRV_PMGR_ARLLookUp(uint32_t vlan, const uint8_t *mac, uint32_t *first_value, uint32_t *second_value,
                                   uint8_t *flag);

/*
 * Has the driver process show the valid entries whose address is all zeros. Returns nothing: what it shows appears on
 * its side, and a failed exchange shows in its report only.
 */
void DEV_AMTRDRV_PMGR_ShowValidNullMac(void);

/*
 * Looks the address up in the table of the first chip. Stores what the driver process found, as it came: three words in
 * `*first_value`, `*second_value` and `*third_value` and a byte in `*flag`.
 */
uint8_t DEV_AMTRDRV_PMGR_ARLFirstChipLookUp(uint32_t vlan, const uint8_t *mac, uint32_t *first_value,
                                            uint32_t *second_value, uint32_t *third_value, uint8_t *flag);

/*
 * Reads the local hit bit of the address, stores it in `*hit` and clears it. `selector`, the 32 bytes that `block`
 * points to and `mode` are passed to the driver process as they are.
 */
uint8_t DEV_AMTRDRV_PMGR_ReadAndClearLocalHitBit(uint8_t *hit, const uint8_t *mac, uint32_t vlan, uint32_t selector,
                                                 const uint8_t *block, uint32_t mode);

/*
 * Stores in `*depth` how many places the chips' table searches for an address.
 */
uint8_t DEV_AMTRDRV_PMGR_GetHashLookupDepth(uint32_t *depth);

/* ---- Ageing, learning and the service itself ---- */

/*
 * Sets the time after which a dynamic entry that was not seen again is deleted. Its unit is the driver process's.
 */
uint8_t DEV_AMTRDRV_PMGR_SetAgeingTime(uint32_t ageing_time);

/*
 * Switches the chips' learning of addresses off.
 */
uint8_t DEV_AMTRDRV_PMGR_DisableHardwareLearning(void);

/*
 * Disables the address table service, or the part of it that `selector` names.
 */
uint8_t DEV_AMTRDRV_PMGR_Disable(uint32_t selector);

/*
 * Configures an interface of the address table service. The three values are passed to the driver process as they are.
 */
uint8_t DEV_AMTRDRV_PMGR_SetInterfaceConfig(uint32_t first_value, uint32_t second_value, uint32_t third_value);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
