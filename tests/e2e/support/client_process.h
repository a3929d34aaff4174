// Application processes that make calls through the libraries, each in several threads.
#pragma once

#include <stdint.h>
#include <sys/types.h>

#include <string>
#include <vector>

#include "e2e/support/child.h"

namespace quillon::test {

struct Return {
    unsigned result;
    int64_t at;  // monotonic, in nanoseconds
};

class ClientProcess : public Child {
  public:
    ClientProcess(const std::string &folder, int threads);

    // Makes a call in each thread.
    void call();
    // Until each of them waits for its reply.
    void wait_until_waiting();
    // Until all have returned. What they printed meanwhile stands in `reports`.
    std::vector<Return> returns(std::vector<std::string> *reports = nullptr);

  private:
    const int threads_;
};

}  // namespace quillon::test
