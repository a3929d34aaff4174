#include "e2e/support/control.h"

namespace quillon::test {

Ended control(const std::string &folder, std::vector<std::string> words)
{
    words.insert(words.begin(), QUILLON_CTL);
    return run_to_end(words, {{"QUILLON_RUNTIME_DIR", folder}});
}

}  // namespace quillon::test
