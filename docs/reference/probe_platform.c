/*
 * A platform that takes what the library sends apart, and the means to call any of its functions. Its debug information
 * tells the records that the library does not have.
 */
#include <stdint.h>
#include <string.h>

#include "quillon/platform.h"
#include "quillon/receive.h"

enum { MAX_MESSAGE = 16384, MAX_QUEUES = 16, STACK = 32768, SIZE_OFFSET = 10, HEADER = 16 };

#pragma GCC visibility push(default)

/* The last request. */
uint8_t probe_request[MAX_MESSAGE];
uint32_t probe_request_size;
uint32_t probe_reply_size;
uint32_t probe_queue;
uint32_t probe_requests;

/* What it is answered with. */
uint8_t probe_reply[MAX_MESSAGE];

struct queue_handle {
    uint32_t opaque[3];
    uint32_t key;
};

uint32_t SYSFUN_GetMsgQ(uint32_t key, uint32_t mode, void **handle)
{
    static struct queue_handle handles[MAX_QUEUES];
    static unsigned used;
    (void)mode;
    if (used == MAX_QUEUES) {
        return 1;
    }
    handles[used].key = key;
    *handle = &handles[used++];
    return 0;
}

uint32_t __SYSFUN_SendRequestMsg(void *handle, void *request, uint32_t wait_time, uint32_t event_mask,
                                 uint32_t reply_size, void *reply, const char *function, uint32_t line)
{
    uint16_t msg_size;
    (void)wait_time;
    (void)event_mask;
    (void)function;
    (void)line;
    memcpy(&msg_size, (const uint8_t *)request + SIZE_OFFSET, sizeof msg_size);
    probe_request_size = msg_size;
    memcpy(probe_request, request, HEADER + sizeof(uint32_t) + msg_size);
    probe_reply_size = reply_size;
    probe_queue = ((const struct queue_handle *)handle)->key;
    ++probe_requests;
    memcpy((uint8_t *)reply + HEADER, probe_reply + HEADER, sizeof(uint32_t) + reply_size);
    return 0;
}

/* Offsets differ with what stands at the address. */
uint32_t L_IPCMEM_GetOffset(const void *address)
{
    uint32_t offset;
    memcpy(&offset, address, sizeof offset);
    return offset;
}

uint32_t L_IPCMEM_GetTxOffset(const void *address)
{
    return L_IPCMEM_GetOffset(address);
}

static __attribute__((noinline)) void fill_stack(uint8_t value)
{
    volatile uint8_t area[STACK];
    for (unsigned i = 0; i < STACK; ++i) {
        area[i] = value;
    }
    (void)area[0];
}

typedef uint64_t (*Function)(uint64_t, uint64_t, uint64_t, uint64_t, uint64_t, uint64_t, uint64_t, uint64_t, uint64_t,
                             uint64_t);

/*
 * Calls `function`, whose arguments are integers and pointers, with `stack` in every byte of the stack that nobody has
 * written yet.
 */
void probe_call(Function function, const uint64_t arguments[10], uint8_t stack)
{
    fill_stack(stack);
    function(arguments[0], arguments[1], arguments[2], arguments[3], arguments[4], arguments[5], arguments[6],
             arguments[7], arguments[8], arguments[9]);
}

#pragma GCC visibility pop
