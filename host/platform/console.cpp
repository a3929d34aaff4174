// The debug console: subsystems that register with it, and the menu that leads to them.
#include <stdarg.h>
#include <stdint.h>
#include <stdio.h>

#include "host/platform/console_input.h"
#include "host/platform/fork_lock.h"
#include "quillon/platform.h"
#include "quillon/workstation.h"

namespace quillon::host {
namespace {

// Each has a hexadecimal digit as its key.
constexpr uint32_t kMostSubsystems = 16;
constexpr char kKeys[kMostSubsystems + 1] = "0123456789abcdef";

struct Subsystem {
    const char *name;
    uint32_t number;
    void (*entry)();
};

struct Subsystems {
    Subsystem list[kMostSubsystems];
    uint32_t count;

    uint32_t add(const Subsystem &subsystem)
    {
        for (uint32_t i = 0; i < count; ++i) {
            if (list[i].number == subsystem.number) {
                return list[i].entry == subsystem.entry ? QUILLON_STATUS_OK : QUILLON_STATUS_BAD_ARGUMENT;
            }
        }
        if (count == kMostSubsystems) {
            return QUILLON_STATUS_TOO_MANY_SUBSYSTEMS;
        }
        list[count++] = subsystem;
        return QUILLON_STATUS_OK;
    }

    // Null for any other key.
    const Subsystem *chosen_by(uint8_t key) const
    {
        const auto lower_case = static_cast<char>(key >= 'A' && key <= 'F' ? key - 'A' + 'a' : key);
        for (uint32_t i = 0; i < count; ++i) {
            if (kKeys[i] == lower_case) {
                return &list[i];
            }
        }
        return nullptr;
    }
};

constinit Subsystems subsystems = {};

// Subsystems are added by any thread, and their entries may register others.
Subsystems registered()
{
    const ForkLock lock;
    return subsystems;
}

void print_menu(const Subsystems &offered)
{
    BACKDOOR_MGR_Printf("\r\n-----DEBUG CONSOLE:-----\r\n");
    for (uint32_t i = 0; i < offered.count; ++i) {
        BACKDOOR_MGR_Printf("[%c]:%s (%u)\r\n", kKeys[i], offered.list[i].name,
                            static_cast<unsigned>(offered.list[i].number));
    }
    BACKDOOR_MGR_Printf("[Q]:Quit\r\n------------------------\r\nSelect:");
}

}  // namespace
}  // namespace quillon::host

using namespace quillon::host;

uint32_t BACKDOOR_MGR_Register_SubsysBackdoorFunc_CallBack(const char *name, uint32_t number, void (*entry)())
{
    if (name == nullptr || entry == nullptr) {
        return QUILLON_STATUS_BAD_ARGUMENT;
    }
    const ForkLock lock;
    return subsystems.add({.name = name, .number = number, .entry = entry});
}

void BACKDOOR_MGR_Printf(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    vprintf(format, arguments);
    va_end(arguments);
}

uint32_t BACKDOOR_MGR_GetChar(void)
{
    return read_key();
}

uint8_t quillon_console_run(void)
{
    for (;;) {
        const Subsystems offered = registered();
        print_menu(offered);
        const uint8_t key = read_key();
        if (key == kNoKey || key == 'Q' || key == 'q') {
            BACKDOOR_MGR_Printf("\r\n");
            fflush(stdout);
            return key == kNoKey ? 0 : 1;
        }
        const Subsystem *const chosen = offered.chosen_by(key);
        if (chosen == nullptr) {
            BACKDOOR_MGR_Printf("Unknown option\r\n");
        } else {
            chosen->entry();
        }
    }
}
