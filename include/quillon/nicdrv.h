/*
 * Client of the packet driver: the CPU packet path.
 *
 * It consists of
 * - requests to the driver process: transmit, packet generators, received buffers given back, statistics;
 * - functions on a record in memory shared with the driver process: the operating mode of the packet path, and how many
 *   received buffers are on loan;
 * - the meaning of the codes that come with a received packet.
 *
 * A request function asks the driver process, waits for its answer without a time-out and returns its verdict: 1 when
 * the driver process did what was asked and 0 when it refused. Unless a function says otherwise:
 *
 * - Outputs are written whenever the exchange with the driver process succeeded, also when it refused. They are not
 *   tested for null.
 * - When the exchange fails (no driver process, or it died), the function prints a failure report on standard output,
 *   runs "cat /proc/<task>/ustack" to dump the calling task's stack, writes no output and returns 0.
 * - Arguments are not tested here: the driver process refuses what it does not know. Those that are named by their
 *   position (`arg1`, ...) are ports, lengths, priorities, VLANs and the like as the driver process numbers them. They
 *   are passed to it as they are.
 * - Any thread may call it once the start-up functions have run.
 */
#ifndef QUILLON_NICDRV_H
#define QUILLON_NICDRV_H

#include <stdint.h>

#include "quillon/record.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Records ---- */

#pragma pack(push, 1)

/*
 * Statistics of the receive path. They are laid out and counted by the driver process.
 *
 * The record is packed: its numbers may be read by name, but no pointer to one of them may be taken.
 */
typedef struct NicRxSummary {
    uint64_t values[4];
    uint32_t last_value;
} NicRxSummary;

/* Statistics of the packet memory, otherwise as NicRxSummary. */
typedef struct NicMemStatus {
    uint64_t values[3];
    uint32_t last_value;
} NicMemStatus;

#pragma pack(pop)

/* Statistics of the receive path by priority. They are laid out and counted by the driver process. */
typedef struct NicPriInfo {
    uint8_t bytes[1488];
} NicPriInfo;

QUILLON_RECORD_SIZE(NicRxSummary, 36);
QUILLON_FIELD_OFFSET(NicRxSummary, last_value, 32);
QUILLON_RECORD_SIZE(NicMemStatus, 28);
QUILLON_FIELD_OFFSET(NicMemStatus, last_value, 24);
QUILLON_RECORD_SIZE(NicPriInfo, 1488);

/*
 * Takes a received packet's buffer back: `buffer` is what DEV_NICDRV_MREF_MemFree was given. Returns 1 when it did;
 * every other value says that it did not.
 */
typedef uint8_t (*NicFreeFunc)(void *buffer);

#pragma GCC visibility push(default)

/* ---- Start-up ---- */

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

/* ---- The shared record ---- */

/*
 * One of the three attach functions below runs once in a process before it calls any other function of this section or
 * of the two that follow it, and before the process's threads do. None of them tests whether the record or its
 * semaphore is there.
 */

/*
 * Stores the id of the shared segment that holds the record, 6, in `*segment_id`, and the record's size, 496 bytes, in
 * `*size`. Needs no attaching.
 */
void DEV_NICDRV_OM_GetShMemInfo(uint32_t *segment_id, uint32_t *size);

/*
 * Attaches to the record and to the semaphore that guards its counters, key 17.
 */
void DEV_NICDRV_OM_InitSystemResources(void);

/*
 * Looks the area of the receive buffers up, and then attaches as DEV_NICDRV_OM_InitSystemResources does.
 *
 * When there is no such area, prints an empty line and
 * "DEV_NICDRV_OM_AttachSystemResources: L_IPCMEM_GetRxBufStartAddress return FALSE"
 * on standard output and attaches to nothing.
 */
void DEV_NICDRV_OM_AttachSystemResources(void);

/*
 * Attaches a process that receives packets: as DEV_NICDRV_OM_AttachSystemResources, with this function's name in the
 * printed line, and sets the number of buffers that are held as fragments to 0, those of other processes with them.
 *
 * Returns 1, and 0 when there is no area of receive buffers.
 */
uint8_t DEV_NICDRV_OM_InitateProcessResource(void);

/* ---- Operating mode ---- */

