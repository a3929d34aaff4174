// Who is at the other end of a connection.
#ifndef QUILLON_HOST_PLATFORM_PEER_H
#define QUILLON_HOST_PLATFORM_PEER_H

#include <sys/socket.h>
#include <unistd.h>

namespace quillon::host {

inline bool is_of_same_user(int socket)
{
    ucred peer;
    socklen_t size = sizeof peer;
    return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == geteuid();
}

}  // namespace quillon::host

#endif
