// The calls are no cancellation points: a thread that is cancelled in one would take its connection with it.
#ifndef QUILLON_HOST_PLATFORM_CANCELLATION_H
#define QUILLON_HOST_PLATFORM_CANCELLATION_H

#include <pthread.h>

namespace quillon::host {

class CancellationOff {
  public:
    CancellationOff() { pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &former_); }
    ~CancellationOff() { pthread_setcancelstate(former_, nullptr); }
    CancellationOff(const CancellationOff &) = delete;
    CancellationOff &operator=(const CancellationOff &) = delete;

  private:
    int former_ = PTHREAD_CANCEL_ENABLE;
};

}  // namespace quillon::host

#endif
