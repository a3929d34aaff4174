// quillon-run: one command with a driver process of its own.
//
// Two processes watch each other: this one, which the user knows, and the supervisor, which starts the driver process
// and COMMAND. Whichever of them is killed, the other ends what is left and removes the run-time folder.
#include <errno.h>
#include <fcntl.h>
#include <fmt/format.h>
#include <stdlib.h>
#include <string.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <system_error>

#include "host/platform/descriptor.h"
#include "host/run/options.h"
#include "host/run/process.h"
#include "host/run/run_folder.h"
#include "host/run/supervisor.h"

namespace quillon::run {
namespace {

std::system_error failure(const char *what)
{
    return {errno, std::generic_category(), what};
}

// Whether COMMAND has not got the signal itself, as it has what a terminal sends, and what a process of COMMAND's sends
// to the process group that it shares with this one.
bool is_to_be_passed_on(const signalfd_siginfo &signal)
{
    const auto sender = static_cast<pid_t>(signal.ssi_pid);
    const bool sent_by_process = signal.ssi_code <= 0;
    return sent_by_process && !(getpgid(sender) == getpgrp() && is_descendant(sender));
}

// Passes signals on until the supervisor has ended. Returns the exit status.
int wait_for(pid_t supervisor, const host::Descriptor &to_supervisor, const host::Descriptor &signals)
{
    int wait_status;
    while (waitpid(supervisor, &wait_status, WNOHANG) == 0) {
        signalfd_siginfo signal;
        if (read(signals.number(), &signal, sizeof signal) == sizeof signal && signal.ssi_signo != SIGCHLD &&
            is_to_be_passed_on(signal)) {
            const auto number = static_cast<unsigned char>(signal.ssi_signo);
            send(to_supervisor.number(), &number, sizeof number, MSG_NOSIGNAL | MSG_DONTWAIT);
        }
    }
    if (WIFEXITED(wait_status)) {
        return WEXITSTATUS(wait_status);
    }
    fmt::print(stderr, "quillon-run: the supervisor {}; ending COMMAND and the driver process\n",
               describe_end(wait_status));
    kill_descendants();
    return shell_status(wait_status);
}

int run(const Options &options)
{
    signal(SIGCHLD, SIG_DFL);  // ignored, children would vanish before they are waited for
    sigset_t watched = signal_set(forwarded_signals);
    sigaddset(&watched, SIGCHLD);
    sigset_t mask;
    sigprocmask(SIG_BLOCK, &watched, &mask);

    // Not before: a signal that ends this process would leave the folder behind.
    const RunFolder folder;
    setenv("QUILLON_RUNTIME_DIR", folder.path().c_str(), 1);

    const host::Descriptor signals(signalfd(-1, &watched, SFD_CLOEXEC));
    int ends[2];
    if (!signals || socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) {
        throw failure("cannot watch COMMAND");
    }
    const host::Descriptor front(ends[0]);
    host::Descriptor to_supervisor(ends[1]);

    adopt_orphans();
    const pid_t supervisor = fork();
    if (supervisor < 0) {
        throw failure("cannot start a process");
    }
    if (supervisor == 0) {
        to_supervisor.reset();
        const int status = Supervisor(options, front, signals, mask).run();
        folder.remove();
        _exit(status);
    }
    return wait_for(supervisor, to_supervisor, signals);
}

}  // namespace
}  // namespace quillon::run

int main(int argc, char **argv)
{
    using namespace quillon::run;
    const auto options = parse_options(argc, argv);
    if (const int *status = std::get_if<int>(&options)) {
        return *status;
    }
    try {
        return run(std::get<Options>(options));
    } catch (const std::exception &error) {
        fmt::print(stderr, "quillon-run: {}\n", error.what());
        return exit_failed;
    }
}
