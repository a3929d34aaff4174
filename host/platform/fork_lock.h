// The one lock of the client's half. fork() waits for it, so that the child finds nothing half done.
#ifndef QUILLON_HOST_PLATFORM_FORK_LOCK_H
#define QUILLON_HOST_PLATFORM_FORK_LOCK_H

#include <pthread.h>

namespace quillon::host {

// Never held while a call waits for anything.
class ForkLock {
  public:
    ForkLock() { pthread_mutex_lock(&mutex); }
    ~ForkLock() { pthread_mutex_unlock(&mutex); }
    ForkLock(const ForkLock &) = delete;
    ForkLock &operator=(const ForkLock &) = delete;

    static inline constinit pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
};

}  // namespace quillon::host

#endif
