// A client whose run-time folder cannot be.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <string>

#include "support.h"

namespace quillon::test {
namespace {

// Fault: a client looks for the queues somewhere else than the driver process makes them, or past a cut path.
TEST(ClientRuntimeFolder, IsSaidToBeImpossible)
{
    // Runs the program anew: this process may have looked the folder up already.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const std::string &path : {std::string("relative"), "/tmp/" + std::string(100, 'q')}) {
        const auto attach_and_call = [&path] {
            setenv("QUILLON_RUNTIME_DIR", path.c_str(), 1);
            void *handle = nullptr;
            const uint32_t attached = SYSFUN_GetMsgQ(kQueue, 1, &handle);
            Envelope envelope(Ask::echo);
            exit(exchange(handle, envelope) == attached ? static_cast<int>(attached) : 1);
        };
        EXPECT_EXIT(attach_and_call(), testing::ExitedWithCode(QUILLON_STATUS_BAD_RUNTIME_DIR), "");
    }
}

}  // namespace
}  // namespace quillon::test
