#include "bench/host_support.h"

#include <sched.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

namespace quillon::bench {
namespace {

// As they were when the benchmark began.
const cpu_set_t &all_cpus()
{
    static const cpu_set_t at_first = [] {
        cpu_set_t cpus;
        if (sched_getaffinity(0, sizeof cpus, &cpus) != 0) {
            give_up("sched_getaffinity");
        }
        return cpus;
    }();
    return at_first;
}

}  // namespace

void give_up(const char *what)
{
    perror(what);
    _exit(1);
}

std::array<int, 2> usable_cpus()
{
    std::array<int, 2> found = {kAnyCpu, kAnyCpu};
    size_t count = 0;
    for (int cpu = 0; cpu < CPU_SETSIZE && count < found.size(); ++cpu) {
        if (CPU_ISSET(static_cast<size_t>(cpu), &all_cpus())) {
            found[count++] = cpu;
        }
    }
    return found;
}

void run_on(int cpu)
{
    cpu_set_t cpus = all_cpus();
    if (cpu != kAnyCpu) {
        CPU_ZERO(&cpus);
        CPU_SET(static_cast<size_t>(cpu), &cpus);
    }
    if (sched_setaffinity(0, sizeof cpus, &cpus) != 0) {
        give_up("sched_setaffinity");
    }
}

std::vector<Place> places()
{
    const auto [first, second] = usable_cpus();
    std::vector<Place> all = {{"one_cpu", first, first}};
    if (second != kAnyCpu) {
        all.push_back({"two_cpus", first, second});
    }
    return all;
}

RunFolder::RunFolder()
{
    char name[] = "/tmp/quillon-bench-XXXXXX";
    if (mkdtemp(name) == nullptr || setenv("QUILLON_RUNTIME_DIR", name, 1) != 0) {
        give_up("run-time folder");
    }
    path_ = name;
}

RunFolder::~RunFolder()
{
    std::filesystem::remove_all(path_);
}

DriverProcess::DriverProcess(int cpu, std::vector<std::string> options)
{
    int ready[2];
    if (pipe(ready) != 0) {
        give_up("pipe");
    }
    options.insert(options.begin(), QUILLON_DRIVER);
    options.push_back("--log-level=warning");
    options.push_back("--ready-fd=" + std::to_string(ready[1]));
    std::vector<char *> arguments;
    for (std::string &option : options) {
        arguments.push_back(option.data());
    }
    arguments.push_back(nullptr);
    process_ = fork();
    if (process_ < 0) {
        give_up("fork");
    }
    if (process_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        run_on(cpu);
        execv(QUILLON_DRIVER, arguments.data());
        give_up(QUILLON_DRIVER);
    }
    close(ready[1]);
    char letter;
    if (read(ready[0], &letter, 1) != 1) {
        give_up("the driver process does not get ready");
    }
    close(ready[0]);
}

DriverProcess::~DriverProcess()
{
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
}

void MedianReporter::ReportRuns(const std::vector<Run> &runs)
{
    ConsoleReporter::ReportRuns(runs);
    for (const Run &run : runs) {
        if (run.aggregate_name == "median") {
            const auto rate = run.counters.find("items_per_second");
            medians_[run.run_name.function_name + run.run_name.threads] = {
                run.GetAdjustedRealTime(), rate == run.counters.end() ? 0 : rate->second.value};
        }
    }
}

const MedianReporter::Median *MedianReporter::find(const std::string &name, const std::string &threads) const
{
    const auto found = medians_.find(name + threads);
    return found == medians_.end() ? nullptr : &found->second;
}

void MedianReporter::compare_times(const char *what, const std::string &name, const char *beside_is,
                                   const std::string &beside, const char *aim) const
{
    const Median *own = find(name);
    const Median *other = find(beside);
    if (own != nullptr && other != nullptr) {
        printf("%s: %.2f us, %s %.2f us, ratio %.2f (aim: %s)\n", what, own->nanoseconds / 1000, beside_is,
               other->nanoseconds / 1000, own->nanoseconds / other->nanoseconds, aim);
    }
}

int run_in_turns(int argc, char **argv, const std::function<void()> &add,
                 const std::function<void(const MedianReporter &)> &compare)
{
    // Options of the command line come later and win.
    char interleaved[] = "--benchmark_enable_random_interleaving=true";
    std::vector<char *> arguments(argv, argv + argc);
    arguments.insert(arguments.begin() + 1, interleaved);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 1;
    }
    const RunFolder folder;
    add();
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    compare(reporter);
    return 0;
}

}  // namespace quillon::bench
