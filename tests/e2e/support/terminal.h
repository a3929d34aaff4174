// A program on a terminal of its own, as an operator has it.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "e2e/support/child.h"

namespace quillon::test {

class OnTerminal : public ChildBase {
  public:
    // `environment` adds to the test's own.
    explicit OnTerminal(const std::vector<std::string> &command,
                        const std::map<std::string, std::string> &environment = {});

    void type(const std::string &keys);
    // What the terminal shows: the program's newlines are returns and newlines here.
    Output &screen() { return screen_; }
    // Collects lines and echoes what is typed, as a shell expects to find it.
    bool in_line_mode() const;

  private:
    host::Descriptor keyboard_;
    Output screen_;
};

}  // namespace quillon::test
