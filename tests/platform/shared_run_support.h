// What the tests of shared memory have in common.
#ifndef QUILLON_TESTS_PLATFORM_SHARED_RUN_SUPPORT_H
#define QUILLON_TESTS_PLATFORM_SHARED_RUN_SUPPORT_H

#include <gtest/gtest.h>
#include <stddef.h>
#include <stdint.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <thread>

#include "host/platform/shared_run.h"
#include "quillon/platform.h"
#include "support.h"

namespace quillon::test {

inline constexpr uint32_t kSemaphore = 17;
inline constexpr uint32_t kOtherSemaphore = 18;
inline constexpr uint32_t kSegment = 6;
inline constexpr size_t kReceiveArea = 64 * 1024;
inline constexpr size_t kTransmitArea = 32 * 1024;

inline host::SharedLayout layout()
{
    return {.segments = {{kSegment, 496}, {9, 100'000}},
            .semaphores = {kSemaphore, kOtherSemaphore},
            .receive_area = kReceiveArea,
            .transmit_area = kTransmitArea};
}

// In a process of its own, so that the test program stays one that was never attached to memory.
inline void as_client(const std::function<void()> &body)
{
    Application(body).expect_success();
}

// A driver process that shares memory, whose first byte tells its run from others. Tells 'l' for a loss of kSemaphore.
class MemoryDriver : public Process {
  public:
    explicit MemoryDriver(uint8_t mark, const host::SharedLayout &shared = layout(), const Events *losses = nullptr)
        : Process([&](const auto &ready) {
              const auto folder = host::RuntimeFolder::claim();
              const host::SharedRun run(folder, shared, [losses](const host::SemaphoreLoss &loss) {
                  if (losses != nullptr) {
                      losses->tell(loss.key == kSemaphore && loss.times == 1 && loss.holder > 0 ? 'l' : '?');
                  }
              });
              run.segment(kSegment)[0] = std::byte{mark};
              ready();
              pause();
              return 0;
          })
    {
    }
};

inline uint32_t take(uint32_t timeout = QUILLON_WAIT_FOREVER)
{
    return SYSFUN_TakeSem(kSemaphore, timeout);
}

inline uint32_t give()
{
    return SYSFUN_GiveSem(kSemaphore);
}

}  // namespace quillon::test

#endif
