// Signals are the program's: they go to its own threads, not to those that are started during the object's life.
#ifndef QUILLON_HOST_PLATFORM_SIGNALS_BLOCKED_H
#define QUILLON_HOST_PLATFORM_SIGNALS_BLOCKED_H

#include <signal.h>

namespace quillon::host {

class SignalsBlocked {
  public:
    SignalsBlocked()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &former_);
    }
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &former_, nullptr); }
    SignalsBlocked(const SignalsBlocked &) = delete;
    SignalsBlocked &operator=(const SignalsBlocked &) = delete;

  private:
    sigset_t former_;
};

}  // namespace quillon::host

#endif
