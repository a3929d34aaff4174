// An application process under load: `soak_client PAGE FIRST REQUESTERS LOCKERS` calls in as many threads until its
// standard input ends. The threads' places on the page begin with FIRST: those that ask the driver process, and then
// those that take and give the packet path's semaphore.
#include <fcntl.h>
#include <sched.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

#include "e2e/support/monotonic_clock.h"
#include "e2e/support/soak_page.h"
#include "quillon/platform.h"
#include "quillon/swdrv.h"

namespace {

using quillon::test::monotonic_now;
using quillon::test::raise_to;
using quillon::test::SoakPage;

constexpr uint32_t packet_path_semaphore = 17;

SoakPage &page_at(const char *path)
{
    const int file = open(path, O_RDWR | O_CLOEXEC);
    void *const page = mmap(nullptr, sizeof(SoakPage), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (page == MAP_FAILED) {
        perror(path);
        exit(EXIT_FAILURE);
    }
    close(file);
    return *static_cast<SoakPage *>(page);
}

enum class Outcome { served, failed, wrong };

Outcome ask()
{
    // Of the two chips that each unit has.
    switch (DEV_SWDRV_PMGR_GetLocalUnitChipsetNumber()) {
        case 0:
            return Outcome::failed;
        case 2:
            return Outcome::served;
        default:
            return Outcome::wrong;
    }
}

Outcome take_and_give()
{
    switch (SYSFUN_TakeSem(packet_path_semaphore, QUILLON_WAIT_FOREVER)) {
        case QUILLON_STATUS_OK:
        case QUILLON_STATUS_RECOVERED:
            return SYSFUN_GiveSem(packet_path_semaphore) == QUILLON_STATUS_OK ? Outcome::served : Outcome::wrong;
        case QUILLON_STATUS_NO_DRIVER:
            return Outcome::failed;
        default:
            return Outcome::wrong;
    }
}

void rest(SoakPage &page)
{
    ++page.resting;
    while (page.paused) {
        sched_yield();
    }
    --page.resting;
}

void make_calls(Outcome (*call)(), SoakPage &page, SoakPage::Thread &self, const std::atomic<bool> &ends)
{
    while (!ends) {
        if (page.paused) {
            rest(page);
        }
        const int64_t begun = monotonic_now();
        const Outcome outcome = call();
        const int64_t ended = monotonic_now();
        raise_to(page.longest, ended - begun);
        switch (outcome) {
            case Outcome::served:
                ++self.served;
                break;
            case Outcome::failed:
                ++self.failed;
                if (const int64_t killed_at = page.killed_at; begun < killed_at && killed_at < ended) {
                    raise_to(page.longest_failed, ended - killed_at);
                }
                break;
            case Outcome::wrong:
                ++self.wrong;
                break;
        }
    }
}

}  // namespace

// In place of the C library's: a process for each failure report would be most of the load.
extern "C" [[gnu::visibility("default")]] int system(const char * /*command*/)
{
    return 0;
}

int main(int argc, char **argv)
{
    // Failure reports are part of the load; nobody reads them.
    if (argc != 5 || freopen("/dev/null", "w", stdout) == nullptr) {
        return EXIT_FAILURE;
    }
    SoakPage &page = page_at(argv[1]);
    auto *self = &page.threads.at(strtoul(argv[2], nullptr, 10));
    DEV_SWDRV_PMGR_InitiateProcessResource();
    uint32_t semaphore = 0;
    SYSFUN_GetSem(packet_path_semaphore, &semaphore);

    std::atomic<bool> ends = false;
    std::vector<std::jthread> threads;
    for (long i = strtol(argv[3], nullptr, 10); i > 0; --i) {
        threads.emplace_back(make_calls, ask, std::ref(page), std::ref(*self++), std::cref(ends));
    }
    for (long i = strtol(argv[4], nullptr, 10); i > 0; --i) {
        threads.emplace_back(make_calls, take_and_give, std::ref(page), std::ref(*self++), std::cref(ends));
    }
    while (getchar() != EOF) {
    }
    ends = true;
    return 0;
}
