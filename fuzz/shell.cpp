// libFuzzer starts the processes of a merge with system(), with which the library shows the stack of a failed caller as
// well: that is left out, for it takes a hundred times as long as the call.
#include <dlfcn.h>
#include <string.h>

extern "C" [[gnu::visibility("default")]] int system(const char *command)
{
    constexpr char shows_stack[] = "cat /proc/";
    if (strncmp(command, shows_stack, sizeof shows_stack - 1) == 0) {
        return 0;
    }
    const auto c_library = reinterpret_cast<int (*)(const char *)>(dlsym(RTLD_NEXT, "system"));
    return c_library(command);
}
