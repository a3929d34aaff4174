// The signals that end the driver process.
#pragma once

#include "host/driver/event_log.h"

namespace quillon::driver {

// SIGTERM and SIGINT, kept from all threads and taken up by wait(). To be made before any thread is.
class TerminationSignals {
  public:
    TerminationSignals();
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals &) = delete;
    TerminationSignals &operator=(const TerminationSignals &) = delete;

    // Returns the signal's number. Meanwhile, reports what the log leaves out, a second after it began to.
    int wait(EventLog &log);

  private:
    int descriptor_;
};

}  // namespace quillon::driver
