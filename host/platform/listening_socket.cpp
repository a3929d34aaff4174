#include "host/platform/listening_socket.h"

#include <stdio.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillon::host {

Descriptor listening_socket(const sockaddr_un &unready, const sockaddr_un &served)
{
    unlink(unready.sun_path);
    Descriptor socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!socket || fchmod(socket.number(), S_IRUSR | S_IWUSR) != 0 ||
        bind(socket.number(), reinterpret_cast<const sockaddr *>(&unready), sizeof unready) != 0 ||
        listen(socket.number(), SOMAXCONN) != 0 || rename(unready.sun_path, served.sun_path) != 0) {
        return {};
    }
    return socket;
}

}  // namespace quillon::host
