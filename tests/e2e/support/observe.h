// What a test waits for in other processes and in folders.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

namespace quillon::test {

// Asks until it is true, or for a time that only a hang can last.
bool comes_true(const std::function<bool()> &is_true);
// The same; a hang fails the test.
void wait_until(const std::string &what, const std::function<bool()> &is_true);

// So many threads of the process sleep in the platform's call, so that their requests are on the way.
void wait_until_waiting(pid_t process, size_t threads);

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

// Of this test program, as a client and as the one who starts all others. A client looks it up once.
const std::string &runtime_folder();

// Empty when it cannot be read.
std::string contents_of(const std::string &path);

}  // namespace quillon::test
