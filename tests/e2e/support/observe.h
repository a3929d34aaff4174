// What a test waits for in other processes and in folders.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

namespace quillon::test {

// Asks until it is true. Fails the test after a time that only a hang can last.
void wait_until(const std::string &what, const std::function<bool()> &is_true);

// The thread sleeps in the platform's call, so that its request is on the way.
bool waits_for_reply(pid_t process, pid_t thread);

size_t sockets_of(pid_t process);

// A new folder, open to this user only; removed with the object.
class TestFolder {
  public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder &) = delete;
    TestFolder &operator=(const TestFolder &) = delete;

    const std::string &path() const { return path_; }
    std::vector<std::string> entries() const;  // sorted

  private:
    std::string path_;
};

// Empty when it cannot be read.
std::string contents_of(const std::string &path);

}  // namespace quillon::test