/*
 * The mode of the packet path that was set last, by whichever process: 0 transition, 1 master, 2 slave.
 */
uint32_t DEV_NICDRV_OM_GetOperatingMode(void);

/* Sets the mode to transition, whatever it was, and does nothing else. */
void DEV_NICDRV_OM_SetTransitionMode(void);

/* As DEV_NICDRV_OM_SetTransitionMode, by another name. */
void DEV_NICDRV_OM_EnterTransitionMode(void);

/* Sets the mode to master, whatever it was, and does nothing else. */
void DEV_NICDRV_OM_EnterMasterMode(void);

/* Sets the mode to slave, whatever it was, and does nothing else. */
void DEV_NICDRV_OM_EnterSlaveMode(void);

/* ---- Received buffers on loan ---- */

/*
 * Every received packet comes with a cookie: 0 to 9 stand for the pool that its buffer was drawn from, 10 is for
 * buffers of no pool. Who keeps the packet gives buffer and cookie back with DEV_NICDRV_MREF_MemFree, once.
 */

/*
 * Replaces this process's free function, which is DEV_NICDRV_PMGR_FreeRxPacket at first. `free_func` is not tested. To
 * be called before the process frees its first buffer. The free function is called with the record's semaphore held,
 * and must not take it.
 */
void DEV_NICDRV_OM_SetFreeFunc(NicFreeFunc free_func);

/*
 * Gives a received packet's buffer back: calls the free function with `buffer`, and on its success takes the buffer out
 * of the counts of those on loan: of its cookie, of the cookie's pool and of all pools, or for cookie 10 of that cookie
 * alone. When the driver process's receive task has stopped for the pool and the pool's count falls below the level at
 * which it may go on, the task is sent event 8; if that fails, prints
 * "DEV_NICDRV_MREF_MemFree:SYSFUN_SendEvent failure."
 * on standard output. `ignored` is not read.
 *
 * Returns 1, also for a `cookie` past 10: its buffer is given back, no count changes, and
 * "DEV_NICDRV_MREF_MemFree: cookie value is invalid !!"
 * is printed on standard output. Returns 0 when the free function fails, which is counted as such.
 */
uint8_t DEV_NICDRV_MREF_MemFree(void *ignored, uint32_t cookie, void *buffer);

/*
 * Moves a buffer from those on loan to those that are held until the other fragments of its datagram have come. Nothing
 * is sent or freed, and the receive task is not told. `cookie` is 0 to 9. A debug build of the library stops at any
 * other one; a release build damages the record.
 */
void DEV_NICDRV_ReserveFragmentBuffer(uint32_t cookie);

/*
 * Moves a buffer back that DEV_NICDRV_ReserveFragmentBuffer moved, before it is freed. What is said there of the rest
 * and of `cookie` holds here.
 */
void DEV_NICDRV_ReleaseFragmentBuffer(uint32_t cookie);

/* ---- Transmit ---- */

/*
 * The packet and its buffer descriptor are in the IPC memory, and stay there: a request carries their offsets.
 *
 * `data` points to the packet. `descriptor` points to its buffer descriptor, which is in the transmit area. The
 * descriptor is laid out by the driver process, but for the u16 at its byte 72, the kind of the packet's buffer: with 1
 * the packet's offset is counted from the start of the IPC memory, with any other value from the start of the transmit
 * area. A null `descriptor` is refused: 0 is returned, and nothing is sent or printed.
 */

/* Sends a packet to a port. */
uint8_t DEV_NICDRV_PMGR_SendPacketToPort(uint32_t arg1, uint32_t arg2, uint8_t arg3, uint16_t arg4, const void *data,
                                         uint32_t arg6, uint32_t arg7, uint64_t arg8, const void *descriptor);

/* Sends a packet by its port. */
uint8_t DEV_NICDRV_PMGR_SendPacketByPort(uint32_t arg1, uint32_t arg2, uint8_t arg3, const void *data, uint32_t arg5,
                                         uint32_t arg6, uint64_t arg7, const void *descriptor);

/* Sends a packet by two lists of ports, 8 bytes each. */
uint8_t DEV_NICDRV_PMGR_SendPacketByPortList(uint32_t arg1, const uint8_t *first_ports, const uint8_t *second_ports,
                                             const void *data, uint32_t arg5, uint32_t arg6, uint64_t arg7,
                                             const void *descriptor);

