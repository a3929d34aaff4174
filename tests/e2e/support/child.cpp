#include "e2e/support/child.h"

#include <errno.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <sstream>
#include <system_error>

#include "e2e/support/observe.h"

namespace quillon::test {
namespace {

constexpr int longest_wait_milliseconds = 60'000;

struct Pipe {
    Pipe()
    {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0) {
            throw std::system_error(errno, std::generic_category(), "pipe");
        }
        reading = host::Descriptor(ends[0]);
        writing = host::Descriptor(ends[1]);
    }

    host::Descriptor reading;
    host::Descriptor writing;
};

// Whatever started the tests may have ignored or blocked signals.
void be_started_as_from_a_shell()
{
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    for (const int number : {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGTERM, SIGCHLD}) {
        signal(number, SIG_DFL);
    }
}

}  // namespace

void become(const std::vector<std::string> &command, const std::map<std::string, std::string> &environment)
{
    be_started_as_from_a_shell();
    for (const auto &[name, value] : environment) {
        setenv(name.c_str(), value.c_str(), 1);
    }
    std::vector<char *> arguments;
    if (sizeof QUILLON_EMULATOR > sizeof "" && command[0].starts_with(QUILLON_PROGRAMS)) {
        arguments.push_back(const_cast<char *>(QUILLON_EMULATOR));
    }
    for (const std::string &argument : command) {
        arguments.push_back(const_cast<char *>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    perror(arguments[0]);
    _exit(127);
}

bool Output::fill()
{
    pollfd source = {.fd = descriptor_.number(), .events = POLLIN, .revents = 0};
    if (poll(&source, 1, longest_wait_milliseconds) != 1) {
        ADD_FAILURE() << "neither output nor its end came; so far: " << text_;
        return false;
    }
    std::array<char, 4096> buffer;
    const ssize_t size = read(descriptor_.number(), buffer.data(), buffer.size());
    if (size <= 0) {
        return false;
    }
    text_.append(buffer.data(), static_cast<size_t>(size));
    return true;
}

std::string Output::line()
{
    std::string line = until("\n");
    if (line.ends_with('\n')) {
        line.pop_back();
    }
    return line;
}

std::string Output::until(const std::string &text)
{
    size_t found;
    while ((found = text_.find(text)) == std::string::npos) {
        if (!fill()) {
            ADD_FAILURE() << "the output ended where '" << text << "' was expected, with: " << text_;
            return std::exchange(text_, {});
        }
    }
    const size_t end = found + text.size();
    std::string before_end = text_.substr(0, end);
    text_.erase(0, end);
    return before_end;
}

std::string Output::rest()
{
    while (fill()) {
    }
    return std::exchange(text_, {});
}

ChildBase::~ChildBase()
{
    kill_and_wait();
}

void ChildBase::start(const std::function<void()> &body)
{
    const pid_t test = getpid();
    fflush(nullptr);  // or the child prints it once more
    pid_ = fork();
    if (pid_ < 0) {
        throw std::system_error(errno, std::generic_category(), "fork");
    }
    if (pid_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != test) {
            _exit(127);
        }
        body();
        _exit(127);
    }
}

Child::Child(const std::vector<std::string> &command, const std::map<std::string, std::string> &environment)
{
    Pipe input;
    Pipe out;
    Pipe err;
    start([&] {
        dup2(input.reading.number(), STDIN_FILENO);
        dup2(out.writing.number(), STDOUT_FILENO);
        dup2(err.writing.number(), STDERR_FILENO);
        become(command, environment);
    });
    input_ = std::move(input.writing);
    out_ = Output(std::move(out.reading));
    err_ = Output(std::move(err.reading));
}

void Child::write_line(const std::string &line)
{
    const std::string text = line + "\n";
    ASSERT_EQ(write(input_.number(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
}

void ChildBase::signal(int number) const
{
    ASSERT_EQ(kill(pid_, number), 0);
}

int ChildBase::wait()
{
    if (pid_ < 0) {
        return -1;
    }
    int status;
    if (waitpid(std::exchange(pid_, -1), &status, 0) < 0) {
        ADD_FAILURE() << "the process is not there";
        return -1;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

int ChildBase::kill_and_wait()
{
    if (pid_ > 0) {
        kill(pid_, SIGKILL);
    }
    return wait();
}

void *shared_memory(size_t size)
{
    void *const memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        throw std::system_error(errno, std::generic_category(), "mmap");
    }
    return memory;
}

Events::Events()
{
    Pipe pipe;
    reading_ = std::move(pipe.reading);
    writing_ = std::move(pipe.writing);
}

void Events::tell(char what) const
{
    if (write(writing_.number(), &what, 1) != 1) {
        throw std::system_error(errno, std::generic_category(), "write");
    }
}

char Events::next(int longest_milliseconds) const
{
    pollfd readable = {.fd = reading_.number(), .events = POLLIN, .revents = 0};
    char what = '\0';
    if (poll(&readable, 1, longest_milliseconds) != 1 || read(reading_.number(), &what, 1) != 1) {
        ADD_FAILURE() << "what was waited for did not happen";
    }
    return what;
}

char Events::next() const
{
    return next(longest_wait_milliseconds);
}

char Events::told() const
{
    return next(-1);
}

Process::Process(const Body &body)
{
    const Events started;
    start([&] {
        int status = 70;
        try {
            status = body([&] { started.tell('r'); });
        } catch (const std::exception &error) {
            fprintf(stderr, "in a child process: %s\n", error.what());
        }
        fflush(nullptr);
        _exit(status == 0 && testing::Test::HasFailure() ? 71 : status);
    });
    started.next();
}

bool Process::comes_to_wait() const
{
    const auto waits = [](const std::filesystem::directory_entry &thread) {
        // "id (name) state ...", with the name's own parentheses
        const std::string line = contents_of(thread.path() / "stat");
        const size_t name_end = line.rfind(") ");
        return name_end != std::string::npos && line.compare(name_end, 3, ") S") == 0;
    };
    const std::filesystem::path threads = "/proc/" + std::to_string(pid()) + "/task";
    return comes_true([&] { return std::all_of(std::filesystem::directory_iterator(threads), {}, waits); });
}

Application::Application(const std::function<void()> &body)
    : Process([&](const auto &ready) {
          ready();
          body();
          return 0;
      })
{
}

void Application::expect_success()
{
    EXPECT_EQ(wait(), 0) << "what the process has printed says why";
}

int in_child(const std::function<int()> &body)
{
    return Process([&](const auto &ready) {
               ready();
               return body();
           })
        .wait();
}

std::vector<std::string> lines_of(const std::string &text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

}  // namespace quillon::test
