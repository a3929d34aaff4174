#include "host/driver/incidents.h"

namespace quillon::driver {
namespace {

std::string_view event_of(host::Incident::Kind kind)
{
    using Kind = host::Incident::Kind;
    switch (kind) {
        case Kind::foreign_peer:
            return "foreign-client-dropped";
        case Kind::refused_peer:
            return "other-user-refused";
        case Kind::reply_not_taken:
            return "deaf-client-dropped";
        case Kind::no_descriptors:
            return "out-of-descriptors";
        case Kind::handler_threw:
            return "handler-failed";
    }
    return "unknown-incident";
}

}  // namespace

void log_incident(EventLog &log, const host::Incident &incident)
{
    log.write_limited(Level::warning, event_of(incident.kind), {{"queue", incident.queue}},
                      {{"client", incident.client}, {"error", incident.text}});
}

void log_loss(EventLog &log, const host::SemaphoreLoss &loss)
{
    log.write_limited(Level::warning, "semaphore-recovered", {{"key", loss.key}},
                      {{"holder", loss.holder}, {"times", loss.times}});
}

}  // namespace quillon::driver
