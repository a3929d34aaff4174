#include "host/run/process.h"

#include <errno.h>
#include <fmt/format.h>
#include <stdlib.h>
#include <string.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <charconv>
#include <filesystem>
#include <fstream>
#include <set>

#include "host/run/options.h"

namespace quillon::run {
namespace {

// 0 when the process is gone.
pid_t parent_of(const std::filesystem::path &process)
{
    std::ifstream file(process / "stat");
    std::string text;
    std::getline(file, text, '\0');
    // "17 (name) S 4 ...": the name may hold spaces and parentheses of its own.
    const size_t name_end = text.rfind(')');
    pid_t parent = 0;
    if (name_end != std::string::npos && name_end + 4 < text.size()) {
        std::from_chars(text.data() + name_end + 4, text.data() + text.size(), parent);
    }
    return parent;
}

std::set<pid_t> children()
{
    std::set<pid_t> found;
    for (const auto &entry : std::filesystem::directory_iterator("/proc")) {
        const std::string name = entry.path().filename();
        pid_t pid = 0;
        const auto parsed = std::from_chars(name.data(), name.data() + name.size(), pid);
        if (parsed.ec == std::errc() && parent_of(entry.path()) == getpid()) {
            found.insert(pid);
        }
    }
    return found;
}

}  // namespace

sigset_t signal_set(std::initializer_list<int> signals)
{
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : signals) {
        sigaddset(&set, signal);
    }
    return set;
}

int shell_status(int wait_status)
{
    return WIFEXITED(wait_status) ? WEXITSTATUS(wait_status) : exit_signal_base + WTERMSIG(wait_status);
}

std::string describe_end(int wait_status)
{
    if (WIFEXITED(wait_status)) {
        return fmt::format("ended with exit status {}", WEXITSTATUS(wait_status));
    }
    const int signal = WTERMSIG(wait_status);
    return fmt::format("was killed by signal {} ({})", signal, strsignal(signal));
}

void become(const std::vector<std::string> &command, const sigset_t &mask)
{
    std::vector<char *> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string &argument : command) {
        arguments.push_back(const_cast<char *>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    sigprocmask(SIG_SETMASK, &mask, nullptr);
    execvp(arguments[0], arguments.data());
    const int error = errno;
    fmt::print(stderr, "quillon-run: cannot run {}: {}\n", command[0], strerror(error));
    _exit(error == ENOENT ? exit_not_found : exit_cannot_execute);
}

void die_with(pid_t parent)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) {
        raise(SIGKILL);
    }
}

void adopt_orphans()
{
    prctl(PR_SET_CHILD_SUBREAPER, 1);
}

bool is_descendant(pid_t process)
{
    do {
        process = parent_of(fmt::format("/proc/{}", process));
    } while (process != 0 && process != getpid());
    return process != 0;
}

// A killed child leaves its own children to this process: they are found in the next round.
void kill_descendants(pid_t spared)
{
    std::set<pid_t> left_alone = {spared};
    for (bool found = true; found;) {
        found = false;
        for (const pid_t child : children()) {
            if (left_alone.contains(child)) {
                continue;
            }
            found = true;
            if (kill(child, SIGKILL) != 0 || waitpid(child, nullptr, 0) != child) {
                left_alone.insert(child);
            }
        }
    }
}

}  // namespace quillon::run
