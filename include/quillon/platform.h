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

/* ---- Status values ----
 *
 * What the functions on queues, semaphores and events and the debug console's registration return. Only
 * QUILLON_STATUS_OK has a meaning everywhere: the other values are those of libquillon-platform.so.0 (a failure report
 * prints them as `rc`), and other platforms have their own.
 */

#define QUILLON_STATUS_OK UINT32_C(0)               /* it was done */
#define QUILLON_STATUS_NO_DRIVER UINT32_C(1)        /* nobody serves the queue; nothing was sent */
#define QUILLON_STATUS_DRIVER_DIED UINT32_C(2)      /* the driver process ended or closed the queue during the call */
#define QUILLON_STATUS_BAD_HANDLE UINT32_C(3)       /* not a handle of SYSFUN_GetMsgQ, for example null */
#define QUILLON_STATUS_BAD_ARGUMENT UINT32_C(4)     /* a null pointer */
#define QUILLON_STATUS_NO_DESCRIPTORS UINT32_C(5)   /* the hard limit on descriptors is reached; nothing was sent */
#define QUILLON_STATUS_TOO_MANY_CALLS UINT32_C(6)   /* 1,024 calls of this process are under way; nothing was sent */
#define QUILLON_STATUS_REFUSED_PEER UINT32_C(7)     /* another user's queue, or another PID namespace's memory */
#define QUILLON_STATUS_TIMED_OUT UINT32_C(8)        /* `wait_time` has passed; the request may still be executed */
#define QUILLON_STATUS_MALFORMED_REPLY UINT32_C(9)  /* what came is no reply to the request; it was dropped */
#define QUILLON_STATUS_NO_REPLY UINT32_C(10)        /* the driver process took the request and gives no reply to it */
#define QUILLON_STATUS_TOO_MANY_QUEUES UINT32_C(11) /* this process has used 64 different keys */
#define QUILLON_STATUS_BAD_RUNTIME_DIR UINT32_C(12) /* the run-time folder's path is relative or too long */
#define QUILLON_STATUS_SYSTEM_ERROR UINT32_C(13)    /* the kernel refused what should not fail, as without memory */
#define QUILLON_STATUS_TOO_MANY_SUBSYSTEMS UINT32_C(14) /* the debug console has 16 subsystems */
#define QUILLON_STATUS_RECOVERED UINT32_C(15)           /* the semaphore was taken; the task that held it has died */
#define QUILLON_STATUS_NO_SUCH_SEMAPHORE UINT32_C(16)   /* there is no semaphore of that key */
#define QUILLON_STATUS_ALREADY_HELD UINT32_C(17) /* the calling task holds the semaphore: it would wait for itself */
#define QUILLON_STATUS_NOT_HELD UINT32_C(18)     /* the calling task does not hold the semaphore */
#define QUILLON_STATUS_NO_SUCH_TASK UINT32_C(19) /* no task of that id receives events */
#define QUILLON_STATUS_OTHER_LAYOUT UINT32_C(20) /* the driver process that came back shares other memory */

/* ---- Message queues ---- */

/* `wait_time` of a call that waits for as long as it takes. */
#define QUILLON_WAIT_FOREVER UINT32_C(0xFFFFFFFF)

/*
 * Attaches to the driver process's message queue `key` and stores its handle in `*handle`.
 *
 * The handle is opaque but for one thing: the u32 at byte 12 of the object is `key`. `mode` is 1 in every call of
 * libquillon. Returns 0 when the process is attached, and any other value when it is not.
 *
 * On a workstation a handle stands for a key and not for a connection: the same key gives the same handle, it is never
 * freed, and it is stored also when nobody serves the queue yet (QUILLON_STATUS_NO_DRIVER), so that calls on it succeed
 * as soon as a driver process is there, and again when it was restarted. A process uses at most 64 different keys; past
 * them `*handle` is null (QUILLON_STATUS_TOO_MANY_QUEUES). `mode` is not used. The run-time folder is looked up once,
 * by the first call of a process that finds it.
 */
