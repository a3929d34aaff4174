#include <errno.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <utility>

#include "host/platform/descriptor.h"
#include "host/platform/error_text.h"
#include "host/platform/queue_server.h"
#include "host/platform/runtime_path.h"

namespace quillon::host {
namespace {

std::string located_path()
{
    RuntimePath path;
    switch (locate_runtime_folder(path)) {
        case PathFault::none:
            break;
        case PathFault::too_long:
            throw QueueError("the run-time folder's path '" + std::string(path.text) + "...' is too long: at most " +
                             std::to_string(kLongestRuntimePath) + " bytes fit into a socket's address");
        case PathFault::not_absolute:
            throw QueueError("the run-time folder's path '" + std::string(path.text) + "' is not absolute");
    }
    return path.text;
}

[[noreturn]] void refuse(const std::string &path, const std::string &what)
{
    throw QueueError("run-time folder '" + path + "' " + what + " (QUILLON_RUNTIME_DIR chooses another)");
}

void check_private(int folder, const std::string &path)
{
    struct stat status;
    if (fstat(folder, &status) != 0) {
        refuse(path, "cannot be examined: " + error_text());
    }
    if (status.st_uid != geteuid()) {
        refuse(path, "belongs to another user, " + std::to_string(status.st_uid));
    }
    if ((status.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
        refuse(path, "is open to other users: its mode must be 0700");
    }
}

}  // namespace

RuntimeFolder RuntimeFolder::claim()
{
    std::string path = located_path();
    if (mkdir(path.c_str(), S_IRWXU) != 0 && errno != EEXIST) {
        refuse(path, "cannot be created: " + error_text());
    }

    Descriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!folder) {
        const bool no_folder = errno == ENOTDIR || errno == ELOOP;
        refuse(path, no_folder ? std::string("is a symbolic link or no folder") : "cannot be opened: " + error_text());
    }
    check_private(folder.number(), path);

    if (flock(folder.number(), LOCK_EX | LOCK_NB) != 0) {
        refuse(path, errno == EWOULDBLOCK ? std::string("is in use by another driver process")
                                          : "cannot be locked: " + error_text());
    }
    return {std::move(path), std::move(folder)};
}

RuntimeFolder::RuntimeFolder(std::string path, Descriptor folder) noexcept
    : path_(std::move(path)), folder_(std::move(folder))
{
}

}  // namespace quillon::host
