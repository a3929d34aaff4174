// Keys of the operator at the debug console.
#ifndef QUILLON_HOST_PLATFORM_CONSOLE_INPUT_H
#define QUILLON_HOST_PLATFORM_CONSOLE_INPUT_H

#include <cstdint>

namespace quillon::host {

// In the place of a key when none can be read any more. As a byte of the input it is no key and is passed over.
inline constexpr uint8_t kNoKey = 0xFF;

// Prints what stands in the buffer of standard output and waits for the next key. On a terminal that is any key, and
// the terminal is as it was when this returns, and when a key that means a signal (Ctrl-C) ends the process. Of a pipe
// or a file it is the next byte.
uint8_t read_key();

}  // namespace quillon::host

#endif