uint32_t SYSFUN_GetMsgQ(uint32_t key, uint32_t mode, void **handle);

/*
 * Sends `request` on the queue `handle`, waits for the reply and stores it in `reply`, which may be the same buffer.
 *
 * The size of the request is read from its header: 20 bytes and the u16 at byte 10 (`msg_size`) are sent. At most
 * 20 + `reply_size` bytes are stored in `reply`: a longer reply is cut, a shorter one leaves the rest of the buffer as
 * it was. `wait_time` is in milliseconds; QUILLON_WAIT_FOREVER waits for ever. `event_mask` is the platform's own;
 * libquillon passes 0x20000000. `function` and `line` name the caller, for the platform's diagnostics.
 *
 * Returns 0 when the request was delivered and its reply is in `reply`, and any other value when not.
 *
 * On a workstation:
 * - a failed call leaves `reply` as it was;
 * - a request is executed at most once: it is never sent again once the kernel has taken it. Also after a failure that
 *   says that nothing was sent, sending it again is the caller's to decide;
 * - a call ends at once when its driver process does (QUILLON_STATUS_DRIVER_DIED); one that is stopped is waited for;
 * - a process has at most 1,024 calls under way at one time, each of which has one descriptor; idle ones are kept for
 *   later calls. The soft limit on descriptors is raised when it is in the way, the hard limit is reported
 *   (QUILLON_STATUS_NO_DESCRIPTORS);
 * - a reply has at most 65,555 bytes, a larger `reply_size` is the same as that;
 * - a signal's handler may run during a call, which goes on afterwards. Call it from threads, not from signal handlers;
 *   it is no cancellation point. After fork() parent and child both go on with their own connections;
 * - `event_mask`, `function` and `line` are not used.
 */
uint32_t __SYSFUN_SendRequestMsg(void *handle, void *request, uint32_t wait_time, uint32_t event_mask,
                                 uint32_t reply_size, void *reply, const char *function, uint32_t line);

/* The id of the calling task: on a workstation, its Linux thread id. */
uint32_t SYSFUN_TaskIdSelf(void);

/* ---- Semaphores and task events ---- */

/*
 * Looks the semaphore `key` up and stores its id, which the two functions below take, in `*semaphore`.
 *
 * Returns 0 when there is such a semaphore, and any other value when not.
 *
 * On a workstation the id is the key. It is stored also when there is no driver process yet (QUILLON_STATUS_NO_DRIVER),
 * and stays good when that is restarted.
 */
uint32_t SYSFUN_GetSem(uint32_t key, uint32_t *semaphore);

/*
 * Takes a semaphore that any process may hold, and waits for it up to `timeout` milliseconds, or with
 * QUILLON_WAIT_FOREVER for ever. It is held by the calling task until that gives it back.
 *
 * Returns 0 when it was taken.
 *
 * On a workstation:
 * - QUILLON_STATUS_RECOVERED says that it was taken as well, and that the task which held it has died, so that what it
 *   guards may be half changed. A task is a thread: it may have died alone, with its process, or be killed;
 * - a dead holder costs those who wait 20 ms or a little more;
 * - taking a free semaphore makes no system call while the driver process runs, after the first call of a thread;
 * - a task that takes it twice is refused (QUILLON_STATUS_ALREADY_HELD);
 * - the driver process creates the semaphores. When it has died they go on to work between those that were attached to
 *   it, until another one is there: then all of that one's are free;
 * - no order is kept among those who wait. Call it from threads, not from signal handlers.
 */
uint32_t SYSFUN_TakeSem(uint32_t semaphore, uint32_t timeout);

/*
 * Gives a semaphore back. Returns 0 on success.
 *
 * On a workstation, only the task that holds it can (QUILLON_STATUS_NOT_HELD); no system call is made unless somebody
 * waits.
 */
uint32_t SYSFUN_GiveSem(uint32_t semaphore);

