#include "host/driver/pid_file.h"

#include <errno.h>
#include <fcntl.h>
#include <fmt/format.h>
#include <stdio.h>
#include <unistd.h>

#include <system_error>

namespace quillon::driver {
namespace {

constexpr char name[] = "driver.pid";
constexpr char unfinished_name[] = ".driver.pid.new";

}  // namespace

// Written under another name first: whoever finds the file finds a whole number in it.
PidFile::PidFile(int folder) : folder_(folder)
{
    const std::string text = fmt::format("{}\n", getpid());
    const int file = openat(folder, unfinished_name, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600);
    const bool written = file >= 0 && write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    const int write_error = errno;
    if (file >= 0) {
        close(file);
    }
    if (!written) {
        throw std::system_error(write_error, std::generic_category(), "cannot write driver.pid");
    }
    if (renameat(folder, unfinished_name, folder, name) != 0) {
        throw std::system_error(errno, std::generic_category(), "cannot rename driver.pid");
    }
}

PidFile::~PidFile()
{
    unlinkat(folder_, name, 0);
}

}  // namespace quillon::driver
