// The free of a received packet, beside what it is made of: the request on the free queue, and twice taking and giving
// the semaphore of the counts, which nobody else wants. With both processes on one CPU and on one CPU each.
//
// Prints the medians over the repetitions and what they are to each other.
#include <benchmark/benchmark.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "bench/host_support.h"
#include "quillon/nicdrv.h"
#include "quillon/receive.h"

namespace {

using namespace quillon::bench;

using Packets = std::vector<QuillonReceivedPacket>;

// So few that no pool stops: then frees have nobody to wake.
constexpr uint32_t kBatch = 16;

uint8_t free_packet(const QuillonReceivedPacket &packet)
{
    return DEV_NICDRV_MREF_MemFree(nullptr, packet.cookie, quillon_received_buffer(&packet));
}

uint8_t request_alone(const QuillonReceivedPacket &packet)
{
    return DEV_NICDRV_PMGR_FreeRxPacket(quillon_received_buffer(&packet));
}

// Attached to a driver process that hands back what is sent.
class Client {
  public:
    Client()
    {
        if (system(QUILLON_CTL " loop-back on") != 0 || DEV_NICDRV_PMGR_InitiateProcessResource() != 1 ||
            DEV_NICDRV_OM_InitateProcessResource() != 1) {
            give_up("the driver process");
        }
        memset(quillon_transmit_area(), 0, kPacketAt + kLength);
    }

    static Packets receive_batch()
    {
        uint8_t *const descriptor = quillon_transmit_area();
        for (uint32_t i = 0; i < kBatch; ++i) {
            if (DEV_NICDRV_PMGR_SendPacketToPort(1, 1, 0, 0, descriptor + kPacketAt, kLength, 0, 0, descriptor) != 1) {
                give_up("send");
            }
        }
        Packets packets(kBatch);
        for (uint32_t received = 0; received < kBatch;) {
            uint32_t count = 0;
            if (quillon_receive_packets(&packets[received], kBatch - received, QUILLON_WAIT_FOREVER, &count) !=
                QUILLON_STATUS_OK) {
                give_up("receive");
            }
            received += count;
        }
        return packets;
    }

    // For buffers that went back without the shared record.
    static void count_back(const Packets &packets)
    {
        DEV_NICDRV_OM_SetFreeFunc([](void * /*buffer*/) { return uint8_t{1}; });
        std::ranges::for_each(packets, free_packet);
        DEV_NICDRV_OM_SetFreeFunc(DEV_NICDRV_PMGR_FreeRxPacket);
    }

  private:
    static constexpr uint32_t kPacketAt = 128;
    static constexpr uint32_t kLength = 60;
};

template <typename Free, typename Afterwards>
void give_back_in_a_loop(benchmark::State &state, int own_cpu, int driver_cpu, Free free, Afterwards afterwards)
{
    using Clock = std::chrono::steady_clock;
    const DriverProcess driver(driver_cpu, {"--units=1"});
    run_on(own_cpu);
    const Client client;
    while (state.KeepRunningBatch(kBatch)) {
        const Packets packets = Client::receive_batch();
        const auto start = Clock::now();
        const bool all = std::ranges::all_of(packets, [&](const auto &packet) { return free(packet) == 1; });
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
        if (!all) {
            state.SkipWithError("a packet is not taken back");
            break;
        }
        afterwards(packets);
    }
    run_on(kAnyCpu);
}

void whole_free(benchmark::State &state, int own_cpu, int driver_cpu)
{
    give_back_in_a_loop(state, own_cpu, driver_cpu, free_packet, [](const Packets & /*packets*/) {});
}

void request(benchmark::State &state, int own_cpu, int driver_cpu)
{
    give_back_in_a_loop(state, own_cpu, driver_cpu, request_alone, Client::count_back);
}

void semaphore(benchmark::State &state, int own_cpu, int driver_cpu)
{
    constexpr uint32_t kCounts = 17;
    const DriverProcess driver(driver_cpu, {"--units=1"});
    run_on(own_cpu);
    uint32_t id = 0;
    if (SYSFUN_GetSem(kCounts, &id) != QUILLON_STATUS_OK) {
        give_up("the semaphore");
    }
    for (auto _ : state) {
        if (SYSFUN_TakeSem(id, QUILLON_WAIT_FOREVER) != QUILLON_STATUS_OK || SYSFUN_GiveSem(id) != QUILLON_STATUS_OK) {
            state.SkipWithError("somebody else has the semaphore");
            break;
        }
    }
    run_on(kAnyCpu);
}

void add(const Place &place)
{
    constexpr int kRepetitions = 15;
    const auto add_one = [&](const std::string &name, auto function) {
        return benchmark::RegisterBenchmark((name + place.name).c_str(), function, place.own_cpu, place.driver_cpu)
            ->Repetitions(kRepetitions)
            ->ReportAggregatesOnly()
            ->MinTime(0.1);
    };
    add_one("free/", whole_free)->UseManualTime();
    add_one("request/", request)->UseManualTime();
    add_one("semaphore/", semaphore)->UseRealTime();
}

void compare(const MedianReporter &reporter, const std::string &place)
{
    const auto *whole = reporter.find("free/" + place);
    const auto *request = reporter.find("request/" + place);
    const auto *semaphore = reporter.find("semaphore/" + place);
    if (whole != nullptr && request != nullptr && semaphore != nullptr) {
        const double parts = request->nanoseconds + 2 * semaphore->nanoseconds;
        printf("%s: free %.2f us, request %.2f us and twice the semaphore %.3f us, ratio %.2f (aim: at most 1.00)\n",
               place.c_str(), whole->nanoseconds / 1000, request->nanoseconds / 1000, 2 * semaphore->nanoseconds / 1000,
               whole->nanoseconds / parts);
    }
}

void add_all()
{
    std::ranges::for_each(places(), add);
}

void compare_all(const MedianReporter &reporter)
{
    for (const Place &place : places()) {
        compare(reporter, place.name);
    }
}

}  // namespace

int main(int argc, char **argv)
{
    return run_in_turns(argc, argv, add_all, compare_all);
}
