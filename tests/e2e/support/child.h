// Programs, and functions of the test's, that run as processes of their own.
#pragma once

#include <sys/mman.h>
#include <sys/types.h>

#include <functional>
#include <map>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "host/platform/descriptor.h"

namespace quillon::test {

void *shared_memory(size_t size);

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

    // The process runs `body`, which does not return.
    void start(const std::function<void()> &body);

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

// Single letters from one process to another, for "this has happened".
class Events {
  public:
    Events();

    void tell(char what) const;
    // Waits for the next one; '\0' when none comes in a time that only a fault can last.
    char next() const;
    // Waits for as long as it takes: for what the test tells its processes, which end with it.
    char told() const;

  private:
    char next(int longest_milliseconds) const;

    host::Descriptor reading_;
    host::Descriptor writing_;
};

// Runs a function of the test's, whose failed expectations end it with a status other than 0.
class Process : public ChildBase {
  public:
    // `body` gets a function to call once the constructor may return. Its result is the exit status.
    using Body = std::function<int(const std::function<void()> &ready)>;
    explicit Process(const Body &body);

    // Waits until all its threads wait in the kernel, which nothing but their state tells from outside: what is to
    // happen to a process that waits must not come before it does. False when that does not come.
    bool comes_to_wait() const;
};

// An application process beside the test's own: `body` is at work when the constructor returns.
class Application : public Process {
  public:
    explicit Application(const std::function<void()> &body);

    // Until `body` has returned.
    void expect_success();
};

// Runs `body` in a process of its own. Returns its result.
int in_child(const std::function<int()> &body);

// One T that the test and the processes that it starts from here on have in common.
template <class T>
class Shared {
  public:
    Shared() : object_(new (shared_memory(sizeof(T))) T()) {}
    ~Shared() { munmap(object_, sizeof(T)); }
    Shared(const Shared &) = delete;
    Shared &operator=(const Shared &) = delete;

    T &operator*() const { return *object_; }
    T *operator->() const { return object_; }

  private:
    T *object_;
};

// In a child process: becomes this program. `environment` adds to the test's own.
[[noreturn]] void become(const std::vector<std::string> &command,
                         const std::map<std::string, std::string> &environment);

std::vector<std::string> lines_of(const std::string &text);

}  // namespace quillon::test
