// Processes started, watched and ended.
#pragma once

#include <signal.h>
#include <sys/types.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace quillon::run {

// A signal set with these members.
sigset_t signal_set(std::initializer_list<int> signals);

// As a shell gives it: the exit status, or 128 and the number of the signal that ended the process.
int shell_status(int wait_status);

// "ended with exit status 3", "was killed by signal 9 (Killed)"
std::string describe_end(int wait_status);

// In a child process: becomes `command`, with this signal mask. When it cannot, says so in one line and exits as a
// shell does.
[[noreturn]] void become(const std::vector<std::string> &command, const sigset_t &mask);

// In a child process: dies with its parent, of which it was `parent` that forked it.
void die_with(pid_t parent);

// Whether this process, or one that it has started, started `process`.
bool is_descendant(pid_t process);

// Orphaned descendants become this process's children instead of init's.
void adopt_orphans();

// Kills the children of this process, and theirs, until none is left but `spared` and what belongs to other users.
void kill_descendants(pid_t spared = 0);

}  // namespace quillon::run
