// The stack as earlier calls leave it, for what must not depend on what stands there.
#pragma once

#include <cstddef>
#include <cstdint>

namespace quillon::test {

inline constexpr uint8_t stack_garbage = 0xDB;

// Leaves garbage where the functions that are called next will have their frames.
[[gnu::noinline]] inline void leave_garbage_on_the_stack()
{
    volatile uint8_t frame[32 * 1024];
    for (volatile uint8_t &byte : frame) {
        byte = stack_garbage;
    }
}

}  // namespace quillon::test
