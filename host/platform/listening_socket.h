#ifndef QUILLON_HOST_PLATFORM_LISTENING_SOCKET_H
#define QUILLON_HOST_PLATFORM_LISTENING_SOCKET_H

#include <sys/un.h>

#include "host/platform/descriptor.h"

namespace quillon::host {

// A socket for this user's processes to connect to, in place of what a crashed run left. It is made as `unready` and
// then renamed: whoever finds `served` finds it listening, with its mode set. Empty, with errno set, when it cannot be
// had.
Descriptor listening_socket(const sockaddr_un &unready, const sockaddr_un &served);

}  // namespace quillon::host

#endif
