// The engineering menu on the debug console.
#include <stdint.h>
#include <stdio.h>

#include "quillon/platform.h"
#include "quillon/swdrvl3.h"

namespace {

// What stands in the low byte of a key that could not be read.
constexpr uint8_t console_failure = 0xFF;

void print_menu()
{
    BACKDOOR_MGR_Printf("\r\n-----DEV_SWDRVL3_PMGR BACKDOOR MENU:-----\r\n");
    BACKDOOR_MGR_Printf("[0]:Set DEV_SWDRVL3_PMGR_EnableIPv4Routing flag\r\n");
    BACKDOOR_MGR_Printf("[1]:Set DEV_SWDRVL3_PMGR_EnableIPv6Routing flag\r\n");
    BACKDOOR_MGR_Printf("[2]:Set DEV_SWDRVL3_PMGR_DisableIPv4Routing flag\r\n");
    BACKDOOR_MGR_Printf("[3]:Set DEV_SWDRVL3_PMGR_DisableIPv6Routing flag\r\n");
    BACKDOOR_MGR_Printf("[Q]:Quit\r\n");
    BACKDOOR_MGR_Printf("----------------------------\r\nSelect:");
}

const char *truth(uint8_t result)
{
    return result == 1 ? "TRUE" : "FALSE";
}

}  // namespace

uint32_t DEV_SWDRVL3_PMGR_Create_InterCSC_Relation(void)
{
    constexpr uint32_t subsystem_number = 24;
    return BACKDOOR_MGR_Register_SubsysBackdoorFunc_CallBack("DEVSWDRVL3_PMGR", subsystem_number,
                                                             DEV_SWDRVL3_PMGR_Backdoor_Main);
}

void DEV_SWDRVL3_PMGR_Backdoor_Main(void)
{
    for (;;) {
        print_menu();
        const auto key = static_cast<uint8_t>(BACKDOOR_MGR_GetChar());
        switch (key) {
            case console_failure:
                printf("%s: BACKDOOR_MGR_GetChar fail\n", __func__);
                return;
            case 'Q':
            case 'q':
                return;
            case '0':
                BACKDOOR_MGR_Printf("DEV_SWDRVL3_PMGR_EnableIPv4Routing() returns %s\n",
                                    truth(DEV_SWDRVL3_PMGR_EnableIPv4Routing(1, 0)));
                break;
            case '1':
                BACKDOOR_MGR_Printf("DEV_SWDRVL3_PMGR_EnableIPv6Routing() returns %s\n",
                                    truth(DEV_SWDRVL3_PMGR_EnableIPv6Routing(1, 0)));
                break;
            case '2':
                BACKDOOR_MGR_Printf("DEV_SWDRVL3_PMGR_DisableIPv4Routing() returns %s\n",
                                    truth(DEV_SWDRVL3_PMGR_DisableIPv4Routing(0, 0)));
                break;
            case '3':
                BACKDOOR_MGR_Printf("DEV_SWDRVL3_PMGR_DisableIPv6Routing() returns %s\n",
                                    truth(DEV_SWDRVL3_PMGR_DisableIPv6Routing(0, 0)));
                break;
            default:
                BACKDOOR_MGR_Printf("Unknow option\r\n");
        }
    }
}
