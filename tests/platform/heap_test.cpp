// The request path of the client's half allocates nothing.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <atomic>

#include "support.h"

namespace {

std::atomic<size_t> allocations = 0;

}  // namespace

// The C library's own, under the names that it keeps for those who replace them.
extern "C" {
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *block, size_t size);

[[gnu::visibility("default")]] void *malloc(size_t size)
{
    ++allocations;
    return __libc_malloc(size);
}

[[gnu::visibility("default")]] void *calloc(size_t count, size_t size)
{
    ++allocations;
    return __libc_calloc(count, size);
}

[[gnu::visibility("default")]] void *realloc(void *block, size_t size)
{
    ++allocations;
    return __libc_realloc(block, size);
}
}

namespace quillon::test {
namespace {

TEST(Heap, IsNotUsedByCalls)
{
    const Driver driver;
    const size_t at_start = allocations;
    void *const volatile probe = malloc(1);
    free(probe);
    ASSERT_EQ(allocations, at_start + 1) << "allocations are not counted";

    void *const queue = attach();
    Envelope envelope(Ask::echo);
    const size_t before = allocations;
    uint32_t failed = 0;
    for (int i = 0; i < 100; ++i) {
        failed += exchange(queue, envelope) != QUILLON_STATUS_OK;
    }
    const size_t after = allocations;
    EXPECT_EQ(after, before);
    EXPECT_EQ(failed, 0u);
}

}  // namespace
}  // namespace quillon::test
