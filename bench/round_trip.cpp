// A request's round trip through the platform library and the driver process's half of its queues, beside a bare,
// sleeping ping-pong over a socket of the same kind with packets of the same sizes: both ends on one CPU, on one CPU
// each, and with the scheduler's choice of CPUs for 1 and 16 threads of the client.
//
// Prints the medians over the repetitions and what they are to each other.
#include <benchmark/benchmark.h>
#include <signal.h>
#include <stdio.h>
#include <string.h>
#include <sys/eventfd.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <memory>
#include <string>

#include "bench/host_support.h"
#include "host/platform/queue_server.h"
#include "quillon/platform.h"

namespace {

using namespace quillon::bench;
using quillon::host::QueueServer;
using quillon::host::Request;
using quillon::host::RuntimeFolder;

constexpr uint32_t kQueue = 24;

// A request with unit and port, and a reply with one word.
constexpr uint16_t kMsgSize = 12;
constexpr uint32_t kReplySize = 8;
constexpr size_t kRequestBytes = 20 + kMsgSize;
constexpr size_t kReplyBytes = 20 + kReplySize;

// The process at the other end, on a CPU of its own choice. Ends with the benchmark, however that ends.
class Peer {
  public:
    template <typename Body>
    Peer(int cpu, Body body)
    {
        const int ready = eventfd(0, EFD_CLOEXEC);
        process_ = fork();
        if (process_ < 0) {
            give_up("fork");
        }
        if (process_ == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            run_on(cpu);
            body([ready] { eventfd_write(ready, 1); });
            _exit(0);
        }
        eventfd_t value;
        eventfd_read(ready, &value);
        close(ready);
    }
    ~Peer()
    {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    Peer(const Peer &) = delete;
    Peer &operator=(const Peer &) = delete;

  private:
    pid_t process_;
};

template <typename Ready>
void serve_queue(Ready ready)
{
    const RuntimeFolder folder = RuntimeFolder::claim();
    QueueServer server(folder);
    server.create_queue(kQueue, [](Request &request) {
        memcpy(request.reply().data(), request.bytes().data(), kReplyBytes);
        return kReplyBytes;
    });
    ready();
    server.run();
}

void call_in_a_loop(benchmark::State &state)
{
    void *queue = nullptr;
    if (SYSFUN_GetMsgQ(kQueue, 1, &queue) != QUILLON_STATUS_OK) {
        state.SkipWithError("cannot attach");
        return;
    }
    alignas(8) std::array<unsigned char, kRequestBytes> envelope = {};
    for (auto _ : state) {
        memcpy(&envelope[10], &kMsgSize, sizeof kMsgSize);
        const uint32_t status = __SYSFUN_SendRequestMsg(queue, envelope.data(), QUILLON_WAIT_FOREVER, 0x20000000,
                                                        kReplySize, envelope.data(), __func__, __LINE__);
        if (status != QUILLON_STATUS_OK) {
            state.SkipWithError("a call failed");
            break;
        }
    }
    state.SetItemsProcessed(state.iterations());
}

void bare_round_trip(benchmark::State &state, int own_cpu, int peer_cpu)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends) != 0) {
        give_up("socketpair");
    }
    std::array<char, kRequestBytes> packet = {};
    const Peer peer(peer_cpu, [&](auto ready) {
        ready();
        while (recv(ends[1], packet.data(), packet.size(), 0) > 0 && send(ends[1], packet.data(), kReplyBytes, 0) > 0) {
            continue;
        }
    });
    run_on(own_cpu);
    for (auto _ : state) {
        if (send(ends[0], packet.data(), packet.size(), 0) < 0 || recv(ends[0], packet.data(), packet.size(), 0) < 0) {
            give_up("bare round trip");
        }
    }
    run_on(kAnyCpu);
    close(ends[0]);
    close(ends[1]);
}

void round_trip(benchmark::State &state, int own_cpu, int peer_cpu)
{
    const Peer peer(peer_cpu, [](auto ready) { serve_queue(ready); });
    run_on(own_cpu);
    call_in_a_loop(state);
    run_on(kAnyCpu);
}

// The peer of the benchmarks of several threads, which share it.
std::unique_ptr<Peer> shared_peer;

void start_shared_peer(const benchmark::State &)
{
    shared_peer = std::make_unique<Peer>(kAnyCpu, [](auto ready) { serve_queue(ready); });
}

void end_shared_peer(const benchmark::State &)
{
    shared_peer.reset();
}

void add_pinned(const char *place, int own_cpu, int peer_cpu)
{
    constexpr int kRepetitions = 15;
    const auto add = [&](const std::string &name, auto function) {
        benchmark::RegisterBenchmark((name + place).c_str(), function, own_cpu, peer_cpu)
            ->Repetitions(kRepetitions)
            ->ReportAggregatesOnly()
            ->MinTime(0.1)
            ->UseRealTime();
    };
    add("bare/", bare_round_trip);
    add("round_trip/", round_trip);
}

void add_threads()
{
    constexpr int kRepetitions = 9;
    benchmark::RegisterBenchmark("calls", call_in_a_loop)
        ->Threads(1)
        ->Threads(16)
        ->Setup(start_shared_peer)
        ->Teardown(end_shared_peer)
        ->Repetitions(kRepetitions)
        ->ReportAggregatesOnly()
        ->MinTime(0.3)
        ->UseRealTime();
}

void compare_rates(const MedianReporter &reporter)
{
    const auto *one = reporter.find("calls", "threads:1");
    const auto *many = reporter.find("calls", "threads:16");
    if (one != nullptr && many != nullptr) {
        printf("16 threads to 1: %.0f to %.0f calls/s, ratio %.2f (aim: at least 1.00)\n", many->rate, one->rate,
               many->rate / one->rate);
    }
}

}  // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    const RunFolder folder;
    const auto [first, second] = usable_cpus();
    add_pinned("one_cpu", first, first);
    if (second != kAnyCpu) {
        add_pinned("two_cpus", first, second);
    }
    add_threads();
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.compare_times("both on one CPU", "round_trip/one_cpu", "bare", "bare/one_cpu", "at most 1.30");
    reporter.compare_times("one CPU each", "round_trip/two_cpus", "bare", "bare/two_cpus", "at most 0.20");
    compare_rates(reporter);
    return 0;
}
