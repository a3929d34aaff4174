/*
 * Client of the packet driver: the CPU packet path.
 *
 * It consists of
 * - requests to the driver process: transmit, packet generators, received buffers given back, statistics;
 * - functions on a record in memory shared with the driver process: the operating mode of the packet path, and how many
 *   received buffers are on loan.
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
 * Statistics of the receive path and of its memory. They are laid out and counted by the driver process.
 *
 * The records are packed: their numbers may be read by name, but no pointer to one of them may be taken.
 */
typedef struct NicRxSummary {
    uint64_t values[4];
    uint32_t last_value;
} NicRxSummary;

typedef struct NicMemStatus {
    uint64_t values[3];
    uint32_t last_value;
} NicMemStatus;

#pragma pack(pop)

typedef struct NicPriInfo {
    uint8_t bytes[1488];
} NicPriInfo;

QUILLON_RECORD_SIZE(NicRxSummary, 36);
QUILLON_FIELD_OFFSET(NicRxSummary, last_value, 32);
QUILLON_RECORD_SIZE(NicMemStatus, 28);
QUILLON_FIELD_OFFSET(NicMemStatus, last_value, 24);
QUILLON_RECORD_SIZE(NicPriInfo, 1488);

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

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
