// The programs under test.
#pragma once

#include <signal.h>

#include <map>
#include <string>
#include <vector>

#include "e2e/support/child.h"

namespace quillon::test {

// quillon-driver, which serves the queues in `folder` as soon as the object is made.
class DriverProcess : public Child {
  public:
    explicit DriverProcess(const std::string &folder, const std::vector<std::string> &options = {});

    // Stopped, it answers nobody. All of its threads have stopped when this returns.
    void stop();
    void resume() { signal(SIGCONT); }
    // Ends by a signal, with nothing more to say.
    void expect_quiet_end();
};

std::vector<std::string> driver_command(const std::vector<std::string> &options);
std::vector<std::string> run_command(const std::vector<std::string> &arguments);

struct Ended {
    int status;
    std::string out;
    std::string err;
};

// Runs a program that ends by itself.
Ended run_to_end(const std::vector<std::string> &command, const std::map<std::string, std::string> &environment = {});

// Runs quillon-ctl on the driver process in `folder`.
Ended control(const std::string &folder, const std::vector<std::string> &words);

}  // namespace quillon::test
