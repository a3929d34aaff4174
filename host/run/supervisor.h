// Keeps a driver process running while COMMAND does.
#pragma once

#include <signal.h>
#include <sys/types.h>

#include <chrono>
#include <initializer_list>
#include <optional>

#include "host/platform/descriptor.h"
#include "host/run/options.h"

namespace quillon::run {

// What reaches quillon-run and is COMMAND's to answer. A terminal sends SIGINT, SIGQUIT and SIGHUP to COMMAND itself.
inline constexpr std::initializer_list<int> forwarded_signals = {SIGTERM, SIGHUP, SIGINT, SIGQUIT, SIGUSR1, SIGUSR2};

// Runs in a process of its own, so that whichever of it and quillon-run is killed, the other cleans up.
class Supervisor {
  public:
    // Ends with the other end of `front`, on which quillon-run passes signals on, a packet of one byte each. `signals`
    // is a signalfd of SIGCHLD and the forwarded ones; `mask` is what the programs started get.
    Supervisor(const Options &options, const host::Descriptor &front, const host::Descriptor &signals,
               const sigset_t &mask);

    // Returns the exit status of quillon-run. All processes are gone then but those of other users.
    int run();

  private:
    using Clock = std::chrono::steady_clock;

    bool start_driver();
    void hear_driver();
    void driver_is_late();
    void driver_ended(int wait_status);
    void start_command();
    void hear_front();
    void take_signal();
    void pass_on(int signal);
    void reap();
    void watch();
    void end_driver();

    bool done() const { return status_ >= 0; }

    const Options &options_;
    const host::Descriptor &front_;
    const host::Descriptor &signals_;
    const sigset_t mask_;

    pid_t driver_ = 0;                           // 0 while there is none
    host::Descriptor ready_;                     // what a driver process that starts has the other end of
    bool serving_ = false;                       // it has been ready
    std::optional<Clock::time_point> ready_by_;  // while it starts
    int failed_starts_ = 0;                      // since it was ready last
    pid_t command_ = 0;                          // 0 while there is none
    int status_ = -1;                            // the exit status, once it is known
};

}  // namespace quillon::run
