// The socket on which commands come from outside.
#pragma once

#include <thread>
#include <vector>

#include "host/driver/control.h"
#include "host/platform/descriptor.h"
#include "host/platform/queue_server.h"

namespace quillon::driver {

// Answers on a thread of its own for as long as the object lives.
class ControlServer {
  public:
    // Both must outlive the object. Throws std::system_error when the socket cannot be had.
    ControlServer(const host::RuntimeFolder &folder, const ControlCommands &commands);
    ~ControlServer();
    ControlServer(const ControlServer &) = delete;
    ControlServer &operator=(const ControlServer &) = delete;

  private:
    void run();
    bool accept_client(std::vector<host::Descriptor> &clients) const;
    void answer(const host::Descriptor &client) const;

    const std::string path_;
    const ControlCommands &commands_;
    const host::Descriptor stop_;
    const host::Descriptor listener_;
    std::thread thread_;
};

}  // namespace quillon::driver
