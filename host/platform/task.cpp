#include <sys/syscall.h>
#include <unistd.h>

#include "quillon/platform.h"

uint32_t SYSFUN_TaskIdSelf(void)
{
    return static_cast<uint32_t>(syscall(SYS_gettid));
}
