#include "e2e/support/client_process.h"

#include <gtest/gtest.h>
#include <stdio.h>

#include "e2e/support/observe.h"

namespace quillon::test {

ClientProcess::ClientProcess(const std::string &folder, int threads)
    : Child({QUILLON_CLIENT, std::to_string(threads)}, {{"QUILLON_RUNTIME_DIR", folder}}), threads_(threads)
{
}

void ClientProcess::call()
{
    write_line("");
}

void ClientProcess::wait_until_waiting()
{
    for (int i = 0; i < threads_; ++i) {
        const std::string line = out().line();
        int thread = 0;
        ASSERT_EQ(sscanf(line.c_str(), "calling %d", &thread), 1) << line;
        wait_until("the thread waits for its reply", [&] { return waits_for_reply(pid(), thread); });
    }
}

std::vector<Return> ClientProcess::returns(std::vector<std::string> *reports)
{
    std::vector<Return> returned;
    for (std::string line = out().line(); line != "done" && !line.empty(); line = out().line()) {
        Return call{};
        if (sscanf(line.c_str(), "returned %u at %ld", &call.result, &call.at) == 2) {
            returned.push_back(call);
        } else if (reports != nullptr && !line.starts_with("calling ")) {
            reports->push_back(line);
        }
    }
    return returned;
}

}  // namespace quillon::test
