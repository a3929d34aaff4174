#include "host/platform/runtime_path.h"

#include <stdio.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <unistd.h>

namespace quillon::host {
namespace {

const char *set_variable(const char *name)
{
    const char *value = getenv(name);  // NOLINT(concurrency-mt-unsafe): at start-up only
    return value != nullptr && *value != '\0' ? value : nullptr;
}

sockaddr_un address_of(const char *folder, const char *file, SocketName name)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const char *format = name == SocketName::served ? "%s/%s" : "%s/.%s.new";
    (void)snprintf(address.sun_path, sizeof address.sun_path, format, folder, file);
    return address;
}

}  // namespace

PathFault locate_runtime_folder(RuntimePath &path)
{
    int length;
    if (const char *own = set_variable("QUILLON_RUNTIME_DIR")) {
        length = snprintf(path.text, sizeof path.text, "%s", own);
    } else if (const char *user = set_variable("XDG_RUNTIME_DIR")) {
        length = snprintf(path.text, sizeof path.text, "%s/quillon", user);
    } else {
        length = snprintf(path.text, sizeof path.text, "/tmp/quillon-%u", geteuid());
    }

    if (length < 0 || static_cast<size_t>(length) >= sizeof path.text) {
        return PathFault::too_long;
    }
    return path.text[0] == '/' ? PathFault::none : PathFault::not_absolute;
}

sockaddr_un queue_address(const char *folder, uint32_t key, SocketName name)
{
    char file[sizeof "queue-4294967295"];
    (void)snprintf(file, sizeof file, "queue-%u", key);
    return address_of(folder, file, name);
}

sockaddr_un control_address(const char *folder, SocketName name)
{
    return address_of(folder, "control.sock", name);
}

sockaddr_un memory_address(const char *folder, SocketName name)
{
    return address_of(folder, "memory.sock", name);
}

}  // namespace quillon::host
