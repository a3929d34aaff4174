#include "host/run/run_folder.h"

#include <errno.h>
#include <stdlib.h>

#include <filesystem>
#include <system_error>

#include "host/platform/runtime_path.h"

namespace quillon::run {
namespace {

bool make_in(const std::string &parent, std::string &path)
{
    path = parent + "/quillon-run.XXXXXX";
    return path.size() <= host::kLongestRuntimePath && mkdtemp(path.data()) != nullptr;
}

}  // namespace

RunFolder::RunFolder()
{
    const char *const user_folder = getenv("XDG_RUNTIME_DIR");
    const bool has_user_folder = user_folder != nullptr && *user_folder == '/';
    // A session that is over leaves the variable behind without the folder.
    if (!(has_user_folder && make_in(user_folder, path_)) && !make_in("/tmp", path_)) {
        throw std::system_error(errno, std::generic_category(), "cannot make the run-time folder " + path_);
    }
}

void RunFolder::remove() const
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

}  // namespace quillon::run
