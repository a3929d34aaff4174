// Time that a stub takes above its platform call, beside the same request written by hand in C.
#include <benchmark/benchmark.h>

#include "minimal_stub.h"
#include "quillon/platform.h"
#include "quillon/swdrv.h"

namespace {

void null_platform_call(benchmark::State &state)
{
    uint32_t envelope[10] = {};
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            __SYSFUN_SendRequestMsg(nullptr, envelope, 0xFFFFFFFF, 0x20000000, 4, envelope, __func__, __LINE__));
    }
}
BENCHMARK(null_platform_call);

void set_by_library(benchmark::State &state)
{
    DEV_SWDRV_PMGR_InitiateProcessResource();
    for (auto _ : state) {
        benchmark::DoNotOptimize(DEV_SWDRV_PMGR_SetPortForceLinkDownStatus(1, 2, 1));
    }
}
BENCHMARK(set_by_library);

void set_by_hand(benchmark::State &state)
{
    minimal_start_up();
    for (auto _ : state) {
        benchmark::DoNotOptimize(minimal_set(1, 2, 1));
    }
}
BENCHMARK(set_by_hand);

void get_by_library(benchmark::State &state)
{
    DEV_SWDRV_PMGR_InitiateProcessResource();
    uint32_t module_id = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(DEV_SWDRV_PMGR_GetModuleIdFromLocalDeviceId(1, 2, &module_id));
        benchmark::DoNotOptimize(module_id);
    }
}
BENCHMARK(get_by_library);

void get_by_hand(benchmark::State &state)
{
    minimal_start_up();
    uint32_t module_id = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(minimal_get(1, 2, &module_id));
        benchmark::DoNotOptimize(module_id);
    }
}
BENCHMARK(get_by_hand);

}  // namespace

BENCHMARK_MAIN();
