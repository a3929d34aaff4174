#ifndef QUILLON_HOST_PLATFORM_ERROR_TEXT_H
#define QUILLON_HOST_PLATFORM_ERROR_TEXT_H

#include <errno.h>

#include <string>
#include <system_error>

namespace quillon::host {

// What errno says, from any thread.
inline std::string error_text(int error = errno)
{
    return std::generic_category().message(error);
}

}  // namespace quillon::host

#endif