/*
 * Sends the events of the bit mask `events` to a task of any process, which may be waiting for them or fetch them
 * later.
 *
 * Returns 0 when they were sent, and any other value when not.
 *
 * On a workstation the receivers are tasks of the driver process. An event stays pending until it is fetched; sent
 * again before that, it is pending once. A task that is not there, or takes no events, is refused
 * (QUILLON_STATUS_NO_SUCH_TASK), or is gone with its driver process (QUILLON_STATUS_NO_DRIVER). When that was
 * restarted, this call takes up its memory, as SYSRSC_MGR_GetShMem does.
 */
uint32_t SYSFUN_SendEvent(uint32_t task_id, uint32_t events);

/* ---- Memory shared with the driver process ---- */

/*
 * The start of a segment, null when there is none of that id.
 *
 * On a workstation it is null also when there is no driver process. The address is this process's for good: after a
 * restart of the driver process its new memory, all zeros at first, takes the place of the old one there. That happens
 * in this process's next call of this function, SYSFUN_GetSem, SYSFUN_SendEvent or L_IPCMEM_GetRxBufStartAddress, and
 * in one of SYSFUN_TakeSem, L_IPCMEM_GetOffset or L_IPCMEM_GetTxOffset that finds that the old one has not been heard
 * of for 50 ms; but never while a thread of it holds a semaphore. Nobody can make the memory smaller while it is in
 * use.
 */
void *SYSRSC_MGR_GetShMem(uint32_t segment_id);

/* ---- IPC memory ----
 * It holds packets: received ones in the area of the receive buffers, those to send in the transmit area.
 * Every process has it at addresses of its own, and refers to a place in it by an offset. On a workstation its address
 * stays over restarts of the driver process as that of segments does; what was in it is lost.
 */

/* What the two functions below return for an address that is in no such memory, on a workstation. */
#define QUILLON_NO_OFFSET UINT32_C(0xFFFFFFFF)

/* Stores the start of the area of the receive buffers in `*start`. Returns 1, and 0 when there is no such area. */
uint8_t L_IPCMEM_GetRxBufStartAddress(void **start);

/* The offset of `address` from the start of the IPC memory. On a workstation that starts with the receive buffers. */
uint32_t L_IPCMEM_GetOffset(const void *address);

/* The offset of `address` from the start of the transmit area. On a workstation that is behind the receive buffers. */
uint32_t L_IPCMEM_GetTxOffset(const void *address);

/* ---- Debug console ---- */

/*
 * Offers a subsystem on the debug console under `name` and `number`: whenever the operator enters it, the console calls
 * `entry` on its own task and goes on when `entry` returns. libquillon passes a string constant as `name`.
 *
 * Returns the platform's verdict; libquillon passes it on as it is.
 *
 * On a workstation the console is the program's standard input and output, and quillon_console_run
 * (quillon/workstation.h) offers the subsystems there. `name` is kept as a pointer. Registering an entry again changes
 * nothing and succeeds; null pointers, and another entry under a number that is taken, are QUILLON_STATUS_BAD_ARGUMENT.
 */
uint32_t BACKDOOR_MGR_Register_SubsysBackdoorFunc_CallBack(const char *name, uint32_t number, void (*entry)(void));

/* Prints a text on the debug console, as printf does. */
__attribute__((__format__(__printf__, 1, 2))) void BACKDOOR_MGR_Printf(const char *format, ...);

/*
 * Waits for one key of the operator's and returns it in the low byte, without waiting for the end of a line. The low
 * byte 0xFF says that no key can be read; the other bytes have no meaning.
 *
 * On a workstation the key comes from standard input. Of a terminal it is any key, without echo; Ctrl-D ends the input,
 * and Ctrl-C, Ctrl-\ and Ctrl-Z send the signals that they stand for. The terminal is in line mode outside of this
 * call. Of a pipe or a file it is the next byte, a newline as well. Standard input is read without a buffer of stdio's.
 * To be called by one thread at a time.
 */
uint32_t BACKDOOR_MGR_GetChar(void);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
