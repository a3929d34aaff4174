// The run-time folder of one run.
#pragma once

#include <string>

namespace quillon::run {

// Made with a name of its own, open to this user only, and removed with the object.
class RunFolder {
  public:
    // In $XDG_RUNTIME_DIR, else in /tmp. Throws std::system_error.
    RunFolder();
    ~RunFolder() { remove(); }
    RunFolder(const RunFolder &) = delete;
    RunFolder &operator=(const RunFolder &) = delete;

    const std::string &path() const { return path_; }

    // With all that is in it; fine when it is gone already.
    void remove() const;

  private:
    std::string path_;
};

}  // namespace quillon::run
