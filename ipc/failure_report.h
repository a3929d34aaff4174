// What the library prints when the platform fails it.
#pragma once

#include <stdint.h>

namespace quillon::ipc {

// Prints the report on standard output and dumps the user stack of the calling task. `send_line`: the family prints the
// second line too.
[[gnu::cold, gnu::noinline]] void report_failure(const void *queue, const char *name, uint32_t line, uint32_t status,
                                                 bool send_line);

// Prints that there was no memory for the envelope of `size` bytes of a request of the function `name`.
[[gnu::cold, gnu::noinline]] void report_allocation_failure(const char *name, uint32_t line, uint32_t size);

// Prints that the start-up function `name` could not attach to a queue.
[[gnu::cold, gnu::noinline]] void report_attach_failure(const char *name);

}  // namespace quillon::ipc
