// Names that both ends of a socket must agree on. C library only.
#ifndef QUILLON_HOST_PLATFORM_RUNTIME_PATH_H
#define QUILLON_HOST_PLATFORM_RUNTIME_PATH_H

#include <sys/un.h>

#include <cstddef>
#include <cstdint>

namespace quillon::host {

// The longest path of a run-time folder: what a socket's address has room for, less the longest name of a queue in it.
inline constexpr size_t kLongestRuntimePath = sizeof(sockaddr_un::sun_path) - sizeof("/.queue-4294967295.new");

struct RuntimePath {
    char text[kLongestRuntimePath + 1];
};

enum class PathFault { none, too_long, not_absolute };

// Finds the folder by the environment; creates and checks nothing. `path` holds as much as fits when there is a fault.
PathFault locate_runtime_folder(RuntimePath &path);

enum class SocketName {
    served,   // what clients connect to
    unready,  // while it is being made
};

sockaddr_un queue_address(const char *folder, uint32_t key, SocketName name = SocketName::served);

// Where the driver process takes commands from outside.
sockaddr_un control_address(const char *folder, SocketName name = SocketName::served);

// Where clients attach to the memory that the run shares.
sockaddr_un memory_address(const char *folder, SocketName name = SocketName::served);

}  // namespace quillon::host

#endif
