/*
 * The platform functions that libquillon calls.
 *
 * On the target the firmware provides them. On a workstation libquillon-platform.so.0 does; what it promises beyond
 * this contract, and its limits, stand beside each function.
 */
#ifndef QUILLON_PLATFORM_H
#define QUILLON_PLATFORM_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/*
 * Attaches to the driver process's message queue `key` and stores its handle in `*handle`.
 *
 * The handle is opaque but for one thing: the u32 at byte 12 of the object is `key`. `mode` is 1 in every call of
 * libquillon. Returns 0 when the process is attached, and any other value when it is not.
 *
 * On a workstation a handle stands for a key and not for a connection. It is stored also when nobody serves the queue
 * yet (the call then returns a non-zero status), so that calls on it succeed as soon as a driver process is there.
 */
uint32_t SYSFUN_GetMsgQ(uint32_t key, uint32_t mode, void **handle);

/*
 * Sends `request` on the queue `handle`, waits for the reply and stores it in `reply`, which may be the same buffer.
 *
 * The size of the request is read from its header: 20 bytes and the u16 at byte 10 (`msg_size`) are sent. At most
 * 20 + `reply_size` bytes are stored in `reply`: a longer reply is cut, a shorter one leaves the rest of the buffer as
 * it was. `wait_time` 0xFFFFFFFF waits for ever. `event_mask` is the platform's own; libquillon passes 0x20000000.
 * `function` and `line` name the caller, for the platform's diagnostics.
 *
 * Returns 0 when the request was delivered and its reply is in `reply`, and any other value when not.
 */
uint32_t __SYSFUN_SendRequestMsg(void *handle, void *request, uint32_t wait_time, uint32_t event_mask,
                                 uint32_t reply_size, void *reply, const char *function, uint32_t line);

/* The id of the calling task: on a workstation, its Linux thread id. */
uint32_t SYSFUN_TaskIdSelf(void);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
