#include "e2e/support/observe.h"

#include <errno.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <stdlib.h>
#include <sys/syscall.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace quillon::test {

bool comes_true(const std::function<bool()> &is_true)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::seconds(60);
    while (!is_true()) {
        if (Clock::now() > end) {
            return is_true();  // it may be this process that was held up
        }
        sched_yield();
    }
    return true;
}

void wait_until(const std::string &what, const std::function<bool()> &is_true)
{
    ASSERT_TRUE(comes_true(is_true)) << "waited in vain until " << what;
}

void wait_until_waiting(pid_t process, size_t threads)
{
    const auto waits = [](const std::filesystem::directory_entry &thread) {
        // The first word is the system call's number, or "running".
        const std::string call = contents_of(thread.path() / "syscall");
        const std::string number = call.substr(0, call.find(' '));
        return std::ranges::any_of(std::initializer_list<long>{SYS_recvmsg, SYS_recvfrom, SYS_ppoll
#ifdef SYS_poll
                                                               ,
                                                               SYS_poll
#endif
                                   },
                                   [&](long waiting) { return number == std::to_string(waiting); });
    };
    const std::filesystem::path tasks = "/proc/" + std::to_string(process) + "/task";
    wait_until("the threads wait for their replies", [&] {
        const std::filesystem::directory_iterator all(tasks);
        return std::count_if(begin(all), end(all), waits) == static_cast<ptrdiff_t>(threads);
    });
}

size_t sockets_of(pid_t process)
{
    size_t sockets = 0;
    for (const auto &entry : std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/fd")) {
        std::error_code gone;
        sockets += std::filesystem::read_symlink(entry.path(), gone).string().starts_with("socket:");
    }
    return sockets;
}

TestFolder::TestFolder()
{
    char name[] = "/tmp/quillon-test-XXXXXX";
    if (mkdtemp(name) == nullptr) {
        throw std::system_error(errno, std::generic_category(), "mkdtemp");
    }
    path_ = name;
}

TestFolder::~TestFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::vector<std::string> TestFolder::entries() const
{
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(path_)) {
        names.push_back(entry.path().filename());
    }
    std::ranges::sort(names);
    return names;
}

const std::string &runtime_folder()
{
    static const TestFolder folder;
    static const int set = setenv("QUILLON_RUNTIME_DIR", folder.path().c_str(), 1);
    EXPECT_EQ(set, 0);
    return folder.path();
}

std::string contents_of(const std::string &path)
{
    const std::ifstream file(path);
    std::ostringstream contents;
    contents << file.rdbuf();  // of what is there, also when reading fails in the end
    return contents.str();
}

}  // namespace quillon::test
