// Programs that a test runs, as processes of their own.
#pragma once

#include <sys/types.h>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "host/platform/descriptor.h"

namespace quillon::test {

// The reading end of a pipe, or of a terminal.
class Output {
  public:
    Output() = default;
    explicit Output(host::Descriptor descriptor) : descriptor_(std::move(descriptor)) {}

    // The next line without its newline. Fails the test when none comes in a time that only a hang can last.
    std::string line();
    // What comes up to the next `text`, and that.
    std::string until(const std::string &text);
    // All that is left. The end comes when the last process that has the other end of the pipe is gone.
    std::string rest();

  private:
    bool fill();

    host::Descriptor descriptor_;
    std::string text_;
};

// Killed with the object, and with the test program, if it still runs.
class ChildBase {
  public:
    ~ChildBase();
    ChildBase(const ChildBase &) = delete;
    ChildBase &operator=(const ChildBase &) = delete;

    pid_t pid() const { return pid_; }
    void signal(int number) const;
    // The exit status, or 128 and the number of the signal that ended it, as a shell has them.
    int wait();
    int kill_and_wait();

  protected:
    ChildBase() = default;

    // Standard streams are connected by the process itself. `environment` adds to the test's own.
    void start(const std::vector<std::string> &command, const std::map<std::string, std::string> &environment,
               const std::function<void()> &connect_streams);

  private:
    pid_t pid_ = -1;
};

// With pipes as its standard streams.
class Child : public ChildBase {
  public:
    explicit Child(const std::vector<std::string> &command, const std::map<std::string, std::string> &environment = {});

    Output &out() { return out_; }
    Output &err() { return err_; }

    void write_line(const std::string &line);
    void close_input() { input_.reset(); }

  private:
    host::Descriptor input_;
    Output out_;
    Output err_;
};

// In a child process: becomes this program. `environment` adds to the test's own.
[[noreturn]] void become(const std::vector<std::string> &command,
                         const std::map<std::string, std::string> &environment);

std::vector<std::string> lines_of(const std::string &text);

}  // namespace quillon::test
