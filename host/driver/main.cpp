// quillon-driver: a driver process without hardware.
#include <fmt/format.h>
#include <signal.h>
#include <stdlib.h>
#include <unistd.h>

#include <exception>
#include <thread>

#include "host/driver/alarm.h"
#include "host/driver/control_commands.h"
#include "host/driver/control_server.h"
#include "host/driver/dispatcher.h"
#include "host/driver/event_log.h"
#include "host/driver/handlers.h"
#include "host/driver/incidents.h"
#include "host/driver/options.h"
#include "host/driver/packet_tasks.h"
#include "host/driver/pid_file.h"
#include "host/driver/termination.h"
#include "host/platform/queue_server.h"
#include "host/platform/shared_run.h"
#include "nicdrv/family.h"
#include "swdrv/family.h"

namespace quillon::driver {
namespace {

// All other families' requests come on the switch driver's main queue.
constexpr uint32_t queues[] = {swdrv::MainQueue::key, swdrv::TwsiQueue::key, nicdrv::MainQueue::key,
                               nicdrv::FreeQueue::key};

// Runs the server until the end of the object.
class Service {
  public:
    explicit Service(host::QueueServer &server) : server_(server), thread_([this] { run(); }) {}
    ~Service()
    {
        server_.stop();
        thread_.join();
    }
    Service(const Service &) = delete;
    Service &operator=(const Service &) = delete;

  private:
    // Without its queues the process is of no use.
    void run()
    {
        try {
            server_.run();
        } catch (const std::exception &error) {
            fmt::print(stderr, "quillon-driver: cannot serve its queues: {}\n", error.what());
            _exit(EXIT_FAILURE);
        }
    }

    host::QueueServer &server_;
    std::thread thread_;
};

void tell_ready(int descriptor)
{
    // Nobody may be left to be told.
    [[maybe_unused]] const ssize_t written = write(descriptor, "\n", 1);
    close(descriptor);
}

void serve(const Options &options)
{
    TerminationSignals signals;
    signal(SIGPIPE, SIG_IGN);  // whoever read the log may go

    EventLog log(STDERR_FILENO, options.log_level);
    const auto folder = host::RuntimeFolder::claim();
    host::SharedRun run(folder, packet_layout(), [&log](const host::SemaphoreLoss &loss) { log_loss(log, loss); });
    Models models(options.shape, packet_memory(run));
    Dispatcher dispatcher(log);
    add_handlers(dispatcher, models);
    ControlCommands commands;
    add_control_commands(commands, models);

    host::QueueServer server(folder, [&log](const host::Incident &incident) { log_incident(log, incident); });
    for (const uint32_t key : queues) {
        server.create_queue(key, [&dispatcher](host::Request &request) { return dispatcher.answer(request); });
    }
    const ReceiveTask receive_task(run, models.packets);
    Alarm receiver_alarm([&models] { return models.packets.expire_receivers(Alarm::Clock::now()); });
    models.packets.receiver_waits = [&receiver_alarm](Alarm::Clock::time_point time) { receiver_alarm.set(time); };
    Alarm generator_alarm([&models] { return send_generated(models.packets); });
    models.packets.generators_changed = [&generator_alarm] { generator_alarm.set(Alarm::Clock::now()); };
    const PidFile pid_file(folder.descriptor());
    const ControlServer control(folder, commands);
    const Service service(server);

    log.write(Level::info, "driver-ready",
              {{"folder", folder.path()},
               {"units", options.shape.units},
               {"ports", options.shape.ports},
               {"chips", options.shape.chips}});
    if (options.ready_descriptor) {
        tell_ready(*options.ready_descriptor);
    }
    const int signal = signals.wait(log);
    log.report_suppressed();
    log.write(Level::info, "driver-ends", {{"signal", signal}});
}

}  // namespace
}  // namespace quillon::driver

int main(int argc, char **argv)
{
    using namespace quillon::driver;
    const auto options = parse_options(argc, argv);
    if (const int *status = std::get_if<int>(&options)) {
        return *status;
    }
    try {
        serve(std::get<Options>(options));
    } catch (const std::exception &error) {
        fmt::print(stderr, "quillon-driver: {}\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
