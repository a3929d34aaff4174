// What the benchmarks of round trips have in common: CPUs, a run-time folder, and medians to compare at the end.
#pragma once

#include <benchmark/benchmark.h>
#include <sys/types.h>

#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace quillon::bench {

inline constexpr int kAnyCpu = -1;

[[noreturn]] void give_up(const char *what);

// The first and the second of the CPUs that this process may use; kAnyCpu where there is none.
std::array<int, 2> usable_cpus();
void run_on(int cpu);

// The CPUs of a benchmark's process and of its driver process.
struct Place {
    std::string name;
    int own_cpu;
    int driver_cpu;
};

// Both on one CPU and, where there are two, on one CPU each.
std::vector<Place> places();

// A new one, in which the processes of this benchmark meet.
class RunFolder {
  public:
    RunFolder();
    ~RunFolder();
    RunFolder(const RunFolder &) = delete;
    RunFolder &operator=(const RunFolder &) = delete;

  private:
    std::string path_;
};

// quillon-driver in the run-time folder, ready to serve.
class DriverProcess {
  public:
    DriverProcess(int cpu, std::vector<std::string> options);
    ~DriverProcess();
    DriverProcess(const DriverProcess &) = delete;
    DriverProcess &operator=(const DriverProcess &) = delete;

  private:
    pid_t process_;
};

// Keeps the medians for the comparisons at the end.
class MedianReporter : public benchmark::ConsoleReporter {
  public:
    struct Median {
        double nanoseconds;
        double rate;
    };

    void ReportRuns(const std::vector<Run> &runs) override;

    // Null when it did not run. By name and, where there are several, "threads:N".
    const Median *find(const std::string &name, const std::string &threads = "") const;

    // Prints a line with the times of the benchmark `name` and of the one `beside`, if both ran.
    void compare_times(const char *what, const std::string &name, const char *beside_is, const std::string &beside,
                       const char *aim) const;

  private:
    std::map<std::string, Median> medians_;
};

// A benchmark whose parts are to be compared: runs what `add` registers in a run-time folder of its own, and hands the
// medians to `compare`. The parts take turns: whatever else slows the machine down meanwhile slows all of them down.
int run_in_turns(int argc, char **argv, const std::function<void()> &add,
                 const std::function<void(const MedianReporter &)> &compare);

}  // namespace quillon::bench
