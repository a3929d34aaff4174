/*
 * Two requests as one would write them by hand in C, with nothing that the request itself does not need: what a stub of
 * the library is measured against.
 */
#ifndef QUILLON_BENCH_MINIMAL_STUB_H
#define QUILLON_BENCH_MINIMAL_STUB_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

void minimal_start_up(void);
/* As DEV_SWDRV_PMGR_SetPortForceLinkDownStatus. */
uint8_t minimal_set(uint32_t unit, uint32_t port, uint8_t force_down);
/* As DEV_SWDRV_PMGR_GetModuleIdFromLocalDeviceId. */
uint8_t minimal_get(uint32_t unit, uint32_t device_id, uint32_t *module_id);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
