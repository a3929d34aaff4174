// Ageing and learning of MAC addresses.
#include <chrono>

#include "amtrdrv/commands.h"
#include "host/driver/handlers.h"
#include "host/driver/on_switch.h"

namespace quillon::driver {
namespace {

constexpr uint32_t all_parts = 0;
constexpr uint32_t learning_part = 1;
constexpr uint32_t ageing_part = 2;

bool stop(Switch &chips, uint32_t part)
{
    if (part > ageing_part) {
        return false;
    }
    if (part == all_parts || part == learning_part) {
        for (PortLearning &port : chips.chips.learning) {
            port.learns = false;
        }
    }
    if (part == all_parts || part == ageing_part) {
        chips.macs().set_ageing_time({});
    }
    return true;
}

}  // namespace

void add_amtrdrv_learning(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_switch<amtrdrv::SetAgeingTime>(dispatcher, model, [](Switch &chips, const amtrdrv::Word &request) {
        return chips.macs().set_ageing_time(std::chrono::seconds(request.value));
    });
    on_switch<amtrdrv::DisableHardwareLearning>(
        dispatcher, model,
        [](Switch &chips, const ipc::Unused<4> & /*request*/) { return stop(chips, learning_part); });
    on_switch<amtrdrv::Disable>(dispatcher, model,
                                [](Switch &chips, const amtrdrv::Word &request) { return stop(chips, request.value); });
    on_switch<amtrdrv::SetInterfaceConfig>(
        dispatcher, model, [](Switch &chips, const amtrdrv::InterfaceConfig &request) {
            const auto [unit, port, learns] = request;
            PortLearning *const learning = chips.chips.learning.find({.unit = unit, .port = port});
            if (learning == nullptr || learns > 1) {
                return false;
            }
            learning->learns = learns == 1;
            return true;
        });
}

}  // namespace quillon::driver
