// What happens besides requests, in the log.
#pragma once

#include "host/driver/event_log.h"
#include "host/platform/queue_server.h"
#include "host/platform/shared_run.h"

namespace quillon::driver {

void log_incident(EventLog &log, const host::Incident &incident);
void log_loss(EventLog &log, const host::SemaphoreLoss &loss);

}  // namespace quillon::driver
