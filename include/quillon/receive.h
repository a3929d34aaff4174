/*
 * Receiving packets on a workstation.
 *
 * How a process gets the packets that the switch has for its CPU is between the firmware and its driver process. This
 * header is the way of quillon-driver, for programs that run with libquillon-platform.so.0. On the target there is
 * another one.
 *
 *     #include <quillon/nicdrv.h>
 *     #include <quillon/receive.h>
 *
 *     // Once a process, before its first buffer is given back: the queues, the counts and the receive buffers.
 *     if (DEV_NICDRV_PMGR_InitiateProcessResource() != 1 || DEV_NICDRV_OM_InitateProcessResource() != 1)
 *         return;
 *
 *     QuillonReceivedPacket packets[QUILLON_RECEIVE_MOST];
 *     uint32_t count = 0;
 *     if (quillon_receive_packets(packets, QUILLON_RECEIVE_MOST, QUILLON_WAIT_FOREVER, &count) == QUILLON_STATUS_OK)
 *         for (uint32_t i = 0; i < count; ++i) {
 *             handle(quillon_received_data(&packets[i]), packets[i].length);
 *             DEV_NICDRV_MREF_MemFree(NULL, packets[i].cookie, quillon_received_buffer(&packets[i]));
 *         }
 */
#ifndef QUILLON_RECEIVE_H
#define QUILLON_RECEIVE_H

#include <stddef.h>
#include <stdint.h>

#include "quillon/platform.h"
#include "quillon/record.h"

#ifdef __cplusplus
extern "C" {
#endif

/* How the IPC memory is divided: the area of the receive buffers, and behind it the transmit area. */
#define QUILLON_RECEIVE_AREA_SIZE (8U << 20)
#define QUILLON_TRANSMIT_AREA_SIZE (4U << 20) /* the area to send from */

/* A received packet, from its destination address on. It is on loan until its buffer is given back. */
typedef struct QuillonReceivedPacket {
    uint64_t buffer;   /* what gives it back */
    uint32_t offset;   /* of its first byte, from the start of the area of the receive buffers */
    uint32_t length;   /* without the check sequence */
    uint32_t cookie;   /* 0 to 9 for the pool that its buffer was drawn from, 10 for no pool */
    uint32_t cpu_code; /* why it came to the CPU */
    uint32_t unit;     /* where it came in */
    uint32_t port;
} QuillonReceivedPacket;

/* Packets that one call returns. */
#define QUILLON_RECEIVE_MOST 16U

/* The request: a code of the packet driver's family that is no function's. */
#define QUILLON_RECEIVE_QUEUE 25U
#define QUILLON_RECEIVE_MODULE 37U /* its `cmd` */
#define QUILLON_RECEIVE_CODE 256U  /* its `type` */

/* Request and reply; the request ends before the packets. */
typedef struct QuillonReceiveEnvelope {
    uint64_t msg_type;
    uint16_t cmd;
    uint16_t msg_size;
    uint32_t reserved;
    uint32_t type;
    uint32_t gap;
    uint32_t count;     /* of packets: those that are wanted, and those that came */
    uint32_t wait_time; /* of the request, in milliseconds */
    QuillonReceivedPacket packets[QUILLON_RECEIVE_MOST];
} QuillonReceiveEnvelope;
QUILLON_FIELD_OFFSET(QuillonReceiveEnvelope, count, 24);
QUILLON_FIELD_OFFSET(QuillonReceiveEnvelope, packets, 32);

/*
 * Stores received packets in `packets`: as many as there are, the oldest first, but at most `most` and at most
 * QUILLON_RECEIVE_MOST, and their number in `*count`. Waits up to `wait_time` milliseconds, or with
 * QUILLON_WAIT_FOREVER for ever, while there are none. Every packet goes to one caller, in whichever process: it is the
 * driver process that ends the wait, so that no packet is on its way to a caller that has gone on. For the driver
 * process itself it waits without limit, as every request does. A `most` of 0 is refused with
 * QUILLON_STATUS_BAD_ARGUMENT.
 *
 * Returns QUILLON_STATUS_OK, QUILLON_STATUS_TIMED_OUT when none came, or another status of platform.h. Then nothing is
 * stored.
 */
static inline uint32_t quillon_receive_packets(QuillonReceivedPacket *packets, uint32_t most, uint32_t wait_time,
                                               uint32_t *count)
{
    QuillonReceiveEnvelope envelope;
    void *queue = NULL;
    uint32_t i;
    uint32_t status = SYSFUN_GetMsgQ(QUILLON_RECEIVE_QUEUE, 1, &queue);
    if (status != QUILLON_STATUS_OK && status != QUILLON_STATUS_NO_DRIVER) {
        return status;
    }
    envelope.msg_type = 0;
    envelope.cmd = QUILLON_RECEIVE_MODULE;
    envelope.msg_size = 12;
    envelope.reserved = 0;
    envelope.type = QUILLON_RECEIVE_CODE;
    envelope.gap = 0;
    envelope.count = most;
    envelope.wait_time = wait_time;
    status = __SYSFUN_SendRequestMsg(queue, &envelope, QUILLON_WAIT_FOREVER, 0x20000000,
                                     (uint32_t)(sizeof envelope - offsetof(QuillonReceiveEnvelope, gap)), &envelope,
                                     "quillon_receive_packets", __LINE__);
    if (status != QUILLON_STATUS_OK) {
        return status;
    }
    if (envelope.type != 1 || envelope.count > most || envelope.count > QUILLON_RECEIVE_MOST) {
        return QUILLON_STATUS_BAD_ARGUMENT;
    }
    if (envelope.count == 0) {
        return QUILLON_STATUS_TIMED_OUT;
    }
    for (i = 0; i < envelope.count; ++i) {
        packets[i] = envelope.packets[i];
    }
    *count = envelope.count;
    return QUILLON_STATUS_OK;
}

/* The first byte of a received packet. Null when the process has no IPC memory. */
static inline uint8_t *quillon_received_data(const QuillonReceivedPacket *packet)
{
    void *start = NULL;
    return L_IPCMEM_GetRxBufStartAddress(&start) == 1 ? (uint8_t *)start + packet->offset : NULL;
}

/* What DEV_NICDRV_MREF_MemFree takes for it. */
static inline void *quillon_received_buffer(const QuillonReceivedPacket *packet)
{
    return (void *)(uintptr_t)packet->buffer;
}

/*
 * The start of the transmit area, QUILLON_TRANSMIT_AREA_SIZE bytes in which packets to send and their descriptors are
 * put. Nobody divides it: programs that run together agree on who has which part. Null when the process has no IPC
 * memory.
 */
static inline uint8_t *quillon_transmit_area(void)
{
    void *start = NULL;
    return L_IPCMEM_GetRxBufStartAddress(&start) == 1 ? (uint8_t *)start + QUILLON_RECEIVE_AREA_SIZE : NULL;
}

#ifdef __cplusplus
}
#endif

#endif
