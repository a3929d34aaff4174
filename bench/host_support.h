// What the benchmarks of round trips have in common: CPUs, a run-time folder, and medians to compare at the end.
#pragma once

#include <benchmark/benchmark.h>
#include <sys/types.h>

#include <array>
#include <map>
#include <string>
#include <vector>

namespace quillon::bench {

inline constexpr int kAnyCpu = -1;

[[noreturn]] void give_up(const char *what);

// The first and the second of the CPUs that this process may use; kAnyCpu where there is none.
std::array<int, 2> usable_cpus();
void run_on(int cpu);

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

}  // namespace quillon::bench
