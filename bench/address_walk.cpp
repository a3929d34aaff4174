// A walk of the MAC address table one entry at a time, beside one by batches: from the library's functions to the
// driver process and back, with both processes on one CPU and on one CPU each.
//
// Prints the medians over the repetitions and what they are to each other.
#include <benchmark/benchmark.h>
#include <stdint.h>

#include <string>
#include <vector>

#include "bench/host_support.h"
#include "quillon/amtrdrv.h"

namespace {

using namespace quillon::bench;

constexpr uint32_t kEntries = 10'000;

void fill_table()
{
    for (uint32_t number = 0; number < kEntries; ++number) {
        // A static entry of VLAN 1 at port 1 of unit 1.
        const AddrTblEntry entry = {{0x02, 0, 0, 0, static_cast<uint8_t>(number >> 8), static_cast<uint8_t>(number), 1,
                                     0, 1, 0, 1, 0, 5, 1, 0, 0}};
        if (DEV_AMTRDRV_PMGR_SetAddrTblEntry(&entry) != 1) {
            give_up("an entry cannot be set");
        }
    }
}

uint32_t walk_singly()
{
    uint32_t seen = 0;
    for (AddrTblEntry entry{}; DEV_AMTRDRV_PMGR_GetNextAddrTblEntry(&entry) == 1; ++seen) {
        benchmark::DoNotOptimize(entry);
    }
    return seen;
}

uint32_t walk_by_batches()
{
    AddrTblEntry batch[QUILLON_ADDR_TBL_BATCH_ENTRIES];
    uint32_t count = 0;
    uint32_t seen = 0;
    DEV_AMTRDRV_PMGR_ResetToFirstAddrTblEntry(1);
    while (DEV_AMTRDRV_PMGR_GetNextNAddrTblEntry(batch, QUILLON_ADDR_TBL_BATCH_ENTRIES, &count) == 1) {
        benchmark::DoNotOptimize(batch);
        seen += count;
    }
    return seen;
}

void walk_in_a_loop(benchmark::State &state, uint32_t (*walk)(), int own_cpu, int driver_cpu)
{
    const DriverProcess driver(driver_cpu, {});
    run_on(own_cpu);
    DEV_AMTRDRV_PMGR_InitiateProcessResource();
    fill_table();
    for (auto _ : state) {
        if (walk() != kEntries) {
            state.SkipWithError("a walk does not see all entries");
            break;
        }
    }
    run_on(kAnyCpu);
}

void add(const std::string &name, uint32_t (*walk)(), const Place &place)
{
    constexpr int kRepetitions = 9;
    benchmark::RegisterBenchmark((name + place.name).c_str(), walk_in_a_loop, walk, place.own_cpu, place.driver_cpu)
        ->Repetitions(kRepetitions)
        ->ReportAggregatesOnly()
        ->MinTime(0.1)
        ->UseRealTime();
}

void add_all()
{
    for (const Place &place : places()) {
        add("singly/", walk_singly, place);
        add("by_batches/", walk_by_batches, place);
    }
}

void compare(const MedianReporter &reporter)
{
    for (const Place &place : places()) {
        reporter.compare_times(("singly, " + place.name).c_str(), "singly/" + place.name, "by batches",
                               "by_batches/" + place.name, "at least 20");
    }
}

}  // namespace

int main(int argc, char **argv)
{
    return run_in_turns(argc, argv, add_all, compare);
}
