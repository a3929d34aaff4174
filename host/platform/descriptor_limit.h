// How many descriptors this process may have. C library only.
#ifndef QUILLON_HOST_PLATFORM_DESCRIPTOR_LIMIT_H
#define QUILLON_HOST_PLATFORM_DESCRIPTOR_LIMIT_H

namespace quillon::host {

// Raises the soft limit on descriptors by a step, up to the hard one. False when there is nothing left to raise.
bool raise_descriptor_limit();

}  // namespace quillon::host

#endif
