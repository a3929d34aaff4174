#include <quillon/swdrv.h>

#include <cstdint>
#include <iostream>

int main()
{
    std::uint32_t type = 0;
    DEV_SWDRV_PMGR_InitiateProcessResource();
    const bool answered = DEV_SWDRV_PMGR_GetPortType(1, 1, &type) != 0;
    std::cout << answered << ' ' << type << '\n';
}
