// The signals that end the driver process.
#pragma once

#include "host/driver/event_log.h"
#include "host/platform/descriptor.h"

namespace quillon::driver {

// SIGTERM and SIGINT, kept from all threads and taken up by wait(). To be made before any thread is.
class TerminationSignals {
  public:
    TerminationSignals();

    // Returns the signal's number. Meanwhile, reports what the log leaves out, a second after it began to.
    int wait(EventLog &log);

  private:
    host::Descriptor signals_;
};

}  // namespace quillon::driver
