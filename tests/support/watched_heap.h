// The heap as the tests of heap envelopes see it: blocks of one size are filled, counted or refused.
#pragma once

#include <cstddef>
#include <cstdint>

namespace quillon::test {

// What the watched blocks hold when they are handed out.
inline constexpr uint8_t heap_garbage = 0xE7;

// Watches all blocks of one size while it lives. One at a time.
class WatchedHeap {
  public:
    enum class Memory { there, exhausted };

    explicit WatchedHeap(size_t size, Memory memory = Memory::there);
    ~WatchedHeap();
    WatchedHeap(const WatchedHeap &) = delete;
    WatchedHeap &operator=(const WatchedHeap &) = delete;

    // Blocks asked for, whether they were there or not.
    int asked() const;
    // Blocks handed out and not freed.
    int held() const;
};

}  // namespace quillon::test
