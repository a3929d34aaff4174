// What happens to the switch from outside.
#pragma once

#include <string>
#include <vector>

#include "e2e/support/driver_process.h"

namespace quillon::test {

// Runs quillon-ctl on the driver process in `folder`.
Ended control(const std::string &folder, std::vector<std::string> words);

}  // namespace quillon::test
