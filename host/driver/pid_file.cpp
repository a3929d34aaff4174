#include "host/driver/pid_file.h"

#include <errno.h>
#include <fcntl.h>
#include <fmt/format.h>
#include <stdio.h>
#include <unistd.h>

#include <system_error>

#include "host/platform/descriptor.h"

namespace quillon::driver {
namespace {

constexpr char name[] = "driver.pid";
constexpr char unfinished_name[] = ".driver.pid.new";

}  // namespace

// Written under another name first: whoever finds the file finds a whole number in it.
PidFile::PidFile(int folder) : folder_(folder)
{
    const std::string text = fmt::format("{}\n", getpid());
    const host::Descriptor file(
        openat(folder, unfinished_name, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!file || write(file.number(), text.data(), text.size()) != static_cast<ssize_t>(text.size()) ||
        renameat(folder, unfinished_name, folder, name) != 0) {
        throw std::system_error(errno, std::generic_category(), "cannot write driver.pid");
    }
}

PidFile::~PidFile()
{
    unlinkat(folder_, name, 0);
}

}  // namespace quillon::driver
