// Ageing, learning and the address table service itself.
#include "quillon/amtrdrv.h"
#include "support/wire_row.h"

namespace quillon::test {
namespace {

// clang-format off
const WireRows learning{
    {.function = "DEV_AMTRDRV_PMGR_SetAgeingTime",
     .call = [](Arguments &) { return DEV_AMTRDRV_PMGR_SetAgeingTime(0x14131211); },
     .code = 0, .msg_size = 8, .request = "+20 11121314", .reply_size = 4},

    // Four bytes are counted although nothing is passed.
    {.function = "DEV_AMTRDRV_PMGR_DisableHardwareLearning",
     .call = [](Arguments &) { return DEV_AMTRDRV_PMGR_DisableHardwareLearning(); },
     .code = 30, .msg_size = 8, .request = "+20 00000000", .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_Disable",
     .call = [](Arguments &) { return DEV_AMTRDRV_PMGR_Disable(0x14131211); },
     .code = 31, .msg_size = 8, .request = "+20 11121314", .reply_size = 4},

    {.function = "DEV_AMTRDRV_PMGR_SetInterfaceConfig",
     .call = [](Arguments &) { return DEV_AMTRDRV_PMGR_SetInterfaceConfig(0x14131211, 0x24232221, 0x34333231); },
     .code = 32, .msg_size = 16, .request = "+20 11121314 +24 21222324 +28 31323334", .reply_size = 4},
};
// clang-format on

}  // namespace
}  // namespace quillon::test
