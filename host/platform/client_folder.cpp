#include "host/platform/client_folder.h"

#include <atomic>

#include "host/platform/fork_lock.h"
#include "host/platform/runtime_path.h"

namespace quillon::host {
namespace {

constinit RuntimePath folder = {};
constinit std::atomic<bool> found = false;

}  // namespace

const char *client_runtime_folder()
{
    if (!found.load(std::memory_order_acquire)) {
        const ForkLock lock;
        if (!found.load(std::memory_order_relaxed) && locate_runtime_folder(folder) != PathFault::none) {
            return nullptr;
        }
        found.store(true, std::memory_order_release);
    }
    return folder.text;
}

}  // namespace quillon::host
