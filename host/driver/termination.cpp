#include "host/driver/termination.h"

#include <errno.h>
#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <system_error>

namespace quillon::driver {
namespace {

sigset_t termination_signals()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    return signals;
}

}  // namespace

TerminationSignals::TerminationSignals()
{
    const sigset_t signals = termination_signals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    signals_ = host::Descriptor(signalfd(-1, &signals, SFD_CLOEXEC));
    if (!signals_) {
        throw std::system_error(errno, std::generic_category(), "signalfd");
    }
}

int TerminationSignals::wait(EventLog &log)
{
    constexpr int a_second = 1000;
    constexpr int for_ever = -1;
    pollfd sources[] = {{.fd = signals_.number(), .events = POLLIN, .revents = 0},
                        {.fd = log.suppression_descriptor(), .events = POLLIN, .revents = 0}};
    pollfd &signals = sources[0];
    const pollfd &suppression = sources[1];
    for (;;) {
        poll(sources, 2, for_ever);
        if ((signals.revents & POLLIN) == 0 && (suppression.revents & POLLIN) != 0) {
            poll(&signals, 1, a_second);
            log.report_suppressed();
        }
        signalfd_siginfo signal;
        if ((signals.revents & POLLIN) != 0 && read(signals_.number(), &signal, sizeof signal) == sizeof signal) {
            return static_cast<int>(signal.ssi_signo);
        }
    }
}

}  // namespace quillon::driver
