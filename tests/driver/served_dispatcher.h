// A dispatcher behind real queues, in the test's own process.
#pragma once

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <thread>

#include "e2e/support/observe.h"
#include "e2e/support/raw_queue.h"
#include "host/driver/dispatcher.h"
#include "host/driver/event_log.h"
#include "host/platform/queue_server.h"

namespace quillon::test {

class ServedDispatcher {
  public:
    // `add_handlers` registers with the dispatcher. What the queues themselves have to report is a fault.
    explicit ServedDispatcher(const std::function<void(driver::Dispatcher &)> &add_handlers)
        : log_file_(open((folder_.path() + "/log").c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600)),
          log_(log_file_.number(), driver::Level::info),
          dispatcher_(log_),
          claimed_(claim()),
          server_(claimed_, [](const host::Incident &incident) {
              ADD_FAILURE() << "incident " << static_cast<int>(incident.kind) << ' ' << incident.text;
          })
    {
        add_handlers(dispatcher_);
        for (const uint32_t key : {main_queue, twsi_queue}) {
            server_.create_queue(key, [this](host::Request &request) { return dispatcher_.answer(request); });
        }
        thread_ = std::jthread([this] { server_.run(); });
    }
    ~ServedDispatcher() { server_.stop(); }
    ServedDispatcher(const ServedDispatcher &) = delete;
    ServedDispatcher &operator=(const ServedDispatcher &) = delete;

    static constexpr uint32_t main_queue = 24;
    static constexpr uint32_t twsi_queue = 59;

    RawQueue client(uint32_t queue = main_queue) const { return RawQueue(folder_.path(), queue); }
    std::string logged() const { return contents_of(folder_.path() + "/log"); }

  private:
    host::RuntimeFolder claim() const
    {
        setenv("QUILLON_RUNTIME_DIR", folder_.path().c_str(), 1);
        return host::RuntimeFolder::claim();
    }

    TestFolder folder_;
    host::Descriptor log_file_;
    driver::EventLog log_;
    driver::Dispatcher dispatcher_;
    host::RuntimeFolder claimed_;
    host::QueueServer server_;
    std::jthread thread_;
};

}  // namespace quillon::test
