// Tells others in the run-time folder who the driver process is.
#pragma once

#include <string>

namespace quillon::driver {

// The file `driver.pid`: the process's id and a newline, there as long as the object lives.
class PidFile {
  public:
    // Throws std::system_error. What a crashed run left is replaced.
    explicit PidFile(int folder);
    ~PidFile();
    PidFile(const PidFile &) = delete;
    PidFile &operator=(const PidFile &) = delete;

  private:
    const int folder_;
};

}  // namespace quillon::driver
