// An application process for the tests: `client THREADS` makes one call in each of its threads for every line that it
// reads, and tells what happens:
//
//     calling <thread>                                before each call
//     dumped <command>                                a failure report asked for a dump of the task's stack
//     returned <result> at <monotonic nanoseconds>    after each call; when it failed, as soon as it had
//     done                                            after all of them
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#include <string>
#include <thread>
#include <vector>

#include "e2e/support/monotonic_clock.h"
#include "quillon/platform.h"
#include "quillon/swdrv.h"

namespace {

using quillon::test::monotonic_now;

thread_local int64_t failed_at;

void call_once()
{
    failed_at = 0;
    printf("calling %u\n", SYSFUN_TaskIdSelf());
    const unsigned result = DEV_SWDRV_PMGR_GetLocalUnitChipsetNumber();
    printf("returned %u at %lld\n", result, static_cast<long long>(failed_at != 0 ? failed_at : monotonic_now()));
}

}  // namespace

// In place of the C library's: a process for each dump says nothing more, and takes its time.
extern "C" [[gnu::visibility("default")]] int system(const char *command)
{
    failed_at = monotonic_now();
    printf("dumped %s\n", command);
    return 0;
}

int main(int argc, char **argv)
{
    const int threads = argc == 2 ? atoi(argv[1]) : 1;
    setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    DEV_SWDRV_PMGR_InitiateProcessResource();
    for (int letter; (letter = getchar()) != EOF;) {
        if (letter != '\n') {
            continue;
        }
        std::vector<std::jthread> calls;
        for (int i = 0; i < threads; ++i) {
            calls.emplace_back(call_once);
        }
        calls.clear();
        puts("done");
    }
    return 0;
}
