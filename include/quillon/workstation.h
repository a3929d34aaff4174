/*
 * What libquillon-platform.so.0 offers beyond the functions of platform.h: what a program on a workstation does in the
 * place of other parts of the firmware. It does not exist on the target.
 */
#ifndef QUILLON_WORKSTATION_H
#define QUILLON_WORKSTATION_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/*
 * Offers the subsystems that were registered with BACKDOOR_MGR_Register_SubsysBackdoorFunc_CallBack on the debug
 * console, which is the program's standard input and output. The calling thread is the console's task: it prints the
 * list, reads one key, calls the subsystem's entry and begins again.
 *
 * Returns 1 when the operator has pressed Q or q, and 0 when no key can be read: the input has ended or the terminal is
 * lost. To be called by one thread at a time.
 */
uint8_t quillon_console_run(void);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