/* Sends a packet by its VLAN. */
uint8_t DEV_NICDRV_PMGR_SendPacketByVid(uint32_t arg1, const void *data, uint32_t arg3, uint32_t arg4, uint64_t arg5,
                                        const void *descriptor);

/* Sends a packet between units. It has no descriptor: `data` is in the transmit area. */
uint8_t DEV_NICDRV_PMGR_SendIUCPacket(const void *data, uint16_t arg2, uint8_t arg3, uint32_t arg4);

/* ---- Packet generators ---- */

/*
 * A generator of the hardware sends the packets that were added to it over and over. `generator` is its number; an
 * entry is one packet of it.
 */

/*
 * Adds a packet to a generator and stores the number of its entry in `*entry`. `data` and `descriptor` are as above, a
 * null `descriptor` is refused and `*entry` then left as it was.
 */
uint8_t DEV_NICDRV_PMGR_AddPacketGenByPort(uint32_t arg1, uint32_t arg2, uint8_t arg3, const void *data, uint32_t arg5,
                                           uint32_t arg6, const void *descriptor, uint8_t generator, uint32_t *entry);

/* Replaces the packet of an entry; otherwise as DEV_NICDRV_PMGR_AddPacketGenByPort. */
uint8_t DEV_NICDRV_PMGR_UpdatePacketGenByPort(uint32_t arg1, uint32_t arg2, uint8_t arg3, const void *data,
                                              uint32_t arg5, uint32_t arg6, const void *descriptor, uint8_t generator,
                                              uint32_t entry);

/* Removes an entry. */
uint8_t DEV_NICDRV_PMGR_RemovePacketGen(uint8_t generator, uint32_t entry);

/* Starts or stops a generator. */
uint8_t DEV_NICDRV_PMGR_EnablePacketGen(uint8_t generator, uint8_t arg2, uint8_t arg3, uint32_t arg4);

/* Asks for the rate `*wanted_rate`, and stores the one that the generator then has in `*rate`. */
uint8_t DEV_NICDRV_PMGR_SetPacketGenRate(uint8_t generator, const uint64_t *wanted_rate, uint64_t *rate);

/* ---- Received packets given back, and statistics ---- */

/*
 * Gives a received packet's buffer back, on a queue of its own. `buffer` is passed to the driver process as it is. The
 * counts of the shared record are not touched: that is DEV_NICDRV_MREF_MemFree's to do, whose free function this is
 * unless another was set.
 */
uint8_t DEV_NICDRV_PMGR_FreeRxPacket(void *buffer);

/* Stores what was received so far in `*summary`. */
uint8_t DEV_NICDRV_PMGR_RxSummary(NicRxSummary *summary);

/* Stores the state of the packet memory in `*status`. */
uint8_t DEV_NICDRV_PMGR_MemStatus(NicMemStatus *status);

/* Stores what was received so far, by priority, in `*info`. */
uint8_t DEV_NICDRV_PMGR_PriInfo(NicPriInfo *info);

/* Clears the statistics. */
uint8_t DEV_NICDRV_PMGR_Clear(void);

/* ---- Codes of received packets ---- */

/*
 * These send nothing, keep no state and need no start-up. What reasons and classes mean is the caller's.
 */

/*
 * The reason bits of a packet that came with `cpu_code`: 2 for 37 and 271, 32 for 401 and 406, 0 for all others.
 */
uint32_t DEV_NICDRV_LIB_ReceivePacketReason(uint32_t cpu_code);

/* The class of service: `cos` as it is. */
uint32_t DEV_NICDRV_LIB_CosValue(uint32_t cos);

/*
 * The class id of a packet that came with `cpu_code`: 501 for 5, 7, 8 and 9, 503 for 23, 504 for 10 to 13, 505 for 24,
 * and 0 for all others.
 */
uint32_t DEV_NICDRV_LIB_PktClassId(int32_t cpu_code);

/* The CPU code of BPDUs: 502 when `flag` is 1, 326 for all other values. */
uint32_t DEV_NICDRV_LIB_BpduCpuCode(uint8_t flag);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
