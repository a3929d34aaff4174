// What happens on the queues besides requests, in the log.
#pragma once

#include "host/driver/event_log.h"
#include "host/platform/queue_server.h"

namespace quillon::driver {

void log_incident(EventLog &log, const host::Incident &incident);

}  // namespace quillon::driver
