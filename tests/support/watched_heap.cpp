#include "support/watched_heap.h"

#include <dlfcn.h>
#include <stdlib.h>
#include <string.h>

#include <array>

namespace quillon::test {
namespace {

struct Watch {
    size_t size = 0;
    bool exhausted = false;
    int asked = 0;
    std::array<void *, 16> held{};
};

// The tests of an executable run one after another, on one thread.
Watch watch;

template <class Function>
Function *next(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

void *allocate(size_t size)
{
    static auto *const real_malloc = next<void *(size_t)>("malloc");
    if (watch.size == 0 || size != watch.size) {
        return real_malloc(size);
    }
    ++watch.asked;
    if (watch.exhausted) {
        return nullptr;
    }
    void *block = real_malloc(size);
    memset(block, heap_garbage, size);
    for (void *&place : watch.held) {
        if (place == nullptr) {
            place = block;
            return block;
        }
    }
    abort();
}

void release(void *block)
{
    static auto *const real_free = next<void(void *)>("free");
    for (void *&place : watch.held) {
        if (block != nullptr && place == block) {
            place = nullptr;
        }
    }
    real_free(block);
}

}  // namespace

WatchedHeap::WatchedHeap(size_t size, Memory memory)
{
    watch = {.size = size, .exhausted = memory == Memory::exhausted};
}

WatchedHeap::~WatchedHeap()
{
    watch = {};
}

int WatchedHeap::asked() const
{
    return watch.asked;
}

int WatchedHeap::held() const
{
    int count = 0;
    for (const void *block : watch.held) {
        count += block != nullptr ? 1 : 0;
    }
    return count;
}

}  // namespace quillon::test

// Stand in front of the C library's, also for libquillon.
extern "C" [[gnu::visibility("default")]] void *malloc(size_t size) noexcept
{
    return quillon::test::allocate(size);
}

extern "C" [[gnu::visibility("default")]] void free(void *block) noexcept
{
    quillon::test::release(block);
}
