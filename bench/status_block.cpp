// The status of all ports of a unit in one exchange, beside the read of a single port's: round trips from the library's
// function to the driver process and back, with both processes on one CPU and on one CPU each, for units of the usual
// and of the largest size.
//
// Prints the medians over the repetitions and what they are to each other.
#include <benchmark/benchmark.h>
#include <stdint.h>
#include <stdio.h>

#include <string>
#include <vector>

#include "bench/host_support.h"
#include "quillon/swdrv.h"

namespace {

using namespace quillon::bench;

constexpr uint32_t kUnit = 1;

template <typename Call>
void call_in_a_loop(benchmark::State &state, uint32_t ports, int own_cpu, int driver_cpu, Call call)
{
    const DriverProcess driver(driver_cpu, {"--ports=" + std::to_string(ports)});
    run_on(own_cpu);
    DEV_SWDRV_PMGR_InitiateProcessResource();
    for (auto _ : state) {
        if (call() != 1) {
            state.SkipWithError("a call failed");
            break;
        }
    }
    run_on(kAnyCpu);
}

void single_port(benchmark::State &state, uint32_t ports, int own_cpu, int driver_cpu)
{
    uint32_t link_status = 0;
    call_in_a_loop(state, ports, own_cpu, driver_cpu,
                   [&] { return DEV_SWDRV_PMGR_GetPortLinkStatus(kUnit, ports, &link_status); });
}

void whole_unit(benchmark::State &state, uint32_t ports, int own_cpu, int driver_cpu)
{
    port_state_block block;
    call_in_a_loop(state, ports, own_cpu, driver_cpu,
                   [&] { return DEV_SWDRV_PMGR_GetAllPortStatus(kUnit, 1, ports, &block); });
}

struct Setting {
    std::string name;
    uint32_t ports;
    int own_cpu;
    int driver_cpu;
};

std::vector<Setting> settings()
{
    std::vector<Setting> all;
    for (const uint32_t ports : {28U, 64U}) {
        for (const Place &place : places()) {
            all.push_back({std::to_string(ports) + "_ports/" + place.name, ports, place.own_cpu, place.driver_cpu});
        }
    }
    return all;
}

void add(const Setting &setting, const std::string &what, void (*function)(benchmark::State &, uint32_t, int, int))
{
    constexpr int kRepetitions = 15;
    benchmark::RegisterBenchmark((what + setting.name).c_str(), function, setting.ports, setting.own_cpu,
                                 setting.driver_cpu)
        ->Repetitions(kRepetitions)
        ->ReportAggregatesOnly()
        ->MinTime(0.1)
        ->UseRealTime();
}

void add_all()
{
    for (const Setting &setting : settings()) {
        add(setting, "single_port/", single_port);
        add(setting, "whole_unit/", whole_unit);
    }
}

void compare(const MedianReporter &reporter)
{
    for (const Setting &setting : settings()) {
        reporter.compare_times(setting.name.c_str(), "whole_unit/" + setting.name, "single port",
                               "single_port/" + setting.name, "at most 1.50");
    }
}

}  // namespace

int main(int argc, char **argv)
{
    return run_in_turns(argc, argv, add_all, compare);
}
