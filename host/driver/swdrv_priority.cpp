// Priorities and traffic classes.
#include "host/driver/handlers.h"
#include "host/driver/request_values.h"
#include "swdrv/commands.h"

namespace quillon::driver {

void add_swdrv_priority(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::SetPortUserDefaultPriority>([&model](const swdrv::PortWord &request) {
        return model.lock()->chips.priorities.set_default_priority(logical(request), request.value);
    });
    dispatcher.on<swdrv::SetPriorityMapping>([&model](const swdrv::PortPriorityMapping &request) {
        return model.lock()->chips.priorities.set_mapping(logical(request), request.mapping);
    });
    dispatcher.on<swdrv::SetPriorityMappingPerSystem>([&model](const swdrv::PriorityMapping &request) {
        return model.lock()->chips.priorities.set_system_mapping(request.mapping);
    });
    dispatcher.on<swdrv::SetNumberOfTrafficClassByPort>([&model](const swdrv::PortWord &request) {
        return model.lock()->chips.priorities.set_classes(logical(request), request.value);
    });
    dispatcher.on<swdrv::SetNumberOfTrafficClass>([&model](const swdrv::Word &request) {
        return model.lock()->chips.priorities.set_system_classes(request.value);
    });
    dispatcher.on<swdrv::SetStackingPortPriorityMapping>([&model](const swdrv::PortPriorityMapping &request) {
        return model.lock()->chips.priorities.set_stacking_mapping(logical(request), request.mapping);
    });
}

}  // namespace quillon::driver
