#include "host/platform/descriptor_limit.h"

#include <sys/resource.h>

namespace quillon::host {

bool raise_descriptor_limit()
{
    // A step and not all of it: programs walk up to the soft limit, and select() sees no descriptor past 1,023.
    constexpr rlim_t kStep = 1024;

    rlimit limit;
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= limit.rlim_max) {
        return false;
    }
    limit.rlim_cur = limit.rlim_max - limit.rlim_cur > kStep ? limit.rlim_cur + kStep : limit.rlim_max;
    return setrlimit(RLIMIT_NOFILE, &limit) == 0;
}

}  // namespace quillon::host
