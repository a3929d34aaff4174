#include "host/run/supervisor.h"

#include <errno.h>
#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <stdlib.h>
#include <string.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

#include "host/run/process.h"

namespace quillon::run {
namespace {

constexpr std::chrono::seconds longest_start{30};
constexpr int most_failed_starts = 5;  // in a row
constexpr std::chrono::milliseconds grace_of_driver{10000};

void say(const std::string &text)
{
    fmt::print(stderr, "quillon-run: {}\n", text);
}

// For poll(); 0 when it has passed.
int milliseconds_until(std::chrono::steady_clock::time_point time)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(time - std::chrono::steady_clock::now());
    return std::max(static_cast<int>(left.count()), 0);
}

}  // namespace

Supervisor::Supervisor(const Options &options, const host::Descriptor &front, const host::Descriptor &signals,
                       const sigset_t &mask)
    : options_(options), front_(front), signals_(signals), mask_(mask)
{
}

int Supervisor::run()
{
    adopt_orphans();
    if (!start_driver()) {
        status_ = exit_failed;
    }
    while (!done()) {
        watch();
    }
    // COMMAND first: what it still does with the driver process is not to fail because that has gone.
    kill_descendants(driver_);
    end_driver();
    kill_descendants();
    return status_;
}

// Waits for the next event and deals with it.
void Supervisor::watch()
{
    pollfd sources[] = {{.fd = signals_.number(), .events = POLLIN, .revents = 0},
                        {.fd = front_.number(), .events = POLLIN, .revents = 0},
                        {.fd = ready_.number(), .events = POLLIN, .revents = 0}};
    const int events = poll(sources, 3, ready_by_ ? milliseconds_until(*ready_by_) : -1);
    if (events <= 0) {
        if (events == 0) {
            driver_is_late();
        }
        return;
    }
    if (sources[2].revents != 0) {
        hear_driver();
    }
    if (!done() && sources[1].revents != 0) {
        hear_front();
    }
    if (!done() && sources[0].revents != 0) {
        take_signal();
    }
}

// In a session of its own: what a terminal sends goes to COMMAND, and COMMAND may still need the driver process.
bool Supervisor::start_driver()
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        say(fmt::format("cannot start the driver process: {}", strerror(errno)));
        return false;
    }
    ready_ = host::Descriptor(ends[0]);
    const host::Descriptor ready_end(ends[1]);
    const pid_t self = getpid();
    driver_ = fork();
    if (driver_ < 0) {
        say(fmt::format("cannot start the driver process: {}", strerror(errno)));
        driver_ = 0;
        return false;
    }
    if (driver_ == 0) {
        die_with(self);
        setsid();
        fcntl(ready_end.number(), F_SETFD, 0);
        auto command = options_.driver;
        command.push_back(fmt::format("--ready-fd={}", ready_end.number()));
        become(command, mask_);
    }
    ready_by_ = Clock::now() + longest_start;
    return true;
}

// Reads the byte of a driver process that is ready, or nothing from one that ends.
void Supervisor::hear_driver()
{
    char byte;
    serving_ = read(ready_.number(), &byte, 1) == 1;
    ready_.reset();
    if (!serving_) {
        return;
    }
    ready_by_.reset();
    failed_starts_ = 0;
    if (command_ == 0) {
        start_command();
    }
}

void Supervisor::driver_is_late()
{
    ready_by_.reset();
    say(fmt::format("{} is not ready after {} seconds", options_.driver[0], longest_start.count()));
    if (command_ == 0) {
        status_ = exit_failed;
    } else {
        kill(driver_, SIGKILL);
    }
}

void Supervisor::driver_ended(int wait_status)
{
    const bool was_serving = std::exchange(serving_, false);
    ready_.reset();
    ready_by_.reset();
    if (command_ == 0) {
        const int status = shell_status(wait_status);
        const bool has_said_why = status == exit_bad_usage || status == exit_cannot_execute || status == exit_not_found;
        if (!has_said_why) {
            say(fmt::format("the driver process {} before it was ready", describe_end(wait_status)));
        }
        status_ = status == exit_bad_usage ? exit_bad_usage : exit_failed;
        return;
    }
    if (was_serving || ++failed_starts_ < most_failed_starts) {
        say(fmt::format("the driver process {}; starting it again", describe_end(wait_status)));
        if (start_driver()) {
            return;
        }
    }
    say("the driver process does not start again; requests fail from here on");
}

void Supervisor::start_command()
{
    const pid_t self = getpid();
    command_ = fork();
    if (command_ < 0) {
        say(fmt::format("cannot run {}: {}", options_.command[0], strerror(errno)));
        command_ = 0;
        status_ = exit_failed;
        return;
    }
    if (command_ == 0) {
        die_with(self);
        become(options_.command, mask_);
    }
}

void Supervisor::hear_front()
{
    unsigned char signal;
    if (recv(front_.number(), &signal, sizeof signal, 0) == sizeof signal) {
        pass_on(signal);
    } else {
        status_ = exit_failed;  // quillon-run was killed; nobody asks for it
    }
}

void Supervisor::pass_on(int signal)
{
    if (command_ == 0) {
        status_ = exit_signal_base + signal;
    } else {
        kill(command_, signal);
    }
}

// What is sent to all of quillon-run's processes COMMAND has got as well, or quillon-run passes it on.
void Supervisor::take_signal()
{
    signalfd_siginfo signal;
    if (read(signals_.number(), &signal, sizeof signal) != sizeof signal) {
        return;
    }
    if (signal.ssi_signo == SIGCHLD) {
        reap();
    } else if (command_ == 0) {
        pass_on(static_cast<int>(signal.ssi_signo));
    }
}

void Supervisor::reap()
{
    std::optional<int> driver_status;
    int wait_status;
    for (pid_t ended; (ended = waitpid(-1, &wait_status, WNOHANG)) > 0;) {
        if (ended == command_) {
            status_ = shell_status(wait_status);
        } else if (ended == driver_) {
            driver_ = 0;
            driver_status = wait_status;
        }
    }
    if (driver_status && !done()) {
        driver_ended(*driver_status);
    }
}

// Lets it end by itself, also when it is stopped; what does not end is killed with the rest.
void Supervisor::end_driver()
{
    if (driver_ == 0) {
        return;
    }
    kill(driver_, SIGTERM);
    kill(driver_, SIGCONT);
    const auto deadline = Clock::now() + grace_of_driver;
    while (waitpid(driver_, nullptr, WNOHANG) == 0) {
        const int left = milliseconds_until(deadline);
        pollfd source = {.fd = signals_.number(), .events = POLLIN, .revents = 0};
        if (left == 0 || poll(&source, 1, left) == 0) {
            return;
        }
        signalfd_siginfo signal;
        [[maybe_unused]] const ssize_t taken = read(signals_.number(), &signal, sizeof signal);
    }
}

}  // namespace quillon::run
